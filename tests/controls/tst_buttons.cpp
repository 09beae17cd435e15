#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/CheckButtonBase>
#include <TamberUi/PushButtonBase>
#include <TamberUi/ToolButtonBase>

#include <QtGui/QCursor>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

class tst_Buttons : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void mouse();
    void keys();
    void disabling();
    void readOnly();
    void focusOnPress();
    void checkStates();
    void styles();
    void handlersThatDestroy();
};

namespace {

const char kButton[] =
    "UiCheckButtonBase { objectName: 'button'; x: 100; y: 100; width: 80; height: 24 }";
// Counts the keys that a button leaves to its parent.
const QString kPassedOn = QStringLiteral(
    "property int passed: 0; Keys.onPressed: ++passed; Keys.onReleased: ++passed;");
const QPoint kInside(120, 110);
const QPoint kOutside(300, 300);

} // namespace

void tst_Buttons::mouse()
{
    Scene scene { QLatin1String(kButton) };
    auto *button = scene.find<ButtonBase>("button");
    SignalLog log;
    log.watch(button, names({ "hoveredChanged", "pressedChanged", "clicked" }));

    move(scene.window(), kInside);
    QVERIFY(button->hovered());
    press(scene.window(), kInside);
    QVERIFY(button->pressed());
    move(scene.window(), kOutside);
    QVERIFY(!button->hovered() && !button->pressed());
    QCOMPARE(log.take(),
             names({ "hoveredChanged", "pressedChanged", "hoveredChanged", "pressedChanged" }));
    move(scene.window(), kInside);
    log.take();
    release(scene.window(), kInside);
    QCOMPARE(log.take(), names({ "pressedChanged", "clicked" }));

    // Released outside, or after the mouse was taken away: no click. Nor with another button.
    press(scene.window(), kInside);
    move(scene.window(), kOutside);
    release(scene.window(), kOutside);
    press(scene.window(), kInside);
    button->ungrabMouse();
    QVERIFY(!button->pressed());
    release(scene.window(), kInside);
    log.take();
    click(scene.window(), kInside, Qt::RightButton);
    QCOMPARE(log.take(), QStringList());
    QTest::mouseDClick(scene.window(), Qt::LeftButton, {}, kInside);
    QCOMPARE(log.count(QStringLiteral("clicked")), 1);

    Qt::KeyboardModifiers modifiers;
    connect(button, &ButtonBase::clicked, this, [&](Qt::KeyboardModifiers m) { modifiers = m; });
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier,
                      kInside);
    QCOMPARE(modifiers, Qt::ControlModifier | Qt::ShiftModifier);
}

void tst_Buttons::keys()
{
    const struct
    {
        Qt::Key key;
        bool activates;
    } rows[] = { { Qt::Key_Return, true },
                 { Qt::Key_Enter, true },
                 { Qt::Key_Space, true },
                 { Qt::Key_Escape, false } };
    Scene scene(kPassedOn + QLatin1String(kButton));
    auto *button = scene.find<ButtonBase>("button");
    button->forceActiveFocus();
    SignalLog log;
    log.watch(button, names({ "pressedChanged", "clicked" }));
    for (const auto &row : rows) {
        scene.root()->setProperty("passed", 0);
        QTest::keyPress(scene.window(), row.key);
        QCOMPARE(button->pressed(), row.activates);
        QTest::keyRelease(scene.window(), row.key);
        QCOMPARE(log.take(), row.activates
                                 ? names({ "pressedChanged", "pressedChanged", "clicked" })
                                 : QStringList());
        QCOMPARE(scene.root()->property("passed").toInt(), row.activates ? 0 : 2);

        // The focus may have come here while the key was down.
        QTest::keyRelease(scene.window(), row.key, Qt::AltModifier);
        QCOMPARE(log.take(), row.activates ? names({ "clicked" }) : QStringList());
    }

    // It may also leave while the key is down. The mouse goes on holding the button then.
    QTest::keyPress(scene.window(), Qt::Key_Space);
    scene.root()->forceActiveFocus();
    QVERIFY(!button->pressed());
    QTest::keyRelease(scene.window(), Qt::Key_Space);
    QCOMPARE(log.take(), names({ "pressedChanged", "pressedChanged" }));
    button->forceActiveFocus();
    press(scene.window(), kInside);
    scene.root()->forceActiveFocus();
    QVERIFY(button->pressed());
    release(scene.window(), kInside);
}

