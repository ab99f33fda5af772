#pragma once

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "desktop/services/paper.h"
#include "desktop/services/print_job.h"
#include "desktop/services/print_page.h"
#include "desktop/services/qt_printers.h"
#include "platform/services/calendar.h"
#include "platform/services/print_surface.h"

namespace desktop {

/// The page of the current printer, on the paper of that printer. A printer of the system gets it
/// as a job; the PDF file is a new A4 file in the data path, named after the document with the date
/// and the time.
class QtPrintSurface : public platform::PrintSurface {
 public:
  QtPrintSurface(const QtPrinters& printers, const platform::Calendar& calendar);

  /// The folder that files go to.
  std::function<std::string()> DataPath;
  /// The paper of a printer of the system.
  std::function<Paper(const QString&)> PaperOfPrinter = PaperOf;
  /// How long a queue may take to answer, in ms.
  int PatienceOfQueue = JobOrder().PatienceMs;

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
  void EndDoc(PrintJob::Told told) override;

 private:
  QFont Font() const { return PrintPage::Font(family_, points_, bold_, underline_); }
  QByteArray Pdf(const PrintPage& page, const Paper& paper) const;
  QString WriteFile(const PrintPage& page) const;
  /// Prints the page without a queue's command; it was taken when this returns.
  void PrintDirectly(const QString& name, const PrintPage& page, const Paper& paper) const;

  const QtPrinters& printers_;
  const platform::Calendar& calendar_;

  PrintPage page_;
  QPageLayout::Orientation orientation_ = QPageLayout::Portrait;
  platform::ColourMode colours_ = platform::ColourMode::Monochrome;
  QString document_;
  QString family_;
  double points_ = 10;
  bool bold_ = false;
  bool underline_ = false;
  QColor colour_;
  QPointF position_;
  /// Owns the jobs that are under way.
  QObject jobs_;
};

}  // namespace desktop
