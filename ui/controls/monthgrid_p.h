#pragma once

#include "../foundation/export.h"

#include <QtCore/QDate>
#include <QtCore/QVector>

namespace ta::ui {

/// The 42 days from the Monday on or before the first of the month of \a date; none for an invalid
/// date. Days beyond the range of QDate are invalid ones in their places.
TAMBERUI_PRIVATE_EXPORT QVector<QDate> monthGrid(const QDate &date);

/// The ISO 8601 week number of each row of seven in \a grid, that of its first day.
TAMBERUI_PRIVATE_EXPORT QVector<int> weekNumbers(const QVector<QDate> &grid);

} // namespace ta::ui
