// variants: threaded
#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// What must hold when things go wrong: bad components, no window, and whatever a handler may
// destroy or ask for in the middle of a show or hide.
class tst_PopupLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void badComponents();
    void withoutWindow();
    void declaredInstant();
    void movesToAnotherWindow();
    void windowGoes();
    void handlersThatAskForTheOpposite();
    void handlersThatDestroy();
    void eventsThatDestroy();
    void clicksWithEventLoops();
    void nestedPopups();
    void engineGoes();
};

namespace {

const QString kAnchor = QStringLiteral(
    "UiPopupAnchor { objectName: 'anchor'; x: 100; y: 100; autoLayout: true;\n"
    "Item { implicitWidth: 200; implicitHeight: 300; width: 200 } }\n");
const QStringList kSignals = names({ "aboutToShow", "aboutToHide", "popupVisibleChanged",
                                     "popupItemChanged", "distanceTopChanged" });
const QPoint kOutside(700, 500);

} // namespace

void tst_PopupLifetime::cleanup()
{
    while (PopupStack::top())
        PopupStack::pop(PopupStack::top());
    PopupStack::pop(nullptr); // the entry of an anchor that was destroyed while it was open
    TestCase::cleanup();
}

void tst_PopupLifetime::badComponents()
{
    AnchorScene scene(kAnchor);
    PopupAnchor *anchor = scene.anchor;
    QQmlComponent component(&scene.engine());
    component.setData("Item {", QUrl(QStringLiteral("qrc:/popup.qml")));
    anchor->setPopup(&component);
    SignalLog log;
    log.watch(anchor, names({ "popupItemChanged", "popupVisibleChanged" }));
    expectWarning(QStringLiteral("Component is not ready")); // the second time
    anchor->show();
    QVERIFY(anchor->isPopupVisible() && !anchor->popupItem() && !PopupStack::top());
    QCOMPARE(log.take(), names({ "popupVisibleChanged", "popupItemChanged" }));
    anchor->hide();

    // While another popup is on the screen, a bad one closes it instead of leaving an empty place.
    QQmlComponent good(&scene.engine());
    good.setData("import QtQuick 2.15; Item {}", QUrl());
    anchor->setPopup(&good);
    anchor->show();
    QCOMPARE(PopupStack::top(), anchor);
    anchor->setPopup(&component);
    QVERIFY(!anchor->isPopupVisible() && !anchor->popupItem() && !PopupStack::top());
}

// It appears as soon as there is a window, unless it was hidden before.
void tst_PopupLifetime::withoutWindow()
{
    Scene scene(kAnchor);
    QQmlComponent component(&scene.engine());
    component.setData("import QtQuick 2.15; Item {}", QUrl());
    for (bool hidden : { true, false }) {
        PopupAnchor anchor;
        SignalLog log;
        log.watch(&anchor, names({ "aboutToShow", "popupVisibleChanged", "popupItemChanged" }));
        anchor.setPopup(&component);
        anchor.show();
        QVERIFY(anchor.isPopupVisible() && !anchor.popupItem() && !PopupStack::top());
        QCOMPARE(log.take(), names({ "aboutToShow", "popupVisibleChanged" }));
        if (hidden)
            anchor.hide();
        anchor.setParentItem(scene.root());
        QCOMPARE(anchor.popupItem() && anchor.popupItem()->isEnabled(), !hidden);
        QCOMPARE(PopupStack::top(), hidden ? nullptr : &anchor);
        QCOMPARE(log.take(), names({ hidden ? "popupVisibleChanged" : "popupItemChanged" }));
        anchor.setParentItem(nullptr);
        QVERIFY(!anchor.isPopupVisible() && !PopupStack::top());
    }
}

