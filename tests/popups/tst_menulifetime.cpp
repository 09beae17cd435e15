#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/MenuItem>

#include <QtGui/QAccessible>
#include <QtQml/QQmlListReference>

using namespace ta::ui;
using namespace ta::test;

// Menus and their entries as objects: their order, what they share, and what must hold when things
// go wrong: whatever a handler may destroy or ask for on the way, and menus without what they need.
class tst_MenuLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void ranking();
    void delegates();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void handlersThatReopen();
    void handlersThatClose();
    void handlersWithEventLoops();
    void withoutEngine();
    void ownEntries();
    void twoEngines();
};

namespace {

const QString kScene = QStringLiteral(
    "Item { objectName: 'target'; x: 100; y: 100; width: 300; height: 300\n"
    "UiContextMenu { objectName: 'menu'; UiMenuItem { objectName: 'entry'; text: 'Entry' } } }\n");

const QPoint kPlace(150, 150);
const QPoint kEntry(200, 170); // where the first entry of a menu at kPlace lies
const QPoint kOutside(700, 500);

int itemsInWindow(const Scene &scene)
{
    return scene.window()->contentItem()->childItems().count();
}

// What a screen reader does to the first entry.
void pressAccessibly(QQuickItem *frame)
{
    const auto items = frame->findChildren<QQuickItem *>();
    const auto *delegate = *std::find_if(items.begin(), items.end(), [](const QQuickItem *item) {
        return item->property("menuItem").isValid();
    });
    auto *interface = QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(delegate));
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

QStringList objectNames(QObject *menu, const char *list)
{
    QStringList names;
    const QQmlListReference entries(menu, list);
    for (int i = 0; i < entries.count(); ++i)
        names.append(entries.at(i) ? entries.at(i)->objectName() : QStringLiteral("-"));
    return names;
}

} // namespace

void tst_MenuLifetime::ranking()
{
    MenuScene scene(QStringLiteral("UiContextMenu { objectName: 'menu'\n"
                                   "UiMenuItem { objectName: 'two'; rank: [2] }\n"
                                   "UiMenuItem { objectName: 'onefive'; rank: [1, 5] }\n"
                                   "UiMenuItem { objectName: 'one'; rank: [1] }\n"
                                   "UiMenuItem { objectName: 'onezero'; rank: [1, 0] }\n"
                                   "UiMenuSeparator { objectName: 'none'; rank: [] }\n"
                                   "UiMenuItem { objectName: 'zero' }\n"
                                   "UiMenuItem { objectName: 'minus'; rank: [0, 0, -1] } }"));
    ContextMenu *menu = scene.menu;
    const QStringList ranked = names(
        { "minus", "none", "zero", "one", "onezero", "onefive", "two" });
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);

    // A rank that changes tells nobody, and counts from the next change of the list on.
    auto *two = scene.find<MenuItem>("two");
    SignalLog log;
    log.watch(two);
    two->setRank({ -1 });
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);
    menu->removeItem(nullptr);
    QCOMPARE(objectNames(menu, "rankedItems").first(), QStringLiteral("two"));
    QVERIFY(log.take().isEmpty());

    // Destroyed entries stay in the lists as null.
    delete two;
    QCOMPARE(objectNames(menu, "items").first(), QStringLiteral("-"));
    QCOMPARE(objectNames(menu, "rankedItems").count(QStringLiteral("-")), 1);
    log.watch(menu);
    QQmlListReference items(menu, "items");
    QVERIFY(!items.at(-1) && !items.at(7));
    QVERIFY(items.clear() && items.clear());
    QCOMPARE(log.take(), names({ "itemsChanged" }));
    QVERIFY(objectNames(menu, "rankedItems").isEmpty());
}

// Entries of one kind and one engine share their delegate for as long as one of them lives.
void tst_MenuLifetime::delegates()
{
    Scene scene(QString {});
    Scene other(QString {});
    const auto make = [](Scene &in, const char *type) {
        return in.create(QString::fromLatin1(type));
    };
    const auto delegate = [](const auto &entry) {
        return qobject_cast<AbstractMenuItem *>(entry.get())->delegate();
    };
    auto a = make(scene, "UiMenuItem {}");
    auto b = make(scene, "UiMenuItem {}");
    const QPointer<QQmlComponent> shared = delegate(a);
    QVERIFY(shared && shared->isReady());
    QCOMPARE(delegate(b), shared.data());
    QVERIFY(delegate(make(scene, "UiMenuSeparator {}")) != shared);
    const auto c = make(other, "UiMenuItem {}");
    QVERIFY(delegate(c) != shared && delegate(c)->engine() == &other.engine());
    a.reset();
    QVERIFY(shared);
    b.reset();
    QVERIFY(!shared);
    QVERIFY(delegate(make(scene, "UiMenuItem {}")));
    QVERIFY(!MenuItem().delegate()); // which no engine knows
}

