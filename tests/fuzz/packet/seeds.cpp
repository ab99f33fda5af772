// Writes inputs in which each view meets the frames that it is for, and others.

#include <string>
#include <vector>

#include "fuzz/packet/acts.h"
#include "fuzz/seed_folder.h"

namespace {

using fuzz::Act;
using fuzz::FrameKind;
using fuzz::Opening;

/// An input, act by act.
class Input {
 public:
  explicit Input(Opening opening, std::uint8_t form = 0) {
    Put(0).Put(1).Put(static_cast<std::uint8_t>(opening)).Put(form);
  }
  Input& Put(std::uint8_t byte) {
    bytes_ += static_cast<char>(byte);
    return *this;
  }
  Input& Do(Act act) { return Put(static_cast<std::uint8_t>(act)); }
  Input& Burst(std::uint8_t sender, FrameKind kind, std::uint8_t count, std::uint8_t first = 0,
               std::uint8_t second = 1) {
    Do(Act::Frames).Put(sender).Put(static_cast<std::uint8_t>(kind));
    return Put(first).Put(second).Put(count).Put(0);
  }
  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

constexpr std::uint8_t FirstSender = 0;
constexpr std::uint8_t SecondSender = 2;
constexpr std::uint8_t BothIds = 4;
/// Places in the table of counts.
constexpr std::uint8_t Five = 3;
constexpr std::uint8_t Block = 9;
constexpr std::uint8_t TwoBlocks = 11;
constexpr std::uint8_t Ring = 15;

void PutViews(fuzz::SeedFolder& folder) {
  for (std::size_t opening = 0; opening < fuzz::Openings; ++opening) {
    for (std::size_t kind = 0; kind < fuzz::FrameKinds; ++kind) {
      Input input(static_cast<Opening>(opening), 1);
      input.Burst(FirstSender, FrameKind::Sound, Block);
      input.Burst(BothIds, static_cast<FrameKind>(kind), TwoBlocks, 15, 0x88);
      input.Burst(SecondSender, static_cast<FrameKind>(kind), Five, 3, 2);
      input.Do(Act::AtPump).Put(2).Do(Act::Tab).Put(4).Put(0).Put(0).Put(0).Put(0).Put(0).Put(0);
      input.Burst(FirstSender, FrameKind::Sound, TwoBlocks);
      folder.Put(input.Bytes());
    }
  }
}

void PutRecordings(fuzz::SeedFolder& folder) {
  for (const int format : {0, 4, 8}) {
    Input input(Opening::Recorder, static_cast<std::uint8_t>(format + 1));
    input.Burst(FirstSender, FrameKind::Sound, Ring);
    input.Burst(SecondSender, FrameKind::Jumping, Ring, 7, 3);
    input.Do(Act::Press).Put(3).Do(Act::Elapse).Put(5);
    input.Do(Act::Click).Put(4);
    folder.Put(input.Bytes());
  }
}

void PutOthers(fuzz::SeedFolder& folder) {
  Input finder(Opening::Nothing);
  finder.Do(Act::Finder);
  for (std::uint8_t sender = 0; sender < 24; ++sender) {
    finder.Put(0).Put(sender).Put(0).Put(0).Put(1).Put(Five).Put(0).Put(3);
  }
  folder.Put(finder.Bytes());
  Input setup(Opening::Values);
  for (std::uint8_t field = 0; field < 15; ++field) {
    setup.Do(Act::Field).Put(field).Put(6).Do(Act::Press).Put(0);
    setup.Burst(FirstSender, FrameKind::Mixed, Block);
  }
  folder.Put(setup.Bytes());
  Input trouble(Opening::Recorder, 1);
  for (std::uint8_t what = 0; what < 8; ++what) {
    trouble.Do(Act::Trouble).Put(1).Put(what).Put(1).Put(0).Put(0).Put(what);
    trouble.Burst(BothIds, FrameKind::Sound, TwoBlocks);
  }
  folder.Put(trouble.Bytes());
  Input ends(Opening::Phasor);
  ends.Burst(FirstSender, FrameKind::Sound, TwoBlocks).Do(Act::Close).Put(0xFF);
  folder.Put(ends.Bytes());
}

}  // namespace

int main(int count, char** arguments) {
  return fuzz::WriteSeeds(count, arguments, [](fuzz::SeedFolder& folder) {
    PutViews(folder);
    PutRecordings(folder);
    PutOthers(folder);
  });
}
