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
    void statesLookDifferent_data();
    void statesLookDifferent();
    void accessibility_data();
    void accessibility();
    void lineEditShowsItsText_data();
    void lineEditShowsItsText();
    void lineEditPointer();
    void lineEditValidator();
    void spinBoxKeys();
    void spinBoxTyping_data();
    void spinBoxTyping();
    void spinBoxArrows();
    void spinBoxWheel();
    void spinBoxBounds();
    void spinBoxBindable();
    void calendarKeys();
    void calendarInTimeZones_data();
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

void tst_KitText::statesLookDifferent_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("properties");
    QTest::addColumn<QString>("error");
    QTest::newRow("line edit") << "UiLineEdit"
                               << "text: 'Go'"
                               << "error";
    QTest::newRow("empty line edit") << "UiLineEdit"
                                     << "placeHolderText: 'Go'"
                                     << "error";
    QTest::newRow("spin box") << "UiSpinBox"
                              << "value: 12; unit: 'px'"
                              << "error";
    QTest::newRow("date field") << "UiDateField"
                                << "date: new Date(2021, 1, 3)" << QString();
    QTest::newRow("calendar") << "UiCalendar"
                              << "date: new Date(2021, 1, 3)" << QString();
}

// Each state can be told from all others by the picture alone.
void tst_KitText::statesLookDifferent()
{
    QFETCH(QString, type);
    QFETCH(QString, properties);
    QFETCH(QString, error);
    Scene scene(control(type, properties), QSize(500, 400));
    QVERIFY(scene.isValid());
    auto *item = scene.find("control");
    QHash<QString, QImage> pictures;
    const auto take = [&](const char *state) {
        pictures.insert(QLatin1String(state), scene.window()->grabWindow());
    };
    move(scene.window(), QPoint(5, 5));
    take("normal");
    move(scene.window(), center(item) + QPoint(5, 0));
    take("hovered");
    move(scene.window(), QPoint(5, 5));
    if (!error.isEmpty()) {
        item->setProperty(qPrintable(error), true);
        take("wrong");
        item->setProperty(qPrintable(error), false);
    }
    item->forceActiveFocus(Qt::TabFocusReason);
    take("focused");
    item->setFocus(false);
    item->setEnabled(false);
    take("disabled");
    const QStringList states = pictures.keys();
    for (const QString &one : states) {
        for (const QString &other : states)
            QVERIFY2((one == other) == (pictures.value(one) == pictures.value(other)),
                     qPrintable(one + QLatin1Char(' ') + other));
    }
}

void tst_KitText::accessibility_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("properties");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("name");
    QTest::newRow("line edit") << "UiLineEdit"
                               << "placeHolderText: 'Name'" << int(QAccessible::EditableText)
                               << "Name";
    QTest::newRow("spin box") << "UiSpinBox"
                              << "placeHolderText: 'Size'" << int(QAccessible::SpinBox) << "Size";
    QTest::newRow("date field") << "UiDateField"
                                << "placeholder: 'Day'" << int(QAccessible::ComboBox) << "Day";
    QTest::newRow("calendar") << "UiCalendar"
                              << "date: new Date(2021, 1, 3)" << int(QAccessible::Table)
                              << "February 2021";
}

void tst_KitText::accessibility()
{
    QFETCH(QString, type);
    QFETCH(QString, properties);
    Scene scene(control(type, properties));
    QVERIFY(scene.isValid());
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(scene.find("control"));
    QVERIFY(interface);
    QTEST(int(interface->role()), "role");
    QTEST(interface->text(QAccessible::Name), "name");
    if (type == QLatin1String("UiSpinBox")) {
        QVERIFY(interface->valueInterface());
        QCOMPARE(interface->valueInterface()->currentValue().toDouble(), 0.0);
        interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        QCOMPARE(interface->valueInterface()->currentValue().toDouble(), 1.0);
    }
}

void tst_KitText::lineEditShowsItsText_data()
{
    QTest::addColumn<QString>("properties");
    QTest::newRow("written") << "text: 'shown'";
    QTest::newRow("bound") << "property var all: ['shown']; text: all[0]";
    QTest::newRow("written later") << "text: ''; Component.onCompleted: text = 'shown'";
}

