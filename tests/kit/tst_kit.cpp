#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>
#include <TamberUi/SliderBase>

#include <QtCore/QDir>
#include <QtGui/QAccessible>
#include <QtGui/QImageReader>

using namespace ta::ui;
using namespace ta::test;

class tst_Kit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void secondEngine();
    void sharpImages();
    void statesLookDifferent_data();
    void statesLookDifferent();
    void accessibility_data();
    void accessibility();
    void focusFrame();
    void infoTip();
    void sliderLabel();
    void sliderKeys();
};

// Engines share nothing that dies with one of them.
void tst_Kit::secondEngine()
{
    const QString body = QStringLiteral(
        "UiPushButton { objectName: 'button'; text: 'OK' }\n"
        "UiComboBox { objectName: 'combo'; model: ['Apple', 'Banana'] }");
    Scene first(body);
    {
        Scene second(body);
        QMetaObject::invokeMethod(second.find("combo"), "show");
        QVERIFY(second.find("combo")->property("popupVisible").toBool());
    }
    QVERIFY(!PopupStack::top());
    QMetaObject::invokeMethod(first.find("combo"), "show");
    QVERIFY(first.find("combo")->property("popupVisible").toBool());
    QTest::keyClick(first.window(), Qt::Key_Escape);
}

// Beside the library's images lie those for screens of twice the density, its own and the kit's.
void tst_Kit::sharpImages()
{
    const Scene scene(QStringLiteral("UiText { }"));
    const QDir images(QStringLiteral(":/ui/images"));
    const QStringList names = images.entryList({ QStringLiteral("*@2x.png") });
    QCOMPARE(names.count(), 11);
    for (const QString &name : names) {
        const QImage plain(images.filePath(QString(name).remove(QStringLiteral("@2x"))));
        QVERIFY2(!plain.isNull(), qPrintable(name));
        QCOMPARE(QImageReader(images.filePath(name)).size(), 2 * plain.size());
    }
}

void tst_Kit::statesLookDifferent_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QByteArray>("state"); // a property that shows, besides what all have
    const auto row = [](const char *name, const char *control, const char *state) {
        QTest::newRow(name) << QString::fromLatin1(control) << QByteArray(state);
    };
    row("primary", "UiPushButton { text: 'Go' ", "down");
    row("tool", "UiToolButton { text: 'Go'; iconSource: 'qrc:/ui/images/checkmark.png' ", "down");
    row("check", "UiCheckBox { text: 'Go' ", "down");
    row("combo", "UiComboBox { model: ['Go']; currentIndex: 0 ", "down");
    row("line edit", "UiLineEdit { text: 'Go' ", "error");
    row("spin box", "UiSpinBox { value: 12; unit: 'px' ", "error");
    row("date field", "UiDateField { date: new Date(2021, 1, 3) ", "down");
    row("slider", "UiSlider { width: 200 ", "");
    row("calendar", "UiCalendar { date: new Date(2021, 1, 3) ", "");
}

// Normal, hovered, focused, disabled and the like can be told apart by the picture alone.
void tst_Kit::statesLookDifferent()
{
    QFETCH(QString, control);
    QFETCH(QByteArray, state);
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }") + control
                    + QStringLiteral("; objectName: 'control'; x: 50; y: 50 }"),
                QSize(400, 350));
    auto *item = scene.find("control");
    QHash<QByteArray, QImage> pictures;
    const auto take = [&](const QByteArray &name) {
        pictures.insert(name, scene.window()->grabWindow());
    };
    move(scene.window(), QPoint(5, 5));
    take("normal");
    if (!state.isEmpty()) {
        item->setProperty(state, true);
        take(state);
        item->setProperty(state, false);
    }
    move(scene.window(), center(item) + QPoint(5, 0)); // on a day of the calendar
    take("hovered");
    move(scene.window(), QPoint(5, 5));
    item->forceActiveFocus(Qt::TabFocusReason);
    take("focused");
    item->setFocus(false);
    item->setEnabled(false);
    take("disabled");
    const QList<QByteArray> names = pictures.keys();
    for (const QByteArray &one : names) {
        for (const QByteArray &other : names)
            QVERIFY2((one == other) == (pictures.value(one) == pictures.value(other)),
                     QByteArray(one + " and " + other).constData());
    }
}

