// What the help of each command ends with.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "console_scene.h"

namespace console {
namespace {

class Help : public ConsoleScene {
 protected:
  /// The last lines of a command's help, from the first of these words on.
  std::string BehindThe(const char* words, const Words& command) {
    EXPECT_EQ(Run(command), ExitCode::Done);
    const std::string text = Results.str();
    const std::size_t at = text.rfind(words);
    return at == std::string::npos ? text : text.substr(at);
  }
};

TEST_F(Help, EndsWithAnExampleOfTheCommand) {
  const std::map<std::string, std::string> examples{
      {"adapters", "adapters"},
      {"streams", "streams eth0 --seconds 10"},
      {"watch", "watch eth0 --fail-on loss,silence | mosquitto_pub -l -t bus"},
      {"report", "report morning.pcapng --fast"},
      {"values", "values eth0 --station MU01 --blocks 1"},
      {"record", "record eth0 --station MU01 --folder /data --every 1h"},
      {"check", "check \"SV record 21.11.2026 18-04-09.txt\" --log"},
      {"convert",
       "convert \"SV record 21.11.2026 18-04-09.txt\" --to comtrade-1999 --station North"},
  };
  for (const auto& [command, example] : examples) {
    EXPECT_EQ(BehindThe("Example: ", {command, "--help"}), "Example: vornik-cli " + example + "\n");
  }
}

TEST_F(Help, TellsHowToCall) {
  EXPECT_THAT(BehindThe("Usage: ", {"--help"}),
              testing::StartsWith("Usage: vornik-cli [OPTIONS] SUBCOMMAND\n"));
  EXPECT_THAT(BehindThe("Usage: ", {"adapters", "--help"}),
              testing::StartsWith("Usage: vornik-cli adapters [OPTIONS]\n"));
}

TEST_F(Help, OfTheProgramEndsWithTheExitCodes) {
  EXPECT_EQ(BehindThe("Exit codes: ", {"--help"}),
            "Exit codes: 0 done, 1 nothing received, 2 wrong use, 3 not permitted, 4 disk or file "
            "trouble, 5 an alarm.\nvornik-cli COMMAND --help tells of a command.\n");
}

}  // namespace
}  // namespace console
