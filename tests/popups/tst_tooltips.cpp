#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "popups/scenepoint_p.h"

#include <TamberUi/Tooltip>
#include <TamberUi/TooltipAgent>

#include <QtCore/QElapsedTimer>
#include <QtCore/QLoggingCategory>

#include <ctime>

using namespace ta::ui;
using namespace ta::test;

class tst_Tooltips : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void rest();
    void whatIsShown_data();
    void whatIsShown();
    void scenePoint();
    void place_data();
    void place();
    void otherWindows();
    void membership();
    void logging();
    void delegates_data();
    void delegates();
    void delegateChanges();
    void itemGoes();
    void agentChangesWindow();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void containsThatDestroys_data();
    void containsThatDestroys();
    void windowGoesInTheMiddleOfAMove();
    void thousands();
};

namespace {

// Items inside an agent that fills the window.
QString inAgent(const QString &items)
{
    return QStringLiteral("UiTooltipAgent { objectName: 'agent'; anchors.fill: parent\n%1\n}")
        .arg(items);
}

QString item(const char *properties, const char *text = "tip")
{
    return QStringLiteral("Item { %1\nUiTooltip { text: '%2' } }")
        .arg(QLatin1String(properties), QLatin1String(text));
}

const QString kOneItem = inAgent(item("objectName: 'item'; x: 100; y: 100; width: 50; height: 50"));
const QPoint kOverItem(120, 130);
const QPoint kBeside(300, 300);

// The end of a rest, without the wait.
void endRest(TooltipAgent *agent)
{
    QVERIFY(QMetaObject::invokeMethod(agent, "showTooltip"));
}

void restAt(TooltipAgent *agent, const QPoint &position)
{
    move(agent->window(), position);
    endRest(agent);
}

QQuickItem *box(const TooltipAgent *agent)
{
    return agent->tooltipItem()->childItems().constFirst();
}

// An item whose shape is decided by code of a host.
class Trap : public QQuickItem
{
    Q_OBJECT

public:
    std::function<void()> inContains;

    bool contains(const QPointF &point) const override
    {
        const bool inside = QQuickItem::contains(point);
        const auto call = inContains; // which may destroy the item, and its member
        if (call)
            call();
        return inside;
    }
};

} // namespace

void tst_Tooltips::initTestCase()
{
    Scene::useKit();
    qmlRegisterType<Trap>("tests.Tooltips", 1, 0, "Trap");
}

void tst_Tooltips::rest()
{
    Scene scene(inAgent(item("x: 100; y: 100; width: 50; height: 50", "first")
                        + QStringLiteral("MouseArea { objectName: 'area'; property int presses: 0\n"
                                         "x: 200; width: 50; height: 50; onPressed: ++presses\n"
                                         "UiTooltip { objectName: 'second'; text: 'second' } }")));
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    SignalLog log;
    log.watch(agent,
              names({ "tooltipVisibleChanged", "tooltipTextChanged", "tooltipItemChanged" }));

    QElapsedTimer timer;
    timer.start();
    move(scene.window(), kOverItem);
    QVERIFY(!agent->tooltipItem());
    QTRY_VERIFY(agent->tooltipVisible());
    QVERIFY2(timer.elapsed() >= 475, qPrintable(QString::number(timer.elapsed()))); // coarse timer
    QCOMPARE(log.take(),
             names({ "tooltipItemChanged", "tooltipTextChanged", "tooltipVisibleChanged" }));
    QPointer<QQuickItem> tip = agent->tooltipItem();
    QCOMPARE(tip->position(), QPointF(kOverItem));
    QCOMPARE(tip->parentItem(), scene.window()->contentItem());
    QCOMPARE(tip->z(), 65735.0);
    QCOMPARE(tip->property("text").toString(), QStringLiteral("first"));
    QVERIFY(tip->property("show").toBool());
    QTRY_COMPARE(box(agent)->opacity(), 1.0);

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
    QTest::qWait(600); // a pointer that has not moved since shows nothing again
    QVERIFY(!agent->tooltipVisible());

    delete agent;
    QTRY_VERIFY(!tip);
}

