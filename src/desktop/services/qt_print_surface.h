#pragma once

#include <QColor>
#include <QPointF>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "desktop/services/print_page.h"
#include "desktop/services/qt_printers.h"
#include "platform/services/calendar.h"
#include "platform/services/print_surface.h"

namespace desktop {

/// The page of the current printer. A printer of the system gets it as a job; the PDF file is a new
/// file in the data path, named after the document with the date and the time.
class QtPrintSurface : public platform::PrintSurface {
 public:
  QtPrintSurface(const QtPrinters& printers, const platform::Calendar& calendar);

  /// The folder that files go to.
  std::function<std::string()> DataPath;

  void Orientation(platform::PageOrientation orientation) override;
  void Colours(platform::ColourMode mode) override { colours_ = mode; }
  void DocumentName(const std::string& name) override;
  void FontName(const std::string& name) override;
  void FontSize(float points) override { points_ = points; }
  void FontBold(bool bold) override { bold_ = bold; }
  void FontUnderline(bool underline) override { underline_ = underline; }
  void ForeColor(platform::Rgb colour) override;
  void CurrentX(double millimetres) override { position_.setX(millimetres); }
  void CurrentY(double millimetres) override { position_.setY(millimetres); }
  void Print(const std::string& text) override;
  void PrintLine(const std::string& text) override;
  double TextWidth(const std::string& text) const override;
  void PaintPicture(const platform::Picture& picture, double x, double y, double width,
                    double height) override;
  std::string EndDoc() override;

 private:
  QFont Font() const { return PrintPage::Font(family_, points_, bold_, underline_); }
  QByteArray Pdf(const PrintPage& page) const;
  QString WriteFile(const PrintPage& page) const;
  void SendToPrinter(const PrintPage& page) const;
  /// Hands the page to a queue by the system's own command, which tells when the queue refuses it.
  void Enqueue(const QString& command, const QString& printer, const PrintPage& page) const;

  const QtPrinters& printers_;
  const platform::Calendar& calendar_;

  PrintPage page_;
  platform::PageOrientation orientation_ = platform::PageOrientation::Portrait;
  platform::ColourMode colours_ = platform::ColourMode::Monochrome;
  QString document_;
  QString family_;
  double points_ = 10;
  bool bold_ = false;
  bool underline_ = false;
  QColor colour_;
  QPointF position_;
};

}  // namespace desktop
