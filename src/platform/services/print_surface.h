#pragma once

#include <functional>
#include <string>

#include "platform/controls/control.h"
#include "platform/picture.h"

namespace platform {

enum class PageOrientation { Portrait, Landscape };
enum class ColourMode { Monochrome, Colour };

/// What became of a page that was sent.
struct SentPage {
  /// The path of the file that it became; empty where a printer took it.
  std::string File;
  /// Why the printer refused it; empty where it did not.
  std::string Refusal;
};

/// The page of the current printer. Places and sizes are millimetres from the upper left corner of
/// the paper; a text stands with its upper left corner at the position.
///
/// The surface keeps its fonts, colours and modes from page to page. Whatever cannot be done raises
/// a failure, `failure::PrinterError` where the printer or its file refuses; a page that failed
/// never comes out.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;
  /// Begins a page; one that was begun and not ended is dropped.
  virtual void Orientation(PageOrientation orientation) = 0;
  /// Holds for the pages that end behind it.
  virtual void Colours(ColourMode mode) = 0;
  /// The name of the document, for queues and files.
  virtual void DocumentName(const std::string& name) = 0;
  virtual void FontName(const std::string& name) = 0;
  /// In points.
  virtual void FontSize(float points) = 0;
  virtual void FontBold(bool bold) = 0;
  virtual void FontUnderline(bool underline) = 0;
  virtual void ForeColor(Rgb colour) = 0;
  virtual void CurrentX(double millimetres) = 0;
  virtual void CurrentY(double millimetres) = 0;
  /// Prints a text; the position moves behind its end.
  virtual void Print(const std::string& text) = 0;
  /// Prints a text with its line end: the position moves to X 0, one line of the font down.
  virtual void PrintLine(const std::string& text) = 0;
  /// Width of a text in the present font.
  virtual double TextWidth(const std::string& text) const = 0;
  /// Places a picture, scaled to fill a rectangle; the position stays.
  virtual void PaintPicture(const Picture& picture, double x, double y, double width,
                            double height) = 0;
  /// Sends the page. `told` hears once what became of it: from within this call, or later where
  /// the page waits for the answer of a printer's queue.
  virtual void EndDoc(std::function<void(const SentPage&)> told) = 0;
};

}  // namespace platform
