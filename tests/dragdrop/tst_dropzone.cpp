#include "support/dragover.h"
#include "support/heap.h"
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

const QString kZone = QStringLiteral("UiDropZone { objectName: 'zone'; x: 100; y: 100\n"
                                     "width: 200; height: 200 }");

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

// Runs \a action at any signal that has this name.
class Hook : public QObject
{
    Q_OBJECT

public:
    void watch(QObject *sender, const QString &signal)
    {
        const QMetaObject *meta = sender->metaObject();
        for (int index = 0; index < meta->methodCount(); ++index) {
            if (meta->method(index).name() == signal.toLatin1())
                connect(sender, meta->method(index), this, metaObject()->method(run()));
        }
    }
    std::function<void()> action;

public Q_SLOTS:
    void act() { action(); }

private:
    int run() const { return metaObject()->indexOfSlot("act()"); }
};

void append(DropZone *zone, DropHandler *handler)
{
    QQmlListReference(zone, "dropHandlers").append(handler);
}

} // namespace

// Points of the window: in the zone of kZone, and beside it.
constexpr QPoint kInside(110, 120);
constexpr QPoint kDeeper(150, 120);
constexpr QPoint kOutside(50, 50);

class tst_DropZone : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void enterAndLeave();
    void drop();
    void refusal();
    void priorities();
    void nestedZones();
    void listChangesDuringDrag();
    void listFromQml();
    void valuesInQml();
    void handlerDies_data();
    void handlerDies();
    void zoneDies_data();
    void zoneDies();
    void zoneGoesAsInQml_data();
    void zoneGoesAsInQml();
    void handlersThatMeddle();
    void nestedLoops();
    void windowGoes();
    void heap();
};

void tst_DropZone::enterAndLeave()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handler;
    append(zone, &handler);
    SignalLog log;
    log.watch(zone);
    DragOver drag(scene.window());

    QVERIFY(!drag.enter(kOutside));
    QCOMPARE(log.take(), QStringList());
    QVERIFY(drag.move(kInside));
    QCOMPARE(log.take(), kEntered);
    QVERIFY(zone->containsDrag());
    QCOMPARE(zone->activeDropHandler(), &handler);
    QCOMPARE(QPointF(zone->dragX(), zone->dragY()), QPointF(10, 20));
    QVERIFY(!zone->dragSource());

    QVERIFY(drag.move(kDeeper));
    QVERIFY(drag.move(kDeeper));
    QCOMPARE(log.take(), names({ "dragXChanged" }));
    QCOMPARE(handler.asked, 1); // a drag is judged when it enters

    QVERIFY(!drag.move(kOutside));
    QCOMPARE(log.take(), kLeft);
    QVERIFY(!zone->containsDrag() && !zone->activeDropHandler());
    QCOMPARE(QPointF(zone->dragX(), zone->dragY()), QPointF());

    // Coming back, this time at the corner, where there is no position to tell of.
    QVERIFY(drag.move(QPoint(100, 100)));
    QCOMPARE(log.take(), kEntered.mid(2));
    QCOMPARE(handler.asked, 2);
    drag.leave();
    QCOMPARE(log.take(), kLeft.mid(0, 4));
    drag.leave();
    QCOMPARE(log.take(), QStringList());
}

