#include "console_scene.h"

namespace console {
namespace {

class AdaptersCommandScene : public ConsoleScene {};

TEST_F(AdaptersCommandScene, TellWhatCanBeCapturedFromAndWhyNot) {
  Taps.List = {{"simulated", "Simulated process bus (built in)", true},
               {"eth0", "eth0 (network interface), switched off", false}};
  Taps.AdviceText = "The network interface eth0 is switched off.";

  EXPECT_EQ(Run({"adapters"}), ExitCode::Done);

  EXPECT_EQ(Results.str(),
            "ADAPTER    can be used  what it is\n"
            "simulated  yes          Simulated process bus (built in)\n"
            "eth0       no           eth0 (network interface), switched off\n");
  EXPECT_EQ(Notes.str(), "The network interface eth0 is switched off.\n");
}

TEST_F(AdaptersCommandScene, TellThemToAProgramToo) {
  EXPECT_EQ(Run({"adapters", "--json"}), ExitCode::Done);

  EXPECT_EQ(Json().at("adapters").at(0).at("name"), "eth0");
  EXPECT_EQ(Json().at("adapters").at(0).at("usable"), true);
  EXPECT_EQ(Notes.str(), "");
}

TEST_F(AdaptersCommandScene, RefuseAWordThatTheyDoNotKnow) {
  EXPECT_EQ(Run({"adapters", "--all"}), ExitCode::WrongUse);
  EXPECT_EQ(Results.str(), "") << "only results go there";
  EXPECT_NE(Notes.str(), "");
}

TEST_F(AdaptersCommandScene, HelpIsAResultAndHasAnExample) {
  EXPECT_EQ(Run({"adapters", "--help"}), ExitCode::Done);
  EXPECT_NE(Results.str().find("Example: vornik-cli adapters"), std::string::npos);
  EXPECT_EQ(Run({}), ExitCode::WrongUse);
  EXPECT_EQ(Run({"nothing"}), ExitCode::WrongUse);
}

}  // namespace
}  // namespace console
