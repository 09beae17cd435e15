#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "popups/scenepoint_p.h"

#include <TamberUi/Tooltip>

#include <QtCore/QElapsedTimer>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTimer>

#include <ctime>

using namespace ta::ui;
using namespace ta::test;

class tst_Tooltips : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void rest();
    void whatIsShown_data();
    void whatIsShown();
    void scenePoint();
    void place_data();
    void place();
    void windows();
    void membership();
    void badDelegates();
    void ownDelegate();
    void handlersThatDestroy();
    void logging();
    void thousands();
};

namespace {

const QPoint kOverItem(50, 50);
const QPoint kBeside(300, 300);

} // namespace

void tst_Tooltips::rest()
{
    AgentScene scene(itemWithTooltip({}, "first")
                     + QStringLiteral("MouseArea { objectName: 'area'; property int presses: 0\n"
                                      "x: 200; width: 50; height: 50; onPressed: ++presses\n"
                                      "UiTooltip { objectName: 'second' } }"));
    const TooltipAgent *agent = scene.agent;
    SignalLog log;
    log.watch(scene.agent,
              names({ "tooltipVisibleChanged", "tooltipTextChanged", "tooltipItemChanged" }));

    QElapsedTimer timer;
    timer.start();
    move(scene.window(), kOverItem);
    QVERIFY(!agent->tooltipItem());
    QTRY_VERIFY(agent->tooltipVisible());
    QVERIFY2(timer.elapsed() >= 475, qPrintable(QString::number(timer.elapsed()))); // coarse timer
    QCOMPARE(log.take(),
             names({ "tooltipItemChanged", "tooltipTextChanged", "tooltipVisibleChanged" }));
    const QPointer<QQuickItem> tip = agent->tooltipItem();
    QCOMPARE(tip->position(), QPointF(kOverItem));
    QCOMPARE(tip->parentItem(), scene.window()->contentItem());
    QCOMPARE(tip->z(), 65735.0);
    QCOMPARE(tip->property("text").toString(), QStringLiteral("first"));
    QTRY_COMPARE(tip->childItems().constFirst()->opacity(), 1.0);

    // One pixel hides it; what was said stays for the fade-out, and the wait begins anew.
    QTest::mouseMove(scene.window(), kOverItem + QPoint(1, 0));
    QVERIFY(!agent->tooltipVisible());
    QCOMPARE(agent->tooltipText(), QStringLiteral("first"));
    QVERIFY(!tip->property("show").toBool());
    QTRY_VERIFY(agent->tooltipVisible());
    QCOMPARE(log.take(), names({ "tooltipVisibleChanged", "tooltipVisibleChanged" }));

    // The same item serves the next one. The text is read when it is shown.
    scene.find<Tooltip>("second")->setText(QStringLiteral("changed"));
    move(scene.window(), QPoint(225, 25));
    QTRY_VERIFY(agent->tooltipVisible());
    QCOMPARE(agent->tooltipItem(), tip.data());
    QCOMPARE(log.take(),
             names({ "tooltipVisibleChanged", "tooltipTextChanged", "tooltipVisibleChanged" }));
    QCOMPARE(tip->property("text").toString(), QStringLiteral("changed"));

    press(scene.window(), QPoint(225, 25));
    QVERIFY(!agent->tooltipVisible());
    QCOMPARE(scene.find("area")->property("presses").toInt(), 1);
    release(scene.window(), QPoint(225, 25));
    // A pointer that has not moved since shows nothing again, and one that left rests elsewhere.
    const auto *wait = agent->findChild<QTimer *>();
    QVERIFY(!wait->isActive());
    move(scene.window(), kOverItem);
    QVERIFY(wait->isActive());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(scene.window(), &leave);
    QVERIFY(!wait->isActive());

    delete scene.agent.data();
    QTRY_VERIFY(!tip);
}