void tst_DropZone::drop()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handler;
    append(zone, &handler);
    SignalLog log;
    log.watch(zone);
    log.watch(&handler, {}, QStringLiteral("handler."));
    QVariantList values;
    int modifiers = 0;
    QPointF position;
    connect(zone, &DropZone::drop, [&](const QVariant &data, Qt::KeyboardModifiers keys) {
        values.append(data);
        modifiers = int(keys);
        position = QPointF(zone->dragX(), zone->dragY());
        QVERIFY(zone->containsDrag());
    });
    connect(&handler, &DropHandler::drop, [&](const QVariant &data, Qt::KeyboardModifiers keys) {
        values.append(data);
        QCOMPARE(int(keys), modifiers);
    });
    DragOver drag(scene.window());

    handler.value = 7;
    drag.enter(kInside);
    log.take();
    drag.drop(kDeeper, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(log.take(), names({ "dragXChanged" }) + kDropped);
    QCOMPARE(values, QVariantList({ 7, 7 }));
    QCOMPARE(modifiers, int(Qt::ShiftModifier | Qt::ControlModifier));
    QCOMPARE(position, QPointF(50, 20));
    QVERIFY(!zone->containsDrag() && !zone->activeDropHandler());
    QCOMPARE(QPointF(zone->dragX(), zone->dragY()), QPointF());

    // No value is a value, too.
    handler.value = QVariant();
    drag.enter(kInside);
    log.take();
    drag.drop(kInside);
    QCOMPARE(log.take(), kDropped);
    QCOMPARE(values.count(), 4);
    QVERIFY(!values.last().isValid());
    drag.leave();
    QCOMPARE(log.take(), QStringList());
}

void tst_DropZone::refusal()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    SignalLog log;
    log.watch(zone);
    DragOver drag(scene.window());
    const auto isRefused = [&] {
        const bool refused = !drag.enter(kInside) && !drag.move(kDeeper);
        drag.leave();
        return refused && !zone->containsDrag();
    };
    QVERIFY(isRefused());
    Handler unwilling(false);
    Handler disabled;
    disabled.setEnabled(false);
    append(zone, &unwilling);
    append(zone, &disabled);
    log.take();
    QVERIFY(isRefused());
    QVERIFY(unwilling.asked > 0);
    QCOMPARE(disabled.asked, 0);
    QCOMPARE(log.take(), QStringList());
    disabled.setEnabled(true);
    QVERIFY(!isRefused());
}

void tst_DropZone::priorities()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handlers[6];
    handlers[0].setEnabled(false);
    handlers[1].accepts = false;
    append(zone, &handlers[0]);
    append(zone, nullptr);
    append(zone, &handlers[1]);
    {
        Handler dead;
        append(zone, &dead);
    }
    append(zone, &handlers[2]);
    append(zone, &handlers[3]);
    DragOver drag(scene.window());
    QVERIFY(drag.enter(kInside));
    QCOMPARE(zone->activeDropHandler(), &handlers[2]);
    QCOMPARE(handlers[0].asked + handlers[3].asked, 0);
    QCOMPARE(handlers[1].asked, 1);

    // Neither the switch nor the list matters to a drag that is here.
    handlers[2].setEnabled(false);
    QVERIFY(drag.move(kDeeper));
    QCOMPARE(zone->activeDropHandler(), &handlers[2]);
    drag.leave();
    QVERIFY(drag.enter(kInside));
    QCOMPARE(zone->activeDropHandler(), &handlers[3]);
    drag.leave();
}

// What the inner zone refuses goes to the outer one; what it takes leaves the outer one.
void tst_DropZone::nestedZones()
{
    Scene scene(QStringLiteral("UiDropZone { objectName: 'outer'; width: 400; height: 400\n"
                               "data: UiDropZone { objectName: 'zone'; x: 100; y: 100\n"
                               "width: 200; height: 200 } }"));
    QVERIFY(scene.isValid());
    auto *inner = scene.find<DropZone>("zone");
    auto *outer = scene.find<DropZone>("outer");
    Handler picky(false);
    Handler easy;
    append(inner, &picky);
    append(outer, &easy);
    DragOver drag(scene.window());
    QVERIFY(drag.enter(kInside));
    QVERIFY(outer->containsDrag() && !inner->containsDrag());
    picky.accepts = true;
    drag.leave();
    QVERIFY(drag.enter(kOutside));
    QVERIFY(outer->containsDrag());
    QVERIFY(drag.move(kInside));
    QVERIFY(inner->containsDrag() && !outer->containsDrag());
    drag.leave();
    QVERIFY(!inner->containsDrag());
}

