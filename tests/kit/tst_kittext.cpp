#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/LineEditBase>
#include <TamberUi/PopupStack>

#include <QtCore/QDateTime>

#include <ctime>

using namespace ta::ui;
using namespace ta::test;

class tst_KitText : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void lineEditShowsItsText();
    void lineEditPointer();
    void lineEditValidator();
    void spinBoxKeys();
    void spinBoxTyping_data();
    void spinBoxTyping();
    void spinBoxArrowsAndWheel();
    void spinBoxBounds();
    void spinBoxBindable();
    void calendarKeys();
    void calendarInTimeZones();
    void calendarBadDates();
    void dateField();
};

namespace {

// A document with one control, called "control", in the middle of much room.
QString control(const QString &type, const QString &properties)
{
    return QStringLiteral("Rectangle { anchors.fill: parent }") + type
           + QStringLiteral("{ objectName: 'control'; x: 100; y: 100; ") + properties
           + QLatin1Char('}');
}

QVariant value(const Scene &scene, const char *property)
{
    return scene.find("control")->property(property);
}

QString shownText(const Scene &scene)
{
    auto *edit = scene.find<LineEditBase>("controlField");
    return edit ? edit->editText() : scene.find<LineEditBase>("control")->editText();
}

QDate dateOf(const Scene &scene, const char *property = "date")
{
    return value(scene, property).toDateTime().toLocalTime().date();
}

void type(QWindow *window, const QString &text)
{
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(window, &press);
    }
}

void setTimeZone(const QByteArray &zone)
{
    if (zone.isEmpty())
        qunsetenv("TZ");
    else
        qputenv("TZ", zone);
    tzset();
}

} // namespace

void tst_KitText::initTestCase()
{
    Scene::useKit();
}

void tst_KitText::cleanup()
{
    QLocale::setDefault(QLocale::c());
    setTimeZone({});
    TestCase::cleanup();
}

// Whatever comes first, the text or the item that shows it.
void tst_KitText::lineEditShowsItsText()
{
    for (const char *properties : { "text: 'shown'", "property var all: ['shown']; text: all[0]",
                                    "text: ''; Component.onCompleted: text = 'shown'" }) {
        Scene scene(control(QStringLiteral("UiLineEdit"), QLatin1String(properties)));
        QCOMPARE(shownText(scene), QStringLiteral("shown"));
        auto *edit = scene.find<LineEditBase>("control");
        QCOMPARE(edit->textInput()->property("cursorPosition").toInt(), 0);
        QCOMPARE(edit->textInput()->property("maximumLength").toInt(), 0x7fffffff);
    }
}

// A press in the margin is one on the text; a drag from there selects.
void tst_KitText::lineEditPointer()
{
    Scene scene(control(QStringLiteral("UiLineEdit"), QStringLiteral("text: 'some words'")));
    auto *edit = scene.find<LineEditBase>("control");
    QQuickItem *input = edit->textInput();
    click(scene.window(), QPoint(296, 116));
    QVERIFY(edit->hasActiveFocus());
    QCOMPARE(input->property("cursorPosition").toInt(), 10);
    press(scene.window(), QPoint(104, 116));
    QCOMPARE(input->property("cursorPosition").toInt(), 0);
    move(scene.window(), QPoint(250, 116));
    release(scene.window(), QPoint(250, 116));
    QCOMPARE(input->property("selectedText").toString(), QStringLiteral("some words"));
}

void tst_KitText::lineEditValidator()
{
    Scene scene(control(QStringLiteral("UiLineEdit"),
                        QStringLiteral("validator: IntValidator { bottom: 10; top: 99 }")));
    QVERIFY(!value(scene, "invalid").toBool()); // there is nothing yet
    scene.find("control")->forceActiveFocus();
    QTest::keyClick(scene.window(), '4');
    QVERIFY(value(scene, "invalid").toBool());
    QTest::keyClick(scene.window(), '2');
    QVERIFY(!value(scene, "invalid").toBool());
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(value(scene, "text").toString(), QStringLiteral("42"));
}

