#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DragHandle>

#include <QtGui/QCursor>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

using Act = std::function<void()>;
Q_DECLARE_METATYPE(Act)

class tst_DragHandle : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void offsets();
    void directionChangesDuringDrag();
    void otherButtons();
    void keepsTheMouse();
    void waysToEnd_data();
    void waysToEnd();
    void handlersThatDestroy_data();
    void handlersThatDestroy();

private:
    std::unique_ptr<Scene> m_scene;
    QPointer<DragHandle> m_handle;
    SignalLog m_log;
    QVector<double> m_offsets;
};

void tst_DragHandle::initTestCase()
{
    Scene::useKit();
}

void tst_DragHandle::init()
{
    TestCase::init();
    m_scene = std::make_unique<Scene>(
        QStringLiteral("UiDragHandle { objectName: 'handle'; x: 100; y: 300; width: 8; height: 8 }"
                       "Item { objectName: 'other' }"));
    m_handle = m_scene->find<DragHandle>("handle");
    m_log.take();
    m_log.watch(m_handle, names({ "dragBegin", "dragEnd", "directionChanged" }));
    m_offsets.clear();
    connect(m_handle, &DragHandle::dragUpdate, this,
            [this](double offset) { m_offsets.append(offset); });
}

// From the press, not from the last move, and in whole pixels of the screen: also while the handle
// itself moves.
void tst_DragHandle::offsets()
{
    for (auto direction : { DragHandle::Horizontal, DragHandle::Vertical }) {
        const bool vertical = direction == DragHandle::Vertical;
        m_handle->setDirection(direction);
        QCOMPARE(m_handle->cursor().shape(), vertical ? Qt::SizeVerCursor : Qt::SizeHorCursor);
        const QPoint start = center(m_handle);
        m_offsets.clear();
        press(m_scene->window(), start);
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), m_handle->cursor().shape());
        QCOMPARE(m_scene->window()->mouseGrabberItem(), m_handle.data());
        for (const QPoint &way : { QPoint(7, -20), QPoint(-300, 9), QPoint(0, 0) }) {
            QTest::mouseMove(m_scene->window(), start + way);
            m_handle->setX(100 + way.x());
        }
        release(m_scene->window(), start);
        QCOMPARE(m_offsets,
                 vertical ? QVector<double>({ -20, 9, 0 }) : QVector<double>({ 7, -300, 0 }));
    }
    QCOMPARE(m_log.take(),
             names({ "dragBegin", "dragEnd", "directionChanged", "dragBegin", "dragEnd" }));

    // Points between pixels are rounded before they are compared.
    const QPointF start(104, 304);
    const auto send = [&](QEvent::Type type, qreal screenY) {
        QMouseEvent event(type, start, start, QPointF(500, screenY), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(m_handle, &event);
    };
    m_offsets.clear();
    send(QEvent::MouseButtonPress, 299.5);
    send(QEvent::MouseMove, 280.4);
    send(QEvent::MouseMove, 280.6);
    send(QEvent::MouseButtonRelease, 280.6);
    send(QEvent::MouseMove, 100);
    QCOMPARE(m_offsets, QVector<double>({ -20, -19 }));
}

void tst_DragHandle::directionChangesDuringDrag()
{
    m_handle->setDirection(DragHandle::Vertical);
    const QPoint start = center(m_handle);
    press(m_scene->window(), start);
    m_handle->setDirection(DragHandle::Horizontal);
    QTest::mouseMove(m_scene->window(), start + QPoint(50, -20));
    QCOMPARE(m_offsets, QVector<double>({ -20 }));
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeVerCursor);
    release(m_scene->window(), start);
    press(m_scene->window(), start);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    QTest::mouseMove(m_scene->window(), start + QPoint(50, -20));
    QCOMPARE(m_offsets.last(), 50.0);
    release(m_scene->window(), start);
}

