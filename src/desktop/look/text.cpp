#include "desktop/look/text.h"

namespace desktop {

QString DisplayLines(const std::string& text) {
  return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QString PlainCaption(const std::string& caption) {
  const QString text = ToQt(caption);
  QString plain;
  plain.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == QLatin1Char('&') && ++i == text.size()) break;
    plain += text[i];
  }
  return plain;
}

}  // namespace desktop