void tst_KitText::spinBoxKeys()
{
    Scene scene(control(QStringLiteral("UiSpinBox"),
                        QStringLiteral("minimumValue: -10; maximumValue: 20")));
    auto *box = scene.find("control");
    box->forceActiveFocus();
    const struct
    {
        int decimals;
        double before;
        Qt::Key key;
        double after;
    } rows[] = {
        { 0, 5, Qt::Key_Up, 6 },      { 0, 5, Qt::Key_Down, 4 },
        { 1, 5, Qt::Key_PageUp, 6 },  { 2, 5, Qt::Key_PageDown, 4.9 },
        { 0, 20, Qt::Key_Up, 20 },    { 0, -7, Qt::Key_PageDown, -10 },
        { 0, -500, Qt::Key_Up, -10 }, { 1, 1.26, Qt::Key_Up, 1.4 },
    };
    for (const auto &row : rows) {
        box->setProperty("decimals", row.decimals);
        box->setProperty("value", row.before);
        QTest::keyClick(scene.window(), row.key);
        QVERIFY(value(scene, "value").toDouble() == row.after); // to the last bit
        QCOMPARE(shownText(scene), QLocale().toString(row.after, 'f', row.decimals));
    }
}

void tst_KitText::spinBoxTyping_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<double>("after");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *locale, const QString &typed, Qt::Key key,
                        double after, const QString &shown) {
        QTest::newRow(name) << QString::fromLatin1(locale) << typed << key << after << shown;
    };
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    const Qt::Key enter = Qt::Key_Return;
    // How texts are read is a matter of the numbers; here a locale is as good as another.
    row("German", "de_DE", text("1.234,5"), enter, 1234.5, text("1234,50"));
    row("C in Arabic", "ar_EG", text("3.5"), enter, 3.5, text("\u0663\u066b\u0665\u0660"));
    row("too much", "en_US", text("1e9"), enter, 5000, text("5000.00"));
    row("rounded to what is shown", "en_US", text("3.149"), enter, 3.15, text("3.15"));
    row("no number", "en_US", text("three"), enter, 1.25, text("1.25"));
    row("nothing", "en_US", QString(), enter, 1.25, text("1.25"));
    row("given up", "en_US", text("3.5"), Qt::Key_Escape, 1.25, text("1.25"));
    row("stepped from", "en_US", text("3.5"), Qt::Key_Up, 3.51, text("3.51"));
    row("no number to step from", "en_US", text("x"), Qt::Key_Up, 1.26, text("1.26"));
}

void tst_KitText::spinBoxTyping()
{
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QFETCH(Qt::Key, key);
    QLocale::setDefault(QLocale(locale));
    Scene scene(control(QStringLiteral("UiSpinBox"),
                        QStringLiteral("decimals: 2; value: 1.25; maximumValue: 5000")));
    scene.find("control")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Backspace); // all of it is selected
    QCOMPARE(shownText(scene), QString());
    type(scene.window(), typed);
    QCOMPARE(value(scene, "invalid").toBool(),
             QByteArray(QTest::currentDataTag()).startsWith("no"));
    QTest::keyClick(scene.window(), key);
    QTEST(value(scene, "value").toDouble(), "after");
    QTEST(shownText(scene), "shown");
    QVERIFY(!value(scene, "invalid").toBool());

    // What has more digits than are shown keeps them while nothing is typed.
    scene.find("control")->setProperty("value", 1.0 / 3);
    scene.find("control")->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(value(scene, "value").toDouble(), 1.0 / 3);
}

// A press steps at once, and goes on while it is held; the field has the focus then, and the wheel.
void tst_KitText::spinBoxArrowsAndWheel()
{
    Scene scene(control(QStringLiteral("UiSpinBox"), QStringLiteral("value: 5; maximumValue: 8")));
    auto *box = scene.find("control");
    auto *up = scene.find("controlUp");
    auto *down = scene.find("controlDown");
    wheel(scene.window(), center(box), 1);
    QCOMPARE(value(scene, "value").toDouble(), 5.0);
    click(scene.window(), center(down));
    QCOMPARE(value(scene, "value").toDouble(), 4.0);
    QVERIFY(scene.find<LineEditBase>("controlField")->textInput()->hasActiveFocus());
    QTest::keyClick(scene.window(), '4'); // in the place of all that is there
    QCOMPARE(shownText(scene), QStringLiteral("4"));
    press(scene.window(), center(up));
    QCOMPARE(value(scene, "value").toDouble(), 5.0);
    QTRY_COMPARE(value(scene, "value").toDouble(), 8.0);
    release(scene.window(), center(up));
    wheel(scene.window(), center(box), -2);
    wheel(scene.window(), center(box), 1);
    QCOMPARE(value(scene, "value").toDouble(), 7.0);
    wheel(scene.window(), center(box), -1000000); // ends, at least
    const double low = value(scene, "value").toDouble();
    box->setEnabled(false);
    click(scene.window(), center(up));
    QCOMPARE(value(scene, "value").toDouble(), low);
}

