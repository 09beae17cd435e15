#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ButtonBase>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>
#include <TamberUi/SliderBase>

#include <QtGui/QAccessible>
#include <QtGui/QFontInfo>
#include <QtQml/QQmlProperty>

using namespace ta::ui;
using namespace ta::test;

class tst_Kit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void registration();
    void secondEngine();
    void fontFamily();
    void statesLookDifferent_data();
    void statesLookDifferent();
    void accessibility_data();
    void accessibility();
    void accessibleActionsNeedAnAbleControl();
    void focusFrame();
    void loadIndicatorRests();
    void sliderLooks();
    void sliderKeys();
    void sliderAccessibility();
    void comboBoxTexts_data();
    void comboBoxTexts();
    void comboBoxKeys();
    void comboBoxTypeAhead();
    void comboBoxLeavesKeysAlone();
    void comboBoxKeysBesideRestingPointer();
    void comboBoxDisabledWhileOpen();
    void comboBoxPointer();
    void comboBoxWheel();
    void comboBoxShowsItsRow_data();
    void comboBoxShowsItsRow();
    void comboBoxFollowsItsModel();
    void comboBoxBadIndexes();
    void infoTip_data();
    void infoTip();
};

namespace {

const QString kComboBox = QStringLiteral(
    "UiComboBox { objectName: 'combo'; x: 100; y: 100; currentIndex: 1\n"
    "model: ['Apple', 'Banana', 'Blackberry', 'Cherry', 'Damson']; placeholder: 'Fruit' }");

int currentIndex(const QObject *combo)
{
    return combo->property("currentIndex").toInt();
}

bool isOpen(const QObject *combo)
{
    return combo->property("popupVisible").toBool();
}

} // namespace

void tst_Kit::initTestCase()
{
    Scene::useKit();
}

void tst_Kit::registration()
{
    Scene scene(QStringLiteral(
        "property int style: Ui.SecondaryPushButtonStyle\n"
        "property color ink: UiColors.getColor(UiColors.DarkGrey80)\n"
        "UiText {} UiPushButton {} UiToolButton {} UiCheckBox {} UiHorizontalSeparator {}\n"
        "UiLoadIndicator {} UiComboBox {} UiInfoTip {} UiPopupAnchor {}\n"
        "UiSlider {} UiDefaultSlider {} UiIcon {} UiBorder {} UiCheckerBoard {} UiThumbnail {}"));
    QVERIFY(scene.isValid());
    QCOMPARE(scene.root()->property("style").toInt(), 2);
    QCOMPARE(scene.root()->property("ink").value<QColor>(), QColor(0x33, 0x33, 0x33));
    QCOMPARE(scene.root()->childItems().count(), 15);
}

// Engines share nothing that dies with one of them.
void tst_Kit::secondEngine()
{
    const QString body = QStringLiteral("UiPushButton { objectName: 'button'; text: 'OK' }")
                         + kComboBox;
    Scene first(body);
    QVERIFY(first.isValid());
    {
        Scene second(body);
        QVERIFY(second.isValid());
        QMetaObject::invokeMethod(second.find("combo"), "show");
        QVERIFY(isOpen(second.find("combo")));
    }
    QVERIFY(!PopupStack::top());
    QMetaObject::invokeMethod(first.find("combo"), "show");
    QVERIFY(isOpen(first.find("combo")));
    QTest::keyClick(first.window(), Qt::Key_Escape);
}

void tst_Kit::fontFamily()
{
    Scene scene(QStringLiteral("property font light: UiFonts.getFont(UiFonts.Light, 20)\n"
                               "property font regular: UiFonts.getFont(UiFonts.Regular, 20)\n"
                               "property font semiBold: UiFonts.getFont(UiFonts.SemiBold, 20)\n"
                               "property font italic: UiFonts.getFont(UiFonts.LightItalic, 20)"));
    QVERIFY(scene.isValid());
    const struct
    {
        const char *name;
        int weight;
        bool italic;
    } rows[] = {
        { "light", QFont::Light, false },
        { "regular", QFont::Normal, false },
        { "semiBold", QFont::DemiBold, false },
        { "italic", QFont::Light, true },
    };
    for (const auto &row : rows) {
        const QFontInfo info(scene.root()->property(row.name).value<QFont>());
        QVERIFY2(info.family().startsWith(QLatin1String("Lato")), qPrintable(info.family()));
        QCOMPARE(info.weight(), row.weight);
        QCOMPARE(info.italic(), row.italic);
    }
}

