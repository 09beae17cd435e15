#include "support/dragover.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DropZone>

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <functional>

using namespace ta::ui;
using namespace ta::test;

namespace {

const QStringList kEntered = names({ "dragXChanged", "dragYChanged", "dragEnter",
                                     "containsDragChanged", "dragSourceChanged",
                                     "activeDropHandlerChanged" });
const QStringList kLeft = names({ "dragExit", "dragSourceChanged", "containsDragChanged",
                                  "activeDropHandlerChanged", "dragXChanged", "dragYChanged" });
const QStringList kDropped = names({ "drop", "handler.drop", "activeDropHandlerChanged",
                                     "dragSourceChanged", "containsDragChanged", "dragXChanged",
                                     "dragYChanged" });

class Handler : public DropHandler
{
    Q_OBJECT

public:
    explicit Handler(bool accepts = true) : accepts(accepts) {}

    bool acceptsMimeData(const QMimeData *) const override
    {
        ++asked;
        if (onAsked)
            onAsked();
        return accepts;
    }
    QVariant extractMimeData(const QMimeData *) const override
    {
        if (onExtract)
            onExtract();
        return value;
    }

    bool accepts;
    QVariant value;
    std::function<void()> onAsked;
    std::function<void()> onExtract;
    mutable int asked = 0;
};

void append(DropZone *zone, DropHandler *handler)
{
    QQmlListReference(zone, "dropHandlers").append(handler);
}

} // namespace

// Points of the window: in the zone, and beside it.
constexpr QPoint kInside(110, 120);
constexpr QPoint kDeeper(150, 120);
constexpr QPoint kOutside(50, 50);

class tst_DropZone : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void init();
    void enterAndLeave();
    void drop();
    void whoIsAsked();
    void zoneInside();
    void listChangesDuringDrag();
    void valuesInQml();
    void handlerDies_data();
    void handlerDies();
    void zoneDies();
    void zoneGoesAsInQml();
    void handlersThatMeddle();
    void nestedLoops();
    void windowGoes();

private:
    QQuickWindow *window() const { return m_scene->window(); }

    std::unique_ptr<Scene> m_scene;
    QPointer<DropZone> m_zone;
    std::unique_ptr<Handler> m_handler; // of the zone, accepts everything
    SignalLog m_log; // of the zone
};

void tst_DropZone::init()
{
    TestCase::init();
    m_scene = std::make_unique<Scene>(QStringLiteral(
        "UiDropZone { objectName: 'zone'; x: 100; y: 100; width: 200; height: 200 }"));
    m_zone = m_scene->find<DropZone>("zone");
    m_handler = std::make_unique<Handler>();
    append(m_zone, m_handler.get());
    m_log.take();
    m_log.watch(m_zone);
}

void tst_DropZone::enterAndLeave()
{
    DragOver drag(window());

    QVERIFY(!drag.enter(kOutside));
    QCOMPARE(m_log.take(), QStringList());
    QVERIFY(drag.move(kInside));
    QCOMPARE(m_log.take(), kEntered);
    QVERIFY(m_zone->containsDrag());
    QCOMPARE(m_zone->activeDropHandler(), m_handler.get());
    QCOMPARE(QPointF(m_zone->dragX(), m_zone->dragY()), QPointF(10, 20));
    QVERIFY(!m_zone->dragSource());

    QVERIFY(drag.move(kDeeper));
    QVERIFY(drag.move(kDeeper));
    QCOMPARE(m_log.take(), names({ "dragXChanged" }));
    QCOMPARE(m_handler->asked, 1); // a drag is judged when it enters

    QVERIFY(!drag.move(kOutside));
    QCOMPARE(m_log.take(), kLeft);
    QVERIFY(!m_zone->containsDrag() && !m_zone->activeDropHandler());
    QCOMPARE(QPointF(m_zone->dragX(), m_zone->dragY()), QPointF());

    // Coming back, this time at the corner, where there is no position to tell of.
    QVERIFY(drag.move(QPoint(100, 100)));
    QCOMPARE(m_log.take(), kEntered.mid(2));
    QCOMPARE(m_handler->asked, 2);
    drag.leave();
    QCOMPARE(m_log.take(), kLeft.mid(0, 4));
    drag.leave();
    QCOMPARE(m_log.take(), QStringList());
}

