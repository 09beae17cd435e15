#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DragHandle>
#include <TamberUi/DragZone>
#include <TamberUi/JsonMimeData>

#include <QtCore/QMimeData>
#include <QtGui/QDrag>

#include <algorithm>

using namespace ta::ui;
using namespace ta::test;

namespace {

const QString kScene = QStringLiteral(R"(
    UiDragZone {
        objectName: "zone"
        mimeData: UiJsonMimeData { objectName: "mime"; mimeType: "application/x-card"; value: ({ id: 7 }) }
        x: 100; y: 100; width: 200; height: 200
        MouseArea { objectName: "area"; width: 100; height: 200 }
        UiDragHandle { objectName: "handle"; x: 100; width: 50; height: 200 }
    }
)");

// Counts how often it was asked for its data, as each drag of the platform begins with.
class Payload : public JsonMimeData
{
public:
    explicit Payload(int &asked) : m_asked(asked)
    {
        setMimeType(QStringLiteral("a/b"));
        setValue({ { QStringLiteral("id"), 7 } });
    }
    QMimeData *createMimeData() const override
    {
        ++m_asked;
        return JsonMimeData::createMimeData();
    }

private:
    int &m_asked;
};

} // namespace

// What begins a drag and what does not. Here the platform has no drag loop: a drag is over as soon
// as it has begun.
class tst_DragZone : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void threshold_data();
    void threshold();
    void orderOfSignals();
    void whatStartsNothing_data();
    void whatStartsNothing();
    void invalidPayload();
    void overBeforeTheDrag();
    void keptMouse();
    void ownArea();
    void proxy();
    void nestedZones();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void badDelegates_data();
    void badDelegates();
    void attachedProperties();

private:
    bool send(QEvent::Type type, const QPointF &position, Qt::MouseButtons buttons = Qt::LeftButton,
              Qt::MouseButton button = Qt::LeftButton);

    std::unique_ptr<Scene> m_scene;
    DragZone *m_zone = nullptr;
    SignalLog m_log;
};

void tst_DragZone::initTestCase()
{
    Scene::useKit();
}

void tst_DragZone::init()
{
    TestCase::init();
    m_scene = std::make_unique<Scene>(kScene);
    m_zone = m_scene->find<DragZone>("zone");
    m_log.take();
    m_log.watch(m_zone, names({ "mousePressed", "mouseReleased", "dragStarted", "dragEnded",
                                "dragActiveChanged", "dragEnabledChanged", "mimeDataChanged" }));
}

// An event as an item inside the zone hands it on; returns whether the zone took it.
bool tst_DragZone::send(QEvent::Type type, const QPointF &position, Qt::MouseButtons buttons,
                        Qt::MouseButton button)
{
    QMouseEvent event(type, position, position, position, button, buttons, Qt::NoModifier);
    return qobject_cast<IMouseEventProxy *>(static_cast<QObject *>(m_zone))
        ->proxyMouseEvent(&event);
}

void tst_DragZone::threshold_data()
{
    QTest::addColumn<QPointF>("end");
    QTest::addColumn<bool>("drags");
    QTest::newRow("24") << QPointF(22, 22) << false;
    QTest::newRow("25") << QPointF(23, 22) << true;
    QTest::newRow("25 backwards") << QPointF(-3, -2) << true;
    QTest::newRow("almost 25 down") << QPointF(10, 34.99) << false;
}

void tst_DragZone::threshold()
{
    QFETCH(QPointF, end);
    QFETCH(bool, drags);
    QVERIFY(!send(QEvent::MouseButtonPress, QPointF(10, 10)));
    QCOMPARE(send(QEvent::MouseMove, end, Qt::LeftButton, Qt::NoButton), drags);
    QCOMPARE(m_zone->isDragActive(), drags);
    QCOMPARE(m_log.take(), drags ? names({ "mousePressed", "dragActiveChanged", "dragStarted" })
                                 : names({ "mousePressed" }));
    QVERIFY(!m_zone->findChild<QDrag *>()); // not yet
    QCoreApplication::processEvents();
    QCOMPARE(m_log.take(), drags ? names({ "dragActiveChanged", "dragEnded" }) : QStringList());
    QVERIFY(!m_zone->isDragActive());
}

// Through the window: the item gets the press and the moves below the threshold, and loses the
// mouse with the drag.
void tst_DragZone::orderOfSignals()
{
    auto *area = m_scene->find("area");
    SignalLog areaLog;
    areaLog.watch(area, names({ "pressed", "released", "canceled", "clicked" }));
    click(m_scene->window(), center(area));
    QCOMPARE(areaLog.take(), names({ "pressed", "released", "clicked" }));
    QCOMPARE(m_log.take(), names({ "mousePressed", "mouseReleased" }));

    press(m_scene->window(), center(area));
    QTest::mouseMove(m_scene->window(), center(area) + QPoint(24, 0));
    QCOMPARE(m_log.take(), names({ "mousePressed" }));
    QTest::mouseMove(m_scene->window(), center(area) + QPoint(0, 25)); // and what follows from it
    QCOMPARE(m_log.take(),
             names({ "dragActiveChanged", "dragStarted", "dragActiveChanged", "dragEnded" }));
    QCOMPARE(areaLog.take(), names({ "pressed", "canceled" }));
    QVERIFY(!m_scene->window()->mouseGrabberItem());
    release(m_scene->window(), center(area));
}