void tst_MenuLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("way");
    const auto rows = [](const QStringList &victims, const QStringList &signalNames,
                         const QStringList &ways) {
        for (const QString &victim : victims) {
            for (const QString &signal : signalNames) {
                for (const QString &way : ways)
                    QTest::addRow("%s in %s, %s", qPrintable(victim), qPrintable(signal),
                                  qPrintable(way))
                        << victim << signal << way;
            }
        }
    };
    rows(names({ "menu", "target", "entry", "item" }),
         names({ "triggered", "contextMenuRequested", "menuVisibleChanged", "closed" }),
         names({ "chosen" }));
    rows(names({ "menu", "target", "entry" }), names({ "triggered" }), names({ "accessibly" }));
    // Qt itself does not survive a window that goes while it handles an event, but here the event
    // has not come to it yet.
    rows(names({ "menu", "target", "window" }), names({ "closed" }),
         names({ "press outside", "escape", "call" }));
}

void tst_MenuLifetime::handlersThatDestroy()
{
    QFETCH(QString, victim);
    QFETCH(QString, signal);
    QFETCH(QString, way);
    MenuScene scene(kScene);
    auto *entry = scene.find<MenuItem>("entry");
    bool done = false;
    const auto destroy = [&] {
        done = true;
        if (victim == QLatin1String("window"))
            scene.destroyWindow();
        else if (victim != QLatin1String("item"))
            delete scene.find<QObject>(qPrintable(victim));
        else if (signal == QLatin1String("triggered"))
            scene.menu->rootItem()->deleteLater(); // no item survives its end in its click
        else
            delete scene.menu->rootItem();
    };
    on(signal == QLatin1String("triggered") ? static_cast<QObject *>(entry) : scene.menu.data(),
       signal, destroy, 1);
    click(scene.window(), kPlace, Qt::RightButton);
    if (scene.window())
        scene.waitForFrame();
    if (way == QLatin1String("chosen"))
        click(scene.window(), kEntry);
    else if (way == QLatin1String("accessibly"))
        pressAccessibly(scene.frame());
    else if (way == QLatin1String("press outside"))
        press(scene.window(), kOutside);
    else if (way == QLatin1String("escape"))
        QTest::keyPress(scene.window(), Qt::Key_Escape);
    else
        scene.menu->close();
    QVERIFY(done);
    if (scene.menu)
        scene.menu->close();
    if (!scene.window())
        return;
    QTRY_COMPARE(itemsInWindow(scene), 1); // the root
    click(scene.window(), kPlace);
}

// What was asked for last holds, and the stack has one entry for it.
void tst_MenuLifetime::handlersThatReopen()
{
    const QPointF second(300, 300);
    const struct
    {
        const char *when;
        QStringList log;
    } rows[] = {
        { "closed", names({ "menuVisibleChanged", "closed", "menuVisibleChanged" }) },
        { "menuVisibleChanged", names({ "menuVisibleChanged", "menuVisibleChanged", "closed" }) },
    };
    for (const auto &row : rows) {
        MenuScene scene(kScene);
        ContextMenu *menu = scene.menu;
        SignalLog log;
        log.watch(menu, names({ "menuVisibleChanged", "closed" }));
        scene.open(kPlace);
        log.take();
        bool armed = true;
        on(menu, QLatin1String(row.when), [&] {
            if (std::exchange(armed, false))
                menu->showAt(scene.root(), second);
        });
        menu->close();
        QCOMPARE(log.take(), row.log);
        QCOMPARE(menu->rootItem()->position(), second);
        QCOMPARE(PopupStack::top(), menu);
        menu->close();
        QVERIFY(!PopupStack::top());
        QTRY_COMPARE(itemsInWindow(scene), 1);
    }
}

