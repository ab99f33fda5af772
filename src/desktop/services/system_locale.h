#pragma once

#include <QLocale>

#include "base/number_text.h"

namespace desktop {

/// The separators of a locale as single bytes. Typographic ones give their plain counterpart, and a
/// group separator without one gives the blank.
platform::NumberLocale SeparatorsOf(const QLocale& locale);

}  // namespace desktop
