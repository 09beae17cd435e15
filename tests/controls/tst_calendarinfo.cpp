#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/CalendarInfo>

using namespace ta::ui;
using namespace ta::test;

class tst_CalendarInfo : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void months();
    void announcements();
    void handlersThatMeddle();
};

namespace {

QDate dayAt(const CalendarInfo &info, int index)
{
    return info.days().at(index).toDate();
}

} // namespace

// Six weeks from the Monday before the first of the month, or on it; a week belongs to the year of
// its Thursday. There is no year 0: the year -1 is a leap year, and 1 began on a Monday.
void tst_CalendarInfo::months()
{
    const struct
    {
        QDate date, first, last;
        QVariantList weeks;
    } rows[] = {
        { QDate(2021, 2, 28), QDate(2021, 2, 1), QDate(2021, 3, 14), { 5, 6, 7, 8, 9, 10 } },
        { QDate(2021, 1, 1), QDate(2020, 12, 28), QDate(2021, 2, 7), { 53, 1, 2, 3, 4, 5 } },
        { QDate(2020, 12, 9), QDate(2020, 11, 30), QDate(2021, 1, 10), { 49, 50, 51, 52, 53, 1 } },
        { QDate(2024, 2, 1), QDate(2024, 1, 29), QDate(2024, 3, 10), { 5, 6, 7, 8, 9, 10 } },
        { QDate(2023, 10, 5), QDate(2023, 9, 25), QDate(2023, 11, 5), { 39, 40, 41, 42, 43, 44 } },
        { QDate(-1, 12, 31), QDate(-1, 11, 27), QDate(1, 1, 7), { 48, 49, 50, 51, 52, 1 } },
    };
    for (const auto &row : rows) {
        CalendarInfo info;
        info.setDate(row.date);
        QCOMPARE(info.days().count(), 42);
        QCOMPARE(dayAt(info, 0), row.first);
        for (int day = 1; day < 42; ++day)
            QCOMPARE(dayAt(info, day), row.first.addDays(day));
        QCOMPARE(dayAt(info, 41), row.last);
        QCOMPARE(info.calendarWeeks(), row.weeks);
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
