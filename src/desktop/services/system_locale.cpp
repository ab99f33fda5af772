#include "desktop/services/system_locale.h"

namespace desktop {

namespace {

constexpr char16_t RightQuote = u'\u2019';

char PlainCharacter(const QString& separator, char otherwise) {
  if (separator.size() != 1) return otherwise;
  const char16_t unit = separator.front().unicode();
  if (unit == RightQuote) return '\'';
  return unit > u' ' && unit < u'\u007F' ? static_cast<char>(unit) : otherwise;
}

}  // namespace

platform::NumberLocale SeparatorsOf(const QLocale& locale) {
  return {PlainCharacter(locale.decimalPoint(), '.'), PlainCharacter(locale.groupSeparator(), ' ')};
}

}  // namespace desktop
