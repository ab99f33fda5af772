#include "adapters/system_capture_layer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using adapter_tests::Marked;
using adapter_tests::PcapFile;
using adapter_tests::PcapngFile;
using adapters::NetworkInterface;
using adapters::Reach;
using support::FailureOf;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""us;
using std::chrono_literals::operator""ns;

class SystemCaptureLayer : public ::testing::Test {
 protected:
  std::vector<std::string> Adapters(bool good) {
    std::vector<std::string> descriptions;
    for (std::int32_t i = 1; i <= object_->AdapterCount(); ++i) {
      if (object_->Adapters(i).IsGood() == good) {
        descriptions.push_back(object_->Adapters(i).Description());
      }
    }
    return descriptions;
  }
  void Start(std::int32_t index) {
    platform::CaptureAdapter& adapter = object_->Adapters(index);
    object_->SetAdapter(adapter);
    adapter.Set("BPFilter", std::string("ether proto 0x88ba"));
    object_->Start();
  }
  /// Lets the time pass in which the first frames after a setup are gathered.
  void PassGathering() {
    EXPECT_FALSE(layer_.DeliverOne());
    clock_.Time += 20ms;
  }
  /// The sizes of the frames that are handed over now, at most so many.
  std::vector<std::size_t> Sizes(std::size_t most = 1000) {
    std::vector<std::size_t> sizes;
    object_->OnPacket = [&](const platform::CapturedFrame& frame) {
      sizes.push_back(frame.Length);
    };
    while (sizes.size() < most && layer_.DeliverOne()) {
    }
    return sizes;
  }
  /// The streams of the simulated bus whose frames are handed over now, at most so many.
  std::vector<int> Units(std::size_t most = 1000) {
    std::vector<int> units;
    object_->OnPacket = [&](const platform::CapturedFrame& frame) {
      units.push_back(frame.Bytes[11]);
    };
    while (units.size() < most && layer_.DeliverOne()) {
    }
    return units;
  }

  using Texts = std::vector<std::string>;
  adapter_tests::ScratchFolder folder_;
  adapter_tests::HandClock clock_;
  std::vector<NetworkInterface> interfaces_;
  adapters::SystemCaptureLayer layer_{
      clock_, {folder_.Path / "captures", "Ask for the right."}, [this] { return interfaces_; }};
  std::unique_ptr<platform::CaptureObject> object_;
};

TEST_F(SystemCaptureLayer, ListsTheSimulatedBusWhereThereIsNothingElse) {
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(Adapters(true), Texts({"Simulated process bus (built in)"}));
  EXPECT_EQ(object_->AdapterCount(), 1);
  EXPECT_EQ(layer_.Advice(), "");
}

TEST_F(SystemCaptureLayer, ListsBusInterfacesFilesAndLastWhatCannotCapture) {
  const auto captures = folder_.Path / "captures";
  std::filesystem::create_directories(captures / "folder.pcap");
  PcapFile().Add(0, 0, Marked(1)).Save(captures / "b.pcap");
  PcapngFile().Add(0, Marked(1)).Save(captures / "a.PCAPNG");
  adapter_tests::FileBytes{"nonsense"}.Save(captures / "0.pcap");
  adapter_tests::FileBytes{"notes"}.Save(captures / "notes.txt");
  interfaces_ = {{"eth0", "eth0 (network interface)", Reach::NoRight},
                 {"eth1", "eth1 (network interface)", Reach::Ready},
                 {"eth2", "eth2 (network interface)", Reach::Down}};
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(Adapters(true), Texts({"Simulated process bus (built in)", "eth1 (network interface)",
                                   "a.PCAPNG (capture file)", "b.pcap (capture file)"}));
  EXPECT_EQ(Adapters(false), Texts({"eth0 (network interface), no right to capture",
                                    "eth2 (network interface), switched off",
                                    "0.pcap (capture file), cannot be played"}));
  for (std::int32_t i = 1; i <= 4; ++i) EXPECT_TRUE(object_->Adapters(i).IsGood()) << i;
}

TEST_F(SystemCaptureLayer, AdvisesOnInterfacesAndFilesAsTheyWereFoundLast) {
  const auto file = folder_.Path / "captures" / "0.pcap";
  std::filesystem::create_directories(file.parent_path());
  adapter_tests::FileBytes{"nonsense"}.Save(file);
  interfaces_ = {{"eth0", "eth0", Reach::NoRight}, {"eth1", "eth1", Reach::Ready}};
  object_ = layer_.NewCaptureObject();
  const std::string advice = layer_.Advice();
  for (const std::string part :
       {"network interfaces: eth0.",
        "The capture file 0.pcap cannot be played: ", "Ask for the right."}) {
    EXPECT_NE(advice.find(part), std::string::npos) << advice;
  }
  interfaces_.clear();
  std::filesystem::remove(file);
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(layer_.Advice(), "");
}

