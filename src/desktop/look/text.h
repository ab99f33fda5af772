#pragma once

#include <QString>
#include <string>

namespace desktop {

/// Texts inside the program are UTF-8.
inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

/// A message text with the line breaks that Qt's labels expect.
QString DisplayLines(const std::string& text);

/// A caption without its mnemonic: "&x" reads x and "&&" reads &.
QString PlainCaption(const std::string& caption);

}  // namespace desktop