void tst_DragZone::whatStartsNothing_data()
{
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("both buttons") << Qt::MouseButtons(Qt::LeftButton | Qt::RightButton) << true;
    QTest::newRow("right button") << Qt::MouseButtons(Qt::RightButton) << true;
    QTest::newRow("not enabled") << Qt::MouseButtons(Qt::LeftButton) << false;
}

void tst_DragZone::whatStartsNothing()
{
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, enabled);
    m_zone->setDragEnabled(enabled);
    m_log.take();
    QVERIFY(!send(QEvent::MouseButtonPress, QPointF(10, 10), buttons));
    QVERIFY(!send(QEvent::MouseMove, QPointF(90, 10), buttons, Qt::NoButton));
    QVERIFY(!send(QEvent::MouseButtonDblClick, QPointF(90, 10), buttons));
    QVERIFY(!send(QEvent::MouseButtonRelease, QPointF(90, 10), Qt::NoButton));
    QCOMPARE(m_log.take(), enabled ? names({ "mouseReleased" }) : QStringList());
}

// The first move decides: what becomes valid afterwards needs another press.
void tst_DragZone::invalidPayload()
{
    auto *mime = m_scene->find<JsonMimeData>("mime");
    const QString type = mime->mimeType();
    for (bool destroyed : { false, true }) {
        mime->setMimeType(QString());
        if (destroyed)
            delete mime;
        send(QEvent::MouseButtonPress, QPointF(10, 10));
        QVERIFY(!send(QEvent::MouseMove, QPointF(11, 10)));
        if (!destroyed)
            mime->setMimeType(type);
        QVERIFY(!send(QEvent::MouseMove, QPointF(90, 10)));
        QCOMPARE(m_log.take(), names({ "mousePressed" }));
    }
}

// A button that is up already would never end the platform's drag, and one without a payload has
// nothing to drop. A release alone does not keep the gesture from becoming a drag, but what another
// button drags is another gesture.
void tst_DragZone::overBeforeTheDrag()
{
    int asked = 0;
    Payload payload(asked);
    enum Case { ReleasedBefore, ReleasedAfterwards, NoPayload, Nothing };
    for (const Case what : { ReleasedBefore, ReleasedAfterwards, NoPayload, Nothing }) {
        m_zone->setMimeData(&payload);
        send(QEvent::MouseButtonPress, QPointF(10, 10));
        if (what == ReleasedBefore) {
            QVERIFY(!send(QEvent::MouseButtonRelease, QPointF(10, 10), Qt::NoButton));
            QVERIFY(!send(QEvent::MouseMove, QPointF(90, 10), Qt::RightButton, Qt::NoButton));
        }
        QVERIFY(send(QEvent::MouseMove, QPointF(90, 10)));
        if (what == ReleasedAfterwards)
            QVERIFY(send(QEvent::MouseButtonRelease, QPointF(90, 10), Qt::NoButton));
        else if (what == NoPayload)
            m_zone->setMimeData(nullptr);
        QVERIFY(m_zone->isDragActive());
        m_log.take();
        QCoreApplication::processEvents();
        QCOMPARE(m_log.take(), names({ "dragActiveChanged", "dragEnded" }));
        QCOMPARE(asked, what == Nothing ? 1 : 0);
        QVERIFY(!m_scene->window()->mouseGrabberItem());
        QVERIFY(!send(QEvent::MouseMove, QPointF(200, 10)));
    }
}

void tst_DragZone::keptMouse()
{
    auto *handle = m_scene->find<DragHandle>("handle");
    SignalLog handleLog;
    handleLog.watch(handle, names({ "dragBegin", "dragEnd" }));
    press(m_scene->window(), center(handle));
    QTest::mouseMove(m_scene->window(), center(handle) + QPoint(60, 0));
    release(m_scene->window(), center(handle));
    QCOMPARE(handleLog.take(), names({ "dragBegin", "dragEnd" }));
    QCOMPARE(m_log.take(), names({ "mousePressed", "mouseReleased" }));

    // One that keeps the mouse only after the threshold still has it.
    auto *area = m_scene->find("area");
    area->grabMouse();
    send(QEvent::MouseButtonPress, QPointF(10, 10));
    QVERIFY(send(QEvent::MouseMove, QPointF(90, 10)));
    area->setKeepMouseGrab(true);
    QVERIFY(!send(QEvent::MouseMove, QPointF(91, 10)));
    QCOMPARE(m_log.take(), names({ "mousePressed", "dragActiveChanged", "dragStarted",
                                   "dragActiveChanged", "dragEnded" }));
    QCoreApplication::processEvents();
    QCOMPARE(m_log.take(), QStringList());
    QCOMPARE(m_scene->window()->mouseGrabberItem(), area);
}