void tst_Kit::statesLookDifferent_data()
{
    QTest::addColumn<QString>("control");
    QTest::newRow("primary") << QStringLiteral("UiPushButton { text: 'Go' ");
    QTest::newRow("secondary") << QStringLiteral(
        "UiPushButton { text: 'Go'; style: Ui.SecondaryPushButtonStyle ");
    QTest::newRow("tool") << QStringLiteral(
        "UiToolButton { text: 'Go'; iconSource: 'qrc:/ui/images/checkmark.png' ");
    QTest::newRow("tool glyph") << QStringLiteral("UiToolButton { iconName: 'cut' ");
    QTest::newRow("push glyph") << QStringLiteral("UiPushButton { text: 'Go'; iconName: 'okay' ");
    QTest::newRow("check") << QStringLiteral("UiCheckBox { text: 'Go' ");
    QTest::newRow("combo") << QStringLiteral("UiComboBox { model: ['Go']; currentIndex: 0 ");
}

// Normal, hovered, pressed, focused and disabled can be told apart by the picture alone.
void tst_Kit::statesLookDifferent()
{
    QFETCH(QString, control);
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }") + control
                    + QStringLiteral("; objectName: 'control'; x: 50; y: 20 }"),
                QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("control");
    QHash<QByteArray, QImage> pictures;
    const auto take = [&](const QByteArray &state) {
        pictures.insert(state, scene.window()->grabWindow());
    };
    move(scene.window(), QPoint(5, 5));
    take("normal");
    move(scene.window(), center(button));
    QVERIFY(button->hovered());
    take("hovered");
    button->setDown(true);
    take("down");
    button->setDown(false);
    move(scene.window(), QPoint(5, 5));
    button->forceActiveFocus();
    take("focused");
    button->setFocus(false);
    button->setEnabled(false);
    take("disabled");
    const QList<QByteArray> states = pictures.keys();
    for (int i = 0; i < states.count(); ++i) {
        for (int j = i + 1; j < states.count(); ++j)
            QVERIFY2(pictures.value(states.at(i)) != pictures.value(states.at(j)),
                     QByteArray(states.at(i) + " looks like " + states.at(j)).constData());
    }
}

void tst_Kit::accessibility_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("action");
    QTest::newRow("push") << QStringLiteral("UiPushButton { text: 'Name' ") << QAccessible::Button
                          << QAccessibleActionInterface::pressAction();
    QTest::newRow("tool") << QStringLiteral("UiToolButton { text: 'Name'; style: Ui.IconOnly ")
                          << QAccessible::Button << QAccessibleActionInterface::pressAction();
    QTest::newRow("check") << QStringLiteral("UiCheckBox { text: 'Name' ") << QAccessible::CheckBox
                           << QAccessibleActionInterface::toggleAction();
    QTest::newRow("combo") << QStringLiteral("UiComboBox { placeholder: 'Name'; model: 3 ")
                           << QAccessible::ComboBox << QAccessibleActionInterface::pressAction();
}

// Assistive tools read the name and the state, and what they press acts.
void tst_Kit::accessibility()
{
    QFETCH(QString, control);
    QFETCH(QAccessible::Role, role);
    QFETCH(QString, action);
    Scene scene(control + QStringLiteral("; objectName: 'control' }"));
    QVERIFY(scene.isValid());
    auto *item = scene.find("control");
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(item);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), role);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    QVERIFY(accessible->state().focusable);
    QCOMPARE(bool(accessible->state().checkable), role == QAccessible::CheckBox);

    SignalLog log;
    log.watch(item, { QStringLiteral("clicked"), QStringLiteral("downChanged") });
    accessible->actionInterface()->doAction(action);
    QCOMPARE(log.entries().count(), 1);
    if (role == QAccessible::CheckBox)
        QVERIFY(accessible->state().checked);
}

void tst_Kit::accessibleActionsNeedAnAbleControl()
{
    for (const char *properties : { "enabled: false", "readOnly: true" }) {
        Scene scene(
            QStringLiteral("UiCheckBox { objectName: 'box'; %1 }").arg(QLatin1String(properties)));
        QVERIFY(scene.isValid());
        auto *box = scene.find("box");
        SignalLog log;
        log.watch(box, { QStringLiteral("clicked") });
        QAccessible::queryAccessibleInterface(box)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
        QCOMPARE(log.take(), QStringList());
        QVERIFY(!box->property("checked").toBool());
    }
}