void tst_DropZone::drop()
{
    m_log.watch(m_handler.get(), {}, QStringLiteral("handler."));
    QVariantList values;
    int modifiers = 0;
    QPointF position;
    connect(m_zone, &DropZone::drop, [&](const QVariant &data, Qt::KeyboardModifiers keys) {
        values.append(data);
        modifiers = int(keys);
        position = QPointF(m_zone->dragX(), m_zone->dragY());
        QVERIFY(m_zone->containsDrag());
    });
    connect(m_handler.get(), &DropHandler::drop,
            [&](const QVariant &data, Qt::KeyboardModifiers keys) {
                values.append(data);
                QCOMPARE(int(keys), modifiers);
            });
    DragOver drag(window());

    m_handler->value = 7;
    drag.enter(kInside);
    m_log.take();
    drag.drop(kDeeper, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(m_log.take(), names({ "dragXChanged" }) + kDropped);
    QCOMPARE(values, QVariantList({ 7, 7 }));
    QCOMPARE(modifiers, int(Qt::ShiftModifier | Qt::ControlModifier));
    QCOMPARE(position, QPointF(50, 20));
    QVERIFY(!m_zone->containsDrag() && !m_zone->activeDropHandler());
    QCOMPARE(QPointF(m_zone->dragX(), m_zone->dragY()), QPointF());

    // No value is a value, too.
    m_handler->value = QVariant();
    drag.enter(kInside);
    m_log.take();
    drag.drop(kInside);
    QCOMPARE(m_log.take(), kDropped);
    QCOMPARE(values.count(), 4);
    QVERIFY(!values.last().isValid());
    drag.leave();
    QCOMPARE(m_log.take(), QStringList());
}

void tst_DropZone::whoIsAsked()
{
    DragOver drag(window());
    QQmlListProperty<DropHandler> list = m_zone->dropHandlers();
    list.clear(&list);
    list.clear(&list); // which has nothing to tell
    QCOMPARE(m_log.take(), names({ "dropHandlersChanged" }));
    Handler disabled;
    disabled.setEnabled(false);
    Handler unwilling(false);
    Handler first;
    Handler second;
    append(m_zone, &disabled);
    append(m_zone, nullptr);
    append(m_zone, &unwilling);
    append(m_zone, std::make_unique<Handler>().get()); // dead
    QCOMPARE(list.count(&list), 4);
    QVERIFY(!list.at(&list, 1) && !list.at(&list, 3) && !list.at(&list, -1) && !list.at(&list, 4));
    QVERIFY(!drag.enter(kInside) && !drag.move(kDeeper));
    QVERIFY(!m_zone->containsDrag());
    QVERIFY(unwilling.asked > 0);
    QCOMPARE(m_log.take(), names({ "dropHandlersChanged", "dropHandlersChanged",
                                   "dropHandlersChanged", "dropHandlersChanged" }));
    drag.leave();

    append(m_zone, &first);
    append(m_zone, &second);
    QVERIFY(drag.enter(kInside));
    QCOMPARE(m_zone->activeDropHandler(), &first);
    QCOMPARE(disabled.asked + second.asked, 0);

    // Neither the switch nor the list matters to a drag that is here.
    first.setEnabled(false);
    QVERIFY(drag.move(kDeeper));
    QCOMPARE(m_zone->activeDropHandler(), &first);
    drag.leave();
    QVERIFY(drag.enter(kInside));
    QCOMPARE(m_zone->activeDropHandler(), &second);
    drag.leave();
}

// What it refuses goes to the one around it, and what it takes leaves that.
void tst_DropZone::zoneInside()
{
    DropZone inner(m_zone);
    inner.setSize(QSizeF(50, 50));
    Handler picky(false);
    append(&inner, &picky);
    DragOver drag(window());
    QVERIFY(drag.enter(kInside));
    QVERIFY(m_zone->containsDrag() && !inner.containsDrag());
    picky.accepts = true;
    QVERIFY(drag.move(kInside));
    QVERIFY(inner.containsDrag() && !m_zone->containsDrag());
    drag.leave();
    QVERIFY(!inner.containsDrag());
}

void tst_DropZone::listChangesDuringDrag()
{
    Handler next;
    DragOver drag(window());
    // A handler may turn the list over that is being asked.
    m_handler->onAsked = [&] {
        QQmlListReference list(m_zone, "dropHandlers");
        list.clear();
        list.append(&next);
    };
    QVERIFY(drag.enter(kInside));
    QCOMPARE(m_zone->activeDropHandler(), m_handler.get());
    SignalLog log;
    log.watch(m_handler.get(), {}, QStringLiteral("handler."));
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "handler.drop" }));
    QVERIFY(drag.enter(kInside));
    QCOMPARE(m_zone->activeDropHandler(), &next);
    drag.leave();
}