void tst_DropZone::listChangesDuringDrag()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler first;
    Handler second;
    append(zone, &first);
    DragOver drag(scene.window());
    // A handler may turn the list over that is being asked.
    first.onAsked = [&] {
        QQmlListReference list(zone, "dropHandlers");
        list.clear();
        list.append(&second);
    };
    QVERIFY(drag.enter(kInside));
    QCOMPARE(zone->activeDropHandler(), &first);
    SignalLog log;
    log.watch(&first, {}, QStringLiteral("handler."));
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "handler.drop" }));
    QVERIFY(drag.enter(kInside));
    QCOMPARE(zone->activeDropHandler(), &second);
    drag.leave();
}

void tst_DropZone::listFromQml()
{
    Scene scene(QStringLiteral("UiDropZone { objectName: 'zone'\n"
                               "UiImageDropHandler { enabled: false }\n"
                               "UiMimeDropHandler { acceptedMimeTypes: 'text/plain' }\n"
                               "UiFileDropHandler { suffixes: ['A', 'b'] }\n"
                               "UiVideoDropHandler { } }"));
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    QQmlListProperty<DropHandler> list = zone->dropHandlers();
    QCOMPARE(list.count(&list), 4);
    QVERIFY(!list.at(&list, 0)->isEnabled());
    QCOMPARE(list.at(&list, 1)->property("acceptedMimeTypes").toStringList().count(), 1);
    QCOMPARE(list.at(&list, 2)->property("suffixes").toStringList().join(QLatin1Char(' ')),
             QStringLiteral("a b"));
    QVERIFY(!list.at(&list, -1) && !list.at(&list, 4));
    delete list.at(&list, 1);
    QVERIFY(!list.at(&list, 1));
    QCOMPARE(list.count(&list), 4);
    SignalLog log;
    log.watch(zone);
    list.clear(&list);
    list.clear(&list);
    QCOMPARE(list.count(&list), 0);
    QCOMPARE(log.take(), names({ "dropHandlersChanged" }));
}

// Handlers in QML get objects, lists of URLs and flags they can work with.
void tst_DropZone::valuesInQml()
{
    Scene scene(QStringLiteral(
        "property string seen: ''\n"
        "UiDropZone { anchors.fill: parent\n"
        "onDrop: parent.seen += modifiers & Qt.ShiftModifier ? 'shift ' : 'none '\n"
        "UiMimeDropHandler { acceptedMimeTypes: ['application/x-card']\n"
        "onDrop: seen += data.id + data.tags[1] + data.missing }\n"
        "UiImageDropHandler { onDrop: seen += data.length + ' ' + data[0].toString() }\n"
        "UiMimeDropHandler { acceptedMimeTypes: ['text/*']\n"
        "onDrop: seen += data.length + ' ' + data[0].toString().slice(0, 8) } }"));
    QVERIFY(scene.isValid());
    const auto seen = [&scene](const std::function<void(QMimeData &)> &fill, auto modifiers) {
        DragOver drag(scene.window());
        fill(drag.data());
        scene.root()->setProperty("seen", QString());
        drag.enter(kInside);
        drag.drop(kInside, modifiers);
        return scene.root()->property("seen").toString();
    };
    QCOMPARE(seen(
                 [](QMimeData &data) {
                     data.setData(QStringLiteral("application/x-card"),
                                  R"({"id": 7, "tags": ["a", "b"]})");
                 },
                 Qt::ShiftModifier),
             QStringLiteral("shift 7bundefined"));
    QCOMPARE(seen([](QMimeData &data) { data.setUrls({ QUrl(QStringLiteral("x:/a.png")) }); },
                  Qt::ControlModifier),
             QStringLiteral("none 1 x:/a.png"));
    QTemporaryFile file(QDir::tempPath() + QLatin1String("/XXXXXX.txt"));
    QVERIFY(file.open());
    QCOMPARE(seen([&](QMimeData &data) { data.setUrls({ QUrl::fromLocalFile(file.fileName()) }); },
                  Qt::NoModifier),
             QStringLiteral("none 1 file:///"));
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
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    auto handler = std::make_unique<Handler>();
    append(zone, handler.get());
    SignalLog log;
    log.watch(zone);
    const auto kill = [&] { handler.reset(); };
    if (when == QLatin1String("dragXChanged"))
        connect(zone, &DropZone::dragXChanged, kill);
    else if (when == QLatin1String("dragEnter"))
        connect(zone, &DropZone::dragEnter, kill);
    else if (!when.isEmpty())
        connect(zone, &DropZone::activeDropHandlerChanged, kill);
    DragOver drag(scene.window());
    QCOMPARE(drag.enter(kInside), when.isEmpty());
    handler.reset();
    QVERIFY(!zone->containsDrag() && !zone->activeDropHandler());
    QVERIFY(!drag.move(kDeeper));
    drag.drop(kDeeper);
    QTEST(log.take(), "expected");
}