TEST_F(SystemCaptureLayer, PutsAnAddedFileBehindWhatCanCapture) {
  interfaces_ = {{"eth0", "eth0", Reach::NoRight}, {"eth1", "eth1", Reach::Ready}};
  const auto file = folder_.Path / "bay.cap";
  PcapFile().Add(0, 0, Marked(1)).Save(file);
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(layer_.AddFile(file.string()), 3);
  EXPECT_EQ(layer_.AddFile(file.string()), 3);
  EXPECT_EQ(Adapters(true), Texts({"Simulated process bus (built in)", "eth1",
                                   "bay.cap (capture file, until the program ends)"}));
  EXPECT_FALSE(object_->Adapters(4).IsGood());
  Start(3);
  PassGathering();
  EXPECT_EQ(Sizes(1), std::vector<std::size_t>{Marked(1).size()});
  // It is none of the next list.
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(object_->AdapterCount(), 3);
}

TEST_F(SystemCaptureLayer, SaysWhyAnAddedFileCannotBePlayed) {
  object_ = layer_.NewCaptureObject();
  const auto trouble = [this](const std::string& name) {
    return support::RaisedBy([&] { layer_.AddFile((folder_.Path / name).string()); }).Text();
  };
  std::filesystem::create_directories(folder_.Path / "folder.pcap");
  adapter_tests::FileBytes{"nonsense"}.Save(folder_.Path / "notes.txt");
  EXPECT_EQ(trouble("folder.pcap"),
            "folder.pcap is a folder. Please drop a capture file (.pcap, .pcapng).");
  EXPECT_EQ(trouble("notes.txt").find("notes.txt cannot be played: "), 0U) << trouble("notes.txt");
  for (const std::string name : {"gone.pcap", "https://example.org/bay.pcap"}) {
    EXPECT_NE(trouble(name).find("no file of this computer"), std::string::npos) << trouble(name);
  }
  EXPECT_EQ(object_->AdapterCount(), 1);
}

TEST_F(SystemCaptureLayer, BringsTheFramesOfTheBusToTheProgram) {
  object_ = layer_.NewCaptureObject();
  std::vector<bool> changes;
  layer_.Running = [&](bool running) { changes.push_back(running); };
  int frames = 0;
  object_->OnPacket = [&](const platform::CapturedFrame&) { ++frames; };
  EXPECT_FALSE(layer_.DeliverOne());
  Start(1);
  PassGathering();
  clock_.Time += 980ms - 1ns;
  while (layer_.DeliverOne()) {
  }
  EXPECT_EQ(frames, 8000);
  object_->Stop();
  layer_.NewPacketCollection()->Clear();
  EXPECT_FALSE(layer_.DeliverOne());
  EXPECT_EQ(changes, std::vector<bool>({true, false}));
}

TEST_F(SystemCaptureLayer, KeepsTheWaitingFramesOfAStartThatCameBeforeTheClearing) {
  object_ = layer_.NewCaptureObject();
  Start(1);
  object_->Stop();
  object_->Start();
  PassGathering();
  layer_.NewPacketCollection()->Clear();
  EXPECT_EQ(Units().size(), 2U * 81U);
}

TEST_F(SystemCaptureLayer, PlaysACaptureFileOfItsFolder) {
  std::filesystem::create_directories(folder_.Path / "captures");
  PcapFile().Add(0, 0, Marked(7, 5)).Save(folder_.Path / "captures" / "bus.pcap");
  object_ = layer_.NewCaptureObject();
  int mark = 0;
  object_->OnPacket = [&](const platform::CapturedFrame& frame) { mark = frame.Bytes.back(); };
  Start(2);
  PassGathering();
  EXPECT_TRUE(layer_.DeliverOne());
  EXPECT_EQ(mark, 7);
}

TEST_F(SystemCaptureLayer, GathersTheFirstFramesOfTheSimulatedBus) {
  object_ = layer_.NewCaptureObject();
  Start(1);
  EXPECT_EQ(Units().size(), 0U);
  clock_.Time += 20ms - 1ns;
  EXPECT_EQ(Units().size(), 0U);
  clock_.Time += 1ns;
  EXPECT_EQ(Units().size(), 2U * 81U);
  object_->Stop();
  object_->Start();
  EXPECT_EQ(Units().size(), 2U) << "a restart gathers nothing";
}

TEST_F(SystemCaptureLayer, MeetsTheStreamOfTheSimulatedBusThatIsWanted) {
  object_ = layer_.NewCaptureObject();
  int wanted = 0;
  object_->SetWish([&](const platform::CapturedFrame& frame) {
    return frame.Bytes[11] == wanted ? platform::Wanted::Most : platform::Wanted::No;
  });
  Start(1);
  PassGathering();
  EXPECT_EQ(Units(1), std::vector({1}));
  for (const int unit : {1, 2, 2, 1}) {
    wanted = unit;
    object_->Stop();
    clock_.Time += 500ms;
    object_->Start();
    EXPECT_EQ(Units(1), std::vector({unit}));
  }
}

