// variants: threaded
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ContextMenu>
#include <TamberUi/MenuItem>
#include <TamberUi/MenuSeparator>
#include <TamberUi/PopupStack>

#include <QtGui/QMouseEvent>
#include <QtQml/QQmlListReference>

using namespace ta::ui;
using namespace ta::test;

// What a menu does with events, where it opens and what it shows.
class tst_ContextMenu : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void defaults();
    void ranking();
    void entries();
    void delegates();
    void rightClick();
    void filter_data();
    void filter();
    void whatIsAskedFor();
    void refusedPress();
    void target();
    void showAt();
    void outsidePress();
    void releases_data();
    void releases();
    void secondClick();
    void shortcuts();
    void wheelStaysInside();
    void geometry_data();
    void geometry();
    void looks();
};

namespace {

const QString kEntries = QStringLiteral(
    "UiMenuItem { objectName: 'rename'; text: 'Rename this'; iconName: 'edit' }\n"
    "UiMenuItem { objectName: 'locked'; text: 'Locked'; enabled: false }\n"
    "UiMenuItem { objectName: 'hidden'; text: 'Hidden and a good deal longer'; visible: false }\n"
    "UiMenuSeparator { objectName: 'separator' }\n"
    "UiMenuItem { objectName: 'remove'; text: 'Delete' }\n");

const QString kScene = QStringLiteral(
    "Item { objectName: 'target'; x: 100; y: 100; width: 300; height: 300\n"
    "Item { x: 50; y: 50; width: 100; height: 100\n"
    "Item { objectName: 'inner'; x: 10; y: 10; width: 50; height: 50 } }\n"
    "UiContextMenu { objectName: 'menu'\n%1 } }\n"
    "MouseArea { objectName: 'below'; property int clicks: 0; onClicked: ++clicks\n"
    "x: 500; width: 300; height: 600; acceptedButtons: Qt.AllButtons }");

QQuickItem *frame(const ContextMenu *menu)
{
    return menu->rootItem() ? menu->rootItem()->property("popup").value<QQuickItem *>() : nullptr;
}

// The item that draws the entry, null while there is none.
QQuickItem *delegateOf(const ContextMenu *menu, const QObject *entry)
{
    const auto items = frame(menu)->findChildren<QQuickItem *>();
    for (QQuickItem *item : items) {
        if (item->property("menuItem").value<QObject *>() == entry)
            return item;
    }
    return nullptr;
}

// The entries find their places in the next frame.
void open(Scene &scene, const QPoint &position = QPoint(150, 150))
{
    click(scene.window(), position, Qt::RightButton);
    scene.waitForFrame();
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

void tst_ContextMenu::initTestCase()
{
    Scene::useKit();
}

void tst_ContextMenu::defaults()
{
    MenuItem entry;
    QVERIFY(entry.isVisible() && entry.isEnabled() && entry.text().isEmpty());
    QVERIFY(entry.iconName().isEmpty() && !entry.delegate());
    QCOMPARE(entry.rank(), QList<int>({ 0 }));
    SignalLog log;
    log.watch(&entry);
    entry.setRank({ 1, 2 });
    QCOMPARE(entry.rank(), QList<int>({ 1, 2 }));
    QVERIFY(log.take().isEmpty());
    entry.setVisible(false);
    entry.setText(QStringLiteral("T"));
    entry.setEnabled(false);
    entry.setIconName(QStringLiteral("edit"));
    entry.setEnabled(false);
    QCOMPARE(log.take(),
             names({ "visibleChanged", "textChanged", "enabledChanged", "iconNameChanged" }));

    ContextMenu menu;
    QVERIFY(menu.isEnabled() && !menu.isMenuVisible() && !menu.rootItem());
    QCOMPARE(menu.itemStyle(), ContextMenu::IconAndText);
    QVERIFY(menu.preventAutoScroll());
    QVERIFY(qobject_cast<IPopup *>(static_cast<QObject *>(&menu)));
    log.watch(&menu);
    menu.close();
    menu.showAt(nullptr, QPointF());
    menu.removeItem(&entry);
    menu.addItem(&entry);
    menu.setItemStyle(ContextMenu::OnlyText);
    menu.setEnabled(false);
    QCOMPARE(log.take(),
             names({ "itemsChanged", "itemsChanged", "itemStyleChanged", "enabledChanged" }));
}

void tst_ContextMenu::ranking()
{
    Scene scene(QStringLiteral(
        "UiContextMenu { objectName: 'menu'\n"
        "UiMenuItem { objectName: 'two'; rank: [2] } UiMenuItem { objectName: 'onefive'; rank: [1, "
        "5] }\nUiMenuItem { objectName: 'one'; rank: [1] } UiMenuItem { objectName: 'onezero'; "
        "rank: [1, 0] }\nUiMenuSeparator { objectName: 'none'; rank: [] } UiMenuItem { objectName: "
        "'zero' } UiMenuItem { objectName: 'minus'; rank: [0, 0, -1] } }"));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    const QStringList ranked = { QStringLiteral("minus"),   QStringLiteral("none"),
                                 QStringLiteral("zero"),    QStringLiteral("one"),
                                 QStringLiteral("onezero"), QStringLiteral("onefive"),
                                 QStringLiteral("two") };
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);

    // A rank that changes counts from the next change of the list on.
    auto *two = scene.find<MenuItem>("two");
    two->setRank({ -1 });
    QCOMPARE(objectNames(menu, "rankedItems"), ranked);
    menu->removeItem(nullptr);
    QCOMPARE(objectNames(menu, "rankedItems").first(), QStringLiteral("two"));
    two->setRank({ 9 });
    Q_EMIT menu->itemsChanged();
    QCOMPARE(objectNames(menu, "rankedItems").last(), QStringLiteral("two"));

    // Destroyed entries stay in the lists as null.
    delete two;
    QCOMPARE(objectNames(menu, "items").first(), QStringLiteral("-"));
    QCOMPARE(objectNames(menu, "rankedItems").count(QStringLiteral("-")), 1);
    const QQmlListReference readOnly(menu, "rankedItems");
    QVERIFY(!readOnly.canAppend() && !readOnly.canClear() && readOnly.canAt());
    SignalLog log;
    log.watch(menu);
    QQmlListReference items(menu, "items");
    QVERIFY(!items.at(-1) && !items.at(7));
    QVERIFY(items.clear() && items.clear());
    QCOMPARE(log.take(), names({ "itemsChanged" }));
    QVERIFY(objectNames(menu, "rankedItems").isEmpty());
}

void tst_ContextMenu::entries()
{
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    auto *rename = scene.find<MenuItem>("rename");
    const QPointer<MenuItem> remove = scene.find<MenuItem>("remove");
    menu->addItem(nullptr);
    open(scene);
    QCOMPARE(frame(menu)->height(), 3 * 32 + 5 + 6.0);
    QCOMPARE(menu->rootItem()->z(), 4294967295.0);
    QVERIFY(menu->rootItem()->property("_ta_isPopup").toBool());
    QVERIFY(!delegateOf(menu, scene.find<MenuItem>("hidden"))->isVisible());
    // The widest entry counts, be it hidden, and all of them are as wide as that.
    QCOMPARE(delegateOf(menu, rename)->width(), frame(menu)->width() - 6);
    QVERIFY(delegateOf(menu, scene.find<MenuItem>("hidden"))->implicitWidth()
            < frame(menu)->width() - 5);

    // What changes while the menu is open.
    rename->setVisible(false);
    QVERIFY(!delegateOf(menu, rename)->isVisible() && !delegateOf(menu, rename)->isEnabled());
    delete remove;
    QTRY_COMPARE(frame(menu)->height(), 32 + 5 + 6.0);
    menu->close();
    menu->setItemStyle(ContextMenu::OnlyText);
    rename->setVisible(true);
    open(scene);
    QTRY_COMPARE(frame(menu)->height(), 2 * 32 + 5 + 6.0);
}

// Entries of one kind share their delegate for as long as one of them lives.
void tst_ContextMenu::delegates()
{
    Scene scene(QString {});
    QVERIFY(scene.isValid());
    const auto a = scene.create(QStringLiteral("UiMenuItem {}"));
    auto b = scene.create(QStringLiteral("UiMenuItem {}"));
    const auto separator = scene.create(QStringLiteral("UiMenuSeparator {}"));
    const auto delegate = [](const auto &entry) {
        return qobject_cast<AbstractMenuItem *>(entry.get())->delegate();
    };
    const QPointer<QQmlComponent> shared = delegate(a);
    QVERIFY(shared && shared->isReady());
    QCOMPARE(delegate(b), shared.data());
    QVERIFY(delegate(separator) && delegate(separator) != shared);

    Scene other(QString {});
    const auto c = other.create(QStringLiteral("UiMenuItem {}"));
    QVERIFY(delegate(c) != shared && delegate(c)->engine() == &other.engine());

    const_cast<std::unique_ptr<QObject> &>(a).reset();
    QVERIFY(shared);
    b.reset();
    QVERIFY(!shared);
    QVERIFY(delegate(scene.create(QStringLiteral("UiMenuItem {}"))));
}

// The road of one right click, from the press to the closed menu.
void tst_ContextMenu::rightClick()
{
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    auto *rename = scene.find<MenuItem>("rename");
    SignalLog log;
    log.watch(menu);
    log.watch(rename);
    QStringList stack;
    const auto note = [&](const char *when) {
        stack.append(QLatin1String(when)
                     + QLatin1String(PopupStack::top() == menu ? " on stack" : " not on stack"));
    };
    connect(menu, &ContextMenu::menuVisibleChanged,
            [&] { note(menu->isMenuVisible() ? "visible" : "invisible"); });
    connect(menu, &ContextMenu::closed, [&] { note("closed"); });
    connect(rename, &MenuItem::triggered, [&] { note("triggered"); });

    press(scene.window(), QPoint(150, 150), Qt::RightButton);
    QCOMPARE(log.take(), names({ "contextMenuRequested" }));
    QVERIFY(!menu->rootItem());
    release(scene.window(), QPoint(160, 155), Qt::RightButton);
    QVERIFY(scene.waitForFrame());
    QCOMPARE(log.take(), names({ "menuVisibleChanged" }));
    QVERIFY(menu->isMenuVisible());
    QCOMPARE(PopupStack::top(), menu);
    const QPointer<QQuickItem> item = menu->rootItem();
    QCOMPARE(item->position(), QPointF(160, 155));
    QCOMPARE(item->parentItem(), scene.window()->contentItem());
    QTRY_COMPARE(item->opacity(), 1.0);

    QQuickItem *delegate = delegateOf(menu, rename);
    move(scene.window(), center(delegate));
    QVERIFY(delegate->property("hovered").toBool());
    press(scene.window(), center(delegate));
    QVERIFY(delegate->property("pressed").toBool());
    QVERIFY(log.take().isEmpty());
    release(scene.window(), center(delegate));
    QCOMPARE(log.take(), names({ "triggered", "menuVisibleChanged", "closed" }));
    QVERIFY(!menu->rootItem() && !menu->isMenuVisible() && !PopupStack::top());
    QCOMPARE(stack,
             QStringList(
                 { QStringLiteral("visible not on stack"), QStringLiteral("triggered on stack"),
                   QStringLiteral("invisible on stack"), QStringLiteral("closed on stack") }));
    QVERIFY(item); // fades out
    QTRY_VERIFY(!item);
}

enum State { Closed, Open, Disabled, DisabledWhileOpen };

void tst_ContextMenu::filter_data()
{
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<int>("detail"); // key, or button
    QTest::addColumn<QPoint>("position");
    // For each state: whether the event is swallowed, and the signals.
    QTest::addColumn<QStringList>("closed");
    QTest::addColumn<QStringList>("open");

    const QString swallowed = QStringLiteral("swallowed");
    const QPoint inside(160, 170);
    const QPoint outside(120, 120);
    const QStringList close = names({ "menuVisibleChanged", "closed" });
    const auto row = [](const char *name, const char *receiver, QEvent::Type type, int detail,
                        const QPoint &position, const QStringList &closed,
                        const QStringList &open) {
        QTest::newRow(name) << QString::fromLatin1(receiver) << type << detail << position << closed
                            << open;
    };
    const auto down = QEvent::MouseButtonPress;
    const auto up = QEvent::MouseButtonRelease;
    row("escape", "window", QEvent::KeyPress, Qt::Key_Escape, outside, {},
        close + QStringList(swallowed));
    row("escape to the target", "target", QEvent::KeyPress, Qt::Key_Escape, outside, {},
        close + QStringList(swallowed));
    row("another key", "window", QEvent::KeyPress, Qt::Key_A, outside, {}, { swallowed });
    row("key release", "window", QEvent::KeyRelease, Qt::Key_Escape, outside, {}, {});
    row("shortcut", "window", QEvent::ShortcutOverride, Qt::Key_A, outside, {}, { swallowed });
    row("right press on target", "target", down, Qt::RightButton, outside,
        names({ "contextMenuRequested", "swallowed" }),
        names({ "contextMenuRequested", "swallowed" }));
    row("left press on target", "target", down, Qt::LeftButton, outside, {}, {});
    row("right release on target", "target", up, Qt::RightButton, outside,
        names({ "menuVisibleChanged", "swallowed" }),
        close + names({ "menuVisibleChanged", "swallowed" }));
    row("left release on target", "target", up, Qt::LeftButton, outside, {}, {});
    row("wheel on target", "target", QEvent::Wheel, 0, outside, {}, {});
    row("wheel inside", "window", QEvent::Wheel, 0, inside, { swallowed }, {});
    row("wheel outside", "window", QEvent::Wheel, 0, outside, { swallowed }, { swallowed });
    row("left press inside", "window", down, Qt::LeftButton, inside, {}, {});
    row("left press outside", "window", down, Qt::LeftButton, outside, {}, close);
    row("middle press outside", "below", down, Qt::MiddleButton, outside, {}, close);
    row("right press outside", "window", down, Qt::RightButton, outside, {}, close);
    row("release outside", "window", up, Qt::LeftButton, outside, {}, {});
    row("move", "window", QEvent::MouseMove, Qt::NoButton, outside, {}, {});
    row("double click", "target", QEvent::MouseButtonDblClick, Qt::RightButton, outside, {}, {});
}

void tst_ContextMenu::filter()
{
    QFETCH(QString, receiver);
    QFETCH(QEvent::Type, type);
    QFETCH(int, detail);
    QFETCH(QPoint, position);
    QFETCH(QStringList, closed);
    QFETCH(QStringList, open);
    for (State state : { Closed, Open, Disabled, DisabledWhileOpen }) {
        Scene scene(kScene.arg(kEntries));
        QVERIFY(scene.isValid());
        auto *menu = scene.find<ContextMenu>("menu");
        if (state == Open || state == DisabledWhileOpen)
            ::open(scene);
        if (state == Disabled || state == DisabledWhileOpen)
            menu->setEnabled(false);
        SignalLog log;
        log.watch(menu);
        QObject *watched = scene.window();
        if (receiver != QLatin1String("window"))
            watched = scene.find(receiver.toLatin1().constData());

        const QPoint screen = scene.window()->mapToGlobal(position);
        QMouseEvent mouse(type, position, position, screen, Qt::MouseButton(detail),
                          Qt::MouseButton(detail), Qt::NoModifier);
        QKeyEvent key(type, detail, Qt::NoModifier);
        QWheelEvent wheel(position, screen, QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QEvent *event = &mouse;
        if (type == QEvent::KeyPress || type == QEvent::KeyRelease
            || type == QEvent::ShortcutOverride)
            event = &key;
        else if (type == QEvent::Wheel)
            event = &wheel;
        const bool result = menu->eventFilter(watched, event);
        QStringList seen = log.take();
        if (result)
            seen.append(QStringLiteral("swallowed"));
        QCOMPARE(seen, state == Closed ? closed : state == Open ? open : QStringList());
    }
}

void tst_ContextMenu::whatIsAskedFor()
{
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    QPointF position;
    QQuickItem *item = nullptr;
    connect(menu, &ContextMenu::contextMenuRequested, [&](const QPointF &where, QQuickItem *what) {
        position = where;
        item = what;
    });
    press(scene.window(), QPoint(165, 170), Qt::RightButton);
    QCOMPARE(position, QPointF(65, 70));
    QCOMPARE(item, scene.find("inner"));
    press(scene.window(), QPoint(101, 102), Qt::RightButton);
    QCOMPARE(position, QPointF(1, 2));
    QCOMPARE(item, scene.find("target"));
}

// A press whose handler hides everything is the target's own, and its release opens nothing.
void tst_ContextMenu::refusedPress()
{
    Scene scene(
        QStringLiteral("MouseArea { objectName: 'target'; anchors.fill: parent\n"
                       "property int clicks: 0; onClicked: ++clicks\n"
                       "acceptedButtons: Qt.LeftButton | Qt.RightButton\n"
                       "UiContextMenu { objectName: 'menu'\n"
                       "property bool show: false; onContextMenuRequested: only.visible = show\n"
                       "UiMenuItem { id: only; text: 'Only' } } }"));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    SignalLog log;
    log.watch(menu, names({ "contextMenuRequested", "menuVisibleChanged" }));
    open(scene);
    QCOMPARE(log.take(), names({ "contextMenuRequested" }));
    QCOMPARE(scene.find("target")->property("clicks").toInt(), 1);
    menu->setProperty("show", true);
    open(scene);
    QCOMPARE(log.take(), names({ "contextMenuRequested", "menuVisibleChanged" }));
    QCOMPARE(scene.find("target")->property("clicks").toInt(), 1);

    // Inside of the open menu a right press asks once, although the menu sees it several times.
    for (bool show : { false, true }) {
        menu->setProperty("show", show);
        open(scene, QPoint(155, 155));
        QCOMPARE(log.entries().count(QStringLiteral("contextMenuRequested")), 1);
        log.take();
    }
    QCOMPARE(menu->rootItem()->position(), QPointF(155, 155));
}

void tst_ContextMenu::target()
{
    Scene scene(
        QStringLiteral("Item { objectName: 'target'; UiContextMenu { objectName: 'menu' } }\n"
                       "Item { objectName: 'other'\n"
                       "UiContextMenu { objectName: 'off'; enabled: false } }"));
    QVERIFY(scene.isValid());
    QQuickItem *target = scene.find("target");
    auto *menu = scene.find<ContextMenu>("menu");
    QCOMPARE(target->acceptedMouseButtons(), Qt::RightButton);
    QCOMPARE(scene.find("other")->acceptedMouseButtons(), Qt::NoButton);
    target->setAcceptedMouseButtons(Qt::AllButtons);
    menu->setEnabled(false);
    QCOMPARE(target->acceptedMouseButtons(), Qt::NoButton);
    target->setAcceptedMouseButtons(Qt::LeftButton);
    menu->setEnabled(true);
    QCOMPARE(target->acceptedMouseButtons(), Qt::LeftButton | Qt::RightButton);
    menu->setEnabled(false);
    QCOMPARE(target->acceptedMouseButtons(), Qt::LeftButton);
    scene.find<ContextMenu>("off")->setEnabled(true);
    QCOMPARE(scene.find("other")->acceptedMouseButtons(), Qt::RightButton);
}

void tst_ContextMenu::showAt()
{
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    QQuickItem *below = scene.find("below");
    QPointF position;
    connect(menu, &ContextMenu::contextMenuRequested, [&](const QPointF &where, QQuickItem *item) {
        position = where;
        QCOMPARE(item, below);
    });
    menu->showAt(below, QPointF(10.5, 20.4));
    QCOMPARE(position, QPointF(410.5, -79.6));
    QCOMPARE(menu->rootItem()->position(), QPointF(511, 20));
    const QPointer<QQuickItem> first = menu->rootItem();
    SignalLog log;
    log.watch(menu);
    menu->showAt(below, QPointF(qQNaN(), qInf()));
    QCOMPARE(log.take(), names({ "contextMenuRequested", "menuVisibleChanged", "closed",
                                 "menuVisibleChanged" }));
    QVERIFY(menu->rootItem() != first);
    QTRY_VERIFY(!first);
    menu->close();

    QQuickItem *target = scene.find("target");
    target->setParentItem(nullptr);
    expectWarning(QStringLiteral("cannot open while its target is in no window"));
    menu->showAt(below, QPointF());
    QVERIFY(!menu->rootItem() && !PopupStack::top());
    menu->setEnabled(false);
    log.take();
    menu->showAt(below, QPointF());
    QVERIFY(log.take().isEmpty());
    delete target;
}

// It closes the menu and reaches what it hit, in another window as well.
void tst_ContextMenu::outsidePress()
{
    Scene scene(kScene.arg(kEntries));
    Scene elsewhere(kScene.arg(QString()));
    QVERIFY(scene.isValid() && elsewhere.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    for (const Scene *place : { &scene, &elsewhere }) {
        int clicks = 0;
        for (auto button : { Qt::LeftButton, Qt::MiddleButton, Qt::RightButton }) {
            open(scene);
            QVERIFY(menu->rootItem());
            click(place->window(), QPoint(700, 500), button);
            QVERIFY(!menu->rootItem() && !PopupStack::top());
            QCOMPARE(place->find("below")->property("clicks").toInt(), ++clicks);
        }
    }
    open(scene);
    scene.window()->hide();
    QVERIFY(!menu->rootItem() && !menu->isMenuVisible() && !PopupStack::top());
}

void tst_ContextMenu::releases_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("triggers");
    QTest::addColumn<bool>("closes");
    QTest::newRow("enabled") << QStringLiteral("rename") << true << true;
    QTest::newRow("disabled") << QStringLiteral("locked") << false << true;
    QTest::newRow("separator") << QStringLiteral("separator") << false << false;
}

void tst_ContextMenu::releases()
{
    QFETCH(QString, entry);
    QFETCH(bool, triggers);
    QFETCH(bool, closes);
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    QObject *object = scene.find<QObject>(entry.toLatin1().constData());
    SignalLog log;
    log.watch(scene.find<QObject>("rename"), names({ "triggered" }));
    log.watch(scene.find<QObject>("locked"), names({ "triggered" }));
    open(scene);
    QQuickItem *delegate = delegateOf(menu, object);
    move(scene.window(), center(delegate));
    QCOMPARE(delegate->property("hovered").toBool(), triggers);
    click(scene.window(), center(delegate));
    QCOMPARE(!log.take().isEmpty(), triggers);
    QCOMPARE(!menu->rootItem(), closes);
    // Dragged off the menu: nothing is chosen.
    if (!menu->rootItem())
        open(scene);
    press(scene.window(), center(delegateOf(menu, object)));
    move(scene.window(), QPoint(700, 500));
    release(scene.window(), QPoint(700, 500));
    QVERIFY(log.take().isEmpty() && !menu->rootItem());
}

// A menu that fades out is only a picture.
void tst_ContextMenu::secondClick()
{
    Scene scene(QString(kScene)
                    .replace(QLatin1String("x: 500"), QLatin1String("x: 0; z: -1"))
                    .arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    SignalLog log;
    log.watch(scene.find<MenuItem>("rename"), names({ "triggered" }));
    open(scene);
    const QPoint position = center(delegateOf(menu, scene.find<MenuItem>("rename")));
    click(scene.window(), position);
    QTest::mouseDClick(scene.window(), Qt::LeftButton, {}, position);
    QCOMPARE(log.take(), names({ "triggered" }));
}

// The host's shortcuts rest while a menu is open.
void tst_ContextMenu::shortcuts()
{
    Scene scene(kScene.arg(kEntries)
                + QStringLiteral("\nproperty int activations: 0\n"
                                 "Shortcut { sequences: ['Escape', 'Ctrl+S']\n"
                                 "onActivated: ++activations }\n"
                                 "TextInput { objectName: 'input'; focus: true }"));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    open(scene);
    QTest::keyClick(scene.window(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(scene.window(), Qt::Key_A);
    QVERIFY(menu->rootItem());
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!menu->rootItem());
    QCOMPARE(scene.root()->property("activations").toInt(), 0);
    QVERIFY(scene.find("input")->property("text").toString().isEmpty());
    QVERIFY(scene.find("input")->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(scene.root()->property("activations").toInt(), 1);
}

void tst_ContextMenu::wheelStaysInside()
{
    Scene scene(kScene.arg(kEntries)
                + QStringLiteral("\nproperty int turns: 0\n"
                                 "MouseArea { z: -1; anchors.fill: parent; onWheel: ++turns }"));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    open(scene);
    for (const QPoint &position : { QPoint(151, 151), QPoint(180, 180), QPoint(120, 120) })
        wheel(scene.window(), position, 1);
    QVERIFY(menu->rootItem());
    QCOMPARE(scene.root()->property("turns").toInt(), 0);
    menu->close();
    wheel(scene.window(), QPoint(120, 120), 1);
    QCOMPARE(scene.root()->property("turns").toInt(), 1);
}

void tst_ContextMenu::geometry_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("leftwards");
    QTest::addColumn<bool>("upwards");
    QTest::newRow("in the middle") << QPoint(300, 300) << false << false;
    QTest::newRow("at the right edge") << QPoint(790, 300) << true << false;
    QTest::newRow("at the lower edge") << QPoint(300, 590) << false << true;
    QTest::newRow("in the corner") << QPoint(790, 590) << false << true; // upwards only
}

void tst_ContextMenu::geometry()
{
    QFETCH(QPoint, position);
    QFETCH(bool, leftwards);
    QFETCH(bool, upwards);
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    menu->showAt(scene.root(), position);
    QVERIFY(scene.waitForFrame());
    const QQuickItem *popup = frame(menu);
    const QPointF origin = position
                           - QPointF(leftwards ? popup->width() : 0, upwards ? popup->height() : 0);
    QCOMPARE(popup->mapToScene(QPointF()), origin);
}

void tst_ContextMenu::looks()
{
    Scene scene(kScene.arg(kEntries));
    QVERIFY(scene.isValid());
    auto *menu = scene.find<ContextMenu>("menu");
    for (auto style : { ContextMenu::IconAndText, ContextMenu::OnlyText }) {
        menu->setItemStyle(style);
        open(scene);
        for (const char *name : { "rename", "locked" }) {
            QQuickItem *delegate = delegateOf(menu, scene.find<MenuItem>(name));
            QQuickItem *icon = nullptr;
            QQuickItem *label = nullptr;
            const QList<QQuickItem *> children = delegate->childItems();
            for (QQuickItem *child : children) {
                if (child->property("iconName").isValid())
                    icon = child;
                else if (child->property("text").isValid())
                    label = child;
            }
            const bool iconAndText = style == ContextMenu::IconAndText;
            QCOMPARE(icon->isVisible(), iconAndText);
            QCOMPARE(icon->property("disabled").toBool(), !delegate->isEnabled());
            QCOMPARE(delegate->implicitHeight(), 32.0);
            QCOMPARE(delegate->implicitWidth(),
                     label->implicitWidth() + (iconAndText ? 24 + 32 : 24));
            QCOMPARE(label->x(), iconAndText ? 5 + 24 + 7.0 : 7.0);
        }
    }
    QTRY_COMPARE(menu->rootItem()->opacity(), 1.0);
    QQuickItem *rename = delegateOf(menu, scene.find<MenuItem>("rename"));
    const QPoint spot = rename->mapToScene(QPointF(rename->width() - 3, 3)).toPoint();
    const auto color = [&](const QPoint &position) {
        return scene.window()->grabWindow().pixelColor(position);
    };
    QCOMPARE(color(menu->rootItem()->position().toPoint()), QColor(0xcc, 0xcc, 0xcc));
    QCOMPARE(color(spot), QColor(Qt::white));
    move(scene.window(), center(rename));
    const QColor hovered = color(spot);
    press(scene.window(), center(rename));
    const QColor pressed = color(spot);
    QVERIFY(hovered != pressed && hovered != QColor(Qt::white) && pressed != QColor(Qt::white));
    move(scene.window(), center(delegateOf(menu, scene.find<MenuItem>("locked"))));
    QCOMPARE(color(spot), QColor(Qt::white));
}

TAMBER_TEST_MAIN(tst_ContextMenu)
#include "tst_contextmenu.moc"