// Handlers in QML get objects, lists of URLs and flags they can work with.
void tst_DropZone::valuesInQml()
{
    Scene scene(QStringLiteral(
        "property string seen: ''\n"
        "UiDropZone { anchors.fill: parent\n"
        "onDrop: parent.seen = modifiers & Qt.ShiftModifier ? 'shift ' : 'none '\n"
        "UiMimeDropHandler { acceptedMimeTypes: 'application/x-card'\n"
        "onDrop: seen += data.id + data.tags[1] + data.missing }\n"
        "UiImageDropHandler { onDrop: seen += data.length + ' ' + data[0].toString() }\n"
        "UiMimeDropHandler { onDrop: seen += data.length + ' ' + data[0].toString() } }"));
    const auto dropped = [&](Qt::KeyboardModifiers keys, const QString &url) {
        DragOver drag(scene.window());
        if (url.isEmpty())
            drag.data().setData(QStringLiteral("application/x-card"),
                                R"({"id": 7, "tags": ["a", "b"]})");
        else
            drag.data().setUrls({ QUrl(url) });
        drag.enter(kInside);
        drag.drop(kInside, keys);
        return scene.root()->property("seen").toString();
    };
    QCOMPARE(dropped(Qt::ShiftModifier, QString()), QStringLiteral("shift 7bundefined"));
    QCOMPARE(dropped(Qt::ControlModifier, QStringLiteral("x:/a.png")),
             QStringLiteral("none 1 x:/a.png"));
    QCOMPARE(dropped({}, QStringLiteral("file:///")), QStringLiteral("none 1 file:///"));
}

void tst_DropZone::handlerDies_data()
{
    QTest::addColumn<QString>("when");
    QTest::addColumn<QStringList>("expected");
    const QStringList afterwards = kDropped.mid(2, 3); // a drop on a zone that holds nothing
    QTest::newRow("held") << QString() << kEntered + kLeft + afterwards;
    QTest::newRow("in dragXChanged")
        << QStringLiteral("dragXChanged")
        << names({ "dragXChanged", "dragYChanged", "dragXChanged", "dragYChanged" });
    QTest::newRow("in dragEnter") << QStringLiteral("dragEnter") << kEntered.mid(0, 3) + kLeft;
    QTest::newRow("in the last signal")
        << QStringLiteral("activeDropHandlerChanged") << kEntered + kLeft;
}

// A drag whose handler dies leaves the zone at once, and nothing of it drops there.
void tst_DropZone::handlerDies()
{
    QFETCH(QString, when);
    if (!when.isEmpty())
        on(m_zone, when, [&] { m_handler.reset(); });
    DragOver drag(window());
    QCOMPARE(drag.enter(kInside), when.isEmpty());
    m_handler.reset();
    QVERIFY(!m_zone->containsDrag() && !m_zone->activeDropHandler());
    QVERIFY(!drag.move(kDeeper));
    drag.drop(kDeeper);
    QTEST(m_log.take(), "expected");
}

// At every moment at which it runs foreign code, one after the other. Qt Quick does not survive it,
// so only the zone gets the events.
void tst_DropZone::zoneDies()
{
    int moment = 0;
    for (;; ++moment) {
        QPointer<DropZone> zone = new DropZone;
        Handler handler;
        append(zone, &handler);
        int left = moment;
        const auto strike = [&] {
            if (left-- == 0)
                delete zone;
        };
        handler.onAsked = handler.onExtract = strike;
        const QStringList signalNames = names(
            { "dragXChanged", "dragYChanged", "dragEnter", "dragExit", "containsDragChanged",
              "dragSourceChanged", "activeDropHandlerChanged", "drop" });
        for (const QString &signal : signalNames)
            on(zone, signal, strike);
        on(&handler, QStringLiteral("drop"), strike);

        DragOver drag(zone);
        const std::function<void()> steps[] = {
            [&] { drag.enter(QPoint(10, 10)); },
            [&] { drag.move(QPoint(20, 20)); },
            [&] { drag.leave(); },
            [&] { drag.enter(QPoint(10, 10)); },
            [&] { drag.drop(QPoint(30, 30)); },
        };
        for (const auto &step : steps) {
            if (zone)
                step();
        }
        if (zone) { // it outlived all moments
            delete zone;
            break;
        }
    }
    QCOMPARE(moment, 2 + kEntered.count() * 2 + 2 + kLeft.count() + 1 + 2 + kDropped.count());
}

