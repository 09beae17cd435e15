// variants: x11
#include "duringdrag.h"

#include "support/heap.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DragZone>
#include <TamberUi/JsonMimeData>

#include <QtCore/QMimeData>
#include <QtGui/QCursor>
#include <QtQml/QQmlContext>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

using Act = std::function<void()>;
Q_DECLARE_METATYPE(Act)

namespace {

// A drag item whose hotspot is its middle, what it shows, a zone that takes drops, and an area that
// tells the source so.
const QString kScene = QStringLiteral(R"(
    id: root
    property var dropped
    property var modifiers: []
    property Component marker: Component {
        Rectangle {
            property int modifiers: UiDragZone.modifiers
            property bool knowsTheDrag: UiDragZone.zone.dragActive && UiDragZone.mimeData.value.id === 7
            objectName: "marker"
            UiDragZone.hotspot: Qt.point(10, 5)
            width: 20; height: 10
            onModifiersChanged: root.modifiers = root.modifiers.concat(modifiers)
        }
    }
    property QtObject mime: UiJsonMimeData { mimeType: "application/x-card"; value: ({ id: 7 }) }
    property Component scriptZone: Component {
        UiDragZone {
            mimeData: root.mime
            x: 100; y: 100
            MouseArea { width: 100; height: 100 }
        }
    }
    function makeZone(parent) { scriptZone.createObject(parent, { objectName: "scriptZone" }) }
    UiDropZone {
        objectName: "target"
        x: 400; y: 100; width: 100; height: 100
        onDrop: root.dropped = [data.id, dragSource]
        UiMimeDropHandler { acceptedMimeTypes: "application/x-card" }
    }
    DropArea {
        x: 400; y: 300; width: 100; height: 100
        onDropped: drop.accept()
    }
)");

const QPoint kSource(150, 150);
const QPoint kNowhere(300, 300);
const QPoint kTarget(450, 150);
const QPoint kAcceptingTarget(450, 350);

// Tells how many events of the window it has seen.
class ProbeZone : public DragZone
{
public:
    explicit ProbeZone(QQuickItem *parent) : DragZone(parent) {}
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        ++filtered;
        return DragZone::eventFilter(watched, event);
    }

    int filtered = 0;
};

// Takes presses, and tells when it loses the mouse.
class ProbeArea : public QQuickItem
{
public:
    explicit ProbeArea(QQuickItem *parent) : QQuickItem(parent)
    {
        setSize(QSizeF(100, 100));
        setAcceptedMouseButtons(Qt::LeftButton);
    }
    Act ungrabbed = [] {};
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseUngrabEvent() override { ungrabbed(); }
};

// A payload that tells when it is asked for its data.
class ProbeData : public JsonMimeData
{
public:
    explicit ProbeData(QObject *parent) : JsonMimeData(parent) {}
    Act asked = [] {};
    QMimeData *createMimeData() const override
    {
        QMimeData *data = JsonMimeData::createMimeData();
        asked();
        return data;
    }
};

// Hooks of the tests in what runs inside a drag, in C++: a QML handler must not destroy its object.
Act s_created = [] {};

class ProbeMarker : public QQuickItem
{
    Q_OBJECT

protected:
    void componentComplete() override
    {
        QQuickItem::componentComplete();
        s_created();
    }
};

} // namespace

// Whole drags, through the platform's own loop, and everything that may go in the middle of one.
class tst_DragLife : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void drop();
    void waysToEnd_data();
    void waysToEnd();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void parents();
    void collectedGarbage();
    void engineGoes();
    void manyDrags();

private:
    QQuickItem *place() const { return m_scene->root(); }
    void begin();
    void moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers = {});
    void dropAt(const QPoint &position);
    bool runDrag(const DuringDrag::Steps &steps);

    std::unique_ptr<Scene> m_scene;
    QPointer<ProbeZone> m_zone;
    ProbeArea *m_area = nullptr; // inside the zone
    SignalLog m_log;
};

void tst_DragLife::initTestCase()
{
    Scene::useKit();
    qmlRegisterType<ProbeMarker>("Probe", 1, 0, "ProbeMarker");
}

void tst_DragLife::init()
{
    TestCase::init();
    m_scene = std::make_unique<Scene>(kScene);
    auto *parent = new QQuickItem(place());
    parent->setObjectName(QStringLiteral("parent"));
    m_zone = new ProbeZone(parent);
    QQmlEngine::setContextForObject(m_zone, qmlContext(place()));
    m_zone->setPosition(QPointF(100, 100));
    m_zone->setDragDelegate(place()->property("marker").value<QQmlComponent *>());
    m_zone->setMimeData(place()->property("mime").value<MimeData *>());
    m_area = new ProbeArea(m_zone);
    m_log.take();
    m_log.watch(m_zone, names({ "dragStarted", "dragEnded", "dragActiveChanged" }));
}

