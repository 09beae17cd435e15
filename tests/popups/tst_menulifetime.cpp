#include "support/heap.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ContextMenu>
#include <TamberUi/MenuItem>
#include <TamberUi/PopupStack>

#include <QtGui/QMouseEvent>

using namespace ta::ui;
using namespace ta::test;

// What must hold when things go wrong: whatever a handler may destroy or ask for while a menu opens
// or closes, and menus without what they need.
class tst_MenuLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void qmlHandlersThatDestroy_data();
    void qmlHandlersThatDestroy();
    void handlersThatReopen();
    void handlersThatClose();
    void handlersThatChangeEntries();
    void handlersThatDisable();
    void popupBelow();
    void itemDestroyedOutside();
    void withoutEngine();
    void ownEntries();
    void twoEngines();
    void cycles();
};

namespace {

const QString kScene = QStringLiteral(
    "Item { objectName: 'target'; x: 100; y: 100; width: 300; height: 300\n"
    "UiContextMenu { objectName: 'menu'; UiMenuItem { objectName: 'entry'; text: 'Entry' }\n%1 } "
    "}");

const QPoint kPlace(150, 150);
const QPoint kEntry(200, 170); // where the first entry of a menu at kPlace lies
const QPoint kOutside(700, 500);

void open(Scene &scene)
{
    click(scene.window(), kPlace, Qt::RightButton);
    scene.waitForFrame();
}

} // namespace

void tst_MenuLifetime::initTestCase()
{
    Scene::useKit();
}

void tst_MenuLifetime::cleanup()
{
    QVERIFY(!PopupStack::top());
    TestCase::cleanup();
}

void tst_MenuLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("way");
    for (const char *signal :
         { "triggered", "contextMenuRequested", "menuVisibleChanged", "closed" }) {
        for (const char *victim : { "menu", "target", "entry", "item" }) {
            QTest::addRow("%s in %s, chosen", victim, signal)
                << QString::fromLatin1(signal) << QString::fromLatin1(victim)
                << QStringLiteral("choose");
        }
    }
    // Qt itself does not survive a window that goes while it handles an event, but here the event
    // has not come to it yet.
    for (const char *victim : { "menu", "target", "window" }) {
        for (const char *way : { "press outside", "escape", "call" }) {
            QTest::addRow("%s in closed, %s", victim, way)
                << QStringLiteral("closed") << QString::fromLatin1(victim)
                << QString::fromLatin1(way);
        }
    }
}

void tst_MenuLifetime::handlersThatDestroy()
{
    QFETCH(QString, signal);
    QFETCH(QString, victim);
    QFETCH(QString, way);
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    const QPointer<ContextMenu> menu = scene.find<ContextMenu>("menu");
    QPointer<MenuItem> entry = scene.find<MenuItem>("entry");
    bool done = false;
    const auto destroy = [&] {
        if (std::exchange(done, true))
            return;
        if (victim == QLatin1String("menu"))
            delete menu.data();
        else if (victim == QLatin1String("target"))
            delete scene.find("target");
        else if (victim == QLatin1String("entry"))
            delete entry.data();
        else if (victim == QLatin1String("item"))
            delete menu->rootItem();
        else
            scene.destroyWindow();
    };
    // Deleting the item that is handling a click is beyond what an item survives.
    if (victim == QLatin1String("item") && signal == QLatin1String("triggered"))
        connect(entry, &MenuItem::triggered, [&] {
            done = true;
            menu->rootItem()->deleteLater();
        });
    else if (signal == QLatin1String("triggered"))
        connect(entry, &MenuItem::triggered, destroy);
    else if (signal == QLatin1String("contextMenuRequested"))
        connect(menu, &ContextMenu::contextMenuRequested, destroy);
    else if (signal == QLatin1String("menuVisibleChanged"))
        connect(menu, &ContextMenu::menuVisibleChanged, destroy);
    else
        connect(menu, &ContextMenu::closed, destroy);

    open(scene);
    if (way == QLatin1String("choose"))
        click(scene.window(), kEntry);
    else if (way == QLatin1String("press outside"))
        press(scene.window(), kOutside);
    else if (way == QLatin1String("escape"))
        QTest::keyPress(scene.window(), Qt::Key_Escape);
    else
        menu->close();
    QVERIFY(done);
    if (menu)
        menu->close();
    if (!scene.window())
        return;
    QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1); // the root
    click(scene.window(), kPlace);
}

void tst_MenuLifetime::qmlHandlersThatDestroy_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("target") << QStringLiteral("target.active = false");
    QTest::newRow("window") << QStringLiteral("window.destroy()");
}

