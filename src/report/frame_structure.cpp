#include "report/frame_structure.h"

#include <chrono>
#include <vector>

#include "base/local_time.h"
#include "base/shown_text.h"
#include "report/frame_differences.h"
#include "sv/frame.h"
#include "sv/frame_words.h"

namespace subroutines {

namespace {

constexpr const char* NothingYet = "RUN tells here what a frame holds by its structure.";

void AddLine(std::string& text, const std::string& title, const std::string& value) {
  text += title + forms::report_field::ValueSign + value + '\n';
}

/// What comes in front of all fields.
std::vector<std::string> HeadLines(const sv::Frame& frame, bool readWhole,
                                   const packetroutines::SearchedFrame& searched,
                                   const platform::CodePage& code, const std::string& refused) {
  std::vector<std::string> lines;
  if (!readWhole) lines.emplace_back("The structure of this frame is not sound: see below.");
  if (!refused.empty()) {
    lines.push_back(platform::Escaped(refused));
    const std::string id = packetroutines::MisreadId(searched, frame, code);
    if (!id.empty()) lines.push_back(id);
    return lines;
  }
  for (const std::string& line : packetroutines::Differences(searched, frame, code)) {
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

void FrameStructure::Load() {
  report_.Structure.Text = NothingYet;
  report_.StructureDump.Text = std::string();
  report_.StructureDump.Visible = false;
}

void FrameStructure::Show(const platform::CapturedFrame& captured,
                          const packetroutines::SearchedFrame& searched,
                          const std::string& refused) {
  const sv::Frame frame = sv::ReadFrame(captured.Bytes, captured.Length);
  const std::vector<sv::WordLine> words = sv::FrameWords(frame);
  std::string text;
  for (const std::string& line :
       HeadLines(frame, words.front().Value == sv::WholeStructure, searched, code_, refused)) {
    text += forms::report_field::DifferenceSign + line + '\n';
  }
  if (text.empty()) text = "The rows tell the same.\n";
  text += '\n';
  AddLine(text, "Arrived", platform::MomentText(calendar_, captured.Arrived));
  for (const sv::WordLine& line : words) {
    if (line.Value.empty() && !line.Raw) {
      text += '\n' + line.Title + '\n';
    } else {
      AddLine(text, line.Title,
              line.Raw ? packetroutines::ShownOctets(line.Value, code_) : line.Value);
    }
  }
  report_.Structure.Text = text;
  std::string dump;
  for (const std::string& line : sv::DumpWords(captured.Bytes)) dump += line + '\n';
  report_.StructureDump.Text = dump;
  report_.StructureDump.Visible = true;
}

}  // namespace subroutines