// The keyboard's focus is framed; one that a press of the pointer brought is not.
void tst_Kit::focusFrame()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }"
                               "UiPushButton { objectName: 'button'; x: 50; y: 20; text: 'Go' }"),
                QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *button = scene.find("button");
    const auto framed = [&] {
        const QImage picture = scene.window()->grabWindow();
        return picture.pixelColor(49, 36) == QColor(0x8B, 0xC7, 0xD8);
    };
    QVERIFY(!framed());
    click(scene.window(), center(button));
    QVERIFY(button->hasActiveFocus() && !framed());
    button->setFocus(false);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(button->hasActiveFocus() && framed());
}

void tst_Kit::loadIndicatorRests()
{
    Scene scene(QStringLiteral("UiLoadIndicator { objectName: 'indicator' }"));
    QVERIFY(scene.isValid());
    auto *indicator = scene.find("indicator");
    const auto framesOfAMoment = [&] {
        QTest::qWait(50);
        QSignalSpy frames(scene.window(), &QQuickWindow::frameSwapped);
        QTest::qWait(200);
        return frames.count();
    };
    QCOMPARE(framesOfAMoment(), 0);
    indicator->setProperty("loading", true);
    QVERIFY(framesOfAMoment() > 1);
    indicator->setVisible(false);
    QCOMPARE(framesOfAMoment(), 0);
}

// The states can be told apart by the picture alone, and a label is no part of the track.
void tst_Kit::sliderLooks()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }\n"
                               "UiSlider { objectName: 'slider'; x: 50; y: 20; width: 200\n"
                               "text: 'Volume'; valueText: 'loud'; maximumText: '11' }"),
                QSize(300, 100));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    const QPoint handle = QPoint(150, 20 + 36);
    QVector<QImage> pictures;
    const auto take = [&] { pictures.append(scene.window()->grabWindow()); };
    move(scene.window(), QPoint(60, 30)); // on the label
    QVERIFY(!slider->hovered());
    click(scene.window(), QPoint(60, 30));
    QCOMPARE(slider->value(), 0.5);
    take();
    move(scene.window(), handle);
    QVERIFY(slider->hovered());
    take();
    press(scene.window(), handle);
    QVERIFY(slider->pressed() && slider->hasActiveFocus());
    QCOMPARE(slider->value(), 0.5);
    take();
    release(scene.window(), handle);
    move(scene.window(), QPoint(60, 30));
    slider->setFocus(false);
    slider->forceActiveFocus();
    take();
    slider->setFocus(false);
    slider->setEnabled(false);
    take();
    for (int i = 0; i < pictures.count(); ++i) {
        for (int j = i + 1; j < pictures.count(); ++j)
            QVERIFY2(pictures.at(i) != pictures.at(j), qPrintable(QString::number(10 * i + j)));
    }
}

void tst_Kit::sliderKeys()
{
    Scene scene(QStringLiteral("property var asked: []; property int passed: 0\n"
                               "Keys.onPressed: ++passed\n"
                               "UiSlider { objectName: 'slider'; value: 50; maximumValue: 100\n"
                               "resetValue: 30; onUpdateRequested: asked.push(newValue) }"));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(slider->hasActiveFocus());
    const struct
    {
        Qt::Key key;
        double value;
    } rows[] = {
        { Qt::Key_Right, 55 }, { Qt::Key_Up, 60 },       { Qt::Key_Left, 55 },
        { Qt::Key_Down, 50 },  { Qt::Key_PageDown, 25 }, { Qt::Key_PageDown, 0 },
        { Qt::Key_Left, 0 },   { Qt::Key_PageUp, 25 },   { Qt::Key_End, 100 },
        { Qt::Key_Home, 0 },   { Qt::Key_Delete, 30 },
    };
    for (const auto &row : rows) {
        QTest::keyClick(scene.window(), row.key);
        QCOMPARE(slider->value(), row.value);
    }
    slider->setProperty("stepSize", 2);
    QTest::keyClick(scene.window(), Qt::Key_Right);
    QCOMPARE(slider->value(), 32.0);
    QCOMPARE(scene.root()->property("passed").toInt(), 0);
    QTest::keyClick(scene.window(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(scene.window(), Qt::Key_A);
    QCOMPARE(scene.root()->property("passed").toInt(), 3); // Alt itself is the third

    slider->setBindable(true);
    QTest::keyClick(scene.window(), Qt::Key_End);
    QTest::keyClick(scene.window(), Qt::Key_Delete);
    QCOMPARE(slider->value(), 32.0);
    QCOMPARE(scene.root()->property("asked").toList(), QVariantList({ 100.0, 30.0 }));
}

void tst_Kit::sliderAccessibility()
{
    Scene scene(QStringLiteral("UiSlider { objectName: 'slider'; text: 'Name'; value: 50\n"
                               "maximumValue: 100; minimumValue: -100; valueText: '50 %' }"));
    QVERIFY(scene.isValid());
    auto *slider = scene.find<SliderBase>("slider");
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(slider);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::Slider);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    QCOMPARE(accessible->text(QAccessible::Description), QStringLiteral("50 %"));
    QVERIFY(accessible->state().focusable);
    QAccessibleValueInterface *value = accessible->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->currentValue().toDouble(), 50.0);
    QCOMPARE(value->minimumValue().toDouble(), -100.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);
    value->setCurrentValue(70);
    QCOMPARE(slider->value(), 70.0);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(slider->value(), 60.0);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(slider->value(), 70.0);
}