// Both bounds arrive, whichever is written first and whatever they were.
void tst_KitText::spinBoxBounds()
{
    Scene scene(control(QStringLiteral("UiSpinBox"),
                        QStringLiteral("property var range: [0, 10]; minimumValue: range[0];"
                                       "maximumValue: range[1]")));
    auto *box = scene.find("control");
    const double ranges[][2] = { { 20, 30 }, { -30, -20 }, { 5, 5 }, { 0, 1000 } };
    for (const auto &range : ranges) {
        box->setProperty("range", QVariantList { range[0], range[1] });
        box->setProperty("value", range[0]);
        QMetaObject::invokeMethod(box, "step", Q_ARG(QVariant, 500));
        QCOMPARE(value(scene, "value").toDouble(), qMin(range[1], range[0] + 500));
        box->setProperty("value", range[1]);
        QMetaObject::invokeMethod(box, "step", Q_ARG(QVariant, -500));
        QCOMPARE(value(scene, "value").toDouble(), qMax(range[0], range[1] - 500));
    }
    box->setProperty("value", qQNaN());
    QCOMPARE(value(scene, "value").toDouble(), 500.0);
}

void tst_KitText::spinBoxBindable()
{
    Scene scene(QStringLiteral("property double stored: 5; property var asked: []\n")
                + control(QStringLiteral("UiSpinBox"),
                          QStringLiteral("bindable: true; value: stored; maximumValue: 50;"
                                         "onUpdateRequested: { asked.push(newValue);"
                                         "if (newValue < 10) stored = newValue }")));
    scene.find("control")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Up);
    type(scene.window(), QStringLiteral("42"));
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.root()->property("asked").toList(), QVariantList({ 6, 42 }));
    QCOMPARE(shownText(scene), QStringLiteral("6"));
    scene.root()->setProperty("stored", 7); // the binding is still there
    QCOMPARE(shownText(scene), QStringLiteral("7"));
}

void tst_KitText::calendarKeys()
{
    Scene scene(control(QStringLiteral("UiCalendar"), {}));
    auto *calendar = scene.find("control");
    calendar->forceActiveFocus();
    SignalLog log;
    log.watch(calendar, names({ "activated" }));
    const QDate january(2024, 1, 31);
    const struct
    {
        QDate from;
        Qt::Key key;
        QDate to;
        Qt::KeyboardModifier modifier = Qt::NoModifier;
    } rows[] = {
        { january, Qt::Key_Left, QDate(2024, 1, 30) },
        { january, Qt::Key_Right, QDate(2024, 2, 1) },
        { january, Qt::Key_Up, QDate(2024, 1, 24) },
        { january, Qt::Key_Down, QDate(2024, 2, 7) },
        { january, Qt::Key_Home, QDate(2024, 1, 1) },
        { QDate(2024, 2, 5), Qt::Key_End, QDate(2024, 2, 29) },
        { january, Qt::Key_PageUp, QDate(2023, 12, 31) },
        { january, Qt::Key_PageDown, QDate(2024, 2, 29) },
        { QDate(2024, 2, 29), Qt::Key_PageDown, QDate(2025, 2, 28), Qt::ShiftModifier },
        { january, Qt::Key_PageUp, QDate(2023, 1, 31), Qt::ShiftModifier },
        { QDate(100, 1, 1), Qt::Key_Left, QDate(99, 12, 31) },
    };
    for (const auto &row : rows) {
        calendar->setProperty("date", QDateTime(row.from, QTime(0, 0)));
        QTest::keyClick(scene.window(), row.key, row.modifier);
        QCOMPARE(dateOf(scene, "highlightedDate"), row.to);
        QCOMPARE(dateOf(scene), row.from);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QCOMPARE(dateOf(scene), row.to);
        QCOMPARE(log.take(), names({ "activated" }));
    }
}

