#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/CheckButtonBase>
#include <TamberUi/PushButtonBase>
#include <TamberUi/ToolButtonBase>

#include <QtCore/QMetaMethod>
#include <QtGui/QCursor>
#include <QtGui/QStyleHints>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

class tst_Buttons : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void costs();
    void mouse();
    void doubleClick();
    void otherButtons();
    void keys_data();
    void keys();
    void ungrab();
    void disabling();
    void notInteractive();
    void focusOnPress();
    void stealsEditFocus();
    void checkStates();
    void checkClicks();
    void readOnly();
    void defaults();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
};

namespace {

const char kButton[] =
    "UiCheckButtonBase { objectName: 'button'; x: 100; y: 100; width: 80; height: 24 }";
const QPoint kInside(120, 110);
const QPoint kOutside(300, 300);

} // namespace

// A button is one object, and connects nothing before it is hovered or pressed.
void tst_Buttons::costs()
{
    class Button : public ButtonBase
    {
    public:
        bool watchesEnabled() const
        {
            return isSignalConnected(QMetaMethod::fromSignal(&QQuickItem::enabledChanged));
        }
    } button;
    QVERIFY(!button.watchesEnabled());
    QVERIFY(button.children().isEmpty());
    QVERIFY(button.childItems().isEmpty());
    QVERIFY(!button.flags().testFlag(QQuickItem::ItemHasContents));
    QCOMPARE(button.acceptedMouseButtons(), Qt::LeftButton);
    QVERIFY(button.acceptHoverEvents());
    QVERIFY(button.activeFocusOnTab());
}

void tst_Buttons::mouse()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    SignalLog log;
    log.watch(button, names({ "hoveredChanged", "pressedChanged", "clicked" }));

    move(scene.window(), kInside);
    QVERIFY(button->hovered());
    press(scene.window(), kInside);
    QVERIFY(button->pressed());
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    move(scene.window(), kOutside);
    QVERIFY(!button->hovered() && !button->pressed());
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    move(scene.window(), kInside);
    QVERIFY(button->hovered() && button->pressed());
    log.take();
    release(scene.window(), kInside);
    QCOMPARE(log.take(), names({ "pressedChanged", "clicked" }));

    // Released outside: no click.
    QTest::qWait(0);
    press(scene.window(), kInside);
    move(scene.window(), kOutside);
    release(scene.window(), kOutside);
    QCOMPARE(log.count(QStringLiteral("clicked")), 0);
    QVERIFY(!button->pressed());

    Qt::KeyboardModifiers modifiers;
    connect(button, &ButtonBase::clicked, this, [&](Qt::KeyboardModifiers m) { modifiers = m; });
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier,
                      kInside);
    QCOMPARE(modifiers, Qt::ControlModifier | Qt::ShiftModifier);
}

void tst_Buttons::doubleClick()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    SignalLog log;
    log.watch(scene.find("button"), names({ "clicked", "pressedChanged" }));
    QTest::mouseDClick(scene.window(), Qt::LeftButton, {}, kInside);
    QCOMPARE(log.count(QStringLiteral("clicked")), 1);
    QCOMPARE(log.count(QStringLiteral("pressedChanged")), 4);
    // The next press is an ordinary one again.
    QTest::mouseClick(scene.window(), Qt::LeftButton, {}, kInside,
                      QGuiApplication::styleHints()->mouseDoubleClickInterval() + 1);
    QCOMPARE(log.count(QStringLiteral("clicked")), 2);
}

void tst_Buttons::otherButtons()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    SignalLog log;
    log.watch(scene.find("button"), names({ "pressedChanged", "clicked" }));
    click(scene.window(), kInside, Qt::RightButton);
    click(scene.window(), kInside, Qt::MiddleButton);
    QCOMPARE(log.take(), QStringList());
}

void tst_Buttons::keys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("activates");
    QTest::newRow("Return") << Qt::Key_Return << true;
    QTest::newRow("Enter") << Qt::Key_Enter << true;
    QTest::newRow("Space") << Qt::Key_Space << true;
    QTest::newRow("Escape") << Qt::Key_Escape << false;
    QTest::newRow("A") << Qt::Key_A << false;
}

void tst_Buttons::keys()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, activates);
    Scene scene(QStringLiteral("property var passed: []; Keys.onPressed: passed.push('press');"
                               "Keys.onReleased: passed.push('release');")
                + QLatin1String(kButton));
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    button->forceActiveFocus();
    SignalLog log;
    log.watch(button, names({ "pressedChanged", "clicked" }));
    QTest::keyPress(scene.window(), key);
    QCOMPARE(button->pressed(), activates);
    QTest::keyRelease(scene.window(), key);
    QCOMPARE(log.take(),
             activates ? names({ "pressedChanged", "pressedChanged", "clicked" }) : QStringList());
    QCOMPARE(scene.root()->property("passed").toList().count(), activates ? 0 : 2);

    // The focus may have come here while the key was down.
    QTest::keyRelease(scene.window(), key, Qt::AltModifier);
    QCOMPARE(log.take(), activates ? names({ "clicked" }) : QStringList());
}