// Whatever comes first, the text or the item that shows it.
void tst_KitText::lineEditShowsItsText()
{
    QFETCH(QString, properties);
    Scene scene(control(QStringLiteral("UiLineEdit"), properties));
    QVERIFY(scene.isValid());
    QCOMPARE(shownText(scene), QStringLiteral("shown"));
    auto *edit = scene.find<LineEditBase>("control");
    QCOMPARE(edit->textInput()->property("cursorPosition").toInt(), 0);

    // None of it is lost for being long.
    const QString text(100000, QLatin1Char('w'));
    edit->setVisible(false);
    edit->setText(text);
    edit->setVisible(true);
    edit->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    edit->setFocus(false);
    QCOMPARE(edit->text(), text);
}

// A press in the margin is one on the text; a drag from there selects.
void tst_KitText::lineEditPointer()
{
    Scene scene(control(QStringLiteral("UiLineEdit"), QStringLiteral("text: 'some words'")));
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
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
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("after");
    QTest::addColumn<QString>("shown");
    const int enter = Qt::Key_Return;
    QTest::newRow("English") << "en_US"
                             << "3.5" << enter << 3.5 << "3.50";
    QTest::newRow("German") << "de_DE"
                            << "3,5" << enter << 3.5 << "3,50";
    QTest::newRow("C in German") << "de_DE"
                                 << "3.5" << enter << 3.5 << "3,50";
    QTest::newRow("groups in German") << "de_DE"
                                      << "1.234,5" << enter << 1234.5 << "1234,50";
    QTest::newRow("French") << "fr_FR"
                            << "-3,5" << enter << -3.5 << "-3,50";
    QTest::newRow("Arabic") << "ar_EG" << QStringLiteral("\u0663\u066b\u0665") << enter << 3.5
                            << QStringLiteral("\u0663\u066b\u0665\u0660");
    QTest::newRow("C in Arabic") << "ar_EG"
                                 << "3.5" << enter << 3.5
                                 << QStringLiteral("\u0663\u066b\u0665\u0660");
    QTest::newRow("Hindi") << "hi_IN"
                           << "3.5" << enter << 3.5 << "3.50";
    QTest::newRow("too much") << "en_US"
                              << "1e9" << enter << 5000.0 << "5000.00";
    QTest::newRow("rounded to what is shown") << "en_US"
                                              << "3.149" << enter << 3.15 << "3.15";
    QTest::newRow("no number") << "en_US"
                               << "three" << enter << 1.25 << "1.25";
    QTest::newRow("nothing") << "en_US" << QString() << enter << 1.25 << "1.25";
    QTest::newRow("given up") << "en_US"
                              << "3.5" << int(Qt::Key_Escape) << 1.25 << "1.25";
    QTest::newRow("stepped from") << "en_US"
                                  << "3.5" << int(Qt::Key_Up) << 3.51 << "3.51";
    QTest::newRow("no number to step from") << "en_US"
                                            << "x" << int(Qt::Key_Up) << 1.26 << "1.26";
}

void tst_KitText::spinBoxTyping()
{
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QFETCH(int, key);
    QLocale::setDefault(QLocale(locale));
    Scene scene(control(QStringLiteral("UiSpinBox"),
                        QStringLiteral("decimals: 2; value: 1.25; maximumValue: 5000")));
    QVERIFY(scene.isValid());
    scene.find("control")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), Qt::Key_Backspace); // all of it is selected
    QCOMPARE(shownText(scene), QString());
    type(scene.window(), typed);
    QCOMPARE(shownText(scene), typed);
    QCOMPARE(value(scene, "invalid").toBool(),
             QByteArray(QTest::currentDataTag()).startsWith("no"));
    QTest::keyClick(scene.window(), Qt::Key(key));
    QTEST(value(scene, "value").toDouble(), "after");
    QTEST(shownText(scene), "shown");
    QVERIFY(!value(scene, "invalid").toBool());

    // What has more digits than are shown keeps them while nothing is typed.
    scene.find("control")->setProperty("value", 1.0 / 3);
    scene.find("control")->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(value(scene, "value").toDouble(), 1.0 / 3);
}

