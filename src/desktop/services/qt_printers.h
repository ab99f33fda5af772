#pragma once

#include <QStringList>

#include "platform/services/system_services.h"

namespace desktop {

/// The system's printers, and behind them one that prints to a PDF file, so that there is always
/// one. The choice is the program's own: the system's default printer stays what it is.
class QtPrinters : public platform::Printers {
 public:
  static constexpr const char* PdfName = "PDF file in data path";

  /// The printers of this computer.
  QtPrinters();
  QtPrinters(const QStringList& names, const QString& systemChoice);

  std::vector<std::string> Names() const override;
  std::string Current() const override;
  void MakeCurrent(std::int32_t index) override;
  /// The current printer is the one that prints to a file.
  bool PrintsToFile() const { return current_ == names_.size() - 1; }

 private:
  QStringList names_;
  qsizetype current_;
};

}  // namespace desktop
