#pragma once

#include "../foundation/export.h"

#include <QtCore/QDate>
#include <QtCore/QObject>
#include <QtCore/QVariantList>

#include <memory>

namespace ta::ui {

class CalendarInfoPrivate;

/*!
    The dates and week numbers of a month view that the host draws: six rows of seven days, Monday
    to Sunday in every locale, which hold the whole month of a date and the days around it.

    Nothing is computed before a date is set, and only a date in another month announces new days.

    QML: \c UiCalendarInfo of "tamber.Ui.Private" 1.0. Of a date that QML writes, the day in local
    time counts; the dates that QML reads begin at midnight UTC.
*/
class TAMBERUI_EXPORT CalendarInfo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QDate date READ date WRITE setDate NOTIFY dateChanged)
    Q_PROPERTY(QVariantList days READ days NOTIFY daysChanged)
    Q_PROPERTY(QVariantList calendarWeeks READ calendarWeeks NOTIFY daysChanged)

public:
    explicit CalendarInfo(QObject *parent = nullptr);
    ~CalendarInfo() override;

    /// The date whose month is shown; invalid by default. An invalid one empties both lists.
    QDate date() const;
    void setDate(const QDate &date);

    /// The 42 dates (QDate) of the view, row by row, from the Monday on or before the first of the
    /// month; empty without a valid date. Days beyond the range of QDate are invalid dates.
    QVariantList days() const;

    /// The ISO 8601 week number (int) of each of the six rows; empty without a valid date.
    QVariantList calendarWeeks() const;

Q_SIGNALS:
    void dateChanged();
    /// Both lists are new.
    void daysChanged();

private:
    friend class CalendarInfoPrivate;
    const std::unique_ptr<CalendarInfoPrivate> d;
};

} // namespace ta::ui