// As screens do it: an entry takes away what the menu was asked for.
void tst_MenuLifetime::qmlHandlersThatDestroy()
{
    QFETCH(QString, statement);
    Scene scene(QString {});
    QVERIFY(scene.isValid());
    const auto object =
        scene
            .create(QStringLiteral(
                        "Window { id: window; width: 800; height: 600; visible: true\n"
                        "Loader { id: target; anchors.fill: parent; sourceComponent: Item {\n"
                        "UiContextMenu { UiMenuItem { text: 'Delete'; onTriggered: %1 } } } } }")
                        .arg(statement))
            .release();
    const QPointer<QQuickWindow> window = qobject_cast<QQuickWindow *>(object);
    QVERIFY(window && QTest::qWaitForWindowExposed(window));
    QQmlEngine::setObjectOwnership(window, QQmlEngine::JavaScriptOwnership);
    click(window, kPlace, Qt::RightButton);
    QSignalSpy frames(window, &QQuickWindow::frameSwapped);
    window->update();
    QVERIFY(frames.wait());
    const QPointer<QObject> menu = PopupStack::top();
    QVERIFY(menu);
    click(window, kEntry);
    QTRY_VERIFY(!menu && !PopupStack::top());
    delete window;
}

// What was asked for last holds, and the stack has one entry for it.
void tst_MenuLifetime::handlersThatReopen()
{
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    SignalLog log;
    log.watch(menu, names({ "menuVisibleChanged", "closed" }));
    int again = 1;
    const auto reopen = [&] {
        if (again > 0 && !menu->isMenuVisible()) {
            --again;
            menu->showAt(scene.root(), QPointF(300, 300));
        }
    };
    const QStringList reopened = names({ "menuVisibleChanged", "closed", "menuVisibleChanged" });

    const auto first = connect(menu, &ContextMenu::closed, reopen);
    open(scene);
    log.take();
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(log.take(), reopened);
    QCOMPARE(menu->rootItem()->position(), QPointF(300, 300));
    QCOMPARE(PopupStack::top(), menu);
    again = 1;
    menu->showAt(scene.root(), QPointF(10, 10)); // closes, and is opened meanwhile
    QCOMPARE(menu->rootItem()->position(), QPointF(300, 300));
    menu->close();
    QVERIFY(!PopupStack::top());
    disconnect(first);

    connect(menu, &ContextMenu::menuVisibleChanged, reopen);
    open(scene);
    again = 1;
    log.take();
    menu->close();
    QCOMPARE(log.take(), names({ "menuVisibleChanged", "menuVisibleChanged", "closed" }));
    QVERIFY(menu->isMenuVisible());
    QCOMPARE(PopupStack::top(), menu);
    menu->close();
    QVERIFY(!PopupStack::top());
    QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1);
}

void tst_MenuLifetime::handlersThatClose()
{
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    SignalLog log;
    log.watch(menu, names({ "menuVisibleChanged", "closed" }));
    connect(menu, &ContextMenu::menuVisibleChanged, menu, &ContextMenu::close);
    connect(menu, &ContextMenu::closed, menu, &ContextMenu::close);
    open(scene);
    QVERIFY(!menu->rootItem());
    QCOMPARE(log.take(), names({ "menuVisibleChanged", "menuVisibleChanged", "closed" }));
}

void tst_MenuLifetime::handlersThatChangeEntries()
{
    Scene scene(kScene.arg(
        QStringLiteral("property Component maker: UiMenuItem { text: 'Made for this click' }\n"
                       "property QtObject made: null\n"
                       "onContextMenuRequested: { if (made) { removeItem(made); made.destroy() }\n"
                       "made = maker.createObject(this); addItem(made) }")));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    for (int round = 0; round < 3; ++round) {
        open(scene);
        const auto *frame = menu->rootItem()->property("popup").value<QQuickItem *>();
        QCOMPARE(frame->height(), 2 * 32 + 6.0);
    }
    menu->close();
}

void tst_MenuLifetime::handlersThatDisable()
{
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    connect(menu, &ContextMenu::contextMenuRequested, [menu] { menu->setEnabled(false); });
    connect(menu, &ContextMenu::enabledChanged, [menu] { menu->setEnabled(false); });
    open(scene);
    QVERIFY(!menu->rootItem());
    menu->setEnabled(true);
    QVERIFY(!menu->isEnabled());
    QCOMPARE(scene.find("target")->acceptedMouseButtons(), Qt::NoButton);
    delete scene.find<ContextMenu>("menu");
}