void tst_Kit::comboBoxTexts_data()
{
    QTest::addColumn<QString>("properties");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("list") << QStringLiteral("model: ['a', 'b']; currentIndex: 1")
                          << QStringLiteral("b") << 2;
    QTest::newRow("number") << QStringLiteral("model: 5; currentIndex: 4") << QStringLiteral("4")
                            << 5;
    QTest::newRow("model") << QStringLiteral(
        "textRole: 'name'; currentIndex: 1; model: ListModel {"
        "ListElement { name: 'x' } ListElement { name: 'y' } }")
                           << QStringLiteral("y") << 2;
    QTest::newRow("none") << QStringLiteral("model: ['a']") << QString() << 1;
    QTest::newRow("empty") << QStringLiteral("currentIndex: 0") << QString() << 0;
    QTest::newRow("wrong role") << QStringLiteral(
        "textRole: 'nothing'; currentIndex: 0; model: ListModel {"
        "ListElement { name: 'x' } }")
                                << QString() << 1;
}

void tst_Kit::comboBoxTexts()
{
    QFETCH(QString, properties);
    Scene scene(QStringLiteral("UiComboBox { objectName: 'combo'; %1 }").arg(properties));
    QVERIFY(scene.isValid());
    const auto *combo = scene.find("combo");
    QTEST(combo->property("currentText").toString(), "text");
    QTEST(combo->property("count").toInt(), "count");
}

void tst_Kit::comboBoxKeys()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    SignalLog log;
    log.watch(combo, { QStringLiteral("activated") });
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(scene.window(), code, modifiers);
    };

    // Closed: the keys change the value.
    key(Qt::Key_Down);
    QCOMPARE(currentIndex(combo), 2);
    key(Qt::Key_End);
    key(Qt::Key_Down);
    QCOMPARE(currentIndex(combo), 4);
    key(Qt::Key_Home);
    key(Qt::Key_Up);
    QCOMPARE(currentIndex(combo), 0);
    QCOMPARE(log.take().count(), 3);

    // Every way to open it; the value stays until something is chosen.
    const QPair<Qt::Key, Qt::KeyboardModifiers> openers[] = {
        { Qt::Key_Space, Qt::NoModifier },
        { Qt::Key_Return, Qt::NoModifier },
        { Qt::Key_F4, Qt::NoModifier },
        { Qt::Key_Down, Qt::AltModifier },
    };
    for (const auto &opener : openers) {
        key(opener.first, opener.second);
        QVERIFY(isOpen(combo));
        key(Qt::Key_Down);
        QCOMPARE(currentIndex(combo), 0);
        key(Qt::Key_Escape);
        QVERIFY(!isOpen(combo));
        QVERIFY(combo->hasActiveFocus());
    }
    QCOMPARE(log.take(), QStringList());
    key(Qt::Key_Space);
    key(Qt::Key_Down);
    key(Qt::Key_PageDown);
    key(Qt::Key_Up);
    key(Qt::Key_Space);
    QVERIFY(!isOpen(combo));
    QCOMPARE(currentIndex(combo), 3);
    QCOMPARE(log.take().count(), 1);
}