void tst_Tooltips::whatIsShown_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("text"); // at (50, 50); empty: none
    const char *area = "width: 100; height: 100";
    const auto tip = [&](const char *more, const char *text) {
        return item(qPrintable(
                        QStringLiteral("%1\n%2").arg(QLatin1String(area), QLatin1String(more))),
                    text);
    };
    const auto holder = [&](const char *more, const QString &items) {
        return QStringLiteral("Item { %1\n%2\n%3 }")
            .arg(QLatin1String(area), QLatin1String(more), items);
    };
    QTest::newRow("disabled") << tip("enabled: false", "no") << QString();
    QTest::newRow("invisible") << tip("visible: false", "no") << QString();
    QTest::newRow("in disabled") << holder("enabled: false", tip("", "no")) << QString();
    QTest::newRow("in invisible") << holder("visible: false", tip("", "no")) << QString();
    QTest::newRow("transparent") << tip("opacity: 0", "yes") << QStringLiteral("yes");
    QTest::newRow("no text") << tip("", "") << QString();
    QTest::newRow("elsewhere") << tip("x: 51", "no") << QString();
    QTest::newRow("turned away") << tip("transformOrigin: Item.TopLeft; rotation: 90", "no")
                                 << QString();
    QTest::newRow("transformed into place")
        << tip("x: 400; transform: Translate { x: -400 }", "yes") << QStringLiteral("yes");
    QTest::newRow("clipped away")
        << QStringLiteral("Item { width: 40; height: 40; clip: true\n%1 }").arg(tip("", "no"))
        << QString();
    QTest::newRow("clipped elsewhere")
        << QStringLiteral("Item { width: 60; height: 60; clip: true\n%1 }").arg(tip("", "yes"))
        << QStringLiteral("yes");
    QTest::newRow("below a popup")
        << tip("", "no")
               + QStringLiteral("UiPopupAnchor { popupVisible: true; Item { width: 60; height: 60 "
                                "} }")
        << QString();
    QTest::newRow("beside a popup")
        << tip("", "yes")
               + QStringLiteral("UiPopupAnchor { popupVisible: true; Item { width: 40; height: 40 "
                                "} }")
        << QStringLiteral("yes");
    QTest::newRow("in a popup")
        << tip("", "no")
               + QStringLiteral("UiPopupAnchor { popupVisible: true; Item { width: 60; height: 60\n"
                                "UiTooltip { text: 'lost' }\nUiTooltipAgent { %1 } } }")
                     .arg(tip("", "elsewhere"))
        << QString();
    QTest::newRow("of no item") << QStringLiteral("property QtObject holder: QtObject {\n"
                                                  "property var tip: UiTooltip { text: 'no' } }")
                                << QString();
    QTest::newRow("of the agent") << QStringLiteral("UiTooltip { text: 'yes' }")
                                  << QStringLiteral("yes");

    QTest::newRow("nested") << holder("", tip("", "inner")
                                              + QStringLiteral("UiTooltip { text: "
                                                               "'outer' }"))
                            << QStringLiteral("inner");
    QTest::newRow("nested below") << holder("", tip("z: -1", "inner")
                                                    + QStringLiteral("UiTooltip { text: 'outer' }"))
                                  << QStringLiteral("inner");
    QTest::newRow("nested disabled") << holder("", tip("enabled: false", "inner")
                                                       + QStringLiteral("UiTooltip { text: 'outer' "
                                                                        "}"))
                                     << QStringLiteral("outer");
    QTest::newRow("siblings") << tip("", "first") + tip("", "last") << QStringLiteral("last");
    QTest::newRow("siblings and z")
        << tip("z: 1", "first") + tip("", "last") << QStringLiteral("first");
    QTest::newRow("covered, though deeper")
        << holder("", holder("", tip("", "deep"))) + tip("", "cover") << QStringLiteral("cover");
    QTest::newRow("covering, and deeper")
        << tip("", "first") + holder("", holder("", tip("", "deep"))) << QStringLiteral("deep");
    QTest::newRow("of one item")
        << tip("property QtObject more: UiTooltip { text: 'second' }", "first")
               + QStringLiteral("Item { width: 100; height: 100; UiTooltip { text: 'a' }\n"
                                "UiTooltip { text: 'b' } UiTooltip { text: 'c' } UiTooltip {} }")
        << QStringLiteral("c");
}

