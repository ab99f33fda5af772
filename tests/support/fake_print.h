#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "platform/services/clipboard.h"
#include "platform/services/print_surface.h"
#include "support/journal.h"

namespace support {

/// A text on the page, with all that tells how it looks.
struct PrintedText {
  double X = 0;
  double Y = 0;
  std::string Text;
  std::string Font;
  float Size = 0;
  bool Bold = false;
  bool Underline = false;
  platform::Rgb Colour;
};

struct PrintedPicture {
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
  platform::Picture Picture;
};

/// A page that is kept as a list of what was printed on it. A line is 5 mm high, and a character
/// 2 mm wide, in bold 3 mm.
class FakeSurface : public platform::PrintSurface {
 public:
  static constexpr double LineHeight = 5;

  void Orientation(platform::PageOrientation orientation) override {
    Call("orientation");
    PageOrientation = orientation;
    Texts.clear();
    Pictures.clear();
    Ended = false;
  }
  void Colours(platform::ColourMode mode) override {
    Call("colours");
    Mode = mode;
  }
  void DocumentName(const std::string& name) override { Name = name; }
  void FontName(const std::string& name) override { look_.Font = name; }
  void FontSize(float points) override { look_.Size = points; }
  void FontBold(bool bold) override { look_.Bold = bold; }
  void FontUnderline(bool underline) override { look_.Underline = underline; }
  void ForeColor(platform::Rgb colour) override { look_.Colour = colour; }
  void CurrentX(double millimetres) override { look_.X = millimetres; }
  void CurrentY(double millimetres) override { look_.Y = millimetres; }
  void Print(const std::string& text) override {
    Put(text);
    look_.X += TextWidth(text);
  }
  void PrintLine(const std::string& text) override {
    Put(text);
    look_.X = 0;
    look_.Y += LineHeight;
  }
  double TextWidth(const std::string& text) const override {
    return static_cast<double>(text.size()) * (look_.Bold ? 3 : 2);
  }
  void PaintPicture(const platform::Picture& picture, double x, double y, double width,
                    double height) override {
    Call("picture");
    Pictures.push_back({x, y, width, height, picture});
  }
  void EndDoc(std::function<void(const platform::SentPage&)> told) override {
    Call("end");
    Ended = true;
    ModeAtEnd = Mode;
    if (QueueAnswersLater) {
      Queued.push_back(std::move(told));
    } else {
      told({File, {}});
    }
  }

  platform::PageOrientation PageOrientation = platform::PageOrientation::Portrait;
  platform::ColourMode Mode = platform::ColourMode::Monochrome;
  /// The mode that the page came out in.
  platform::ColourMode ModeAtEnd = platform::ColourMode::Monochrome;
  std::string Name;
  std::vector<PrintedText> Texts;
  std::vector<PrintedPicture> Pictures;
  bool Ended = false;
  /// The file that pages become; empty for a printer.
  std::string File;
  /// Pages wait in `Queued` for the answer that the scene gives them.
  bool QueueAnswersLater = false;
  std::vector<std::function<void(const platform::SentPage&)>> Queued;
  /// The call of this name fails: "orientation", "colours", "text", "picture" or "end".
  std::string FailAt;
  Journal Calls;

 private:
  void Call(const std::string& name) {
    Calls.push_back(name);
    if (name == FailAt) throw platform::Failure(platform::failure::PrinterError, "out of paper");
  }
  void Put(const std::string& text) {
    Call("text");
    PrintedText printed = look_;
    printed.Text = text;
    Texts.push_back(printed);
  }

  /// The position and the look of the next text.
  PrintedText look_;
};

/// A clipboard that keeps its picture.
class FakeClipboard : public platform::Clipboard {
 public:
  explicit FakeClipboard(Journal& journal) : journal_(journal) {}
  void Clear() override {
    journal_.push_back("clear clipboard");
    Picture = {};
  }
  void SetPicture(const platform::Picture& picture) override {
    journal_.push_back("set clipboard");
    Picture = picture;
  }

  platform::Picture Picture;

 private:
  Journal& journal_;
};

}  // namespace support
