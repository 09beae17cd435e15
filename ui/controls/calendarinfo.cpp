#include "calendarinfo.h"

#include "foundation/assign.h"
#include "monthgrid_p.h"

#include <QtCore/QPointer>

namespace ta::ui {

class CalendarInfoPrivate
{
public:
    explicit CalendarInfoPrivate(CalendarInfo *q) : q(q) {}

    void updateDays();

    CalendarInfo *const q;
    QDate date;
    QVariantList days;
    QVariantList calendarWeeks;
};

void CalendarInfoPrivate::updateDays()
{
    const QVector<QDate> grid = monthGrid(date);
    QVariantList newDays;
    newDays.reserve(grid.count());
    for (const QDate &day : grid)
        newDays.append(day);
    if (!assign(days, newDays))
        return;
    calendarWeeks.clear();
    const QVector<int> weeks = weekNumbers(grid);
    for (int week : weeks)
        calendarWeeks.append(week);
    Q_EMIT q->daysChanged();
}

CalendarInfo::CalendarInfo(QObject *parent)
    : QObject(parent), d(std::make_unique<CalendarInfoPrivate>(this))
{
}

CalendarInfo::~CalendarInfo() = default;

QDate CalendarInfo::date() const
{
    return d->date;
}

void CalendarInfo::setDate(const QDate &date)
{
    if (!assign(d->date, date))
        return;
    const QPointer<CalendarInfo> guard(this);
    Q_EMIT dateChanged();
    if (guard)
        d->updateDays();
}

QVariantList CalendarInfo::days() const
{
    return d->days;
}

QVariantList CalendarInfo::calendarWeeks() const
{
    return d->calendarWeeks;
}

} // namespace ta::ui