void tst_MenuLifetime::handlersThatClose()
{
    MenuScene scene(kScene);
    ContextMenu *menu = scene.menu;
    SignalLog log;
    log.watch(menu, names({ "menuVisibleChanged", "closed" }));
    for (const char *signal : { "menuVisibleChanged", "closed" })
        on(menu, QLatin1String(signal), [menu] { menu->close(); });
    scene.open(kPlace);
    QVERIFY(!menu->rootItem() && !PopupStack::top());
    QCOMPARE(log.take(), names({ "menuVisibleChanged", "menuVisibleChanged", "closed" }));
}

// What the click came through is there until it has been handled, whatever happens meanwhile.
void tst_MenuLifetime::handlersWithEventLoops()
{
    for (const char *event : { "escape", "end of the menu", "modal window" }) {
        MenuScene scene(kScene);
        scene.open(kPlace);
        const QPointer<QQuickItem> item = scene.menu->rootItem();
        on(scene.find<MenuItem>("entry"), QStringLiteral("triggered"), [&] {
            QWindow modal;
            modal.setModality(Qt::ApplicationModal);
            if (qstrcmp(event, "escape") == 0)
                QTest::keyClick(scene.window(), Qt::Key_Escape);
            else if (qstrcmp(event, "modal window") == 0)
                modal.show();
            else
                delete scene.menu;
            QVERIFY(!PopupStack::top()); // which would keep the keys from others
            runEventLoop(200);
            QVERIFY2(item && (item->clip() || item->opacity() == 0), event); // nothing is seen
        });
        clickInEventLoop(scene.window(), kEntry);
        QTRY_COMPARE(itemsInWindow(scene), 1);
        QVERIFY(!item);
    }
}

void tst_MenuLifetime::withoutEngine()
{
    Scene scene(QString {});
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
    MenuScene scene(kScene);
    OwnEntry bare(&scene.engine(), "implicitHeight: 10; implicitWidth: 77.9\n"
                                   "Component.onCompleted: menu.addItem(null)");
    OwnEntry full(&scene.engine(), "implicitHeight: 20; property bool hovered; signal clicked\n"
                                   "readonly property bool pressed: false\n"
                                   "onClicked: menu.close()\n"
                                   "Rectangle { anchors.fill: parent }");
    OwnEntry broken(&scene.engine(), "nonsense");
    for (AbstractMenuItem *entry : { &bare, &broken, &full })
        scene.menu->addItem(entry);
    auto *entry = scene.find<MenuItem>("entry");
    entry->setVisible(false);
    entry->setText(QString());
    expectWarning(QStringLiteral("Component is not ready"));
    expectWarning(QStringLiteral("entry of a menu cannot be created.*Expected token"));
    scene.open(kPlace);
    QCOMPARE(scene.frame()->size(), QSizeF(77 + 6, 30 + 6));
    click(scene.window(), kPlace + QPoint(20, 5)); // bare: nothing to click
    QVERIFY(scene.menu->rootItem());
    click(scene.window(), kPlace + QPoint(20, 20));
    QVERIFY(!scene.menu->rootItem());
    QTRY_COMPARE(itemsInWindow(scene), 1);

    // One that destroys the menu while that opens.
    on(&bare, QStringLiteral("visibleChanged"), [&scene] { delete scene.menu; });
    OwnEntry fatal(&scene.engine(), "Component.onCompleted: menu.items[1].visible = false");
    scene.menu->removeItem(&broken);
    scene.menu->addItem(&fatal);
    scene.open(kPlace);
    QVERIFY(!scene.menu && !PopupStack::top());
    QTRY_COMPARE(itemsInWindow(scene), 1);
}

void tst_MenuLifetime::twoEngines()
{
    auto first = std::make_unique<MenuScene>(kScene);
    MenuScene second(kScene);
    first->open(kPlace);
    second.menu->showAt(second.root(), kPlace);
    QCOMPARE(qmlEngine(second.menu->rootItem()), &second.engine());
    QTRY_VERIFY(second.frame()->height() > 6);
    first.reset(); // its menu is open below the other
    QCOMPARE(PopupStack::top(), second.menu.data());
    click(second.window(), kEntry);
    QVERIFY(!second.menu->rootItem() && !PopupStack::top());
}

TAMBER_TEST_MAIN(tst_MenuLifetime)
#include "tst_menulifetime.moc"