// Whatever went on: the cursor is free, the mouse is, and the window is as it was.
void tst_DragLife::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!QGuiApplication::queryKeyboardModifiers());
    if (m_scene && m_scene->window()) {
        QVERIFY(!m_scene->window()->mouseGrabberItem());
        QTRY_VERIFY(!m_scene->find("marker"));
        const int filtered = m_zone ? m_zone->filtered : 0;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(m_scene->window(), &event);
        QCOMPARE(m_zone ? m_zone->filtered : 0, filtered);
    }
    QCOMPARE(m_log.count(QStringLiteral("dragStarted")), m_log.count(QStringLiteral("dragEnded")));
    m_scene.reset();
    TestCase::cleanup();
}

void tst_DragLife::begin()
{
    press(m_scene->window(), kSource);
    QTest::mouseMove(m_scene->window(), kSource + QPoint(40, 0)); // runs the drag
}

void tst_DragLife::moveTo(const QPoint &position, Qt::KeyboardModifiers modifiers)
{
    QWindow *window = m_scene->window();
    qt_handleMouseEvent(window, position, window->mapToGlobal(position), Qt::LeftButton,
                        Qt::NoButton, QEvent::MouseMove, modifiers, ++QTest::lastMouseTimestamp);
}

void tst_DragLife::dropAt(const QPoint &position)
{
    moveTo(position);
    release(m_scene->window(), position);
}

// Returns whether the drag ended by itself once the steps were through.
bool tst_DragLife::runDrag(const DuringDrag::Steps &steps)
{
    const DuringDrag drag(QPointer<DragZone>(m_zone), steps);
    begin();
    return drag.isThrough();
}

// The drag item and the keys that it knows of, while the pointer goes over the window, out of it
// and to the target.
void tst_DragLife::drop()
{
    QStringList seen;
    const auto look = [&] {
        const auto *marker = m_scene->find("marker");
        seen.append(marker && marker->isVisible()
                        ? QStringLiteral("%1 %2").arg(marker->x()).arg(marker->y())
                        : QStringLiteral("hidden"));
        QVERIFY(marker->property("knowsTheDrag").toBool());
        QCOMPARE(marker->z(), 2147483647.0);
        QCOMPARE(m_scene->window()->mouseGrabberItem(), m_zone.data());
        QVERIFY(m_zone->isDragActive() && !m_zone->QObject::parent());
        QVERIFY(QGuiApplication::overrideCursor());
    };
    const QPoint outside(-50, -50); // may lie outside the screen, but not over the window
    QVERIFY(runDrag({
        [&] { moveTo(kNowhere, Qt::ShiftModifier); },
        look,
        [&] { moveTo(kNowhere + QPoint(5, 0), Qt::ShiftModifier | Qt::ControlModifier); },
        [&] { moveTo(outside, Qt::AltModifier); },
        look,
        [&] { moveTo(kTarget); },
        look,
        [&] { release(m_scene->window(), kTarget); },
    }));
    QCOMPARE(seen, QStringList({ QStringLiteral("290 295"), QStringLiteral("hidden"),
                                 QStringLiteral("440 145") }));
    const QVariantList modifiers = { int(Qt::ShiftModifier),
                                     int(Qt::ShiftModifier | Qt::ControlModifier), 0 };
    QCOMPARE(place()->property("modifiers").value<QJSValue>().toVariant().toList(), modifiers);
    QCOMPARE(m_log.entries(),
             names({ "dragActiveChanged", "dragStarted", "dragActiveChanged", "dragEnded" }));
    const auto dropped = place()->property("dropped").value<QJSValue>();
    QCOMPARE(dropped.property(0).toInt(), 7);
    QCOMPARE(dropped.property(1).toQObject(), m_zone.data());
    QVERIFY(!m_zone->isDragActive());
    QCOMPARE(m_zone->QObject::parent(), m_scene->find("parent"));

    // The window takes clicks and drags as before.
    QCoreApplication::processEvents();
    click(m_scene->window(), kSource);
    QCOMPARE(m_area->presses, 2);
    QVERIFY(runDrag({ [&] { dropAt(kNowhere); } }));
}

