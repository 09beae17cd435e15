#pragma once

#include "../foundation/export.h"

#include <QtCore/QLocale>

namespace ta::ui {

// The numbers of a spin box: one unit of the last of their decimals, 0 to 10 of them, is a step.

/// The next number above \a value, after \a value has snapped to the nearest whole number of steps
/// (halves to even); at most \a maximum. NaN for NaN and infinities.
TAMBERUI_PRIVATE_EXPORT double numberAbove(double value, int decimals, double maximum);

/// The next number below it in the same way; at least \a minimum.
TAMBERUI_PRIVATE_EXPORT double numberBelow(double value, int decimals, double minimum);

/// \a value as it is written in \a locale, without group separators.
TAMBERUI_PRIVATE_EXPORT QString numberText(double value, int decimals, QLocale locale);

/// What \a text says in \a locale or else in the C locale; NaN where that is no number.
TAMBERUI_PRIVATE_EXPORT double numberOf(const QString &text, const QLocale &locale);

} // namespace ta::ui
