#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace platform {

enum class Icon { None, Critical, Exclamation, Information };
/// `OkStop` offers to go on or to stop what runs; Escape and closing the box go on.
enum class Buttons { Ok, YesNo, OkStop };
enum class Answer { Ok, Yes, No, Stop };

/// A modal message box. An empty title stands for the platform's default title.
struct Message {
  std::string Title;
  std::string Text;
  Icon BoxIcon = Icon::None;
  Buttons BoxButtons = Buttons::Ok;
  friend bool operator==(const Message&, const Message&) = default;
};

/// A modal dialog that closes by itself.
struct TimedMessage {
  std::string Title;
  std::string Text;
  std::string ButtonCaption;
  std::string FontName;
  bool Bold = false;
  std::int32_t Seconds = 0;
  /// The line below the text; `#sec#` in it is replaced by the seconds that remain.
  std::string CountdownLine;
};

/// The boxes that the program shows; each call returns when its box is closed. While one stands, no
/// frame is handed over and no timer of the program elapses: the routine that shows a box is not
/// entered again from behind it, and no box opens on top of another.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual Answer Show(const Message& message) = 0;
  virtual void ShowTimed(const TimedMessage& message) = 0;
};

/// The line break of the message texts.
inline constexpr const char* Crlf = "\r\n";

}  // namespace platform
