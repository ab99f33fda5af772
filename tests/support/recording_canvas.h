#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "platform/controls/canvas.h"

namespace support {

/// A canvas that writes down each call as one line, numbers without decimals.
class RecordingCanvas : public platform::Canvas {
 public:
  void Clear() override { Calls.push_back("clear"); }
  void Scale(platform::Point topLeft, platform::Point bottomRight) override {
    Calls.push_back("scale " + Text(topLeft) + " " + Text(bottomRight));
  }
  void ForeColor(platform::Rgb colour) override { Calls.push_back("fore " + Text(colour)); }
  void DrawStyle(std::int16_t style) override { Calls.push_back("style " + std::to_string(style)); }
  void DrawWidth(std::int16_t width) override { Calls.push_back("width " + std::to_string(width)); }
  platform::Point Position() const override { return position_; }
  void MoveTo(platform::Point position) override {
    position_ = position;
    Calls.push_back("move " + Text(position));
  }
  void Line(platform::Point from, platform::Point to,
            std::optional<platform::Rgb> colour) override {
    position_ = to;
    Lines.push_back({from, to});
    Calls.push_back("line " + Text(from) + " " + Text(to) +
                    (colour ? " " + Text(*colour) : std::string()));
  }
  void LineTo(platform::Point to, platform::Rgb colour) override {
    position_ = to;
    Calls.push_back("lineto " + Text(to) + " " + Text(colour));
  }
  void Circle(platform::Point centre, float radius, platform::Rgb colour) override {
    Calls.push_back("circle " + Text(centre) + " r" + Text(radius) + " " + Text(colour));
  }
  void Print(const std::string& text) override { Calls.push_back("print " + text); }

  struct Stroke {
    platform::Point From;
    platform::Point To;
  };

  std::vector<std::string> Calls;
  std::vector<Stroke> Lines;

 private:
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

  platform::Point position_;
};

}  // namespace support