// In a Window or a view, QML sets all properties of an anchor before it puts the anchor anywhere.
void tst_PopupLifetime::declaredInstant()
{
    Scene scene(QString {});
    const auto window = scene.create(QStringLiteral(
        "Window { width: 300; height: 300; visible: true; property bool sawContext: false\n"
        "UiPopupAnchor { objectName: 'instant'; popupCreationPolicy: "
        "UiPopupAnchor.InstantCreation\n"
        "Item { Component.onCompleted: sawContext = later.width === 7 } }\n"
        "UiPopupAnchor { objectName: 'shown'; popupVisible: true; Item {} }\n"
        "Item { id: later; width: 7 } }"));
    QVERIFY(window);
    auto *instant = window->findChild<PopupAnchor *>(QStringLiteral("instant"));
    QVERIFY(instant->popupItem() && instant->popupItem()->window());
    QVERIFY(window->property("sawContext").toBool());
    auto *shown = window->findChild<PopupAnchor *>(QStringLiteral("shown"));
    QVERIFY(shown->popupItem() && shown->popupItem()->isEnabled());
    QCOMPARE(PopupStack::top(), shown);
    // The first show of a window is no resize.
    QVERIFY(QTest::qWaitForWindowExposed(qobject_cast<QWindow *>(window.get())));
    QTest::qWait(100);
    QVERIFY(shown->isPopupVisible());
}

void tst_PopupLifetime::movesToAnotherWindow()
{
    AnchorScene first(kAnchor);
    Scene second(QString {});
    PopupAnchor *anchor = first.anchor;
    anchor->show();
    const QPointer<QQuickItem> item = anchor->popupItem();
    SignalLog log;
    log.watch(anchor, names({ "aboutToHide", "popupVisibleChanged" }));
    anchor->setParentItem(second.root());
    QCOMPARE(log.take(), names({ "aboutToHide", "popupVisibleChanged" }));
    QVERIFY(!PopupStack::top());
    // No longer the first window's frames or events.
    anchor->setX(33);
    QVERIFY(first.waitForFrame());
    QCoreApplication::processEvents();
    QCOMPARE(anchor->distanceLeft(), 100);

    anchor->show();
    QCOMPARE(anchor->popupItem()->window(), second.window());
    QTRY_COMPARE(anchor->popupItem()->parentItem()->x(), 33.0);
    first.destroyWindow(); // takes the object along: its QML owned it
    QVERIFY(!PopupStack::top());
    QTRY_VERIFY(!item);
}

void tst_PopupLifetime::windowGoes()
{
    for (const char *way : { "close", "hide", "destroy" }) {
        AnchorScene scene(kAnchor);
        scene.anchor->show();
        if (qstrcmp(way, "close") == 0)
            scene.window()->close();
        else if (qstrcmp(way, "hide") == 0)
            scene.window()->hide();
        else
            scene.destroyWindow();
        QVERIFY2(!PopupStack::top(), way);
        QVERIFY2(!scene.anchor || !scene.anchor->isPopupVisible(), way);
    }
}

// What a handler asks for that turns the request round once is how it ends.
void tst_PopupLifetime::handlersThatAskForTheOpposite()
{
    for (const QString &signal : kSignals) {
        AnchorScene scene(kAnchor);
        PopupAnchor *anchor = scene.anchor;
        bool armed = false;
        on(anchor, signal, [&] {
            if (std::exchange(armed, false))
                anchor->setPopupVisible(!anchor->isPopupVisible());
        });
        for (bool visible : { true, false, true, false }) {
            armed = true;
            anchor->setY(anchor->y() + 1); // so that distances change
            anchor->setPopupVisible(visible);
            const bool turned = !std::exchange(armed, false);
            const bool shown = visible != turned;
            QVERIFY2(anchor->isPopupVisible() == shown, qPrintable(signal));
            QCOMPARE(PopupStack::top(), shown ? anchor : nullptr);
            QCOMPARE(anchor->popupItem() && anchor->popupItem()->isEnabled(), shown);
            anchor->setPopupVisible(visible);
            QCOMPARE(PopupStack::top(), visible ? anchor : nullptr);
        }
    }
}