void tst_Tooltips::whatIsShown()
{
    QFETCH(QString, items);
    QFETCH(QString, text);
    Scene scene(inAgent(items));
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    restAt(agent, QPoint(50, 50));
    QCOMPARE(agent->tooltipVisible(), !text.isEmpty());
    QCOMPARE(agent->tooltipText(), text);
}

// What items see is what Qt says, whatever is done to them.
void tst_Tooltips::scenePoint()
{
    Scene scene(QStringLiteral(
        "Item { x: 7.5; y: -3; Item { x: 20 } Item { x: 30; scale: 2 } Item { rotation: 30 }\n"
        "Item { x: 9; transform: [ Scale { xScale: 3 }, Translate { x: 5; y: 7 } ]\n"
        "Item { y: 11 } } Item { y: 13 } }"));
    QVERIFY(scene.isValid());
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
    Scene scene(inAgent(QStringLiteral("UiTooltip { objectName: 'tip' }")));
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    scene.find<Tooltip>("tip")->setText(QStringLiteral("word ").repeated(length / 5));
    restAt(agent, position);
    QVERIFY(agent->tooltipVisible());
    const QQuickItem *tip = box(agent);
    QRectF area = tip->mapRectToScene(QRectF(QPointF(), tip->size()));
    QVERIFY(area.right() <= 790 && area.width() <= 700);
    QCOMPARE(above ? area.bottom() : area.top(),
             qreal(above ? position.y() - 2 : position.y() + 20));
    if (position.x() > 600)
        QCOMPARE(area.right(), 790.0);
    else
        QCOMPARE(area.left(), qreal(position.x()));
    const int lines = (int(area.height()) - 21) / 16;
    QCOMPARE(area.height(), 21.0 + 16 * lines);
    QVERIFY(length < 100 ? lines == 1 : length < 1000 ? lines > 1 && lines < 20 : lines == 20);
}

void tst_Tooltips::otherWindows()
{
    Scene scene(kOneItem);
    Scene other(QString {});
    QVERIFY(scene.isValid() && other.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    restAt(agent, kOverItem);
    QVERIFY(agent->tooltipVisible());
    move(other.window(), kOverItem + QPoint(20, 20));
    QVERIFY(agent->tooltipVisible());
    endRest(agent);
    QCOMPARE(agent->tooltipItem()->position(), QPointF(kOverItem));
    press(other.window(), kOverItem);
    QVERIFY(!agent->tooltipVisible());
    release(other.window(), kOverItem);

    // An item that went to another window lies under no pointer of this one.
    scene.find("item")->setParentItem(other.root());
    restAt(agent, kOverItem);
    QVERIFY(!agent->tooltipVisible());
    agent->setParentItem(nullptr);
    endRest(agent);
    QVERIFY(!agent->tooltipVisible());
}

void tst_Tooltips::membership()
{
    Scene scene(inAgent(item("objectName: 'item'; width: 50; height: 50", "nested")
                        + QStringLiteral("UiTooltipAgent { objectName: 'inner'; y: 100; width: 50\n"
                                         "height: 50; UiTooltip { text: 'inner' } }"))
                + QStringLiteral("Item { objectName: 'outside'; x: 700; width: 50; height: 50 }"));
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    auto *inner = scene.find<TooltipAgent>("inner");
    restAt(agent, QPoint(20, 120));
    QVERIFY(!agent->tooltipVisible()); // the nearest agent is the one
    restAt(inner, QPoint(20, 120));
    QVERIFY(inner->tooltipVisible());

    // Added by hand, and twice: it is there once, and gone after one removal.
    Tooltip tooltip(scene.find("outside"));
    tooltip.setText(QStringLiteral("by hand"));
    agent->addTooltip(&tooltip);
    agent->addTooltip(&tooltip);
    agent->addTooltip(nullptr);
    restAt(agent, QPoint(720, 20));
    QCOMPARE(agent->tooltipText(), QStringLiteral("by hand"));
    QVERIFY(agent->tooltipVisible());
    agent->removeTooltip(nullptr);
    agent->removeTooltip(&tooltip);
    agent->removeTooltip(&tooltip);
    restAt(agent, QPoint(720, 20));
    QVERIFY(!agent->tooltipVisible());

    // It stays with its agent wherever its item goes; a destroyed one is never shown.
    auto *target = scene.find("item");
    target->setParentItem(scene.find("outside"));
    restAt(agent, QPoint(720, 20));
    QVERIFY(agent->tooltipVisible());
    move(scene.window(), QPoint(721, 20));
    delete target->findChild<Tooltip *>();
    endRest(agent);
    QVERIFY(!agent->tooltipVisible());
}

void tst_Tooltips::logging()
{
    QLoggingCategory::setFilterRules(QStringLiteral("tamber.ui.debug=true"));
    QTest::ignoreMessage(QtDebugMsg,
                         "No TooltipAgent found in parent hierarchy - tooltip will not function");
    Scene orphan(QStringLiteral("UiTooltip { text: 'nobody sees it' }"));
    QVERIFY(orphan.isValid());
    Scene scene(kOneItem);
    QVERIFY(scene.isValid());
    for (const QPoint &position : { kOverItem, kBeside }) {
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(
                                             QStringLiteral("^Tooltip search took \\d+ msecs$")));
        restAt(scene.find<TooltipAgent>("agent"), position);
    }
    QLoggingCategory::setFilterRules({});
}

