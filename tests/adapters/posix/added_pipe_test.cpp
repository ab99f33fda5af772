#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "adapters/system_capture_layer.h"
#include "support/failures.h"

namespace {

TEST(AddedPipe, IsNoFileOfThisComputer) {
  const adapter_tests::ScratchFolder folder;
  adapter_tests::HandClock clock;
  adapters::SystemCaptureLayer layer(clock, adapters::CaptureSurroundings{},
                                     [] { return std::vector<adapters::NetworkInterface>(); });
  const auto object = layer.NewCaptureObject();
  const auto pipe = folder.Path / "pipe.pcap";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);

  // To open it would wait for somebody who writes.
  const std::string text = support::RaisedBy([&] { layer.AddFile(pipe.string()); }).Text();
  EXPECT_NE(text.find("pipe.pcap is no file of this computer"), std::string::npos) << text;
  EXPECT_EQ(object->AdapterCount(), 1);
}

}  // namespace
