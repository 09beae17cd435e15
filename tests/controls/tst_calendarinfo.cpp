#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/CalendarInfo>

using namespace ta::ui;
using namespace ta::test;

class tst_CalendarInfo : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyMonth();
    void edges();
    void announcements();
    void handlersThatMeddle();
};

namespace {

// A calendar of its own, walked day by day from a day whose weekday is known.
struct Day
{
    int year = 1997;
    int month = 1;
    int day = 1;
    int weekday = 3; // 1 January 1997 was a Wednesday
    int ofYear = 1;

    int yearLength() const { return isLeap() ? 366 : 365; }
    bool isLeap() const { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

    void next()
    {
        const int lengths[] = { 31, isLeap() ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
        weekday = weekday % 7 + 1;
        ++ofYear;
        if (++day <= lengths[month - 1])
            return;
        day = 1;
        if (++month <= 12)
            return;
        month = 1;
        ++year;
        ofYear = 1;
    }

    // A week belongs to the year of its Thursday. For Mondays.
    int week() const
    {
        const int thursday = ofYear + 3;
        return (thursday > yearLength() ? thursday - yearLength() - 1 : thursday - 1) / 7 + 1;
    }

    bool operator==(const QDate &date) const { return date == QDate(year, month, day); }
};

QDate dayAt(const CalendarInfo &info, int index)
{
    return info.days().at(index).toDate();
}

} // namespace

void tst_CalendarInfo::everyMonth()
{
    QVector<Day> calendar;
    for (Day day; day.year < 2032; day.next())
        calendar.append(day);
    CalendarInfo info;
    int months = 0;
    for (int i = 0; i < calendar.count(); ++i) {
        const Day &first = calendar.at(i);
        if (first.day != 1 || first.year < 1999 || first.year > 2030)
            continue;
        ++months;
        info.setDate(QDate(first.year, first.month, 1 + i % 28));
        const QVariantList days = info.days();
        QCOMPARE(days.count(), 42);
        const int start = i - (first.weekday - 1);
        for (int cell = 0; cell < 42; ++cell)
            QVERIFY2(calendar.at(start + cell) == days.at(cell).toDate(),
                     qPrintable(info.date().toString(Qt::ISODate)));
        QVariantList weeks;
        for (int row = 0; row < 6; ++row)
            weeks.append(calendar.at(start + 7 * row).week());
        QCOMPARE(info.calendarWeeks(), weeks);
    }
    QCOMPARE(months, 32 * 12);
}

// There is no year 0. By the Gregorian rules the year -1 is a leap year, and 1 began on a Monday.
void tst_CalendarInfo::edges()
{
    const struct
    {
        QDate date, first, last;
    } rows[] = {
        { QDate(1, 1, 31), QDate(1, 1, 1), QDate(1, 2, 11) },
        { QDate(-1, 12, 31), QDate(-1, 11, 27), QDate(1, 1, 7) },
    };
    for (const auto &row : rows) {
        CalendarInfo info;
        info.setDate(row.date);
        QCOMPARE(dayAt(info, 0), row.first);
        QCOMPARE(dayAt(info, 41), row.last);
        QCOMPARE(info.calendarWeeks().count(), 6);
    }

    // The ends of what a date can say: days beyond them are no dates.
    CalendarInfo info;
    for (qint64 day : { -784350574879, 784354017364 }) {
        info.setDate(QDate::fromJulianDay(day));
        QVERIFY(info.date().isValid());
        QCOMPARE(info.days().count(), 42);
        QVERIFY(info.days().contains(info.date()));
    }
    QVERIFY(!dayAt(info, 41).isValid());
}

void tst_CalendarInfo::announcements()
{
    CalendarInfo info;
    QVERIFY(info.days().isEmpty() && info.calendarWeeks().isEmpty());
    SignalLog log;
    log.watch(&info);
    const struct
    {
        QDate date;
        QStringList signalNames;
    } steps[] = {
        { QDate(), {} },
        { QDate(2021, 5, 3), names({ "dateChanged", "daysChanged" }) },
        { QDate(2021, 5, 3), {} },
        { QDate(2021, 5, 20), names({ "dateChanged" }) },
        { QDate(2022, 5, 20), names({ "dateChanged", "daysChanged" }) },
        { QDate(), names({ "dateChanged", "daysChanged" }) },
        { QDate(2021, 2, 30), {} },
        { QDate(0, 5, 1), {} },
    };
    for (const auto &step : steps) {
        info.setDate(step.date);
        QCOMPARE(log.take(), step.signalNames);
        QCOMPARE(info.days().isEmpty(), !step.date.isValid());
        QCOMPARE(info.calendarWeeks().isEmpty(), !step.date.isValid());
    }
}

void tst_CalendarInfo::handlersThatMeddle()
{
    CalendarInfo info;
    SignalLog log;
    log.watch(&info);
    const auto connection = connect(&info, &CalendarInfo::dateChanged,
                                    [&] { info.setDate(QDate(2020, 2, 1)); });
    info.setDate(QDate(2021, 7, 1));
    QCOMPARE(info.date(), QDate(2020, 2, 1));
    QCOMPARE(dayAt(info, 0), QDate(2020, 1, 27));
    QCOMPARE(log.count(QStringLiteral("daysChanged")), 1);
    disconnect(connection);

    auto *destroyed = new CalendarInfo;
    connect(destroyed, &CalendarInfo::dateChanged, [&] { delete destroyed; });
    destroyed->setDate(QDate(2021, 7, 1));
}

TAMBER_TEST_MAIN(tst_CalendarInfo)
#include "tst_calendarinfo.moc"
