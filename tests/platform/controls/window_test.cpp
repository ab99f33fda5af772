#include "platform/controls/window.h"

#include <gmock/gmock.h>

namespace {

using platform::Window;

TEST(Window, IsNotLoadedBeforeItIsOpened) {
  const Window window;

  EXPECT_FALSE(window.Loaded);
  EXPECT_FALSE(window.Visible);
}

TEST(Window, IsLoadedBeforeItShows) {
  Window window;
  bool loaded = false;
  window.Visible.Observe([&] { loaded = window.Loaded; });

  window.Visible = true;

  EXPECT_TRUE(loaded);
  EXPECT_TRUE(window.Visible);
}

TEST(Window, StaysLoadedWhileItIsHidden) {
  Window window;
  window.Visible = true;

  window.Visible = false;

  EXPECT_TRUE(window.Loaded);
}

TEST(Window, IsNotLoadedByBeingHidden) {
  Window window;

  window.Visible = false;

  EXPECT_FALSE(window.Loaded);
}

TEST(Window, IsLoadedWhileItShowsAsAModalOne) {
  Window window;
  std::vector<bool> loaded;
  window.ShowModal = [&] {
    loaded.push_back(window.Loaded);
    window.Unload();
  };

  window.OpenModal();
  loaded.push_back(window.Loaded);
  window.OpenModal();

  EXPECT_THAT(loaded, testing::ElementsAre(true, false, true));
}

TEST(Window, ToldToCloseAsksFirstAndThenHides) {
  Window window;
  window.Visible = true;
  bool wasOpen = false;
  window.QueryUnload = [&] { wasOpen = window.Loaded && window.Visible; };

  window.Unload();

  EXPECT_TRUE(wasOpen);
  EXPECT_FALSE(window.Visible);
  EXPECT_FALSE(window.Loaded);
}

TEST(Window, ThatIsNotOpenIsNotAskedToClose) {
  Window window;
  int asked = 0;
  window.QueryUnload = [&] { ++asked; };

  window.Unload();
  window.Visible = true;
  window.Unload();
  window.Unload();

  EXPECT_EQ(asked, 1);
}

}  // namespace