void tst_Tooltips::delegates_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("warning");
    QTest::newRow("none") << QByteArray() << QString();
    QTest::newRow("syntax error") << QByteArray("Item {") << QStringLiteral("Expected token");
    QTest::newRow("no item") << QByteArray("import QtQml 2.15; QtObject {}")
                             << QStringLiteral("must be an item, not a QObject");
    QTest::newRow("creation fails")
        << QByteArray("import QtQuick 2.15; Item { property Item i; i.x: 3 }")
        << QStringLiteral("null");
    QTest::newRow("required property")
        << QByteArray("import QtQuick 2.15; Item { required property int n }")
        << QStringLiteral("Required property n");
}

// A delegate that is no good is complained about once, and shows nothing.
void tst_Tooltips::delegates()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, warning);
    Scene scene(kOneItem);
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    QQmlComponent component(&scene.engine());
    if (!qml.isEmpty())
        component.setData(qml, QUrl(QStringLiteral("qrc:/delegate.qml")));
    agent->setTooltipDelegate(qml.isEmpty() ? nullptr : &component);
    int complaints = 0;
    static int *s_complaints = nullptr;
    static QtMessageHandler s_previous = nullptr;
    s_complaints = &complaints;
    if (!warning.isEmpty())
        expectWarning(warning);
    s_previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            ++*s_complaints;
            s_previous(type, context, message);
        });
    restAt(agent, kOverItem);
    restAt(agent, kOverItem);
    qInstallMessageHandler(s_previous);
    QCOMPARE(complaints, warning.isEmpty() ? 0 : 1);
    QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());

    agent->setTooltipDelegate(agent->findChild<QQmlComponent *>());
    restAt(agent, kOverItem);
    QVERIFY(agent->tooltipItem() && agent->tooltipVisible());
}

// A delegate of one's own sees what it was declared in, and knows its agent before its bindings do.
void tst_Tooltips::delegateChanges()
{
    Scene scene(
        QStringLiteral("id: root; property Component own: Item { property Item around: root\n"
                       "property bool hasAgent: false\n"
                       "property string words: UiTooltipAgent.tooltipText\n"
                       "property bool shown: UiTooltipAgent.tooltipVisible\n"
                       "Component.onCompleted: hasAgent = UiTooltipAgent.agent !== null }\n"
                       "property bool elsewhere: UiTooltipAgent.tooltipVisible\n"
                       "property string nothing: UiTooltipAgent.tooltipText\n")
        + kOneItem);
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    restAt(agent, kOverItem);
    const QPointer<QQuickItem> before = agent->tooltipItem();
    SignalLog log;
    log.watch(agent, names({ "tooltipVisibleChanged", "tooltipTextChanged",
                             "tooltipDelegateChanged", "tooltipItemChanged" }));
    auto *own = scene.root()->property("own").value<QQmlComponent *>();
    agent->setTooltipDelegate(own);
    agent->setTooltipDelegate(own);
    QCOMPARE(log.take(),
             names({ "tooltipDelegateChanged", "tooltipVisibleChanged", "tooltipItemChanged" }));
    QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());
    QTRY_VERIFY(!before);

    restAt(agent, kOverItem);
    QCOMPARE(log.take(), names({ "tooltipItemChanged", "tooltipVisibleChanged" }));
    const QQuickItem *tip = agent->tooltipItem();
    QCOMPARE(tip->property("around").value<QQuickItem *>(), scene.root());
    QVERIFY(tip->property("hasAgent").toBool() && tip->property("shown").toBool());
    QCOMPARE(tip->property("words").toString(), QStringLiteral("tip"));
    QVERIFY(!scene.root()->property("elsewhere").toBool());
    QCOMPARE(scene.root()->property("nothing").toString(), QString());
}