TEST_F(SystemCaptureLayer, HandsOverTheLongestFrameOfAFileFirstAtEachRun) {
  std::filesystem::create_directories(folder_.Path / "captures");
  PcapFile file;
  for (std::uint32_t i = 0; i < 401; ++i)
    file.Add(0, 250 * i, Marked(1, -1, i % 2 == 0 ? 130 : 134));
  file.Save(folder_.Path / "captures" / "bus.pcap");
  object_ = layer_.NewCaptureObject();
  for (int run = 0; run < 4; ++run) {
    Start(2);
    PassGathering();
    const auto sizes = Sizes();
    ASSERT_EQ(sizes.size(), 81U) << run;
    EXPECT_EQ(sizes[0], 134U) << run;
    const auto shorter = std::count(sizes.begin(), sizes.end(), 130U);
    EXPECT_TRUE(shorter == 40 || shorter == 41) << run << ": " << shorter;
    object_->Stop();
  }
}

TEST_F(SystemCaptureLayer, MeetsEitherStreamOfAFileWithOneFrameAStart) {
  std::filesystem::create_directories(folder_.Path / "captures");
  PcapFile()
      .Add(0, 0, Marked(1, -1, 130))
      .Add(0, 250, Marked(2, 5, 134))
      .Save(folder_.Path / "captures" / "bus.pcap");
  object_ = layer_.NewCaptureObject();
  Start(2);
  PassGathering();
  EXPECT_EQ(Sizes(1), std::vector<std::size_t>({134}));
  std::set<std::size_t> met;
  for (int restart = 0; restart < 2; ++restart) {
    object_->Stop();
    clock_.Time += 500ms;
    object_->Start();
    met.insert(Sizes(1).at(0));
  }
  EXPECT_EQ(met, (std::set<std::size_t>{130, 134}));
}

TEST_F(SystemCaptureLayer, MeetsTheFrameOfAFileThatIsWanted) {
  std::filesystem::create_directories(folder_.Path / "captures");
  PcapFile file;
  for (std::uint32_t i = 0; i < 80; ++i) file.Add(0, 250 * i, Marked(i % 2 == 0 ? 1 : 2));
  file.Save(folder_.Path / "captures" / "bus.pcap");
  object_ = layer_.NewCaptureObject();
  object_->SetWish([](const platform::CapturedFrame& frame) {
    return frame.Bytes.back() == 2 ? platform::Wanted::Most : platform::Wanted::No;
  });
  std::vector<int> marks;
  object_->OnPacket = [&](const platform::CapturedFrame& frame) {
    marks.push_back(frame.Bytes.back());
    if (marks.size() == 2) object_->Stop();
  };
  Start(2);
  PassGathering();
  while (layer_.DeliverOne()) {
  }
  EXPECT_EQ(marks, std::vector({1, 2}));
  object_->OnPacket = [&](const platform::CapturedFrame& frame) {
    marks = {frame.Bytes.back()};
    object_->Stop();
  };
  object_->Start();
  while (layer_.DeliverOne() || clock_.Time < 1s) clock_.Time += 250us;
  EXPECT_EQ(marks, std::vector({2}));
}

TEST_F(SystemCaptureLayer, TellsOfAnInterfaceThatIsGone) {
  interfaces_ = {{"no-such-wire", "no-such-wire", Reach::Ready}};
  object_ = layer_.NewCaptureObject();
  for (int attempt = 0; attempt < 2; ++attempt) {
    const std::string text = support::RaisedBy([&] { Start(2); }).Text();
    EXPECT_NE(text.find("no-such-wire"), std::string::npos) << text;
    EXPECT_NE(text.find("Please"), std::string::npos) << text;
  }
}

TEST_F(SystemCaptureLayer, StartsAnInterfaceThatIsGoneAndHasNoFrames) {
  interfaces_ = {{"no-such-wire", "no-such-wire", Reach::Ready}};
  object_ = layer_.NewCaptureObject();
  EXPECT_NE(FailureOf([&] { Start(2); }), 0);
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_EQ(FailureOf([&] { object_->Start(); }), 0);
    clock_.Time += 1s;
    EXPECT_FALSE(layer_.DeliverOne());
    object_->Stop();
  }
  Start(1);
  PassGathering();
  EXPECT_TRUE(layer_.DeliverOne());
}

TEST_F(SystemCaptureLayer, DeliversForTheObjectMadeLastOnly) {
  object_ = layer_.NewCaptureObject();
  Start(1);
  object_ = layer_.NewCaptureObject();
  clock_.Time += 1s;
  EXPECT_FALSE(layer_.DeliverOne());
  object_.reset();
  EXPECT_FALSE(layer_.DeliverOne());
}

TEST_F(SystemCaptureLayer, MayGoBeforeItsCaptureObject) {
  auto layer = std::make_unique<adapters::SystemCaptureLayer>(
      clock_, adapters::CaptureSurroundings{}, [] { return std::vector<NetworkInterface>(); });
  int changes = 0;
  layer->Running = [&](bool) { ++changes; };
  object_ = layer->NewCaptureObject();
  Start(1);
  layer.reset();
  object_->Stop();
  object_.reset();
  EXPECT_EQ(changes, 1);
}

}  // namespace