void tst_Kit::comboBoxTypeAhead()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_D);
    QCOMPARE(currentIndex(combo), 4);
    combo->setProperty("typedAt", 0); // a second later
    QTest::keyClick(scene.window(), Qt::Key_B);
    QTest::keyClick(scene.window(), Qt::Key_L);
    QCOMPARE(currentIndex(combo), 2);
    combo->setProperty("typedAt", 0);
    for (int expected : { 1, 2, 1 }) { // the same letter walks through its rows
        QTest::keyClick(scene.window(), Qt::Key_B);
        QCOMPARE(currentIndex(combo), expected);
    }
    QTest::keyClick(scene.window(), Qt::Key_X);
    QCOMPARE(currentIndex(combo), 1);
}

// Keys that are nothing to the field go on to what is around it.
void tst_Kit::comboBoxLeavesKeysAlone()
{
    Scene scene(QStringLiteral("property int keys: 0\n"
                               "Keys.onPressed: if (event.key !== Qt.Key_Alt) ++keys\n")
                + kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    for (Qt::Key key : { Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete })
        QTest::keyClick(scene.window(), key);
    QTest::keyClick(scene.window(), Qt::Key_F4, Qt::AltModifier);
    QCOMPARE(scene.root()->property("keys").toInt(), 4);
    QVERIFY(!isOpen(combo));
    QTest::keyClick(scene.window(), Qt::Key_D);
    QCOMPARE(currentIndex(combo), 4);

    combo->setProperty("model", QStringList());
    for (Qt::Key key : { Qt::Key_A, Qt::Key_B, Qt::Key_Down, Qt::Key_End, Qt::Key_Space })
        QTest::keyClick(scene.window(), key);
    QVERIFY(!isOpen(combo));
}

// Rows that the keys scroll past a resting pointer are not what it chooses.
void tst_Kit::comboBoxKeysBesideRestingPointer()
{
    Scene scene(QStringLiteral("UiComboBox { objectName: 'combo'; model: 50; currentIndex: 0 }"));
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    QMetaObject::invokeMethod(combo, "show");
    QVERIFY(scene.waitForFrame());
    move(scene.window(), center(scene.find("comboItem3")));
    QCOMPARE(combo->property("highlightedIndex").toInt(), 3);
    for (int row = 4; row < 20; ++row) {
        QTest::keyClick(scene.window(), Qt::Key_Down);
        QVERIFY(scene.waitForFrame());
        QCOMPARE(combo->property("highlightedIndex").toInt(), row);
    }
    QTest::keyClick(scene.window(), Qt::Key_Escape);
}

void tst_Kit::comboBoxDisabledWhileOpen()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    QMetaObject::invokeMethod(combo, "show");
    combo->setEnabled(false);
    QVERIFY(!isOpen(combo));
    combo->setEnabled(true);
    QMetaObject::invokeMethod(combo, "show");
    combo->setVisible(false);
    QVERIFY(!isOpen(combo));
}

void tst_Kit::comboBoxPointer()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    click(scene.window(), center(combo));
    QVERIFY(isOpen(combo));
    auto *row = scene.find("comboItem3");
    QVERIFY(row);
    click(scene.window(), center(row));
    QVERIFY(!isOpen(combo));
    QCOMPARE(currentIndex(combo), 3);
    QCOMPARE(combo->property("currentText").toString(), QStringLiteral("Cherry"));

    // The press that closes the list is not one that opens it.
    click(scene.window(), center(combo));
    QVERIFY(isOpen(combo));
    click(scene.window(), center(combo));
    QVERIFY(!isOpen(combo));
}

void tst_Kit::comboBoxWheel()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    wheel(scene.window(), center(combo), -1);
    QCOMPARE(currentIndex(combo), 1);
    combo->forceActiveFocus();
    wheel(scene.window(), center(combo), -1);
    QCOMPARE(currentIndex(combo), 2);
    wheel(scene.window(), center(combo), 5);
    QCOMPARE(currentIndex(combo), 0);
}

void tst_Kit::comboBoxShowsItsRow_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("row");
    QTest::newRow("room for all rows, first") << 100 << 0;
    QTest::newRow("room for all rows, last") << 100 << 59;
    QTest::newRow("little room") << 250 << 30;
    QTest::newRow("upwards") << 560 << 45;
}