void tst_DragZone::ownArea()
{
    const QPoint bare(275, 200);
    press(m_scene->window(), bare);
    QTest::mouseMove(m_scene->window(), bare + QPoint(60, 0));
    release(m_scene->window(), bare);
    QCOMPARE(m_log.take(), QStringList());
}

// Presses in the middle of a drag change nothing.
void tst_DragZone::proxy()
{
    send(QEvent::MouseButtonPress, QPointF(10, 10));
    QVERIFY(send(QEvent::MouseMove, QPointF(90, 10)));
    m_log.take();
    QVERIFY(send(QEvent::MouseButtonPress, QPointF(10, 10)));
    QVERIFY(send(QEvent::MouseMove, QPointF(200, 10)));
    QCOMPARE(m_log.take(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(m_log.take(), names({ "dragActiveChanged", "dragEnded" }));
}

// One gesture is one drag, that of the inner zone. The next one may be another zone's.
void tst_DragZone::nestedZones()
{
    Scene scene(QStringLiteral(
        "property QtObject mime: UiJsonMimeData { mimeType: 'a/b'; value: ({ a: 1 }) }\n"
        "UiDragZone { objectName: 'outer'; mimeData: parent.mime; width: 400; height: 200\n"
        "MouseArea { anchors.fill: parent }\n"
        "UiDragZone { objectName: 'inner'; mimeData: parent.mimeData; width: 200; height: 200\n"
        "MouseArea { anchors.fill: parent } } }"));
    SignalLog log;
    for (const char *name : { "outer", "inner" })
        log.watch(scene.find(name), names({ "dragStarted", "dragEnded" }), QLatin1String(name));
    for (const QPoint &start : { QPoint(100, 100), QPoint(300, 100), QPoint(100, 100) }) {
        press(scene.window(), start);
        QTest::mouseMove(scene.window(), start + QPoint(50, 50));
        QTest::mouseMove(scene.window(), start + QPoint(60, 50));
        release(scene.window(), start + QPoint(60, 50));
    }
    QCOMPARE(log.take(), names({ "innerdragStarted", "innerdragEnded", "outerdragStarted",
                                 "outerdragEnded", "innerdragStarted", "innerdragEnded" }));
}

void tst_DragZone::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal :
         { "mousePressed", "dragActiveChanged", "dragStarted", "mouseReleased" })
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

// The event that it happens in is taken: the item it was for is gone with the zone.
void tst_DragZone::handlersThatDestroy()
{
    QFETCH(QString, signal);
    const QPointer<DragZone> zone(m_zone);
    on(zone, signal, [&] { delete zone; });
    bool taken = send(QEvent::MouseButtonPress, QPointF(10, 10));
    if (zone)
        taken = send(QEvent::MouseMove, QPointF(90, 10));
    if (zone)
        taken = send(QEvent::MouseButtonRelease, QPointF(90, 10), Qt::NoButton);
    QVERIFY(!zone);
    QVERIFY(taken);
    QCoreApplication::processEvents();
}

void tst_DragZone::badDelegates_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("warning");
    QTest::newRow("syntax error") << QByteArray("Item {") << QStringLiteral("not ready");
    QTest::newRow("no item") << QByteArray("import QtQml 2.15; QtObject {}")
                             << QStringLiteral("must be an item, not a QObject");
    QTest::newRow("required property")
        << QByteArray("import QtQuick 2.15; Item { required property int n }") << QString();
}

// A drag without an item is a drag.
void tst_DragZone::badDelegates()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, warning);
    QQmlComponent component(&m_scene->engine());
    component.setData(qml, QUrl(QStringLiteral("qrc:/delegate.qml")));
    m_zone->setDragDelegate(&component);
    if (!warning.isEmpty())
        expectWarning(warning);
    const int children = m_scene->window()->contentItem()->childItems().count();
    send(QEvent::MouseButtonPress, QPointF(10, 10));
    QVERIFY(send(QEvent::MouseMove, QPointF(90, 10)));
    m_log.take();
    QCoreApplication::processEvents();
    QCOMPARE(m_log.take(), names({ "dragActiveChanged", "dragEnded" }));
    QCOMPARE(m_scene->window()->contentItem()->childItems().count(), children);
}

void tst_DragZone::attachedProperties()
{
    DragZoneAttachedObject attached;
    SignalLog log;
    log.watch(&attached);
    attached.setHotspot(QPointF(0, 1e-13));
    attached.setModifiers(Qt::NoModifier);
    QCOMPARE(log.take(), QStringList());
    attached.setHotspot(QPointF(3, 4));
    attached.setModifiers(Qt::ShiftModifier);
    attached.setMimeData(m_zone->mimeData());
    attached.setZone(m_zone);
    QCOMPARE(log.take(), names({ "hotspotChanged", "modifiersChanged" }));
    delete m_zone;
    QVERIFY(!attached.zone() && !attached.mimeData());
}

TAMBER_TEST_MAIN(tst_DragZone)
#include "tst_dragzone.moc"
