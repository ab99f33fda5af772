#pragma once

#include <gmock/gmock.h>

#include "support/scene.h"

namespace shell_tests {

/// The program after its start, on the information page.
class TabScene : public ::testing::Test {
 protected:
  TabScene() {
    scene.Start();
    scene.Select(forms::tab::Info);
  }

  support::Scene scene;
  forms::Main& main = scene.Main;
};

}  // namespace shell_tests