void tst_Buttons::ungrab()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    press(scene.window(), kInside);
    QVERIFY(button->pressed());
    button->setInteractive(true);
    button->ungrabMouse();
    QVERIFY(!button->pressed());
    release(scene.window(), kInside);
}

void tst_Buttons::disabling()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    button->forceActiveFocus();
    SignalLog log;
    log.watch(button, names({ "hoveredChanged", "pressedChanged", "clicked" }));
    move(scene.window(), kInside);
    QTest::keyPress(scene.window(), Qt::Key_Space);
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    scene.root()->setEnabled(false); // by an ancestor
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    scene.root()->setEnabled(true);
    QCOMPARE(log.take(), QStringList());

    press(scene.window(), kInside);
    scene.root()->setEnabled(false);
    release(scene.window(), kInside);
    QVERIFY(!button->pressed());
    QCOMPARE(log.count(QStringLiteral("clicked")), 0);
    delete button; // becomes enabled on its way out
}

void tst_Buttons::notInteractive()
{
    Scene scene(QStringLiteral("property int passed: 0; Keys.onPressed: ++passed;"
                               "Keys.onReleased: ++passed;")
                + QLatin1String(kButton));
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    button->forceActiveFocus();
    move(scene.window(), kInside);
    press(scene.window(), kInside);
    SignalLog log;
    log.watch(button);
    button->setInteractive(false);
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
    release(scene.window(), kInside);
    move(scene.window(), kOutside);
    move(scene.window(), kInside);
    click(scene.window(), kInside);
    QTest::keyClick(scene.window(), Qt::Key_Space);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.root()->property("passed").toInt(), 2);
}

void tst_Buttons::focusOnPress()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    click(scene.window(), kInside);
    QVERIFY(!button->hasActiveFocus());
    button->setActiveFocusOnPress(true);
    click(scene.window(), kInside);
    QVERIFY(button->hasActiveFocus());
}

void tst_Buttons::stealsEditFocus()
{
    Scene scene(
        QStringLiteral("TextInput { objectName: 'edit' } FocusScope { objectName: 'plain' }")
        + QLatin1String(kButton));
    QVERIFY(scene.isValid());
    auto *button = scene.find<ButtonBase>("button");
    auto *edit = scene.find("edit");
    auto *plain = scene.find("plain");

    edit->forceActiveFocus();
    click(scene.window(), kInside);
    QVERIFY(edit->hasActiveFocus());
    button->setStealEditFocus(true);
    click(scene.window(), kInside);
    QVERIFY(!edit->hasFocus());
    QVERIFY(!button->hasActiveFocus());
    plain->forceActiveFocus();
    click(scene.window(), kInside);
    QVERIFY(plain->hasActiveFocus());
}

void tst_Buttons::checkStates()
{
    CheckButtonBase button;
    SignalLog log;
    log.watch(&button);
    const struct
    {
        Qt::CheckState state;
        QStringList signalNames;
    } steps[] = {
        { Qt::Unchecked, {} },
        { Qt::PartiallyChecked, names({ "checkStateChanged" }) },
        { Qt::Checked, names({ "checkStateChanged", "checkedChanged" }) },
        { Qt::Checked, {} },
        { Qt::PartiallyChecked, names({ "checkStateChanged", "checkedChanged" }) },
        { Qt::Unchecked, names({ "checkStateChanged" }) },
    };
    for (const auto &step : steps) {
        button.setCheckState(step.state);
        QCOMPARE(log.take(), step.signalNames);
        QCOMPARE(button.checkState(), step.state);
        QCOMPARE(button.isChecked(), step.state == Qt::Checked);
    }
    button.setCheckState(Qt::PartiallyChecked);
    log.take();
    button.setChecked(false);
    QCOMPARE(button.checkState(), Qt::Unchecked);
    QCOMPARE(log.take(), names({ "checkStateChanged" }));
}

void tst_Buttons::checkClicks()
{
    CheckButtonBase button;
    SignalLog log;
    log.watch(&button, names({ "bindableChanged", "checkStateChanged", "checkedChanged" }));
    Q_EMIT button.clicked({});
    QCOMPARE(button.checkState(), Qt::Checked);
    Q_EMIT button.clicked({});
    QCOMPARE(button.checkState(), Qt::Unchecked);
    button.setCheckState(Qt::PartiallyChecked);
    log.take();
    Q_EMIT button.clicked({});
    QCOMPARE(log.take(), names({ "checkStateChanged", "checkedChanged" }));

    button.setBindable(true);
    Q_EMIT button.clicked({});
    QCOMPARE(button.checkState(), Qt::Checked);
    QCOMPARE(log.take(), names({ "bindableChanged" }));
}