// A menu that goes while it is open gives the application's events back to the popup below.
void tst_MenuLifetime::popupBelow()
{
    Scene scene(kScene.arg(QString())
                + QStringLiteral("\nUiPopupAnchor { objectName: 'below'; Item {} }"));
    QVERIFY(scene.isValid());
    QMetaObject::invokeMethod(scene.find("below"), "show");
    auto *menu = scene.find<ContextMenu>("menu");
    menu->showAt(scene.root(), kPlace);
    QCOMPARE(PopupStack::top(), menu);
    delete menu;
    QCOMPARE(PopupStack::top(), scene.find("below"));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
}

void tst_MenuLifetime::itemDestroyedOutside()
{
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    SignalLog log;
    log.watch(menu, names({ "menuVisibleChanged", "closed" }));
    open(scene);
    delete menu->rootItem();
    QVERIFY(!menu->isMenuVisible() && !PopupStack::top());
    QCOMPARE(log.take(), names({ "menuVisibleChanged", "menuVisibleChanged", "closed" }));
}

void tst_MenuLifetime::withoutEngine()
{
    Scene scene(QString {});
    QVERIFY(scene.isValid());
    MenuItem entry;
    ContextMenu menu(scene.root());
    menu.addItem(&entry);
    menu.componentComplete();
    expectWarning(QStringLiteral("cannot open without a QML engine"));
    menu.showAt(scene.root(), QPointF());
    QVERIFY(!menu.rootItem() && !PopupStack::top());
}

// A kind of entry that the host made: what its delegate does not have is left alone.
class OwnEntry : public AbstractMenuItem
{
public:
    explicit OwnEntry(QQmlEngine *engine, const QByteArray &body) : m_component(engine)
    {
        m_component.setData("import QtQuick 2.15; Item { property var menuItem; property var menu; "
                                + body + "}",
                            QUrl());
    }
    QQmlComponent *delegate() override { return &m_component; }

private:
    QQmlComponent m_component;
};

void tst_MenuLifetime::ownEntries()
{
    Scene scene(kScene.arg(QString()));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    OwnEntry bare(&scene.engine(), "implicitHeight: 10; implicitWidth: 77.9");
    OwnEntry full(&scene.engine(), "implicitHeight: 20; property bool hovered; signal clicked\n"
                                   "onClicked: menu.close()\n"
                                   "Rectangle { anchors.fill: parent }");
    OwnEntry broken(&scene.engine(), "nonsense");
    for (AbstractMenuItem *entry : { &bare, &broken, &full })
        menu->addItem(entry);
    qobject_cast<MenuItem *>(scene.find<QObject>("entry"))->setVisible(false);
    scene.find<MenuItem>("entry")->setText(QString());
    expectWarning(QStringLiteral("Component is not ready"));
    open(scene);
    const auto *frame = menu->rootItem()->property("popup").value<QQuickItem *>();
    QCOMPARE(frame->size(), QSizeF(77 + 6, 30 + 6));
    click(scene.window(), kPlace + QPoint(20, 5)); // bare: nothing to click
    QVERIFY(menu->rootItem());
    click(scene.window(), kPlace + QPoint(20, 20));
    QVERIFY(!menu->rootItem());
    QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1);
}

void tst_MenuLifetime::twoEngines()
{
    auto first = std::make_unique<Scene>(kScene.arg(QString()));
    Scene second(kScene.arg(QString()));
    QVERIFY(first->isValid() && second.isValid());
    auto *menu = second.find<ContextMenu>("menu");
    open(*first);
    menu->showAt(second.root(), kPlace);
    QCOMPARE(qmlEngine(menu->rootItem()), &second.engine());
    QVERIFY(second.waitForFrame());
    first.reset(); // its menu is open below the other
    QCOMPARE(PopupStack::top(), menu);
    click(second.window(), kEntry);
    QVERIFY(!menu->rootItem() && !PopupStack::top());
}

// Menus that come and go leave nothing behind.
void tst_MenuLifetime::cycles()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's allocator does not tell its numbers; the run without one does this test");
#endif
    Scene scene(kScene.arg(QStringLiteral("UiMenuSeparator {} UiMenuItem { text: 'Other' }")));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    const auto cycles = [&](int count) {
        for (int cycle = 0; cycle < count; ++cycle) {
            menu->showAt(scene.root(), kPlace);
            const QPointer<QQuickItem> item = menu->rootItem();
            menu->close();
            delete item; // so that the items of all cycles are not there at once
        }
        scene.engine().collectGarbage();
        scene.waitForFrame();
    };
    cycles(2000);
    QVERIFY(keepsHeap([&] { cycles(10000); }));
    // And those that fade out go by themselves.
    for (int cycle = 0; cycle < 20; ++cycle) {
        menu->showAt(scene.root(), kPlace);
        menu->close();
    }
    QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1);
    QCOMPARE(menu->children().count(), 3); // the entries
}

TAMBER_TEST_MAIN(tst_MenuLifetime)
#include "tst_menulifetime.moc"