// Only the left button begins; a second press while it is held changes nothing.
void tst_DragHandle::otherButtons()
{
    const QPoint start = center(m_handle);
    click(m_scene->window(), start, Qt::RightButton);
    QCOMPARE(m_log.take(), QStringList());
    press(m_scene->window(), start);
    QMouseEvent second(QEvent::MouseButtonPress, QPointF(1, 1), start, QPointF(0, 0),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_handle, &second);
    QVERIFY(second.isAccepted());
    QTest::mouseMove(m_scene->window(), start + QPoint(3, 0));
    QCOMPARE(m_offsets, QVector<double>({ 3 }));
    release(m_scene->window(), start);
    QCOMPARE(m_log.take(), names({ "dragBegin", "dragEnd" }));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DragHandle::keepsTheMouse()
{
    Scene scene(
        QStringLiteral("Flickable { objectName: 'view'; anchors.fill: parent; contentWidth: 5000\n"
                       "UiDragHandle { objectName: 'handle'; x: 300; width: 20; height: 20 } }"));
    auto *handle = scene.find<DragHandle>("handle");
    const QPoint start = center(handle);
    press(scene.window(), start);
    for (int way = 0; way < 200; way += 10)
        QTest::mouseMove(scene.window(), start - QPoint(way, 0));
    QCOMPARE(scene.find("view")->property("contentX").toInt(), 0);
    QCOMPARE(scene.window()->mouseGrabberItem(), handle);
    release(scene.window(), start);
}

void tst_DragHandle::waysToEnd_data()
{
    QTest::addColumn<Act>("end");
    QTest::addColumn<bool>("signalled");
    const auto row = [](const char *name, const Act &end, bool signalled = true) {
        QTest::newRow(name) << end << signalled;
    };
    row("release", [this] { release(m_scene->window(), QPoint(10, 10)); });
    row("ungrab", [this] { m_handle->ungrabMouse(); });
    row("disable", [this] { m_handle->setEnabled(false); });
    row("hide", [this] { m_scene->root()->setVisible(false); });
    row("leave", [this] { m_handle->setParentItem(nullptr); });
    row("another grab", [this] {
        m_handle->setKeepMouseGrab(false);
        m_scene->find("other")->grabMouse();
        m_scene->find("other")->ungrabMouse();
    });
    row("window", [this] { m_scene->destroyWindow(); });
    row(
        "destroy", [this] { delete m_handle; }, false);
}

void tst_DragHandle::waysToEnd()
{
    QFETCH(Act, end);
    QFETCH(bool, signalled);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor); // somebody else's, from before
    press(m_scene->window(), center(m_handle));
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    end();
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
    QVERIFY(!m_scene->window() || !m_scene->window()->mouseGrabberItem());
    QCOMPARE(m_log.take(), signalled ? names({ "dragBegin", "dragEnd" }) : names({ "dragBegin" }));

    // What comes after the end is nothing to it.
    const auto count = m_offsets.count();
    if (m_scene->window()) {
        QTest::mouseMove(m_scene->window(), QPoint(400, 400));
        release(m_scene->window(), QPoint(400, 400));
    }
    QCOMPARE(m_offsets.count(), count);
    QCOMPARE(m_log.take(), QStringList());
}

void tst_DragHandle::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal : { "dragBegin", "dragUpdate", "dragEnd", "directionChanged" })
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

// The handle alone: Qt itself does not survive a window that is destroyed while it delivers a
// press.
void tst_DragHandle::handlersThatDestroy()
{
    QFETCH(QString, signal);
    on(m_handle, signal, [&] { delete m_handle; });
    const QPoint start = center(m_handle);
    m_handle->setDirection(DragHandle::Vertical);
    press(m_scene->window(), start);
    QTest::mouseMove(m_scene->window(), start + QPoint(30, 30));
    release(m_scene->window(), start);
    QVERIFY(!m_handle);
    QVERIFY(!m_scene->window()->mouseGrabberItem());
    QVERIFY(!QGuiApplication::overrideCursor());
}

TAMBER_TEST_MAIN(tst_DragHandle)
#include "tst_draghandle.moc"