void tst_Tooltips::whatIsShown_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("text"); // at (50, 50); empty: none
    const auto row = [](const char *name, const QString &items, const char *text) {
        QTest::newRow(name) << items << QString::fromLatin1(text);
    };
    const auto tip = [](const char *properties, const char *text) {
        return itemWithTooltip(QLatin1String(properties), text);
    };
    const auto in = [](const char *properties, const QString &items) {
        return QStringLiteral("Item { width: 100; height: 100; %1\n%2 }")
            .arg(QLatin1String(properties), items);
    };
    const auto popup = [](int size, const QString &items) {
        return QStringLiteral("UiPopupAnchor { popupVisible: true\n"
                              "Item { width: %1; height: %1\n%2 } }")
            .arg(size)
            .arg(items);
    };
    const auto clip = [](int size, const QString &items) {
        return QStringLiteral("Item { width: %1; height: %1; clip: true\n%2 }")
            .arg(size)
            .arg(items);
    };
    const QString outer = QStringLiteral("UiTooltip { text: 'outer' }");
    row("disabled", tip("enabled: false", "no"), "");
    row("invisible", tip("visible: false", "no"), "");
    row("in disabled", in("enabled: false", tip("", "no")), "");
    row("transparent", tip("opacity: 0", "yes"), "yes");
    row("no text", tip("", ""), "");
    row("elsewhere", tip("x: 51", "no"), "");
    row("turned away", tip("transformOrigin: Item.TopLeft; rotation: 90", "no"), "");
    row("transformed into place", tip("x: 400; transform: Translate { x: -400 }", "yes"), "yes");
    row("clipped away", clip(40, tip("", "no")), "");
    row("clipped elsewhere", clip(60, tip("", "yes")), "yes");
    row("below a popup", tip("", "no") + popup(60, {}), "");
    row("below the lower of two popups",
        tip("", "no") + popup(60, {}) + in("x: 300", popup(60, {})), "");
    row("beside a popup", tip("", "yes") + popup(40, {}), "yes");
    row("below a menu",
        in("",
           QStringLiteral("UiTooltip { text: 'no' }\n"
                          "UiContextMenu { objectName: 'menu'; UiMenuItem { text: 'Entry' } }")),
        "");
    row("in a popup, of another agent",
        tip("", "no")
            + popup(60, QStringLiteral("UiTooltip { text: 'lost' }\nUiTooltipAgent { %1 }")
                            .arg(tip("", "elsewhere"))),
        "");
    row("of no item",
        QStringLiteral("property QtObject holder: QtObject {\n"
                       "property var tip: UiTooltip { text: 'no' } }"),
        "");
    row("of the agent", QStringLiteral("UiTooltip { text: 'yes' }"), "yes");
    row("nested", in("", tip("", "inner") + outer), "inner");
    row("nested below", in("", tip("z: -1", "inner") + outer), "inner");
    row("nested disabled", in("", tip("enabled: false", "inner") + outer), "outer");
    row("siblings", tip("", "first") + tip("", "last"), "last");
    row("siblings and z", tip("z: 1", "first") + tip("", "last"), "first");
    row("covered, though deeper", in("", in("", tip("", "deep"))) + tip("", "cover"), "cover");
    row("covering, and deeper", tip("", "first") + in("", in("", tip("", "deep"))), "deep");
    row("of one item",
        in("", QStringLiteral("UiTooltip { text: 'a' } UiTooltip { text: 'b' } UiTooltip {}")),
        "b");
}

void tst_Tooltips::whatIsShown()
{
    QFETCH(QString, items);
    QFETCH(QString, text);
    AgentScene scene(items);
    if (auto *menu = scene.find<ContextMenu>("menu")) {
        menu->showAt(scene.root(), QPointF(20, 20));
        QVERIFY(scene.waitForFrame());
    }
    scene.restAt(QPoint(50, 50));
    QCOMPARE(scene.agent->tooltipVisible(), !text.isEmpty());
    QCOMPARE(scene.agent->tooltipText(), text);
}

// What items see is what Qt says, whatever is done to them.
void tst_Tooltips::scenePoint()
{
    Scene scene(QStringLiteral(
        "Item { x: 7.5; y: -3; Item { x: 20 } Item { x: 30; scale: 2 } Item { rotation: 30 }\n"
        "Item { x: 9; transform: [ Scale { xScale: 3 }, Translate { x: 5; y: 7 } ]\n"
        "Item { y: 11 } } Item { y: 13 } }"));
    const QPointF position(123, 45);
    ScenePoint point(position);
    const auto items = scene.window()->findChildren<QQuickItem *>();
    QVERIFY(items.count() >= 8);
    for (auto *item : items)
        QCOMPARE(point.in(item), item->mapFromScene(position));
}

