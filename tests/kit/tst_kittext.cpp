#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/LineEditBase>
#include <TamberUi/PopupStack>

#include <QtCore/QDateTime>
#include <QtGui/QAccessible>

#include <ctime>

using namespace ta::ui;
using namespace ta::test;

class tst_KitText : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void lineEditPointer();
    void lineEditAccessibility();
    void spinBoxKeys();
    void spinBoxTyping();
    void spinBoxArrowsAndWheel();
    void spinBoxBounds();
    void spinBoxBindable();
    void calendarKeys();
    void calendarInTimeZones();
    void calendarInItsLanguage();
    void calendarBadDates();
    void dateField();
};

namespace {

// A scene with one control.
struct Control : Scene
{
    Control(const char *type, const char *properties, const char *before = "")
        : Scene(QLatin1String(before)
                + QStringLiteral("%1 { objectName: 'control'; x: 100; y: 100; %2 }")
                      .arg(QLatin1String(type), QLatin1String(properties))),
          item(find("control"))
    {
    }

    QVariant value(const char *property = "value") const { return item->property(property); }
    double number() const { return value().toDouble(); }
    QString shown() const
    {
        auto *edit = find<LineEditBase>("controlField");
        return (edit ? edit : qobject_cast<LineEditBase *>(item))->editText();
    }
    QDate date(const char *property = "date") const
    {
        return value(property).toDateTime().toLocalTime().date();
    }