// The list opens where the value is.
void tst_Kit::comboBoxShowsItsRow()
{
    QFETCH(int, y);
    QFETCH(int, row);
    Scene scene(
        QStringLiteral("UiComboBox { objectName: 'combo'; y: %1; model: 60; currentIndex: %2 }")
            .arg(y)
            .arg(row));
    QVERIFY(scene.isValid());
    QMetaObject::invokeMethod(scene.find("combo"), "show");
    QVERIFY(scene.waitForFrame());
    const auto *popup = scene.find<PopupAnchor>("comboPopup")->popupItem();
    const auto *item = scene.find(qPrintable(QStringLiteral("comboItem%1").arg(row)));
    QVERIFY(popup && item);
    const QRectF place = item->mapRectToItem(popup, QRectF(QPointF(), item->size()));
    QVERIFY(QRectF(QPointF(), popup->size()).contains(place));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
}

void tst_Kit::comboBoxFollowsItsModel()
{
    Scene scene(
        QStringLiteral("property QtObject names: ListModel { ListElement { name: 'x' } }\n"
                       "UiComboBox { objectName: 'combo'; textRole: 'name'; currentIndex: 0; "
                       "model: names }\n"
                       "function rename() { names.setProperty(0, 'name', 'y') }\n"
                       "function insert() { names.insert(0, { name: 'z' }) }"));
    QVERIFY(scene.isValid());
    const auto text = [&] { return scene.find("combo")->property("currentText").toString(); };
    QCOMPARE(text(), QStringLiteral("x"));
    QMetaObject::invokeMethod(scene.root(), "rename");
    QCOMPARE(text(), QStringLiteral("y"));
    QMetaObject::invokeMethod(scene.root(), "insert");
    QCOMPARE(text(), QStringLiteral("z"));
}

void tst_Kit::comboBoxBadIndexes()
{
    Scene scene(kComboBox);
    QVERIFY(scene.isValid());
    auto *combo = scene.find("combo");
    for (int index : { -7, 5, 1000000 }) {
        combo->setProperty("currentIndex", index);
        QCOMPARE(combo->property("currentText").toString(), QString());
        QMetaObject::invokeMethod(combo, "show");
        QMetaObject::invokeMethod(combo, "hide");
    }
    combo->setProperty("currentIndex", 2);
    QMetaObject::invokeMethod(combo, "show");
    combo->setProperty("model", QStringList { QStringLiteral("Only") }); // while the list is open
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(!isOpen(combo));
    QCOMPARE(combo->property("currentText").toString(), QString());
}

void tst_Kit::infoTip_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("above");
    QTest::newRow("middle") << QPoint(380, 280) << false;
    QTest::newRow("top left") << QPoint(0, 0) << false;
    QTest::newRow("top right") << QPoint(760, 0) << false;
    QTest::newRow("bottom left") << QPoint(0, 576) << true;
    QTest::newRow("bottom right") << QPoint(760, 576) << true;
}

// It lies inside the window, at the item, and its peak points at the item.
void tst_Kit::infoTip()
{
    QFETCH(QPoint, position);
    QFETCH(bool, above);
    Scene scene(
        QStringLiteral("Item { objectName: 'target'; x: %1; y: %2; width: 40; height: 24\n"
                       "UiInfoTip { objectName: 'tip'; text: 'A hint that is long enough to "
                       "need at least two lines, as hints do.' } }")
            .arg(position.x())
            .arg(position.y()));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("tip");
    anchor->show();
    const QQuickItem *tip = anchor->popupItem();
    QVERIFY(tip);
    const QRectF area = tip->mapRectToScene(QRectF(QPointF(), tip->size()));
    QVERIFY(QRectF(0, 0, 800, 600).contains(area));
    QVERIFY(area.height() > 50);
    QCOMPARE(above ? area.bottom() : area.top(), qreal(above ? position.y() : position.y() + 24));
    const QList<QQuickItem *> children = tip->childItems();
    const auto *peak = *std::find_if(children.begin(), children.end(), [](const QQuickItem *child) {
        return child->property("source").isValid();
    });
    const qreal tipX = peak->mapToScene(QPointF(peak->width() / 2, 0)).x();
    QVERIFY2(qAbs(tipX - (position.x() + 20)) <= 6, qPrintable(QString::number(tipX)));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!anchor->isPopupVisible());
}

TAMBER_TEST_MAIN(tst_Kit)
#include "tst_kit.moc"