void tst_Buttons::disabling()
{
    Scene scene { QLatin1String(kButton) };
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

    scene.root()->setEnabled(false);
    delete button; // becomes enabled on its way out
}

// All input is left to others: keys go on to the parent.
void tst_Buttons::readOnly()
{
    Scene scene(kPassedOn + QLatin1String(kButton));
    auto *button = scene.find<CheckButtonBase>("button");
    button->forceActiveFocus();
    move(scene.window(), kInside);
    press(scene.window(), kInside);
    SignalLog log;
    log.watch(button);
    button->setReadOnly(true);
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged", "readOnlyChanged" }));
    release(scene.window(), kInside);
    move(scene.window(), kOutside);
    click(scene.window(), kInside);
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(scene.root()->property("passed").toInt(), 2);
}

// Takes the focus, or takes it from an item that edits text, or leaves it alone.
void tst_Buttons::focusOnPress()
{
    Scene scene(
        QStringLiteral("TextInput { objectName: 'edit' } FocusScope { objectName: 'plain' }")
        + QLatin1String(kButton));
    auto *button = scene.find<ButtonBase>("button");
    auto *edit = scene.find("edit");
    auto *plain = scene.find("plain");
    edit->forceActiveFocus();
    click(scene.window(), kInside);
    QVERIFY(edit->hasActiveFocus());
    button->setStealEditFocus(true);
    click(scene.window(), kInside);
    QVERIFY(!edit->hasFocus() && !button->hasActiveFocus());
    plain->forceActiveFocus();
    click(scene.window(), kInside);
    QVERIFY(plain->hasActiveFocus());
    button->setActiveFocusOnPress(true);
    click(scene.window(), kInside);
    QVERIFY(button->hasActiveFocus());
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

    const Qt::CheckState clicked[][2] = { { Qt::Checked, Qt::Unchecked },
                                          { Qt::PartiallyChecked, Qt::Checked } };
    for (bool bindable : { false, true }) {
        button.setBindable(bindable);
        for (const auto &states : clicked) {
            button.setCheckState(states[0]);
            Q_EMIT button.clicked({});
            QCOMPARE(button.checkState(), states[bindable ? 0 : 1]);
        }
    }
}

void tst_Buttons::styles()
{
    Scene scene(QStringLiteral("UiPushButtonBase { objectName: 'push' }"
                               "UiToolButtonBase { objectName: 'tool' }"));
    auto *push = scene.find<PushButtonBase>("push");
    auto *tool = scene.find<ToolButtonBase>("tool");
    QVERIFY(push->activeFocusOnPress() && !tool->activeFocusOnPress());
    QCOMPARE(push->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(tool->cursor().shape(), Qt::PointingHandCursor);
}

// A handler that destroys the button, by every way that leads to its signal.
void tst_Buttons::handlersThatDestroy()
{
    const struct
    {
        QStringList signalNames;
        std::function<void(CheckButtonBase *)> go;
    } ways[] = {
        { names({ "pressedChanged", "clicked", "checkStateChanged" }),
          [](CheckButtonBase *button) {
              QKeyEvent event(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
              QCoreApplication::sendEvent(button, &event);
          } },
        { names({ "hoveredChanged", "pressedChanged" }),
          [](CheckButtonBase *button) { button->setReadOnly(true); } },
    };
    for (const auto &way : ways) {
        for (const QString &signal : way.signalNames) {
            Scene scene { QLatin1String(kButton) };
            const QPointer<CheckButtonBase> button = scene.find<CheckButtonBase>("button");
            button->forceActiveFocus();
            move(scene.window(), kInside);
            QTest::keyPress(scene.window(), Qt::Key_Space);
            QVERIFY(button->hovered() && button->pressed());
            on(
                button, signal, [&] { delete button; }, 1);
            way.go(button);
            QVERIFY2(!button, qPrintable(signal));
        }
    }
}

TAMBER_TEST_MAIN(tst_Buttons)
#include "tst_buttons.moc"