void tst_Tooltips::place_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("length"); // of the text
    QTest::addColumn<bool>("above");
    QTest::newRow("middle") << QPoint(300, 300) << 10 << false;
    QTest::newRow("right edge") << QPoint(790, 300) << 40 << false;
    QTest::newRow("bottom edge") << QPoint(300, 570) << 10 << true;
    QTest::newRow("corner") << QPoint(790, 590) << 40 << true;
    QTest::newRow("lines") << QPoint(20, 100) << 400 << false;
    QTest::newRow("too many lines") << QPoint(20, 100) << 10000 << false;
}

// The box lies beside the pointer, inside the window, as wide as its text needs and no wider than
// 700 pixels.
void tst_Tooltips::place()
{
    QFETCH(QPoint, position);
    QFETCH(int, length);
    QFETCH(bool, above);
    AgentScene scene(QStringLiteral("UiTooltip { objectName: 'tip' }"));
    scene.find<Tooltip>("tip")->setText(QStringLiteral("word ").repeated(length / 5));
    scene.restAt(position);
    QVERIFY(scene.agent->tooltipVisible());
    const QQuickItem *tip = scene.agent->tooltipItem()->childItems().constFirst();
    const QRectF area = tip->mapRectToScene(QRectF(QPointF(), tip->size()));
    QVERIFY(area.right() <= 790 && area.width() <= 700);
    QCOMPARE(above ? area.bottom() : area.top(), position.y() + (above ? -2.0 : 20.0));
    if (position.x() > 600)
        QCOMPARE(area.right(), 790.0);
    else
        QCOMPARE(area.left(), qreal(position.x()));
    const int lines = (int(area.height()) - 21) / 16;
    QCOMPARE(area.height(), 21.0 + 16 * lines);
    QVERIFY(length < 100 ? lines == 1 : length < 1000 ? lines > 1 && lines < 20 : lines == 20);
}

// The agent looks at its own window, whichever that is.
void tst_Tooltips::windows()
{
    AgentScene scene;
    Scene other(QString {});
    TooltipAgent *agent = scene.agent;
    scene.restAt(kOverItem);
    move(other.window(), kBeside);
    QVERIFY(agent->tooltipVisible());
    scene.endRest();
    QCOMPARE(agent->tooltipItem()->position(), QPointF(kOverItem));
    press(other.window(), kOverItem);
    QVERIFY(!agent->tooltipVisible());
    release(other.window(), kOverItem);

    // An item that went to another window lies under no pointer of this one.
    QQuickItem *item = scene.find("item");
    item->setParentItem(other.root());
    scene.restAt(kOverItem);
    QVERIFY(!agent->tooltipVisible());
    agent->setParentItem(other.root());
    scene.restAt(kOverItem);
    QVERIFY(agent->tooltipVisible());
    QCOMPARE(agent->tooltipItem()->window(), other.window());
    agent->setParentItem(nullptr);
    scene.endRest();
    item->setParentItem(nullptr);
}

