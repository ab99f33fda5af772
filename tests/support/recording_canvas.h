#pragma once

#include <cstdio>
#include <string>
#include <variant>
#include <vector>

#include "platform/controls/drawn_picture.h"

namespace support {

/// Writes down each call that a picture is drawn with as one line, numbers without decimals.
class RecordingCanvas {
 public:
  explicit RecordingCanvas(platform::DrawnPicture& picture) : picture_(picture) {
    picture_.Changed = [this] { Note(); };
  }
  RecordingCanvas(const RecordingCanvas&) = delete;
  RecordingCanvas& operator=(const RecordingCanvas&) = delete;
  ~RecordingCanvas() { picture_.Changed = nullptr; }

  struct Stroke {
    platform::Point From;
    platform::Point To;
  };

  std::vector<std::string> Calls;
  std::vector<Stroke> Lines;

 private:
  void Note() {
    if (picture_.Calls().empty()) {
      Calls.push_back("clear");
    } else {
      std::visit([this](const auto& call) { Calls.push_back(Told(call)); },
                 picture_.Calls().back());
    }
  }

  static std::string Told(const platform::draw_call::Scale& call) {
    return "scale " + Text(call.TopLeft) + " " + Text(call.BottomRight);
  }
  static std::string Told(const platform::draw_call::ForeColor& call) {
    return "fore " + Text(call.Colour);
  }
  static std::string Told(const platform::draw_call::DrawStyle& call) {
    return "style " + std::to_string(call.Style);
  }
  static std::string Told(const platform::draw_call::DrawWidth& call) {
    return "width " + std::to_string(call.Width);
  }
  static std::string Told(const platform::draw_call::MoveTo& call) {
    return "move " + Text(call.Position);
  }
  std::string Told(const platform::draw_call::Line& call) {
    Lines.push_back({call.From, call.To});
    return "line " + Text(call.From) + " " + Text(call.To) +
           (call.Colour ? " " + Text(*call.Colour) : std::string());
  }
  static std::string Told(const platform::draw_call::LineTo& call) {
    return "lineto " + Text(call.To) + " " + Text(call.Colour);
  }
  static std::string Told(const platform::draw_call::Circle& call) {
    return "circle " + Text(call.Centre) + " r" + Text(call.Radius) + " " + Text(call.Colour);
  }
  static std::string Told(const platform::draw_call::Print& call) { return "print " + call.Text; }

  static std::string Text(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.0f", static_cast<double>(value));
    return std::string(text) == "-0" ? "0" : text;
  }
  static std::string Text(platform::Point point) {
    return "(" + Text(point.X) + "," + Text(point.Y) + ")";
  }
  static std::string Text(platform::Rgb colour) {
    return std::to_string(colour.Red) + "/" + std::to_string(colour.Green) + "/" +
           std::to_string(colour.Blue);
  }

  platform::DrawnPicture& picture_;
};

}  // namespace support
