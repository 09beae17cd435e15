#include "popups.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Tooltip>

using namespace ta::ui;
using namespace ta::test;

// Delegates of a host, and what handlers and items may destroy while a tooltip comes and goes.
class tst_TooltipLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void badDelegates_data();
    void badDelegates();
    void ownDelegate();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void windowGoesInTheMiddleOfAMove();
};

namespace {

const QPoint kOverItem(50, 50);
const QPoint kBeside(300, 300);

} // namespace

void tst_TooltipLifetime::badDelegates_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("warning");
    QTest::newRow("none") << QByteArray() << QString();
    QTest::newRow("syntax error") << QByteArray("Item {") << QStringLiteral("Expected token");
    QTest::newRow("no item") << QByteArray("import QtQml 2.15; QtObject {}")
                             << QStringLiteral("must be an item, not a QObject");
}

// Shows nothing, and is complained about once.
void tst_TooltipLifetime::badDelegates()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, warning);
    AgentScene scene;
    TooltipAgent *agent = scene.agent;
    QQmlComponent component(&scene.engine());
    if (!qml.isEmpty())
        component.setData(qml, QUrl(QStringLiteral("qrc:/delegate.qml")));
    agent->setTooltipDelegate(qml.isEmpty() ? nullptr : &component);
    if (!warning.isEmpty())
        expectWarning(warning);
    scene.restAt(kOverItem);
    QVERIFY(!agent->tooltipItem() && !agent->tooltipVisible());
    cleanup();
    init(); // a second complaint would be one that was not announced
    scene.restAt(kOverItem);

    agent->setTooltipDelegate(agent->findChild<QQmlComponent *>());
    scene.restAt(kOverItem);
    QVERIFY(agent->tooltipItem() && agent->tooltipVisible());
}

// It sees what it was declared in, and knows its agent before its bindings do.
void tst_TooltipLifetime::ownDelegate()
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

void tst_TooltipLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("signal");
    for (const char *victim : { "agent", "tooltip item", "window", "item" }) {
        for (const char *signal : { "tooltipItemChanged", "tooltipTextChanged",
                                    "tooltipVisibleChanged", "tooltipDelegateChanged" })
            QTest::addRow("%s in %s", victim, signal)
                << QString::fromLatin1(victim) << QString::fromLatin1(signal);
    }
}

void tst_TooltipLifetime::handlersThatDestroy()
{
    QFETCH(QString, victim);
    QFETCH(QString, signal);
    enum Occasion { Showing, Press, DelegateChange };
    for (Occasion occasion : { Showing, Press, DelegateChange }) {
        AgentScene scene;
        bool armed = occasion == Showing;
        on(scene.agent, signal, [&] {
            if (!std::exchange(armed, false))
                return;
            if (victim == QLatin1String("tooltip item"))
                delete scene.agent->tooltipItem();
            else if (victim == QLatin1String("window"))
                scene.destroyWindow();
            else
                delete scene.find(qPrintable(victim));
        });
        scene.restAt(kOverItem);
        armed = true;
        if (scene.agent && occasion == Press)
            press(scene.window(), kOverItem);
        if (scene.agent && occasion == DelegateChange)
            scene.agent->setTooltipDelegate(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        armed = false;
    }
}

// The window must not get the move that its tooltip's handler destroyed it in.
void tst_TooltipLifetime::windowGoesInTheMiddleOfAMove()
{
    AgentScene scene;
    scene.restAt(kOverItem);
    on(scene.agent, QStringLiteral("tooltipVisibleChanged"), [&] { scene.destroyWindow(); });
    const auto event = makeEvent(QEvent::MouseMove, Qt::NoButton, kBeside);
    QVERIFY(QCoreApplication::sendEvent(scene.window(), event.get()));
    QVERIFY(!scene.window());
}

TAMBER_TEST_MAIN(tst_TooltipLifetime)
#include "tst_tooltiplifetime.moc"