void tst_DropZone::zoneDies_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("asked") << QStringLiteral("asked");
    QTest::newRow("extract") << QStringLiteral("extract");
    QStringList signalNames = kEntered + kLeft + kDropped;
    signalNames.removeDuplicates();
    for (const QString &name : qAsConst(signalNames))
        QTest::addRow("%s", qPrintable(name)) << name;
}

// In every signal of every event. Qt Quick does not survive it, so only the zone gets the events.
void tst_DropZone::zoneDies()
{
    QFETCH(QString, signal);
    for (int occasion = 1; occasion <= 3; ++occasion) {
        const QPointer<DropZone> zone = new DropZone;
        Handler handler;
        append(zone, &handler);
        int countdown = occasion;
        Hook hook;
        hook.action = [&] {
            if (--countdown == 0)
                delete zone.data();
        };
        if (signal == QLatin1String("asked"))
            handler.onAsked = hook.action;
        else if (signal == QLatin1String("extract"))
            handler.onExtract = hook.action;
        else if (signal == QLatin1String("handler.drop"))
            hook.watch(&handler, QStringLiteral("drop"));
        else
            hook.watch(zone, signal);

        const QVector<std::function<void(DragOver &)>> steps = {
            [](DragOver &drag) { drag.enter(QPoint(10, 10)); },
            [](DragOver &drag) { drag.move(QPoint(20, 20)); },
            [](DragOver &drag) { drag.leave(); },
            [](DragOver &drag) { drag.enter(QPoint(10, 10)); },
            [](DragOver &drag) { drag.drop(QPoint(30, 30)); },
        };
        DragOver drag(zone);
        for (int round = 0; round < 3; ++round) {
            for (const auto &step : steps) {
                if (zone)
                    step(drag);
            }
        }
        QVERIFY2(!zone, qPrintable(signal));
    }
}

void tst_DropZone::zoneGoesAsInQml_data()
{
    QTest::addColumn<QString>("handler");
    for (const char *handler :
         { "onDragXChanged", "onDragEnter", "onContainsDragChanged", "onDrop", "onDragExit" })
        QTest::newRow(handler) << QString::fromLatin1(handler);
}

// A loader takes its item out of the window at once and destroys it later, which Qt Quick survives.
void tst_DropZone::zoneGoesAsInQml()
{
    QFETCH(QString, handler);
    for (const bool drops : { true, false }) {
        Scene scene(QStringLiteral("Loader { id: loader; width: 400; height: 400\n"
                                   "sourceComponent: UiDropZone { objectName: 'zone'\n"
                                   "%1: loader.active = false\n"
                                   "UiFileDropHandler { } } }")
                        .arg(handler));
        QVERIFY(scene.isValid());
        const QPointer<DropZone> zone = scene.find<DropZone>("zone");
        DragOver drag(scene.window());
        drag.data().setUrls({ QUrl(QStringLiteral("file:///a")) });
        drag.enter(kInside);
        drag.move(kDeeper);
        if (drops)
            drag.drop(kDeeper);
        else
            drag.leave();
        QTRY_COMPARE(zone.isNull(),
                     handler != (drops ? QStringLiteral("onDragExit") : QStringLiteral("onDrop")));
    }
}