void tst_PopupLifetime::handlersThatDestroy()
{
    for (const QString &signal : kSignals) {
        for (const char *victim : { "anchor", "item", "window" }) {
            AnchorScene scene(kAnchor);
            bool done = false;
            const auto destroy = [&] {
                done = true;
                if (qstrcmp(victim, "anchor") == 0)
                    delete scene.anchor.data();
                else if (qstrcmp(victim, "item") == 0)
                    delete scene.anchor->popupItem();
                else
                    scene.destroyWindow();
            };
            on(scene.anchor, signal, destroy, 1);
            scene.anchor->show();
            if (scene.anchor)
                scene.anchor->hide();
            QVERIFY2(done && !PopupStack::top(), qPrintable(signal));
        }
    }
}

// The event that closes a popup must not go on to a window that the popup's handler destroyed.
void tst_PopupLifetime::eventsThatDestroy()
{
    for (auto type :
         { QEvent::MouseButtonPress, QEvent::Resize, QEvent::Close, QEvent::KeyPress }) {
        AnchorScene scene(kAnchor);
        on(scene.anchor, QStringLiteral("aboutToHide"), [&] { scene.destroyWindow(); });
        scene.anchor->show();
        const int detail = type == QEvent::KeyPress ? int(Qt::Key_Escape) : int(Qt::LeftButton);
        const auto event = makeEvent(type, detail, scene.window()->mapToGlobal(kOutside));
        QVERIFY(QCoreApplication::sendEvent(scene.window(), event.get()));
        QVERIFY(!scene.window());
    }
}

// A click hides the popup and runs an event loop of its own: the item is there until it returns.
void tst_PopupLifetime::clicksWithEventLoops()
{
    AnchorScene scene(QStringLiteral(
        "UiPopupAnchor { id: it; objectName: 'anchor'; x: 100; y: 100; signal chosen()\n"
        "Item { width: 200; height: 100\n"
        "MouseArea { anchors.fill: parent; onClicked: { it.hide(); it.chosen() } } } }"));
    scene.anchor->show();
    QVERIFY(scene.waitForFrame());
    const QPointer<QQuickItem> item = scene.anchor->popupItem();
    bool outlived = false;
    on(scene.anchor, QStringLiteral("chosen"), [&] {
        runEventLoop(900);
        outlived = item;
    });
    clickInEventLoop(scene.window(), center(item));
    QVERIFY(outlived && !scene.anchor->popupItem());
    QTRY_VERIFY(!item);
}

// The inner one closes first; the press goes on, and where something takes it, the outer popup sees
// it, too.
void tst_PopupLifetime::nestedPopups()
{
    AnchorScene scene(QStringLiteral(
        "UiPopupAnchor { objectName: 'anchor'; Item { width: 300; height: 300\n"
        "UiPopupAnchor { objectName: 'inner'; x: 50; y: 50; Item { width: 50; height: 50 } } } }"));
    PopupAnchor *outer = scene.anchor;
    outer->show();
    auto *inner = scene.find<PopupAnchor>("inner");
    inner->show();
    QCOMPARE(PopupStack::top(), inner);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!inner->isPopupVisible() && outer->isPopupVisible());
    inner->show();
    click(scene.window(), QPoint(200, 200)); // inside the outer one
    QVERIFY(!inner->isPopupVisible() && outer->isPopupVisible());
    inner->show();
    outer->hide(); // its item lives on for 700 ms, and the inner popup with it
    QCOMPARE(PopupStack::top(), inner);
    QTRY_VERIFY(!PopupStack::top());
}

void tst_PopupLifetime::engineGoes()
{
    QPointer<QQuickItem> hidden;
    QPointer<QQuickItem> shown;
    {
        AnchorScene scene(kAnchor);
        scene.anchor->show();
        hidden = scene.anchor->popupItem();
        scene.anchor->hide();
        scene.anchor->show();
        shown = scene.anchor->popupItem();
    }
    QVERIFY(!hidden && !shown); // nothing waits for its delay without an engine
}

TAMBER_TEST_MAIN(tst_PopupLifetime)
#include "tst_popuplifetime.moc"
