#include "desktop/services/qt_print_surface.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <memory>
#include <utility>

#include "base/failure.h"
#include "desktop/look/look.h"
#include "desktop/look/picture.h"
#include "desktop/look/text.h"
#include "system/places.h"

namespace desktop {

using platform::Failure;

namespace {

constexpr int PdfDotsPerInch = 1200;
constexpr const char* Creator = "Vornik";

QPageLayout::Orientation QtOrientation(platform::PageOrientation orientation) {
  return orientation == platform::PageOrientation::Landscape ? QPageLayout::Landscape
                                                             : QPageLayout::Portrait;
}

[[noreturn]] void Refuse(const QString& why) {
  throw Failure(platform::failure::PrinterError, FromQt(why));
}

/// Paints a page on a device of its own and closes that.
void PaintOn(QPaintDevice& device, const PrintPage& page, const QRectF& room, const QString& name) {
  QPainter painter;
  if (!painter.begin(&device)) Refuse(QStringLiteral("\"%1\" takes no page").arg(name));
  page.Paint(painter, room);
  if (!painter.end()) Refuse(QStringLiteral("\"%1\" did not take the page").arg(name));
}

}  // namespace

QtPrintSurface::QtPrintSurface(const QtPrinters& printers, const platform::Calendar& calendar)
    : printers_(printers), calendar_(calendar) {}

void QtPrintSurface::Orientation(platform::PageOrientation orientation) {
  page_ = {};
  orientation_ = QtOrientation(orientation);
  position_ = {};
}

void QtPrintSurface::DocumentName(const std::string& name) {
  document_ = ToQt(name);
}

void QtPrintSurface::FontName(const std::string& name) {
  family_ = ToQt(name);
}

void QtPrintSurface::ForeColor(platform::Rgb colour) {
  colour_ = look::ColourOf(colour);
}

void QtPrintSurface::Print(const std::string& text) {
  page_.AddText(position_, ToQt(text), Font(), colour_);
  position_.rx() += TextWidth(text);
}

void QtPrintSurface::PrintLine(const std::string& text) {
  page_.AddText(position_, ToQt(text), Font(), colour_);
  position_ = {0, position_.y() + PrintPage::LineHeight(Font())};
}

double QtPrintSurface::TextWidth(const std::string& text) const {
  return PrintPage::TextWidth(ToQt(text), Font());
}

void QtPrintSurface::PaintPicture(const platform::Picture& picture, double x, double y,
                                  double width, double height) {
  const QRectF place(x, y, width, height);
  if (const QPicture* drawing = DrawingOf(picture)) {
    page_.AddDrawing(place, *drawing, {picture.Width, picture.Height});
  } else {
    page_.AddPicture(place, ImageOf(picture));
  }
}

void QtPrintSurface::EndDoc(PrintJob::Told told) {
  const PrintPage page = std::exchange(page_, {});
  if (printers_.PrintsToFile()) {
    told({FromQt(WriteFile(page)), {}});
    return;
  }
  const QString printer = ToQt(printers_.Current());
  const Paper paper = PaperOfPrinter(printer);
  // The toolkit's own way to a queue does not tell of a refused job.
  if (!PrintJob::Command().isEmpty()) {
    const JobOrder order{printer, document_, paper.Size.key(), PatienceOfQueue};
    auto job = std::make_unique<PrintJob>(order, std::move(told), &jobs_);
    job->Start(Pdf(page, paper));
    // From here on it goes by itself, at the latest with the surface.
    static_cast<void>(job.release());
  } else {
    PrintDirectly(printer, page, paper);
    told({});
  }
}

QByteArray QtPrintSurface::Pdf(const PrintPage& page, const Paper& paper) const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(PdfDotsPerInch);
  writer.setPageLayout(paper.Layout(orientation_));
  writer.setTitle(document_);
  writer.setCreator(QLatin1String(Creator));
  PaintOn(writer, page, paper.Room(orientation_), document_);
  return bytes;
}

QString QtPrintSurface::WriteFile(const PrintPage& page) const {
  const QByteArray bytes = Pdf(page, {});
  const QDir folder(ToQt(host::NativePlace(DataPath())));
  const QString stem = document_ + u' ' + ToQt(platform::DottedText(calendar_.Now(), '-'));
  for (int copy = 1;; ++copy) {
    const QString number = copy == 1 ? QString() : QStringLiteral(" (%1)").arg(copy);
    QFile file(folder.filePath(stem + number + QStringLiteral(".pdf")));
    // Opened only where it is new, so that an older page is never lost.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
      if (file.exists()) continue;
      Refuse(QStringLiteral("%1 (%2)").arg(file.errorString(),
                                           QDir::toNativeSeparators(file.fileName())));
    }
    if (file.write(bytes) == bytes.size() && file.flush()) {
      return QDir::toNativeSeparators(file.fileName());
    }
    const QString why = file.errorString();
    file.remove();
    Refuse(why);
  }
}

void QtPrintSurface::PrintDirectly(const QString& name, const PrintPage& page,
                                   const Paper& paper) const {
  const QPrinterInfo info = QPrinterInfo::printerInfo(name);
  if (info.isNull()) Refuse(QStringLiteral("the printer \"%1\" is not there any more").arg(name));
  QPrinter printer(info, QPrinter::HighResolution);
  printer.setFullPage(true);
  printer.setPageSize(paper.Size);
  printer.setPageOrientation(orientation_);
  printer.setColorMode(colours_ == platform::ColourMode::Colour ? QPrinter::Color
                                                                : QPrinter::GrayScale);
  printer.setDocName(document_);
  printer.setCreator(QLatin1String(Creator));
  PaintOn(printer, page, paper.Room(orientation_), name);
  if (printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted) {
    Refuse(QStringLiteral("\"%1\" refused the page").arg(name));
  }
}

}  // namespace desktop