    QQuickItem *const item;
};

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

// A press in the margin is one on the text; a drag from there selects.
void tst_KitText::lineEditPointer()
{
    Control scene("UiLineEdit", "text: 'some words'");
    auto *edit = qobject_cast<LineEditBase *>(scene.item);
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

// Assistive tools read what is typed, and say what for.
void tst_KitText::lineEditAccessibility()
{
    Control scene("UiLineEdit", "text: 'stored'; placeHolderText: 'Name'");
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(scene.window())->child(0);
    seen->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(seen->state().focused);
    QCOMPARE(seen->textInterface()->characterCount(), 6);
    QTest::keyClick(scene.window(), Qt::Key_End);
    type(scene.window(), QStringLiteral("typed"));
    QCOMPARE(seen->text(QAccessible::Value), QStringLiteral("storedtyped"));
    QCOMPARE(seen->textInterface()->cursorPosition(), 11);
    scene.item->setProperty("echoMode", 2); // a password
    QVERIFY(seen->state().passwordEdit);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Name"));
}

void tst_KitText::spinBoxKeys()
{
    Control scene("UiSpinBox", "minimumValue: -10; maximumValue: 20");
    scene.item->forceActiveFocus();
    const struct
    {
        int decimals;
        double before;
        Qt::Key key;
        double after;
    } rows[] = {
        { 0, 5, Qt::Key_Up, 6 },         { 0, 5, Qt::Key_Down, 4 },    { 1, 5, Qt::Key_PageUp, 6 },
        { 2, 5, Qt::Key_PageDown, 4.9 }, { 0, -500, Qt::Key_Up, -10 }, { 1, 1.26, Qt::Key_Up, 1.4 },
    };
    for (const auto &row : rows) {
        scene.item->setProperty("decimals", row.decimals);
        scene.item->setProperty("value", row.before);
        QTest::keyClick(scene.window(), row.key);
        QVERIFY(scene.number() == row.after); // to the last bit
        QCOMPARE(scene.shown(), QLocale().toString(row.after, 'f', row.decimals));
    }
}

void tst_KitText::spinBoxTyping()
{
    const struct
    {
        const char *locale;
        const char *typed;
        bool isNumber;
        Qt::Key key;
        double after;
        const char *shown;
    } rows[] = {
        // How texts are read is a matter of the numbers; here a locale is as good as another.
        { "de_DE", "1.234,5", true, Qt::Key_Return, 1234.5, "1234,50" },
        { "en_US", "1e9", true, Qt::Key_Return, 5000, "5000.00" },
        { "en_US", "three", false, Qt::Key_Return, 1.25, "1.25" },
        { "en_US", "3.5", true, Qt::Key_Escape, 1.25, "1.25" },
        { "en_US", "3.5", true, Qt::Key_Up, 3.51, "3.51" },
        { "en_US", "x", false, Qt::Key_Up, 1.26, "1.26" },
    };
    for (const auto &row : rows) {
        QLocale::setDefault(QLocale(QLatin1String(row.locale)));
        Control scene("UiSpinBox", "decimals: 2; value: 1.25; maximumValue: 5000");
        scene.item->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(scene.window(), Qt::Key_Backspace); // all of it is selected
        QCOMPARE(scene.shown(), QString());
        type(scene.window(), QLatin1String(row.typed));
        QCOMPARE(scene.value("invalid").toBool(), !row.isNumber);
        QTest::keyClick(scene.window(), row.key);
        QCOMPARE(scene.number(), row.after);
        QCOMPARE(scene.shown(), QLatin1String(row.shown));
        QVERIFY(!scene.value("invalid").toBool());
    }

    // What has more digits than are shown keeps them while nothing is typed.
    Control scene("UiSpinBox", "value: 1 / 3");
    scene.item->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.number(), 1.0 / 3);
}

// A press steps at once, and goes on while it is held; the field has the focus then, and the wheel.
void tst_KitText::spinBoxArrowsAndWheel()
{
    Control scene("UiSpinBox", "value: 5; maximumValue: 8; unit: 'dB'");
    auto *up = scene.find("controlUp");
    auto *down = scene.find("controlDown");
    wheel(scene.window(), center(scene.item), 1);
    QCOMPARE(scene.number(), 5.0);
    click(scene.window(), center(down));
    QCOMPARE(scene.number(), 4.0);
    QVERIFY(scene.find<LineEditBase>("controlField")->textInput()->hasActiveFocus());
    press(scene.window(), center(up));
    QCOMPARE(scene.number(), 5.0);
    QTRY_COMPARE(scene.number(), 8.0);
    release(scene.window(), center(up));
    wheel(scene.window(), center(scene.item), -2);
    QCOMPARE(scene.number(), 6.0);

    // A press on the unit is one behind the number.
    scene.find<LineEditBase>("controlField")->setFocus(false);
    click(scene.window(), center(down) - QPoint(25, 10));
    type(scene.window(), QStringLiteral(".5"));
    QCOMPARE(scene.shown(), QStringLiteral("6.5"));
}

// Both bounds arrive, whichever is written first and whatever they were.
void tst_KitText::spinBoxBounds()
{
    Control scene("UiSpinBox", "property var range: [0, 10]; minimumValue: range[0];"
                               "maximumValue: range[1]");
    const double ranges[][2] = { { 20, 30 }, { -30, -20 } };
    for (const auto &range : ranges) {
        scene.item->setProperty("range", QVariantList { range[0], range[1] });
        QMetaObject::invokeMethod(scene.item, "step", Q_ARG(QVariant, 500));
        QCOMPARE(scene.number(), range[1]);
        QMetaObject::invokeMethod(scene.item, "step", Q_ARG(QVariant, -500));
        QCOMPARE(scene.number(), range[0]);
    }
}

void tst_KitText::spinBoxBindable()
{
    Control scene("UiSpinBox",
                  "bindable: true; value: stored; maximumValue: 50; onUpdateRequested: {"
                  "asked.push(newValue); if (newValue < 10) stored = newValue }",
                  "property double stored: 5; property var asked: []\n");
    scene.item->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Up);
    type(scene.window(), QStringLiteral("42"));
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(scene.root()->property("asked").toList(), QVariantList({ 6, 42 }));
    QCOMPARE(scene.shown(), QStringLiteral("6"));
    scene.root()->setProperty("stored", 7); // the binding is still there
    QCOMPARE(scene.shown(), QStringLiteral("7"));
}

void tst_KitText::calendarKeys()
{
    Control scene("UiCalendar", "");
    scene.item->forceActiveFocus();
    SignalLog log;
    log.watch(scene.item, names({ "activated" }));
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
        { january, Qt::Key_Down, QDate(2024, 2, 7) },
        { january, Qt::Key_Home, QDate(2024, 1, 1) },
        { QDate(2024, 2, 5), Qt::Key_End, QDate(2024, 2, 29) },
        { january, Qt::Key_PageDown, QDate(2024, 2, 29) },
        { QDate(2024, 2, 29), Qt::Key_PageDown, QDate(2025, 2, 28), Qt::ShiftModifier },
        { QDate(100, 1, 1), Qt::Key_Left, QDate(99, 12, 31) },
        { january, Qt::Key_Left, january, Qt::AltModifier }, // not the calendar's
    };
    for (const auto &row : rows) {
        scene.item->setProperty("date", QDateTime(row.from, QTime(0, 0)));
        QTest::keyClick(scene.window(), row.key, row.modifier);
        QCOMPARE(scene.date("highlightedDate"), row.to);
        QCOMPARE(scene.date(), row.from);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QCOMPARE(scene.date(), row.to);
        QCOMPARE(log.take(), names({ "activated" }));
    }
}