// A loader takes its item out of the window at once and destroys it later, which Qt Quick survives.
void tst_DropZone::zoneGoesAsInQml()
{
    for (const char *const handler :
         { "onDragXChanged", "onDragEnter", "onContainsDragChanged", "onDrop", "onDragExit" }) {
        Scene scene(QStringLiteral("Loader { id: loader; width: 400; height: 400\n"
                                   "sourceComponent: UiDropZone { objectName: 'zone'\n"
                                   "%1: loader.active = false\n"
                                   "UiFileDropHandler { } } }")
                        .arg(QLatin1String(handler)));
        const QPointer<DropZone> zone = scene.find<DropZone>("zone");
        DragOver drag(scene.window());
        drag.data().setUrls({ QUrl(QStringLiteral("file:///a")) });
        drag.enter(kInside);
        drag.move(kDeeper);
        if (qstrcmp(handler, "onDragExit") == 0)
            drag.leave();
        else
            drag.drop(kDeeper);
        QTRY_VERIFY2(!zone, handler);
    }
}

// What a handler changes in the middle of a drop.
void tst_DropZone::handlersThatMeddle()
{
    SignalLog log;
    log.watch(m_zone, names({ "drop", "dragExit", "containsDragChanged" }));
    DragOver drag(window());
    on(m_zone, QStringLiteral("drop"), [&] { m_handler.reset(); });
    drag.enter(kInside);
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "containsDragChanged", "drop", "containsDragChanged" }));

    m_handler = std::make_unique<Handler>();
    append(m_zone, m_handler.get());
    m_handler->onExtract = [&] { m_handler.reset(); };
    drag.enter(kInside);
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "containsDragChanged", "containsDragChanged" }));
}

// A handler may run an event loop, in which this drag goes on or another one comes. What was told
// last is what holds.
void tst_DropZone::nestedLoops()
{
    DragOver drag(m_zone);
    on(
        m_zone, QStringLiteral("dragEnter"), [&] { drag.leave(); }, 1);
    drag.enter(QPoint(10, 20));
    QCOMPARE(m_log.take(), kEntered.mid(0, 3) + kLeft);

    on(
        m_zone, QStringLiteral("drop"), [&] { drag.enter(QPoint(30, 40)); }, 1);
    drag.enter(QPoint(10, 20));
    m_log.take();
    drag.drop(QPoint(10, 20));
    QCOMPARE(m_log.take(), names({ "drop" }) + kEntered);
    QVERIFY(m_zone->containsDrag());

    on(
        m_zone, QStringLiteral("dragXChanged"), [&] { drag.move(QPoint(50, 60)); }, 1);
    drag.move(QPoint(10, 20));
    QCOMPARE(QPointF(m_zone->dragX(), m_zone->dragY()), QPointF(50, 60));
}

void tst_DropZone::windowGoes()
{
    QQuickWindow other;
    DragOver drag(window());
    drag.enter(kInside);
    m_log.take();
    m_zone->setParentItem(other.contentItem());
    QCOMPARE(m_log.take(), kLeft);
    drag.move(kDeeper);
    drag.leave();
    QCOMPARE(m_log.take(), QStringList());

    DragOver next(&other);
    next.enter(kInside);
    m_zone->setVisible(false); // Qt tells of it with the next move
    next.move(kInside);
    QCOMPARE(m_log.take(), kEntered + kLeft);
    m_zone->setVisible(true);
    next.leave();
    next.enter(kInside);
    m_scene->destroyWindow(); // in the middle of the drag
    next.leave();
}

TAMBER_TEST_MAIN(tst_DropZone)
#include "tst_dropzone.moc"
