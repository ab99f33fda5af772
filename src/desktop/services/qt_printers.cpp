#include "desktop/services/qt_printers.h"

#include <QPrinterInfo>

#include "base/failure.h"
#include "desktop/look/text.h"

namespace desktop {

QtPrinters::QtPrinters()
    : QtPrinters(QPrinterInfo::availablePrinterNames(), QPrinterInfo::defaultPrinterName()) {}

QtPrinters::QtPrinters(const QStringList& names, const QString& systemChoice)
    : names_(names), current_(names.indexOf(systemChoice)) {
  names_ << QLatin1String(PdfName);
  if (current_ < 0) current_ = names_.size() - 1;
}

std::vector<std::string> QtPrinters::Names() const {
  std::vector<std::string> names;
  for (const QString& name : names_) names.push_back(FromQt(name));
  return names;
}

std::string QtPrinters::Current() const {
  return FromQt(names_[current_]);
}

void QtPrinters::MakeCurrent(std::int32_t index) {
  if (index < 0 || index >= names_.size()) throw platform::Failure(platform::failure::NoPrinter);
  current_ = index;
}

}  // namespace desktop
