#include "monthgrid_p.h"

namespace ta::ui {

namespace {

constexpr int kDaysOfWeek = 7;
constexpr int kRows = 6; // what a month of 31 days that begins on a Sunday takes

} // namespace

// By day numbers, since the first Monday may be no date any more in the first month there is.
QVector<QDate> monthGrid(const QDate &date)
{
    QVector<QDate> grid;
    if (!date.isValid())
        return grid;
    const QDate first = date.addDays(1 - date.day());
    const qint64 start = first.toJulianDay() - (first.dayOfWeek() - Qt::Monday);
    grid.reserve(kRows * kDaysOfWeek);
    for (int i = 0; i < kRows * kDaysOfWeek; ++i)
        grid.append(QDate::fromJulianDay(start + i));
    return grid;
}

QVector<int> weekNumbers(const QVector<QDate> &grid)
{
    QVector<int> weeks;
    for (int i = 0; i < grid.count(); i += kDaysOfWeek)
        weeks.append(grid.at(i).weekNumber());
    return weeks;
}

} // namespace ta::ui