// What a handler changes in the middle of a drop.
void tst_DropZone::handlersThatMeddle()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    auto handler = std::make_unique<Handler>();
    append(zone, handler.get());
    SignalLog log;
    log.watch(zone, { QStringLiteral("drop"), QStringLiteral("dragExit"),
                      QStringLiteral("containsDragChanged") });
    DragOver drag(scene.window());
    auto connection = connect(zone, &DropZone::drop, [&] { handler.reset(); });
    drag.enter(kInside);
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "containsDragChanged", "drop", "containsDragChanged" }));
    disconnect(connection);

    handler = std::make_unique<Handler>();
    append(zone, handler.get());
    handler->onExtract = [&] { handler.reset(); };
    drag.enter(kInside);
    drag.drop(kInside);
    QCOMPARE(log.take(), names({ "containsDragChanged", "containsDragChanged" }));
}

// A handler may run an event loop, in which this drag goes on or another one comes. What was told
// last is what holds.
void tst_DropZone::nestedLoops()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handler;
    append(zone, &handler);
    SignalLog log;
    log.watch(zone);
    DragOver drag(zone);
    auto connection = connect(zone, &DropZone::dragEnter, [&] { drag.leave(); });
    drag.enter(QPoint(10, 20));
    QCOMPARE(log.take(), kEntered.mid(0, 3) + kLeft);
    disconnect(connection);

    bool again = true;
    connection = connect(zone, &DropZone::drop, [&] {
        if (std::exchange(again, false))
            drag.enter(QPoint(30, 40));
    });
    drag.enter(QPoint(10, 20));
    log.take();
    drag.drop(QPoint(10, 20));
    QCOMPARE(log.take(), names({ "drop" }) + kEntered);
    QVERIFY(zone->containsDrag());
    drag.leave();
    disconnect(connection);

    drag.enter(QPoint(10, 20));
    again = true;
    connect(zone, &DropZone::dragXChanged, [&] {
        if (std::exchange(again, false))
            drag.move(QPoint(50, 60));
    });
    drag.move(QPoint(30, 40));
    QCOMPARE(QPointF(zone->dragX(), zone->dragY()), QPointF(50, 60));
}

void tst_DropZone::windowGoes()
{
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handler;
    append(zone, &handler);
    SignalLog log;
    log.watch(zone);
    QQuickWindow other;
    DragOver drag(scene.window());
    drag.enter(kInside);
    log.take();
    zone->setParentItem(other.contentItem());
    QCOMPARE(log.take(), kLeft);
    drag.move(kDeeper);
    drag.leave();
    QCOMPARE(log.take(), QStringList());

    DragOver next(&other);
    next.enter(kInside);
    zone->setVisible(false); // Qt tells of it with the next move
    next.move(kInside);
    QCOMPARE(log.take(), kEntered + kLeft);
    zone->setVisible(true);
    next.leave();
    next.enter(kInside);
    scene.destroyWindow();
    zone = nullptr; // with its window, in the middle of the drag
    next.leave();
}

void tst_DropZone::heap()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's allocator does not tell its numbers; the run without one does this test");
#endif
    Scene scene(kZone);
    QVERIFY(scene.isValid());
    auto *zone = scene.find<DropZone>("zone");
    Handler handler;
    append(zone, &handler);
    const auto drags = [&](int count) {
        for (int number = 0; number < count; ++number) {
            DragOver drag(scene.window());
            drag.enter(kInside);
            drag.move(kDeeper);
            if (number % 2 == 0)
                drag.leave();
            else
                drag.drop(kInside);
        }
    };
    drags(1000);
    QVERIFY(keepsHeap([&] { drags(1000); }));
}

TAMBER_TEST_MAIN(tst_DropZone)
#include "tst_dropzone.moc"