// A day is the same day on either side of Greenwich, the one on which clocks change at midnight
// included.
void tst_KitText::calendarInTimeZones()
{
    for (const char *zone : { "UTC", "America/Sao_Paulo", "Pacific/Kiritimati" }) {
        setTimeZone(zone);
        Scene scene(
            control(QStringLiteral("UiCalendar"), QStringLiteral("date: new Date(2018, 10, 15)")));
        const QDate first(2018, 10, 29); // the Monday before 1 November 2018
        for (int cell : { 0, 3, 6, 9, 24, 41 }) {
            scene.find("control")->setProperty("date", QDateTime(QDate(2018, 11, 15), QTime(0, 0)));
            auto *day = scene.find(QByteArray("controlDay" + QByteArray::number(cell)).constData());
            QVERIFY2(day, zone);
            QCOMPARE(day->childItems().constFirst()->property("text").toString(),
                     QString::number(first.addDays(cell).day()));
            click(scene.window(), center(day));
            QCOMPARE(dateOf(scene), first.addDays(cell));
            QCOMPARE(dateOf(scene, "highlightedDate"), first.addDays(cell));
        }
    }
}

// What is no date shows the month of today, and nothing is chosen.
void tst_KitText::calendarBadDates()
{
    Scene scene(
        control(QStringLiteral("UiCalendar"), QStringLiteral("date: new Date('nonsense')")));
    auto *calendar = scene.find("control");
    QVERIFY(!dateOf(scene).isValid());
    QVERIFY(dateOf(scene, "highlightedDate").isValid());
    calendar->setProperty("highlightedDate", QDateTime());
    QVERIFY(dateOf(scene, "highlightedDate").isValid());
    calendar->forceActiveFocus();
    for (const char *extreme : { "new Date(8.64e15)", "new Date(-8.64e15)" }) {
        const auto moment = scene.create(QStringLiteral("QtObject { property date at: ")
                                         + QLatin1String(extreme) + QLatin1Char('}'));
        calendar->setProperty("date", moment->property("at"));
        for (Qt::Key key : { Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Left, Qt::Key_Down })
            QTest::keyClick(scene.window(), key, Qt::ShiftModifier);
        QVERIFY(value(scene, "highlightedDate").toDateTime().isValid());
    }
}

void tst_KitText::dateField()
{
    Scene scene(
        control(QStringLiteral("UiDateField"), QStringLiteral("date: new Date(2024, 0, 31)")));
    auto *field = scene.find("control");
    QCOMPARE(value(scene, "text").toString(),
             QLocale().toString(QDate(2024, 1, 31), QLocale::ShortFormat));
    SignalLog log;
    log.watch(field, names({ "activated" }));
    click(scene.window(), center(field));
    QVERIFY(PopupStack::top());
    QVERIFY(scene.find("controlCalendar")->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_Right);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!PopupStack::top());
    QVERIFY(field->hasActiveFocus());
    QCOMPARE(dateOf(scene), QDate(2024, 1, 31));
    QCOMPARE(log.take(), QStringList());

    // Opened by a key, it begins again where the field is.
    for (Qt::Key key : { Qt::Key_Space, Qt::Key_F4, Qt::Key_Down }) {
        const QDate before = dateOf(scene);
        QTest::keyClick(scene.window(), key);
        QVERIFY(PopupStack::top());
        QTest::keyClick(scene.window(), Qt::Key_Right);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QVERIFY(!PopupStack::top());
        QCOMPARE(dateOf(scene), before.addDays(1));
        QCOMPARE(log.take(), names({ "activated" }));
        QVERIFY(field->hasActiveFocus());
    }

    // By the pointer, from a field without a day.
    field->setProperty("date", QDateTime());
    QCOMPARE(value(scene, "text").toString(), QString());
    click(scene.window(), center(field));
    auto *day = scene.find("controlCalendarDay20");
    QVERIFY(day);
    click(scene.window(), center(day));
    QVERIFY(!PopupStack::top());
    QCOMPARE(dateOf(scene).dayOfWeek(), 7);
    QCOMPARE(dateOf(scene).month(), QDate::currentDate().month());

    click(scene.window(), center(field));
    QVERIFY(PopupStack::top());
    field->setEnabled(false);
    QVERIFY(!PopupStack::top());
}

TAMBER_TEST_MAIN(tst_KitText)
#include "tst_kittext.moc"