void tst_Kit::accessibility_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("signal"); // that the action leads to
    using Action = QAccessibleActionInterface;
    const auto row = [](const char *name, const char *control, QAccessible::Role role,
                        const QString &action, const char *signal) {
        QTest::newRow(name) << QString::fromLatin1(control) << role << action
                            << QString::fromLatin1(signal);
    };
    row("push", "UiPushButton { text: 'Name' ", QAccessible::Button, Action::pressAction(),
        "clicked");
    row("check", "UiCheckBox { text: 'Name' ", QAccessible::CheckBox, Action::toggleAction(),
        "clicked");
    row("combo", "UiComboBox { placeholder: 'Name'; model: 3 ", QAccessible::ComboBox,
        Action::pressAction(), "downChanged");
    row("spin box", "UiSpinBox { placeHolderText: 'Name' ", QAccessible::SpinBox,
        Action::increaseAction(), "valueChanged");
    row("slider", "UiSlider { text: 'Name' ", QAccessible::Slider, Action::increaseAction(),
        "valueChanged");
    row("line edit", "UiLineEdit { placeHolderText: 'Name' ", QAccessible::EditableText, {}, "");
    row("date field", "UiDateField { placeholder: 'Name' ", QAccessible::ComboBox,
        Action::pressAction(), "downChanged");
}

// Assistive tools read the name and the state, and what they press acts.
void tst_Kit::accessibility()
{
    QFETCH(QString, control);
    QFETCH(QAccessible::Role, role);
    QFETCH(QString, action);
    QFETCH(QString, signal);
    Scene scene(control + QStringLiteral("; objectName: 'control' }"));
    auto *item = scene.find("control");
    const auto *window = QAccessible::queryAccessibleInterface(scene.window());
    QAccessibleInterface *accessible = window->child(0);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), role);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    if (action.isEmpty())
        return;
    QVERIFY(accessible->state().focusable);
    SignalLog log;
    log.watch(item, { signal });
    accessible->actionInterface()->doAction(action);
    QCOMPARE(log.entries().count(), 1);
    if (role == QAccessible::CheckBox)
        QVERIFY(accessible->state().checked);
    if (role == QAccessible::SpinBox)
        QCOMPARE(accessible->valueInterface()->currentValue().toDouble(), 1.0);
}

// The keyboard's focus is framed; one that a press of the pointer brought is not.
void tst_Kit::focusFrame()
{
    Scene scene(QStringLiteral("Rectangle { anchors.fill: parent }"
                               "UiPushButton { objectName: 'button'; x: 50; y: 20; text: 'Go' }"),
                QSize(300, 100));
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

// It lies inside the window, at the item.
void tst_Kit::infoTip()
{
    for (const QPoint &position : { QPoint(380, 280), QPoint(0, 0), QPoint(760, 576) }) {
        Scene scene(
            QStringLiteral("Item { x: %1; y: %2; width: 40; height: 24\n"
                           "UiInfoTip { objectName: 'tip'; text: 'A hint that is long enough to "
                           "need at least two lines, as hints do.' } }")
                .arg(position.x())
                .arg(position.y()));
        auto *anchor = scene.find<PopupAnchor>("tip");
        anchor->show();
        const QQuickItem *tip = anchor->popupItem();
        QVERIFY(tip);
        const QRectF area = tip->mapRectToScene(QRectF(QPointF(), tip->size()));
        QVERIFY(QRectF(0, 0, 800, 600).contains(area));
        QVERIFY(area.height() > 50);
        const bool above = position.y() == 576;
        QCOMPARE(above ? area.bottom() : area.top(), position.y() + (above ? 0.0 : 24.0));
    }
}

// A label is no part of the track.
void tst_Kit::sliderLabel()
{
    Scene scene(QStringLiteral("UiSlider { objectName: 'slider'; x: 50; y: 20; width: 200\n"
                               "text: 'Volume'; valueText: 'loud'; maximumText: '11' }"),
                QSize(300, 100));
    auto *slider = scene.find<SliderBase>("slider");
    click(scene.window(), QPoint(60, 30));
    QCOMPARE(slider->value(), 0.5);
    QVERIFY(!slider->hovered());
    click(scene.window(), QPoint(60, 20 + 36));
    QVERIFY(slider->value() < 0.1 && slider->hovered() && slider->hasActiveFocus());
}

void tst_Kit::sliderKeys()
{
    Scene scene(QStringLiteral("property var asked: []; property int passed: 0\n"
                               "Keys.onPressed: ++passed\n"
                               "UiSlider { objectName: 'slider'; value: 50; maximumValue: 100\n"
                               "resetValue: 30; onUpdateRequested: asked.push(newValue) }"));
    auto *slider = scene.find<SliderBase>("slider");
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(slider->hasActiveFocus());
    const struct
    {
        Qt::Key key;
        double value;
    } rows[] = {
        { Qt::Key_Up, 55 },     { Qt::Key_Left, 50 }, { Qt::Key_PageDown, 25 },
        { Qt::Key_PageUp, 50 }, { Qt::Key_End, 100 }, { Qt::Key_Right, 100 },
        { Qt::Key_Delete, 30 },
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

TAMBER_TEST_MAIN(tst_Kit)
#include "tst_kit.moc"