void tst_DragLife::waysToEnd_data()
{
    QTest::addColumn<Act>("end");
    QTest::addColumn<bool>("lives");
    const auto row = [](const char *name, bool lives, const Act &end) {
        QTest::newRow(name) << end << lives;
    };
    row("release", true, [this] { release(m_scene->window(), kNowhere); });
    row("escape", true, [this] { QTest::keyClick(m_scene->window(), Qt::Key_Escape); });
    row("window hides", true, [this] { m_scene->window()->hide(); });
    row("window closes", true, [this] { m_scene->window()->close(); });
    row("payload destroyed", true, [this] { delete m_zone->mimeData(); });
    row("delegate destroyed", true, [this] { delete m_zone->dragDelegate(); });
    // These do not end it.
    row("ungrab", true, [this] {
        m_zone->ungrabMouse();
        dropAt(kNowhere);
    });
    row("disable", true, [this] {
        m_zone->setEnabled(false);
        m_zone->setDragEnabled(false);
        dropAt(kNowhere);
    });
    row("drag item destroyed", true, [this] {
        delete m_scene->find("marker");
        dropAt(kNowhere);
    });
    row("other payload", true, [this] {
        m_zone->setMimeData(nullptr);
        m_zone->setDragDelegate(nullptr);
        dropAt(kNowhere);
    });
    row("leaves the window", true, [this] {
        m_zone->setParentItem(nullptr);
        dropAt(kNowhere);
    });
    row("told to go", false, [this] { m_zone->deleteLater(); });
    row("destroyed", false, [this] { delete m_zone; });
    row("parent destroyed", false, [this] { delete m_scene->find("parent"); });
    row("window destroyed", false, [this] { m_scene->destroyWindow(); });
    row("all at once", false, [this] { m_scene.reset(); });
}

void tst_DragLife::waysToEnd()
{
    QFETCH(Act, end);
    QFETCH(bool, lives);
    QVERIFY(runDrag({ [&] { moveTo(kNowhere); }, end }));
    const QStringList signalled = names(
        { "dragActiveChanged", "dragStarted", "dragActiveChanged", "dragEnded" });
    if (qstrcmp(QTest::currentDataTag(), "destroyed") == 0) {
        QCOMPARE(m_log.take(), signalled.mid(0, 2));
    } else {
        QCOMPARE(m_log.entries(), signalled);
    }
    QCoreApplication::processEvents();
    QTRY_COMPARE(bool(m_zone), lives);
    if (lives)
        QCOMPARE(m_zone->QObject::parent(), m_scene->find("parent"));
}

void tst_DragLife::handlersThatDestroy_data()
{
    QTest::addColumn<Act>("destroy");
    QTest::addColumn<QString>("moment");
    const std::pair<const char *, Act> victims[] = {
        { "zone", [this] { delete m_zone; } },
        { "parent", [this] { delete m_scene->find("parent"); } },
        { "window", [this] { m_scene->destroyWindow(); } },
        { "payload", [this] { delete m_zone->mimeData(); } },
        { "delegate", [this] { delete m_zone->dragDelegate(); } },
        { "item", [this] { delete m_scene->find("marker"); } },
    };
    // Qt does not survive a window that goes while it moves the mouse grab or is told of a drag,
    // nor does it like a component to go while it creates; and there is no item before it is
    // created.
    const QByteArrayList impossible = { "window in ungrab",  "window in modifiers",
                                        "window in entered", "delegate in created",
                                        "item in ungrab",    "item in data" };
    for (const auto &victim : victims) {
        for (const char *moment :
             { "ungrab", "data", "created", "modifiers", "entered", "inactive", "ended" }) {
            const QByteArray row = QByteArray(victim.first) + " in " + moment;
            if (!impossible.contains(row))
                QTest::newRow(row) << victim.second << QString::fromLatin1(moment);
        }
    }
}

// Handlers that run inside the drag and destroy something that it has to do with.
void tst_DragLife::handlersThatDestroy()
{
    QFETCH(Act, destroy);
    QFETCH(QString, moment);
    auto *data = new ProbeData(this);
    data->setMimeType(QStringLiteral("application/x-card"));
    data->setValue({ { QStringLiteral("id"), 7 } });
    m_zone->setMimeData(data);
    QPointer<QQmlComponent> delegate = new QQmlComponent(&m_scene->engine());
    delegate->setData("import Probe 1.0; ProbeMarker { objectName: 'marker' }", QUrl());
    m_zone->setDragDelegate(delegate);
    bool done = false;
    bool outright = false; // the zone was destroyed, and so tells nothing more
    const auto destroyIn = [&](const char *where) {
        if (moment != QLatin1String(where) || std::exchange(done, true))
            return;
        destroy();
        outright = !m_zone;
    };
    m_area->ungrabbed = [&] { destroyIn("ungrab"); };
    data->asked = [&] { destroyIn("data"); };
    s_created = [&] { destroyIn("created"); };
    on(m_scene->find("target"), QStringLiteral("dragEnter"), [&] { destroyIn("entered"); });
    on(
        m_zone, QStringLiteral("dragActiveChanged"), [&] { destroyIn("inactive"); }, 2);
    on(m_zone, QStringLiteral("dragEnded"), [&] { destroyIn("ended"); });
    const auto watchModifiers = [&] {
        const auto *marker = m_scene->find("marker");
        if (marker)
            on(marker->findChild<DragZoneAttachedObject *>(), QStringLiteral("modifiersChanged"),
               [&] { destroyIn("modifiers"); });
    };
    const DuringDrag drag(QPointer<DragZone>(m_zone),
                          { watchModifiers, [&] { moveTo(kNowhere, Qt::ShiftModifier); },
                            [&] { dropAt(kTarget); } });
    begin();
    s_created = [] {};
    QVERIFY(done);
    QVERIFY(!m_zone || !m_zone->isDragActive());
    delete delegate;
    if (outright)
        m_log.take();
}

