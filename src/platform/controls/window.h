#pragma once

#include <cstdint>
#include <string>

#include "base/failure.h"
#include "platform/controls/control.h"

namespace platform {

enum class WindowState { Normal, Minimized, Maximized };

/// A top-level window; its size is in twips. Sizing a minimised or maximised window raises failure
/// 384.
class Window {
 public:
  Property<std::string> Caption;
  Property<Rgb> BackColor{Rgb{255, 255, 255}};
  Property<WindowState> State{WindowState::Normal};
  Property<std::int32_t> Width;
  Property<std::int32_t> Height;
  Property<bool> Visible;
  /// The window is open: from its load, which showing it brings along, to its unload.
  Property<bool> Loaded;
  /// The window was closed and is open from now on; nothing shows it yet.
  Event<> Load;
  /// The window has a new size.
  Event<> Resize;
  /// How often the layout rules went through for a size; whoever shows the window lays its views
  /// then.
  Property<std::int32_t> Layouts;
  /// The window is asked to close, by the user, by the session or by `Unload`.
  Event<> QueryUnload;
  /// The platform shows the window as a modal one; the event returns when the window was unloaded.
  Event<> ShowModal;

  Window() {
    const auto size = [this](Property<std::int32_t>& side) {
      side.OnAssign([this, &side](std::int32_t twips) {
        if (State.Get() != WindowState::Normal) throw Failure(failure::WindowSizing);
        side.Store(twips);
      });
    };
    size(Width);
    size(Height);
    Visible.OnAssign([this](bool visible) {
      if (visible && !Loaded) Open();
      Visible.Store(visible);
    });
  }

  /// The platform gave the window this size.
  void TakeSize(std::int32_t width, std::int32_t height) {
    Width.Store(width);
    Height.Store(height);
    Resize();
  }
  /// Opens the window as a modal one and returns when it was unloaded.
  void OpenModal() {
    Open();
    ShowModal();
  }
  /// Closes the window, if it is open.
  void Unload() {
    if (!Loaded) return;
    QueryUnload();
    Visible = false;
    Loaded = false;
  }

 private:
  void Open() {
    Loaded = true;
    Load();
  }
};

/// The smallest size of the main window, and of a screen for it, in twips: 1024 by 768 pixels.
inline constexpr std::int32_t MinimumWidth = 15360;
inline constexpr std::int32_t MinimumHeight = 11520;

/// The screen that the window stands on, in twips.
struct Screen {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
};

}  // namespace platform
