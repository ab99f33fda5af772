#include <gmock/gmock.h>

#include "support/run_scenes.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  return RunScenes();
}