void tst_Tooltips::itemGoes()
{
    Scene scene(kOneItem);
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    restAt(agent, kOverItem);
    SignalLog log;
    log.watch(agent, names({ "tooltipItemChanged" }));
    delete agent->tooltipItem();
    QCOMPARE(log.take().count(), 1);
    QVERIFY(!agent->tooltipItem());
    restAt(agent, kOverItem);
    QVERIFY(agent->tooltipItem());
}

void tst_Tooltips::agentChangesWindow()
{
    Scene first(kOneItem);
    Scene second(QString {});
    QVERIFY(first.isValid() && second.isValid());
    auto *agent = first.find<TooltipAgent>("agent");
    restAt(agent, kOverItem);
    agent->setParentItem(second.root());
    restAt(agent, kOverItem);
    QVERIFY(agent->tooltipVisible());
    QCOMPARE(agent->tooltipItem()->window(), second.window());
    agent->setParentItem(nullptr); // so that it is destroyed with the first window
}

void tst_Tooltips::handlersThatDestroy_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QString>("victim");
    for (const char *victim : { "agent", "item", "window", "target" }) {
        for (const char *signal : { "tooltipItemChanged()", "tooltipTextChanged()",
                                    "tooltipVisibleChanged()", "tooltipDelegateChanged()" })
            QTest::addRow("%s in %s", victim, signal)
                << QByteArray(signal) << QString::fromLatin1(victim);
    }
}