// A press steps at once, and goes on while it is held; the field has the focus then.
void tst_KitText::spinBoxArrows()
{
    Scene scene(control(QStringLiteral("UiSpinBox"), QStringLiteral("value: 5; maximumValue: 8")));
    QVERIFY(scene.isValid());
    auto *up = scene.find("controlUp");
    auto *down = scene.find("controlDown");
    click(scene.window(), center(down));
    QCOMPARE(value(scene, "value").toDouble(), 4.0);
    QVERIFY(scene.find<LineEditBase>("controlField")->textInput()->hasActiveFocus());
    QTest::keyClick(scene.window(), '4'); // in the place of all that is there
    QCOMPARE(shownText(scene), QStringLiteral("4"));
    press(scene.window(), center(up));
    QCOMPARE(value(scene, "value").toDouble(), 5.0);
    QTRY_COMPARE(value(scene, "value").toDouble(), 8.0);
    release(scene.window(), center(up));
    click(scene.window(), center(down));
    QCOMPARE(value(scene, "value").toDouble(), 7.0);
    scene.find("control")->setEnabled(false);
    click(scene.window(), center(down));
    QCOMPARE(value(scene, "value").toDouble(), 7.0);
}

void tst_KitText::spinBoxWheel()
{
    Scene scene(control(QStringLiteral("UiSpinBox"), QStringLiteral("value: 5")));
    QVERIFY(scene.isValid());
    auto *box = scene.find("control");
    wheel(scene.window(), center(box), 1);
    QCOMPARE(value(scene, "value").toDouble(), 5.0);
    box->forceActiveFocus();
    wheel(scene.window(), center(box), 2);
    wheel(scene.window(), center(box), -1);
    QCOMPARE(value(scene, "value").toDouble(), 6.0);
    wheel(scene.window(), center(box), 1000000); // ends, at least
}

// Both bounds arrive, whichever is written first and whatever they were.
void tst_KitText::spinBoxBounds()
{
    Scene scene(control(QStringLiteral("UiSpinBox"),
                        QStringLiteral("property var range: [0, 10]; minimumValue: range[0];"
                                       "maximumValue: range[1]")));
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
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

void tst_KitText::calendarInTimeZones_data()
{
    QTest::addColumn<QByteArray>("zone");
    for (const char *zone : { "UTC", "America/New_York", "America/Sao_Paulo", "Asia/Tokyo",
                              "Pacific/Kiritimati", "Europe/Berlin" })
        QTest::newRow(zone) << QByteArray(zone);
}

// A day is the same day on either side of Greenwich, the one on which clocks change at midnight
// included.
void tst_KitText::calendarInTimeZones()
{
    QFETCH(QByteArray, zone);
    setTimeZone(zone);
    Scene scene(
        control(QStringLiteral("UiCalendar"), QStringLiteral("date: new Date(2018, 10, 15)")));
    QVERIFY(scene.isValid());
    const QDate first(2018, 10, 29); // the Monday before 1 November 2018
    for (int cell : { 0, 3, 6, 9, 24, 41 }) {
        scene.find("control")->setProperty("date", QDateTime(QDate(2018, 11, 15), QTime(0, 0)));
        const QByteArray name = "controlDay" + QByteArray::number(cell);
        auto *day = scene.find(name.constData());
        QVERIFY(day);
        QCOMPARE(day->childItems().constFirst()->property("text").toString(),
                 QString::number(first.addDays(cell).day()));
        click(scene.window(), center(day));
        QCOMPARE(dateOf(scene), first.addDays(cell));
        QCOMPARE(dateOf(scene, "highlightedDate"), first.addDays(cell));
    }
}

// What is no date shows the month of today, and nothing is chosen.
void tst_KitText::calendarBadDates()
{
    Scene scene(
        control(QStringLiteral("UiCalendar"), QStringLiteral("date: new Date('nonsense')")));
    QVERIFY(scene.isValid());
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
    QVERIFY(scene.isValid());
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
    for (Qt::Key key : { Qt::Key_Space, Qt::Key_Return, Qt::Key_F4, Qt::Key_Down }) {
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