void tst_Tooltips::membership()
{
    AgentScene scene(itemWithTooltip(QStringLiteral("objectName: 'item'"))
                         + QStringLiteral(
                             "UiTooltipAgent { objectName: 'inner'; y: 100; width: 50\n"
                             "height: 50; UiTooltip { text: 'inner' } }"),
                     QStringLiteral(
                         "Item { objectName: 'outside'; x: 700; width: 50; height: 50 }"));
    TooltipAgent *agent = scene.agent;
    auto *inner = scene.find<TooltipAgent>("inner");
    scene.restAt(QPoint(20, 120));
    QVERIFY(!agent->tooltipVisible()); // the nearest agent is the one
    QMetaObject::invokeMethod(inner, "showTooltip");
    QVERIFY(inner->tooltipVisible());

    // Added by hand, and twice: it is there once, and gone after one removal.
    Tooltip tooltip(scene.find("outside"));
    tooltip.setText(QStringLiteral("by hand"));
    for (Tooltip *added : { &tooltip, &tooltip, static_cast<Tooltip *>(nullptr) })
        agent->addTooltip(added);
    const QPoint outside(720, 20);
    scene.restAt(outside);
    QCOMPARE(agent->tooltipText(), QStringLiteral("by hand"));
    for (Tooltip *removed : { static_cast<Tooltip *>(nullptr), &tooltip, &tooltip })
        agent->removeTooltip(removed);
    scene.restAt(outside);
    QVERIFY(!agent->tooltipVisible());

    // It stays with its agent wherever its item goes; a destroyed one is never shown.
    auto *target = scene.find("item");
    target->setParentItem(scene.find("outside"));
    scene.restAt(outside);
    QVERIFY(agent->tooltipVisible());
    move(scene.window(), outside);
    delete target->findChild<Tooltip *>();
    scene.endRest();
    QVERIFY(!agent->tooltipVisible());
}

// Shows nothing, and is complained about once.
void tst_Tooltips::badDelegates()
{
    AgentScene scene;
    TooltipAgent *agent = scene.agent;
    QQmlComponent *good = agent->tooltipDelegate();
    agent->setTooltipDelegate(nullptr);
    scene.restAt(kOverItem);
    QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());
    for (const auto &[qml, warning] :
         { std::pair("Item {", "Expected token"),
           std::pair("import QtQml 2.15; QtObject {}", "must be an item, not a QObject") }) {
        QQmlComponent component(&scene.engine());
        component.setData(qml, QUrl(QStringLiteral("qrc:/delegate.qml")));
        agent->setTooltipDelegate(&component);
        expectWarning(QString::fromLatin1(warning));
        scene.restAt(kOverItem);
        QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());
        cleanup();
        init(); // a second complaint would be one that was not announced
        scene.restAt(kOverItem);
    }
    agent->setTooltipDelegate(good);
    scene.restAt(kOverItem);
    QVERIFY(agent->tooltipItem() && agent->tooltipVisible());
}

// It sees what it was declared in, and knows its agent before its bindings do.
void tst_Tooltips::ownDelegate()
{
    AgentScene scene(itemWithTooltip({}),
                     QStringLiteral("id: root; property Component own: Item {\n"
                                    "property Item around: root; property bool hasAgent: false\n"
                                    "property string words: UiTooltipAgent.tooltipText\n"
                                    "property bool shown: UiTooltipAgent.tooltipVisible\n"
                                    "Component.onCompleted:\n"
                                    "hasAgent = UiTooltipAgent.agent !== null }"));
    TooltipAgent *agent = scene.agent;
    scene.restAt(kOverItem);
    const QPointer<QQuickItem> before = agent->tooltipItem();
    SignalLog log;
    log.watch(agent, names({ "tooltipVisibleChanged", "tooltipTextChanged",
                             "tooltipDelegateChanged", "tooltipItemChanged" }));
    auto *own = scene.root()->property("own").value<QQmlComponent *>();
    agent->setTooltipDelegate(own);
    QCOMPARE(log.take(),
             names({ "tooltipDelegateChanged", "tooltipVisibleChanged", "tooltipItemChanged" }));
    QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());
    QTRY_VERIFY(!before);

    scene.restAt(kOverItem);
    QCOMPARE(log.take(), names({ "tooltipItemChanged", "tooltipVisibleChanged" }));
    const QQuickItem *tip = agent->tooltipItem();
    QCOMPARE(tip->property("around").value<QQuickItem *>(), scene.root());
    QVERIFY(tip->property("hasAgent").toBool() && tip->property("shown").toBool());
    QCOMPARE(tip->property("words").toString(), QStringLiteral("tip"));

    // One that somebody else destroys is made again.
    delete agent->tooltipItem();
    QCOMPARE(log.take(), names({ "tooltipItemChanged" }));
    scene.restAt(kOverItem);
    QVERIFY(agent->tooltipItem());
}