void tst_Tooltips::handlersThatDestroy()
{
    QFETCH(QByteArray, signal);
    QFETCH(QString, victim);
    for (int occasion = 0; occasion < 3; ++occasion) {
        Scene scene(kOneItem);
        QVERIFY(scene.isValid());
        const QPointer<TooltipAgent> agent = scene.find<TooltipAgent>("agent");
        const auto destroy = [&] {
            if (victim == QLatin1String("agent"))
                delete agent.data();
            else if (victim == QLatin1String("item"))
                delete agent->tooltipItem();
            else if (victim == QLatin1String("target"))
                delete scene.find("item");
            else
                scene.destroyWindow();
        };
        QObject receiver;
        bool armed = false;
        const auto watch = [&](auto sender) {
            connect(agent, sender, &receiver, [&] {
                if (std::exchange(armed, false))
                    destroy();
            });
        };
        if (signal == "tooltipItemChanged()")
            watch(&TooltipAgent::tooltipItemChanged);
        else if (signal == "tooltipTextChanged()")
            watch(&TooltipAgent::tooltipTextChanged);
        else if (signal == "tooltipVisibleChanged()")
            watch(&TooltipAgent::tooltipVisibleChanged);
        else
            watch(&TooltipAgent::tooltipDelegateChanged);
        // As it is shown; as it is hidden by a press; as its delegate changes.
        armed = occasion == 0;
        restAt(agent, kOverItem);
        armed = true;
        if (agent && occasion == 1)
            press(scene.window(), kOverItem);
        if (agent && occasion == 2)
            agent->setTooltipDelegate(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void tst_Tooltips::containsThatDestroys_data()
{
    QTest::addColumn<QString>("victim");
    for (const char *victim : { "agent", "window", "tooltips", "items" })
        QTest::newRow(victim) << QString::fromLatin1(victim);
}

void tst_Tooltips::containsThatDestroys()
{
    QFETCH(QString, victim);
    QString items;
    for (int i = 0; i < 5; ++i)
        items += QStringLiteral("Trap { objectName: 'trap'; width: 50; height: 50\n"
                                "UiTooltip { text: 'tip' } }\n");
    Scene scene(QString {});
    QVERIFY(scene.isValid());
    const QPointer<TooltipAgent> agent = qobject_cast<TooltipAgent *>(
        scene.create(QStringLiteral("import tests.Tooltips 1.0\n") + inAgent(items)).release());
    QVERIFY(agent);
    agent->setParentItem(scene.root());
    agent->setParent(scene.root());
    QCoreApplication::processEvents();
    move(scene.window(), QPoint(20, 20));
    const auto traps = agent->findChildren<Trap *>();
    bool armed = true;
    for (Trap *trap : traps) {
        trap->inContains = [&, trap] {
            if (!std::exchange(armed, false))
                return;
            for (Trap *other : traps) {
                if (other == trap)
                    continue;
                if (victim == QLatin1String("items"))
                    delete other;
                else if (victim == QLatin1String("tooltips"))
                    delete other->findChild<Tooltip *>();
            }
            if (victim == QLatin1String("window"))
                scene.destroyWindow();
            if (victim == QLatin1String("agent")) {
                trap->setParentItem(scene.root());
                trap->setParent(scene.root());
                delete agent.data();
            }
        };
    }
    endRest(agent);
    QVERIFY(!armed);
    QVERIFY(!agent || !agent->tooltipVisible());
}

// The window must not get the move that its tooltip's handler destroyed it in.
void tst_Tooltips::windowGoesInTheMiddleOfAMove()
{
    Scene scene(kOneItem);
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    restAt(agent, kOverItem);
    connect(agent, &TooltipAgent::tooltipVisibleChanged, [&] { scene.destroyWindow(); });
    QMouseEvent event(QEvent::MouseMove, kBeside, kBeside, kBeside, Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QVERIFY(QCoreApplication::sendEvent(scene.window(), &event));
    QVERIFY(!scene.window());
}

// A screen full of tooltips costs nobody anything to speak of.
void tst_Tooltips::thousands()
{
    const auto processorTime = [] {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1e3 + time.tv_nsec / 1e6; // ms
    };
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's code has times of its own; the run without one does this test");
#endif
    Scene scene(inAgent(QStringLiteral(
        "Repeater { model: 10000; Item { x: index % 100 * 8; y: Math.floor(index / 100) * 6\n"
        "width: 8; height: 6; UiTooltip { text: index } } }")));
    QVERIFY(scene.isValid());
    auto *agent = scene.find<TooltipAgent>("agent");
    const auto fastest = [&](const QPoint &position) {
        double best = 1e9;
        for (int i = 0; i < 20; ++i) {
            move(scene.window(), position);
            const double before = processorTime();
            endRest(agent);
            best = qMin(best, processorTime() - before);
        }
        return best;
    };
    QVERIFY(fastest(QPoint(404, 303)) < 1);
    QCOMPARE(agent->tooltipText(), QStringLiteral("5050"));
    QVERIFY(fastest(QPoint(404, 601)) < 1);

    // They come and go one by one as quickly; what remains is found.
    QVector<Tooltip *> tooltips;
    const QList<QQuickItem *> items = agent->childItems();
    for (const QQuickItem *child : items)
        tooltips += child->findChildren<Tooltip *>().toVector();
    QCOMPARE(tooltips.count(), 10000);
    const double before = processorTime();
    for (Tooltip *tooltip : tooltips)
        agent->removeTooltip(tooltip);
    restAt(agent, QPoint(404, 303));
    QVERIFY(!agent->tooltipVisible());
    for (Tooltip *tooltip : tooltips)
        agent->addTooltip(tooltip);
    for (int i = 1; i < 10000; i += 2)
        agent->removeTooltip(tooltips.at(i));
    QVERIFY(processorTime() - before < 100);
    for (int i : { 0, 1, 4998, 4999, 9998, 9999 }) {
        restAt(agent, QPoint(404, 303));
        restAt(agent, center(qobject_cast<QQuickItem *>(tooltips.at(i)->parent())));
        QCOMPARE(agent->tooltipVisible(), i % 2 == 0);
        if (i % 2 == 0)
            QCOMPARE(agent->tooltipText(), tooltips.at(i)->text());
    }
}

TAMBER_TEST_MAIN(tst_Tooltips)
#include "tst_tooltips.moc"