// The parent that the zone had is its parent again, unless it got another one meanwhile.
void tst_DragLife::parents()
{
    QObject other;
    QVERIFY(runDrag({ [&] { m_zone->setParent(&other); }, [&] { dropAt(kNowhere); } }));
    QCOMPARE(m_zone->QObject::parent(), &other);
    m_zone->setParent(nullptr);
    QVERIFY(runDrag({ [&] { dropAt(kNowhere); } }));
    QCoreApplication::processEvents();
    QVERIFY(m_zone && !m_zone->QObject::parent());
    delete m_zone;
}

// A zone that a script has made and forgotten belongs to its parent again after the drag; without
// one, in between, it must not be collected, not even out of its parent item.
void tst_DragLife::collectedGarbage()
{
    m_zone->setVisible(false);
    QMetaObject::invokeMethod(place(), "makeZone",
                              Q_ARG(QVariant, QVariant::fromValue(m_scene->find("parent"))));
    const QPointer<DragZone> zone = m_scene->find<DragZone>("scriptZone");
    QVERIFY(zone);
    m_log.watch(zone, names({ "dragStarted", "dragEnded" }));
    const auto collect = [&] {
        zone->setParentItem(nullptr);
        m_scene->engine().collectGarbage();
    };
    const DuringDrag drag(zone, { collect, [&] {}, [&] { dropAt(kNowhere); } });
    begin();
    QVERIFY(drag.isThrough());
    m_scene->engine().collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(zone);
}

void tst_DragLife::engineGoes()
{
    auto engine = std::make_unique<QQmlEngine>();
    QQmlComponent component(engine.get());
    component.setData("import QtQuick 2.15; import tamber.Ui 1.0\n"
                      "UiDragZone { x: 100; y: 100; objectName: 'zone'\n"
                      "dragDelegate: Component { Item { objectName: 'marker' } }\n"
                      "mimeData: UiJsonMimeData { mimeType: 'a/b'; value: ({ a: 1 }) }\n"
                      "MouseArea { width: 100; height: 100 } }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    auto *zone = qobject_cast<DragZone *>(object.get());
    QVERIFY(zone);
    m_zone->setVisible(false);
    zone->setParentItem(place());
    m_log.watch(zone, names({ "dragStarted", "dragEnded" }));
    const DuringDrag drag(zone, { [&] { engine.reset(); } });
    begin();
    QVERIFY(drag.isThrough());
    QCOMPARE(m_log.entries(), names({ "dragStarted", "dragEnded" }));
    QCoreApplication::processEvents();
}

// No growth, neither here nor in the zone that they enter, and nothing left in the window.
void tst_DragLife::manyDrags()
{
    const int children = m_scene->window()->contentItem()->childItems().count();
    const QPoint ends[] = { kNowhere, kTarget, kAcceptingTarget };
    const auto drags = [&](int count) {
        for (int i = 0; i < count; ++i) {
            QVERIFY(runDrag({ [&] { moveTo(kTarget); }, [&] { dropAt(ends[i % 3]); } }));
            QCoreApplication::processEvents();
        }
        m_log.take();
        m_scene->engine().collectGarbage();
        QVERIFY(m_scene->waitForFrame());
    };
    drags(kHeapTells ? 300 : 50); // caches fill
    QVERIFY(keepsHeap([&] { drags(kHeapTells ? 1000 : 50); }));
    QCOMPARE(m_scene->window()->contentItem()->childItems().count(), children);
    QVERIFY(m_zone->findChildren<QObject *>(QString(), Qt::FindDirectChildrenOnly).count() <= 2);
}

TAMBER_TEST_MAIN(tst_DragLife)
#include "tst_draglife.moc"