// Each of them in each signal, while a tooltip comes and goes.
void tst_Tooltips::handlersThatDestroy()
{
    enum Occasion { Showing, Move, DelegateChange };
    const QStringList signalNames = names({ "tooltipItemChanged", "tooltipTextChanged",
                                            "tooltipVisibleChanged", "tooltipDelegateChanged" });
    for (const char *victim : { "agent", "item", "tooltip item", "window" }) {
        for (const QString &signal : signalNames) {
            bool struck = false; // on one occasion at least
            for (Occasion occasion : { Showing, Move, DelegateChange }) {
                AgentScene scene;
                bool armed = occasion == Showing;
                on(scene.agent, signal, [&] {
                    if (!std::exchange(armed, false))
                        return;
                    struck = true;
                    if (qstrcmp(victim, "tooltip item") == 0)
                        delete scene.agent->tooltipItem();
                    else if (qstrcmp(victim, "window") == 0)
                        scene.destroyWindow();
                    else
                        delete scene.find(victim);
                });
                scene.restAt(kOverItem);
                armed = true;
                // A window must not get the move that its tooltip's handler destroyed it in.
                const auto event = makeEvent(QEvent::MouseMove, Qt::NoButton, kBeside);
                if (scene.agent && occasion == Move)
                    QCoreApplication::sendEvent(scene.window(), event.get());
                if (scene.agent && occasion == DelegateChange)
                    scene.agent->setTooltipDelegate(nullptr);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                armed = false;
            }
            QVERIFY2(struck, qPrintable(signal));
        }
    }
}

void tst_Tooltips::logging()
{
    QLoggingCategory::setFilterRules(QStringLiteral("tamber.ui.debug=true"));
    QTest::ignoreMessage(QtDebugMsg,
                         "No TooltipAgent found in parent hierarchy - tooltip will not function");
    const Scene orphan(QStringLiteral("UiTooltip { text: 'nobody sees it' }"));
    const AgentScene scene;
    for (const QPoint &position : { kOverItem, kBeside }) {
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(
                                             QStringLiteral("^Tooltip search took \\d+ msecs$")));
        scene.restAt(position);
    }
    QLoggingCategory::setFilterRules({});
}

// A screen full of tooltips costs nobody anything to speak of.
void tst_Tooltips::thousands()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's code has times of its own; the run without one does this test");
#endif
    const auto processorTime = [] {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1e3 + time.tv_nsec / 1e6; // ms
    };
    AgentScene scene(QStringLiteral(
        "Repeater { model: 10000; Item { x: index % 100 * 8; y: Math.floor(index / 100) * 6\n"
        "width: 8; height: 6; UiTooltip { text: index } } }"));
    TooltipAgent *agent = scene.agent;
    for (const QPoint &position : { QPoint(404, 303), QPoint(404, 601) }) {
        double best = 1e9;
        for (int i = 0; i < 20; ++i) {
            move(scene.window(), position);
            const double before = processorTime();
            scene.endRest();
            best = qMin(best, processorTime() - before);
        }
        QVERIFY(best < 1);
        QCOMPARE(agent->tooltipText(), QStringLiteral("5050"));
    }

    // They come and go one by one as quickly; what remains is found.
    QVector<Tooltip *> tooltips;
    const QList<QQuickItem *> items = agent->childItems();
    for (const QQuickItem *child : items)
        tooltips += child->findChildren<Tooltip *>().toVector();
    const double before = processorTime();
    for (Tooltip *tooltip : qAsConst(tooltips))
        agent->removeTooltip(tooltip);
    for (Tooltip *tooltip : qAsConst(tooltips))
        agent->addTooltip(tooltip);
    for (int i = 1; i < 10000; i += 2)
        agent->removeTooltip(tooltips.at(i));
    QVERIFY(processorTime() - before < 100);
    for (int i : { 0, 1, 4998, 4999, 9998, 9999 }) {
        scene.restAt(center(qobject_cast<QQuickItem *>(tooltips.at(i)->parent())));
        QCOMPARE(agent->tooltipVisible(), i % 2 == 0);
        if (i % 2 == 0)
            QCOMPARE(agent->tooltipText(), tooltips.at(i)->text());
    }
}

TAMBER_TEST_MAIN(tst_Tooltips)
#include "tst_tooltips.moc"
