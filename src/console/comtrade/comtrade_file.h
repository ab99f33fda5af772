#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "console/comtrade/comtrade_head.h"
#include "console/comtrade/sample_rows.h"
#include "console/comtrade/sample_sink.h"
#include "platform/services/file_system.h"

namespace console {

/// A pair of files, ".cfg" and ".dat", or, since 2013, one ".cff" that holds both.
enum class ComtradeFiles { Pair, Single };

/// Writes a COMTRADE recording as its samples come: of any rate, number of channels and length, in
/// the same little memory.
///
/// How many samples there are stands in front of them, and in a single file how many bytes, both
/// known at the end alone. So the configuration is written over the older one at each `Store`: in a
/// pair it only grows. A single file begins with room for the longest numbers, and the free text of
/// the section for people, which stands behind the configuration, fills what they leave. At any
/// time the files on the disk are whole up to the last `Store`, and no sample is ever copied. Where
/// the disk takes no more, the configuration tells what it took, and nothing is written behind it.
class ComtradeFile : public SampleSink {
 public:
  /// Begins the files: `path` is theirs without an extension, and older ones are emptied. In the
  /// head the number of samples is of no meaning.
  ComtradeFile(platform::FileSystem& files, ComtradeHead head, ComtradeFiles kind,
               const std::string& path);

  /// The paths of the files that are begun under such a path.
  static std::vector<std::string> PathsOf(ComtradeFiles kind, const std::string& path);

  void Add(std::span<const double> stored) override;
  void AddMissing(std::int64_t samples) override;
  /// Brings the samples to their file, and their number in front of them.
  void Store();
  /// The same for good; nothing comes behind it.
  void Finish();

  std::int64_t Samples() const { return head_.Samples; }
  /// The disk did not take all of them, and what is added is left out.
  bool Failed() const { return failed_; }

 private:
  /// What is written in front of the samples, or beside them.
  std::string HeadText() const;
  void WriteWaiting();
  void WriteHead();
  /// Samples that stand on the disk with all their bytes.
  std::int64_t WholeSamples() const;

  platform::FileSystem& files_;
  ComtradeHead head_;
  ComtradeFiles kind_;
  /// The configuration, or all in one.
  std::string headPath_;
  std::string dataPath_;
  SampleRows rows_;
  std::unique_ptr<platform::OutputFile> data_;
  /// Rows that are not written yet.
  std::string waiting_;
  /// Samples whose rows were written.
  std::int64_t written_ = 0;
  /// A write failed: what may stand behind it would have no place of its own.
  bool failed_ = false;
  std::vector<double> allMissing_;
  /// Bytes of a single file in front of its samples; 0 until they are known.
  std::size_t room_ = 0;
};

}  // namespace console