// A day is the same day on either side of Greenwich, the one on which clocks change at midnight
// included.
void tst_KitText::calendarInTimeZones()
{
    for (const char *zone : { "UTC", "America/Sao_Paulo", "Pacific/Kiritimati" }) {
        setTimeZone(zone);
        Control scene("UiCalendar", "date: new Date(2018, 10, 15)");
        const QDate first(2018, 10, 29); // the Monday before 1 November 2018
        for (int cell : { 0, 3, 6, 9, 24, 41 }) {
            scene.item->setProperty("date", QDateTime(QDate(2018, 11, 15), QTime(0, 0)));
            auto *day = scene.find(QByteArray("controlDay" + QByteArray::number(cell)).constData());
            QVERIFY2(day, zone);
            QCOMPARE(day->childItems().constFirst()->property("text").toString(),
                     QString::number(first.addDays(cell).day()));
            click(scene.window(), center(day));
            QCOMPARE(scene.date(), first.addDays(cell));
        }
    }
}

// Digits, names that fit, and what assistive tools say of the day that the keys have reached.
void tst_KitText::calendarInItsLanguage()
{
    const QLocale arabic(QStringLiteral("ar_EG"));
    QLocale::setDefault(arabic);
    const QDate day(2024, 1, 31);
    Control scene("UiCalendar", "date: new Date(2024, 0, 31)");
    QStringList texts;
    for (const QQuickItem *child : scene.item->childItems())
        texts.append(child->property("text").toString());
    QVERIFY(texts.contains(arabic.standaloneMonthName(1) + QLatin1Char(' ')
                           + arabic.toString(day, QStringLiteral("yyyy"))));
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.item)->text(QAccessible::Name),
             arabic.toString(day, QLocale::LongFormat));
    for (const QQuickItem *row : scene.item->childItems()) {
        for (const QQuickItem *text : row->childItems())
            QVERIFY(text->implicitWidth() <= text->width());
    }
}

// What is no date shows the month of today, and nothing is chosen.
void tst_KitText::calendarBadDates()
{
    Control scene("UiCalendar", "date: new Date('nonsense')");
    QVERIFY(!scene.date().isValid());
    QVERIFY(scene.date("highlightedDate").isValid());
    scene.item->setProperty("highlightedDate", QDateTime());
    QVERIFY(scene.date("highlightedDate").isValid());
}

void tst_KitText::dateField()
{
    Control scene("UiDateField", "date: new Date(2024, 0, 31)");
    QCOMPARE(scene.value("text").toString(),
             QLocale().toString(QDate(2024, 1, 31), QLocale::ShortFormat));
    SignalLog log;
    log.watch(scene.item, names({ "activated" }));
    click(scene.window(), center(scene.item));
    QVERIFY(PopupStack::top());
    QVERIFY(scene.find("controlCalendar")->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_Right);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!PopupStack::top());
    QVERIFY(scene.item->hasActiveFocus());
    QCOMPARE(scene.date(), QDate(2024, 1, 31));
    QCOMPARE(log.take(), QStringList());

    // Opened by a key, it begins again where the field is.
    for (Qt::Key key : { Qt::Key_Space, Qt::Key_F4 }) {
        const QDate before = scene.date();
        QTest::keyClick(scene.window(), key);
        QVERIFY(PopupStack::top());
        QTest::keyClick(scene.window(), Qt::Key_Right);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QVERIFY(!PopupStack::top());
        QCOMPARE(scene.date(), before.addDays(1));
        QCOMPARE(log.take(), names({ "activated" }));
        QTest::keyClick(scene.window(), key);
        if (key == Qt::Key_F4)
            QTest::keyClick(scene.window(), Qt::Key_F4);
        else
            QTest::keyClick(scene.window(), Qt::Key_Up, Qt::AltModifier);
        QVERIFY(!PopupStack::top());
    }
}

TAMBER_TEST_MAIN(tst_KitText)
#include "tst_kittext.moc"
