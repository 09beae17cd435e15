// variants: threaded scale2 x11
#include "scenegraph/pixels.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DelegateBase>

#include <QtGui/QStyleHints>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

class tst_DelegateBase : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void mouse();
    void doubleClick();
    void pressesThatEnd();
    void background();
    void handlersThatDestroy();
};

namespace {

const QString kDelegate = QStringLiteral(
    "UiDelegateBase { objectName: 'delegate'; x: 100; y: 100; width: 80; height: 24 }");
const QPoint kInside(120, 110);
const QPoint kOutside(300, 300);

QStringList pointerSignals()
{
    return names({ "pressed", "clicked", "doubleClicked", "hoveredChanged", "pressedChanged" });
}

} // namespace

void tst_DelegateBase::mouse()
{
    Scene scene(kDelegate);
    auto *delegate = scene.find<DelegateBase>("delegate");
    SignalLog log;
    log.watch(delegate, pointerSignals());
    QPointF position;
    connect(delegate, &DelegateBase::clicked, [&](const QPointF &at) { position = at; });

    move(scene.window(), kInside);
    QVERIFY(delegate->isHovered());
    press(scene.window(), kInside);
    QVERIFY(delegate->isPressed());
    QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged", "pressed" }));
    release(scene.window(), kInside + QPoint(3, 2));
    QCOMPARE(log.take(), names({ "pressedChanged", "clicked" }));
    QCOMPARE(position, QPointF(23, 12));

    // Released outside, to where no move led: no click, and not hovered.
    press(scene.window(), kInside);
    log.take();
    QMouseEvent outside(QEvent::MouseButtonRelease, QPointF(200, 200), Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(delegate, &outside);
    QCOMPARE(log.take(), names({ "pressedChanged", "hoveredChanged" }));
    release(scene.window(), kOutside);
    QVERIFY(!delegate->isHovered() && !delegate->isPressed());

    click(scene.window(), kInside, Qt::RightButton);
    QCOMPARE(log.count(QStringLiteral("clicked")), 0);

    QVector<Qt::KeyboardModifiers> modifiers;
    const auto note = [&](Qt::KeyboardModifiers m) { modifiers.append(m); };
    connect(delegate, &DelegateBase::pressed, note);
    connect(delegate, &DelegateBase::clicked,
            [&](const QPointF &, Qt::KeyboardModifiers m) { note(m); });
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::ControlModifier, kInside,
                      QGuiApplication::styleHints()->mouseDoubleClickInterval() + 1);
    QCOMPARE(modifiers, QVector<Qt::KeyboardModifiers>(2, Qt::ControlModifier));
}

// Both clicks of a double click are clicks.
void tst_DelegateBase::doubleClick()
{
    Scene scene(kDelegate);
    move(scene.window(), kInside);
    SignalLog log;
    log.watch(scene.find("delegate"), pointerSignals());
    QTest::mouseDClick(scene.window(), Qt::LeftButton, {}, kInside);
    QCOMPARE(log.take(),
             names({ "pressedChanged", "pressed", "pressedChanged", "clicked", "pressedChanged",
                     "pressed", "doubleClicked", "pressedChanged", "clicked" }));
}

// Where the delegate is disabled, or a view that begins to scroll takes the mouse away.
void tst_DelegateBase::pressesThatEnd()
{
    for (bool disables : { false, true }) {
        Scene scene(kDelegate);
        auto *delegate = scene.find<DelegateBase>("delegate");
        move(scene.window(), kInside);
        SignalLog log;
        log.watch(delegate, pointerSignals());
        press(scene.window(), kInside);
        log.take();
        if (disables)
            scene.root()->setEnabled(false);
        else
            scene.root()->grabMouse();
        QVERIFY(!delegate->isHovered() && !delegate->isPressed());
        QCOMPARE(log.take(), names({ "hoveredChanged", "pressedChanged" }));
        release(scene.window(), kInside);
        QCOMPARE(log.count(QStringLiteral("clicked")), 0);
    }
}

// It fills the item in its colour, follows both, and is whole again after its node was lost.
void tst_DelegateBase::background()
{
    Scene scene(whiteWindow()
                    + QStringLiteral("UiDelegateBase { objectName: 'delegate'; x: 20; y: 30\n"
                                     "width: 60; height: 40 }"),
                kWindow);
    auto *delegate = scene.find<DelegateBase>("delegate");
    const auto check = [&](const QColor &color, const QRectF &area) {
        const QRectF drawn(area.topLeft() * scene.window()->effectiveDevicePixelRatio(),
                           area.size() * scene.window()->effectiveDevicePixelRatio());
        return firstDifference(scene.window(), [&](const QPointF &pixel) {
            return drawn.contains(pixel) ? color : QColor(Qt::white);
        });
    };
    QCOMPARE(check(Qt::white, QRectF(20, 30, 60, 40)), QString());
    delegate->setColor(QColor(10, 20, 200));
    QCOMPARE(check(QColor(10, 20, 200), QRectF(20, 30, 60, 40)), QString());
    delegate->setSize(QSizeF(100, 20));
    delegate->setPosition(QPointF(40, 50));
    QCOMPARE(check(QColor(10, 20, 200), QRectF(40, 50, 100, 20)), QString());
    delegate->setColor(QColor(0, 0, 0, 51));
    QCOMPARE(check(QColor(204, 204, 204), QRectF(40, 50, 100, 20)), QString());
    delegate->setParentItem(nullptr);
    QVERIFY(scene.waitForFrame());
    delegate->setParentItem(scene.root());
    QCOMPARE(check(QColor(204, 204, 204), QRectF(40, 50, 100, 20)), QString());
}

// A handler that destroys the delegate, on each way to its signal. Sent directly: Qt's window is
// not up to it.
void tst_DelegateBase::handlersThatDestroy()
{
    const auto mouse = [](QEvent::Type type, const QPointF &position) {
        return [type, position](DelegateBase *delegate) {
            QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(delegate, &event);
        };
    };
    const QPointF inside(5, 5);
    const QPointF outside(300, 300);
    const auto press = mouse(QEvent::MouseButtonPress, inside);
    const struct
    {
        bool held; // it is hovered and pressed before
        QStringList signalNames;
        std::function<void(DelegateBase *)> go;
    } ways[] = {
        { false, names({ "pressedChanged", "pressed" }), press },
        { true, names({ "hoveredChanged", "pressedChanged" }), mouse(QEvent::MouseMove, outside) },
        { true, names({ "pressedChanged", "clicked" }), mouse(QEvent::MouseButtonRelease, inside) },
        { false, names({ "doubleClicked" }), mouse(QEvent::MouseButtonDblClick, inside) },
        { true, names({ "hoveredChanged", "pressedChanged" }),
          [](DelegateBase *delegate) { delegate->setEnabled(false); } },
    };
    for (const auto &way : ways) {
        for (const QString &signal : way.signalNames) {
            const QPointer<DelegateBase> delegate(new DelegateBase);
            delegate->setSize(QSizeF(80, 24));
            if (way.held) {
                QHoverEvent hover(QEvent::HoverEnter, inside, QPointF(-1, -1));
                QCoreApplication::sendEvent(delegate, &hover);
                press(delegate);
            }
            on(
                delegate, signal, [&] { delete delegate; }, 1);
            way.go(delegate);
            QVERIFY2(!delegate, qPrintable(signal));
        }
    }
}

TAMBER_TEST_MAIN(tst_DelegateBase)
#include "tst_delegatebase.moc"