void tst_Buttons::readOnly()
{
    Scene scene { QLatin1String(kButton) };
    QVERIFY(scene.isValid());
    auto *button = scene.find<CheckButtonBase>("button");
    button->forceActiveFocus();
    move(scene.window(), kInside);
    press(scene.window(), kInside);
    SignalLog log;
    log.watch(button);
    button->setReadOnly(true);
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged", "readOnlyChanged" }));
    release(scene.window(), kInside);
    click(scene.window(), kInside);
    QTest::keyClick(scene.window(), Qt::Key_Return);
    Q_EMIT button->clicked({});
    QCOMPARE(log.take(), names({ "clicked" }));
    QVERIFY(!button->isChecked());
    button->setReadOnly(false);
    QVERIFY(button->isInteractive());
}

void tst_Buttons::defaults()
{
    Scene scene(QStringLiteral("UiPushButtonBase { objectName: 'push' }"
                               "UiToolButtonBase { objectName: 'tool' }"));
    QVERIFY(scene.isValid());
    auto *push = scene.find<PushButtonBase>("push");
    QCOMPARE(push->style(), Ui::PrimaryPushButtonStyle);
    QVERIFY(push->activeFocusOnPress());
    QCOMPARE(push->cursor().shape(), Qt::PointingHandCursor);
    auto *tool = scene.find<ToolButtonBase>("tool");
    QCOMPARE(tool->style(), Ui::IconAndText);
    QVERIFY(!tool->activeFocusOnPress());
    QCOMPARE(tool->cursor().shape(), Qt::PointingHandCursor);

    // Styles can be written from QML, as the numbers that its enumerations are.
    SignalLog log;
    log.watch(push);
    log.watch(tool, {}, QStringLiteral("tool:"));
    push->setProperty("style", 2);
    push->setText(QStringLiteral("OK"));
    push->setText(QStringLiteral("OK"));
    tool->setProperty("style", 1);
    QCOMPARE(push->style(), Ui::SecondaryPushButtonStyle);
    QCOMPARE(tool->style(), Ui::IconOnly);
    QCOMPARE(log.take(), names({ "styleChanged", "textChanged", "tool:styleChanged" }));
}

void tst_Buttons::handlersThatDestroy_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *signal :
         { "clicked", "pressedChanged", "hoveredChanged", "checkStateChanged" })
        QTest::newRow(signal) << QByteArray(signal);
}

// A handler that destroys the button, by every way that leads to its signal.
void tst_Buttons::handlersThatDestroy()
{
    QFETCH(QByteArray, signal);
    const struct
    {
        const char *name;
        QList<QByteArray> signalNames; // those that it brings
        std::function<void(CheckButtonBase *)> go;
    } ways[] = {
        { "key release",
          { "pressedChanged", "clicked", "checkStateChanged" },
          [](CheckButtonBase *button) {
              QKeyEvent event(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
              QCoreApplication::sendEvent(button, &event);
          } },
        { "disabled",
          { "hoveredChanged", "pressedChanged" },
          [](CheckButtonBase *button) { button->setEnabled(false); } },
        { "read-only",
          { "hoveredChanged", "pressedChanged" },
          [](CheckButtonBase *button) { button->setReadOnly(true); } },
        { "checked",
          { "checkStateChanged" },
          [](CheckButtonBase *button) { button->setChecked(true); } },
    };
    for (const auto &way : ways) {
        Scene scene { QLatin1String(kButton) };
        QVERIFY(scene.isValid());
        QPointer<CheckButtonBase> button = scene.find<CheckButtonBase>("button");
        button->forceActiveFocus();
        move(scene.window(), kInside);
        QTest::keyPress(scene.window(), Qt::Key_Space);
        QVERIFY(button->hovered() && button->pressed());

        const auto destroy = [&] { delete button.data(); };
        if (signal == "clicked")
            connect(button, &ButtonBase::clicked, destroy);
        else if (signal == "pressedChanged")
            connect(button, &ButtonBase::pressedChanged, destroy);
        else if (signal == "hoveredChanged")
            connect(button, &ButtonBase::hoveredChanged, destroy);
        else
            connect(button, &CheckButtonBase::checkStateChanged, destroy);
        way.go(button);
        QVERIFY2(bool(button) != way.signalNames.contains(signal), way.name);
    }
}

TAMBER_TEST_MAIN(tst_Buttons)
#include "tst_buttons.moc"
