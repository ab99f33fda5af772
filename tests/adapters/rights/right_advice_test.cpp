#include "adapters/rights/right_advice.h"

#include <gtest/gtest.h>

#include "adapters/rights/launcher.h"

namespace {

using adapters::AdviceOn;
using By = adapters::WayToRight::By;

TEST(RightAdvice, GivesTheRightToAProgramThatWasBuiltHere) {
  EXPECT_EQ(AdviceOn({By::ProgramFile, "/home/anna/vornik"}),
            "To grant the right on Linux, run\n"
            "  sudo setcap cap_net_raw+ep /home/anna/vornik\n"
            "and start the program again.");
  EXPECT_NE(AdviceOn({}).find("cap_net_raw+ep <path of the program>\n"), std::string::npos);
}

TEST(RightAdvice, HasTheUserOfAnInstalledOneJoinTheGroup) {
  EXPECT_EQ(AdviceOn({By::Group, "/usr/libexec/launcher", "anna", "vornik"}),
            "To be given the right, run\n"
            "  sudo adduser anna vornik\n"
            "then log out and in again, and start the program again.");
}

TEST(RightAdvice, HasAMemberWhoseSessionIsOlderLogInAgain) {
  EXPECT_EQ(AdviceOn({By::NewLogin, "/usr/libexec/launcher", "anna", "vornik"}),
            "The user anna has it as a member of the group vornik from the next login on. Please "
            "log out and in again, and start the program again.");
}

TEST(RightAdvice, MendsALauncherThatHasNothingToLend) {
  const std::string advice = AdviceOn({By::LauncherFile, "/usr/libexec/launcher"});
  EXPECT_NE(advice.find("sudo setcap cap_net_raw+ep /usr/libexec/launcher\n"), std::string::npos);
}

TEST(RightAdvice, KnowsAProgramThatRunsWhereItWasBuilt) {
  EXPECT_EQ(adapters::LauncherOf(adapters::OwnProgram()), "");
  const adapters::WayToRight way = adapters::FindWayToRight();
  EXPECT_EQ(way.What, By::ProgramFile);
  if (way.File.empty()) GTEST_SKIP() << "this system does not tell which file a program is";
  EXPECT_EQ(way.File.filename(), "test_adapters");
}

}  // namespace
