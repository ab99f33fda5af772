#include <gmock/gmock.h>

#include <iterator>

#include "support/scene.h"

namespace {

using support::Scene;

TEST(StaticTexts, OfTheTabsAreTheirCaptionsAndTips) {
  const platform::Tab tabs[] = {
      {"&Info", "please read carefully these informations", "Information"},
      {"&Values", "measured values", "Gives after each aqusition the measured values"},
      {"&Phasor", "Phasor diagram", "Shows all values in a circle diagram"},
      {"&Waveforms", "Scope", "You get the waveform like a scope"},
      {"&Recorder", "Long time recording", "This card starts a long time recording session"},
      {"R&eport", "Report", "Gives information about the packet queue"},
      {"&Setup", "Configuration", "This gives the setting of the program"},
      {"E&xit", "Quit", "Immeadiately stopping the program"}};
  Scene scene;

  scene.Start();

  ASSERT_EQ(scene.Main.TabStrip1.Tabs.size(), std::size(tabs));
  for (std::size_t i = 0; i < std::size(tabs); ++i) {
    const platform::Tab& shown = scene.Main.TabStrip1.Tabs[i];
    EXPECT_EQ(shown.Caption, tabs[i].Caption);
    EXPECT_EQ(shown.TipHeading, tabs[i].TipHeading);
    EXPECT_EQ(shown.TipText, tabs[i].TipText);
  }
}

TEST(StaticTexts, OfTheStatusBarAreItsKeysAndTips) {
  struct Panel {
    const char* Key;
    const char* Tip;
  };
  const Panel panels[] = {{"network adapter", "shows actual choosen network adapter"},
                          {"standard printer", "shows actual choosen standard printer"},
                          {"Samples for RMS", "shows actual state of sampling"},
                          {"Error count", "shows errors of ramp count"}};
  Scene scene;

  scene.Start();

  for (std::size_t i = 0; i < std::size(panels); ++i) {
    EXPECT_EQ(scene.Main.StatusBar1.Panels[i].Key, panels[i].Key);
    EXPECT_EQ(scene.Main.StatusBar1.Panels[i].ToolTipText, panels[i].Tip);
  }
}

}  // namespace
