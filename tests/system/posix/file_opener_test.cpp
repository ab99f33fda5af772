#include "system/posix/file_opener.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "plain_loop.h"
#include "support/real_files.h"

namespace host {
namespace {

/// A desktop whose opener is a script of the test.
class Opener : public testing::Test {
 protected:
  Opener() : path_(std::getenv("PATH")) {
    Write("file.xls", "");
    setenv("PATH", (folder_.Path() + ":/bin:/usr/bin").c_str(), 1);
  }
  ~Opener() override { setenv("PATH", path_.c_str(), 1); }

  void Write(const std::string& name, const std::string& text) {
    std::ofstream(folder_.File(name)) << text;
    std::filesystem::permissions(folder_.File(name), std::filesystem::perms::owner_all);
  }
  void Answering(const char* script) {
    Write("xdg-open", std::string("#!/bin/sh\n") + script + "\n");
  }
  void Begin(const char* name = "file.xls") {
    answer_.reset();
    opener_.OpenFile(folder_.File(name), [this](std::int32_t code) { answer_ = code; });
  }
  /// What came of opening a file; 0 where no word came.
  std::int32_t Open(const char* name = "file.xls") {
    Begin(name);
    WaitFor([this] { return answer_.has_value(); });
    return answer_.value_or(0);
  }
  bool Exists(const char* name) const { return std::filesystem::exists(folder_.File(name)); }

  /// Handles what comes for so many milliseconds.
  void Pass(int ms) {
    const auto end = loop_.Clock.Now() + std::chrono::milliseconds(ms);
    loop_.Queue.RunUntil([&] { return loop_.Clock.Now() >= end; });
  }
  bool WaitFor(const std::function<bool()>& condition) {
    const auto end = loop_.Clock.Now() + std::chrono::seconds(8);
    loop_.Queue.RunUntil([&] { return condition() || loop_.Clock.Now() >= end; });
    return condition();
  }

  PlainLoop loop_;
  platform::QueueAlarm alarm_{loop_.Queue};
  FileOpener opener_{alarm_, [this](const std::function<void()>& action) { loop_.Entry(action); }};
  std::optional<std::int32_t> answer_;
  support::TemporaryFolder folder_;

 private:
  std::string path_;
};

TEST_F(Opener, TellsThatAFileWasTaken) {
  Answering("echo \"$1\" > \"$0.seen\"");
  EXPECT_GT(Open(), 32);
  EXPECT_EQ(support::BytesOf(folder_.File("xdg-open.seen")), folder_.File("file.xls") + "\n");
}

TEST_F(Opener, TellsThatNoViewerKnowsTheFile) {
  for (const char* script : {"exit 3", "exit 4", "exit 1", "kill -9 $$"}) {
    Answering(script);
    EXPECT_EQ(Open(), 31) << script;
  }
}

TEST_F(Opener, TellsThatThereIsNoOpener) {
  setenv("PATH", folder_.Path().c_str(), 1);
  EXPECT_EQ(Open(), 31);
}

TEST_F(Opener, TellsThatTheFileOrItsFolderIsMissing) {
  Answering("exit 0");
  EXPECT_EQ(Open("other.xls"), 2);
  EXPECT_EQ(Open("nowhere/file.xls"), 3);
  Answering("exit 2");
  EXPECT_EQ(Open(), 2);
}

TEST_F(Opener, HandsAFolderOverToo) {
  Answering("echo \"$1\" > \"$0.seen\"");
  std::filesystem::create_directory(folder_.File("records"));
  EXPECT_GT(Open("records"), 32);
  EXPECT_EQ(support::BytesOf(folder_.File("xdg-open.seen")), folder_.File("records") + "\n");
}

TEST_F(Opener, TellsOfTheFileItselfAtOnce) {
  Begin("other.xls");
  EXPECT_EQ(answer_, 2);
}

TEST_F(Opener, WaitsForNobody) {
  opener_.TakenAfter = std::chrono::hours(1);
  Answering("while ! [ -e \"$0.go\" ]; do sleep 0.02; done; : > \"$0.ended\"; exit 3");
  Begin();
  Pass(50);
  EXPECT_FALSE(answer_.has_value());
  EXPECT_FALSE(Exists("xdg-open.ended"));
  Write("xdg-open.go", "");
  EXPECT_TRUE(WaitFor([this] { return answer_.has_value(); }));
  EXPECT_EQ(answer_, 31);
}

TEST_F(Opener, TakesALongRunForAViewerHoweverItEnds) {
  opener_.TakenAfter = std::chrono::milliseconds(1);
  for (const char* script : {"sleep 0.02; exit 3", "sleep 0.02; kill -9 $$"}) {
    Answering(script);
    EXPECT_GT(Open(), 32) << script;
  }
}

TEST_F(Opener, TellsNothingWhileABoxStands) {
  Answering(": > \"$0.ended\"; exit 3");
  opener_.Hold();
  Begin();
  ASSERT_TRUE(WaitFor([this] { return Exists("xdg-open.ended"); }));
  Pass(100);
  EXPECT_FALSE(answer_.has_value());
  opener_.Release();
  EXPECT_FALSE(answer_.has_value()) << "the routine behind the box comes first";
  EXPECT_TRUE(WaitFor([this] { return answer_.has_value(); }));
}

TEST_F(Opener, AnswersInTheOrderOfTheEndsBehindABox) {
  Answering(": > \"$1.ended\"; exit 3");
  opener_.Hold();
  std::vector<std::string> answered;
  for (const char* name : {"file.xls", "other.xls"}) {
    Write(name, "");
    opener_.OpenFile(folder_.File(name),
                     [&answered, name](std::int32_t) { answered.emplace_back(name); });
    ASSERT_TRUE(WaitFor([&] { return Exists((std::string(name) + ".ended").c_str()); }));
    Pass(100);
  }
  opener_.Release();
  EXPECT_TRUE(WaitFor([&] { return answered.size() == 2; }));
  EXPECT_EQ(answered, (std::vector<std::string>{"file.xls", "other.xls"}));
}

}  // namespace
}  // namespace host
