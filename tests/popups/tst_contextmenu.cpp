#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/MenuItem>

using namespace ta::ui;
using namespace ta::test;

// What a menu does with events, where it opens and what it shows.
class tst_ContextMenu : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void entries();
    void rightClick();
    void filter_data();
    void filter();
    void refusedPress();
    void target();
    void showAt();
    void outsidePress();
    void releases();
    void secondClick();
    void keysAndWheel();
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

const QString kScene =
    QStringLiteral("Item { objectName: 'target'; x: 100; y: 100; width: 300; height: 300\n"
                   "Item { x: 50; y: 50; width: 100; height: 100\n"
                   "Item { objectName: 'inner'; x: 10; y: 10; width: 50; height: 50 } }\n"
                   "UiContextMenu { objectName: 'menu'\n%1 } }\n"
                   "MouseArea { objectName: 'below'; property int clicks: 0; onClicked: ++clicks\n"
                   "property int turns: 0; onWheel: ++turns\n"
                   "x: 500; width: 300; height: 600; acceptedButtons: Qt.AllButtons }")
        .arg(kEntries);

// The item that draws the entry of that name, null while there is none.
QQuickItem *delegateOf(const MenuScene &scene, const char *entry)
{
    const auto items = scene.frame()->findChildren<QQuickItem *>();
    for (QQuickItem *item : items) {
        if (item->property("menuItem").value<QObject *>() == scene.find<QObject>(entry))
            return item;
    }
    return nullptr;
}

} // namespace

void tst_ContextMenu::entries()
{
    MenuScene scene(kScene);
    auto *rename = scene.find<MenuItem>("rename");
    scene.menu->addItem(nullptr);
    scene.open();
    QCOMPARE(scene.frame()->height(), 3 * 32 + 5 + 6.0);
    QVERIFY(!delegateOf(scene, "hidden")->isVisible());
    // The widest entry counts, be it hidden, and all of them are as wide as that.
    const qreal width = scene.frame()->width() - 6;
    QCOMPARE(delegateOf(scene, "rename")->width(), width);
    QCOMPARE(std::floor(delegateOf(scene, "hidden")->implicitWidth()), width);

    // What changes while the menu is open.
    rename->setVisible(false);
    QVERIFY(!delegateOf(scene, "rename")->isVisible());
    QVERIFY(!delegateOf(scene, "rename")->isEnabled());
    delete scene.find<MenuItem>("remove");
    QTRY_COMPARE(scene.frame()->height(), 32 + 5 + 6.0);
}

// The road of one right click, from the press to the closed menu.
void tst_ContextMenu::rightClick()
{
    QStringList log;
    MenuScene scene(kScene);
    ContextMenu *menu = scene.menu;
    auto *rename = scene.find<MenuItem>("rename");
    const auto note = [&](QObject *sender, const char *signal) {
        on(sender, QLatin1String(signal), [&log, menu, signal] {
            log.append(QLatin1String(signal));
            log.last() += QLatin1String(menu->isMenuVisible() ? " visible" : "");
            log.last() += QLatin1String(PopupStack::top() == menu ? " on stack" : "");
        });
    };
    for (const char *signal : { "contextMenuRequested", "menuVisibleChanged", "closed" })
        note(menu, signal);
    note(rename, "triggered");
    const auto take = [&] { return std::exchange(log, QStringList()); };

    press(scene.window(), QPoint(150, 150), Qt::RightButton);
    QCOMPARE(take(), names({ "contextMenuRequested" }));
    QVERIFY(!menu->rootItem());
    release(scene.window(), QPoint(160, 155), Qt::RightButton);
    QVERIFY(menu->rootItem() && menu->rootItem()->opacity() > 0); // seen in its first frame
    QTRY_VERIFY(scene.frame()->height() > 6);
    QCOMPARE(take(), names({ "menuVisibleChanged visible" }));
    QCOMPARE(PopupStack::top(), menu);
    const QPointer<QQuickItem> item = menu->rootItem();
    QCOMPARE(item->position(), QPointF(160, 155));
    QCOMPARE(item->z(), 4294967295.0);
    QCOMPARE(item->parentItem(), scene.window()->contentItem());
    QVERIFY(item->property("_ta_isPopup").toBool());
    QTRY_COMPARE(item->opacity(), 1.0);

    QQuickItem *delegate = delegateOf(scene, "rename");
    move(scene.window(), center(delegate));
    QVERIFY(delegate->property("hovered").toBool());
    press(scene.window(), center(delegate));
    QVERIFY(delegate->property("pressed").toBool());
    QVERIFY(take().isEmpty());
    release(scene.window(), center(delegate));
    QCOMPARE(take(), names({ "triggered visible on stack", "menuVisibleChanged on stack",
                             "closed on stack" }));
    QVERIFY(!menu->rootItem() && !PopupStack::top());
    QVERIFY(item); // fades out
    QTRY_VERIFY(!item);
    menu->close();
    QVERIFY(take().isEmpty());
}

void tst_ContextMenu::filter_data()
{
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<int>("detail");
    QTest::addColumn<QPoint>("position");
    // For each state: the signals, and whether the event is swallowed.
    QTest::addColumn<QStringList>("closed");
    QTest::addColumn<QStringList>("open");

    const QStringList swallowed = names({ "swallowed" });
    const QPoint inside(160, 170);
    const QPoint outside(120, 120);
    const QStringList close = names({ "menuVisibleChanged", "closed" });
    const QStringList opened = names({ "menuVisibleChanged", "swallowed" });
    const auto row = [](const char *name, const char *receiver, QEvent::Type type, int detail,
                        const QPoint &position, const QStringList &closed,
                        const QStringList &open) {
        QTest::newRow(name) << QString::fromLatin1(receiver) << type << detail << position << closed
                            << open;
    };
    const auto key = QEvent::KeyPress;
    const auto down = QEvent::MouseButtonPress;
    const auto up = QEvent::MouseButtonRelease;
    const auto wheel = QEvent::Wheel;
    const QStringList asked = names({ "contextMenuRequested", "swallowed" });
    row("escape", "window", key, Qt::Key_Escape, outside, {}, close + swallowed);
    row("escape to the target", "target", key, Qt::Key_Escape, outside, {}, close + swallowed);
    row("another key", "window", key, Qt::Key_A, outside, {}, swallowed);
    row("key release", "window", QEvent::KeyRelease, Qt::Key_Escape, outside, {}, {});
    row("shortcut", "window", QEvent::ShortcutOverride, Qt::Key_A, outside, {}, swallowed);
    row("right press on target", "target", down, Qt::RightButton, outside, asked, asked);
    row("left press on target", "target", down, Qt::LeftButton, outside, {}, {});
    row("right release on target", "target", up, Qt::RightButton, outside, opened, close + opened);
    row("left release on target", "target", up, Qt::LeftButton, outside, {}, {});
    row("wheel on target", "target", wheel, 0, outside, {}, {});
    row("wheel inside", "window", wheel, 0, inside, swallowed, {});
    row("wheel outside", "window", wheel, 0, outside, swallowed, swallowed);
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
    for (bool enabled : { true, false }) {
        for (const char *state : { "closed", "open" }) {
            MenuScene scene(kScene);
            if (qstrcmp(state, "open") == 0)
                scene.open();
            scene.menu->setEnabled(enabled);
            SignalLog log;
            log.watch(scene.menu);
            QObject *watched = scene.window();
            if (receiver != QLatin1String("window"))
                watched = scene.find(receiver.toLatin1().constData());
            const auto event = makeEvent(type, detail, scene.window()->mapToGlobal(position));
            const bool swallowed = scene.menu->eventFilter(watched, event.get());
            QStringList seen = log.take();
            if (swallowed)
                seen.append(QStringLiteral("swallowed"));
            if (enabled)
                QTEST(seen, state);
            else // stays open until it is told to close
                QVERIFY(seen.isEmpty());
        }
    }
}

// A press whose handler hides everything is the target's own, and its release opens nothing.
void tst_ContextMenu::refusedPress()
{
    MenuScene scene(
        QStringLiteral("MouseArea { objectName: 'target'; anchors.fill: parent\n"
                       "property int clicks: 0; onClicked: ++clicks\n"
                       "acceptedButtons: Qt.LeftButton | Qt.RightButton\n"
                       "UiContextMenu { objectName: 'menu'\n"
                       "property bool show: false; onContextMenuRequested: only.visible = show\n"
                       "UiMenuItem { id: only; text: 'Only' } } }"));
    SignalLog log;
    log.watch(scene.menu, names({ "contextMenuRequested", "menuVisibleChanged" }));
    scene.open();
    QCOMPARE(log.take(), names({ "contextMenuRequested" }));
    QCOMPARE(scene.find("target")->property("clicks").toInt(), 1);
    scene.menu->setProperty("show", true);
    scene.open();
    QCOMPARE(log.take(), names({ "contextMenuRequested", "menuVisibleChanged" }));
    QCOMPARE(scene.find("target")->property("clicks").toInt(), 1);

    // Inside of the open menu a right press asks once, although the menu sees it several times.
    for (bool show : { false, true }) {
        scene.menu->setProperty("show", show);
        click(scene.window(), QPoint(155, 155), Qt::RightButton);
        QCOMPARE(log.take().count(QStringLiteral("contextMenuRequested")), 1);
    }
    QCOMPARE(scene.menu->rootItem()->position(), QPointF(155, 155));
}

void tst_ContextMenu::target()
{
    MenuScene scene(
        QStringLiteral("Item { objectName: 'target'; UiContextMenu { objectName: 'menu' } }\n"
                       "Item { objectName: 'other'\n"
                       "UiContextMenu { objectName: 'off'; enabled: false } }"));
    QQuickItem *target = scene.find("target");
    QQuickItem *other = scene.find("other");
    QCOMPARE(target->acceptedMouseButtons(), Qt::RightButton);
    QCOMPARE(other->acceptedMouseButtons(), Qt::NoButton);
    // It gets back what it accepted before, whatever it accepts meanwhile.
    target->setAcceptedMouseButtons(Qt::AllButtons);
    scene.menu->setEnabled(false);
    QCOMPARE(target->acceptedMouseButtons(), Qt::NoButton);
    target->setAcceptedMouseButtons(Qt::LeftButton);
    scene.menu->setEnabled(true);
    QCOMPARE(target->acceptedMouseButtons(), Qt::LeftButton | Qt::RightButton);
    scene.menu->setEnabled(false);
    QCOMPARE(target->acceptedMouseButtons(), Qt::LeftButton);
    scene.find<ContextMenu>("off")->setEnabled(true);
    QCOMPARE(other->acceptedMouseButtons(), Qt::RightButton);
}

void tst_ContextMenu::showAt()
{
    MenuScene scene(kScene);
    ContextMenu *menu = scene.menu;
    QQuickItem *below = scene.find("below");
    QQuickItem *target = scene.find("target");
    QPointF position;
    QQuickItem *item = nullptr;
    connect(menu, &ContextMenu::contextMenuRequested, [&](const QPointF &where, QQuickItem *what) {
        position = where;
        item = what;
    });
    // The deepest item that a press is on, or the one that is given.
    press(scene.window(), QPoint(165, 170), Qt::RightButton);
    QCOMPARE(position, QPointF(65, 70));
    QCOMPARE(item, scene.find("inner"));
    press(scene.window(), QPoint(101, 102), Qt::RightButton);
    QCOMPARE(item, target);
    menu->showAt(below, QPointF(10.5, 20.4));
    QCOMPARE(position, QPointF(410.5, -79.6));
    QCOMPARE(item, below);
    QCOMPARE(menu->rootItem()->position(), QPointF(511, 20));

    // Open already; and no position at all.
    const QPointer<QQuickItem> first = menu->rootItem();
    SignalLog log;
    log.watch(menu);
    menu->showAt(below, QPointF(qQNaN(), qInf()));
    QCOMPARE(log.take(), names({ "contextMenuRequested", "menuVisibleChanged", "closed",
                                 "menuVisibleChanged" }));
    QVERIFY(menu->rootItem() != first);
    QTRY_VERIFY(!first);
    menu->close();

    target->setParentItem(nullptr);
    expectWarning(QStringLiteral("cannot open while its target is in no window"));
    menu->showAt(below, QPointF());
    QVERIFY(!menu->rootItem());
    log.take();
    menu->showAt(nullptr, QPointF());
    menu->setEnabled(false);
    menu->showAt(below, QPointF());
    QCOMPARE(log.take(), names({ "enabledChanged" }));
    delete target;
}

// It closes the menu and reaches what it hit, in another window as well.
void tst_ContextMenu::outsidePress()
{
    MenuScene scene(kScene);
    MenuScene elsewhere(kScene);
    for (const Scene *place : { &scene, &elsewhere }) {
        int clicks = 0;
        for (auto button : { Qt::LeftButton, Qt::MiddleButton, Qt::RightButton }) {
            scene.open();
            QVERIFY(scene.menu->rootItem());
            click(place->window(), QPoint(700, 500), button);
            QVERIFY(!scene.menu->rootItem() && !PopupStack::top());
            QCOMPARE(place->find("below")->property("clicks").toInt(), ++clicks);
        }
    }
    scene.open();
    scene.window()->hide();
    QVERIFY(!scene.menu->rootItem() && !scene.menu->isMenuVisible() && !PopupStack::top());
}

// An entry that is enabled is chosen, where the button went down on it; a separator is no way out.
void tst_ContextMenu::releases()
{
    for (const char *entry : { "rename", "locked", "separator" }) {
        const bool triggers = qstrcmp(entry, "rename") == 0;
        const bool closes = qstrcmp(entry, "separator") != 0;
        MenuScene scene(kScene);
        SignalLog log;
        for (const char *name : { "rename", "locked" })
            log.watch(scene.find<QObject>(name), names({ "triggered" }));
        scene.open();
        const QQuickItem *delegate = delegateOf(scene, entry);
        move(scene.window(), center(delegate));
        QCOMPARE(delegate->property("hovered").toBool(), triggers);
        click(scene.window(), center(delegate));
        QCOMPARE(!log.take().isEmpty(), triggers);
        QCOMPARE(!scene.menu->rootItem(), closes);
        // Dragged off the menu: nothing is chosen.
        if (closes)
            scene.open();
        press(scene.window(), center(delegateOf(scene, entry)));
        move(scene.window(), QPoint(700, 500));
        release(scene.window(), QPoint(700, 500));
        QVERIFY(log.take().isEmpty() && !scene.menu->rootItem());
    }
}

// A menu that fades out is only a picture.
void tst_ContextMenu::secondClick()
{
    MenuScene scene(QString(kScene).replace(QLatin1String("x: 500"), QLatin1String("z: -1")));
    SignalLog log;
    log.watch(scene.find<MenuItem>("rename"), names({ "triggered" }));
    scene.open();
    const QPoint position = center(delegateOf(scene, "rename"));
    click(scene.window(), position);
    QTest::mouseDClick(scene.window(), Qt::LeftButton, {}, position);
    QCOMPARE(log.take(), names({ "triggered" }));
}

// The host's shortcuts rest while a menu is open, the focus stays, and nothing below scrolls.
void tst_ContextMenu::keysAndWheel()
{
    MenuScene scene(QString(kScene).replace(QLatin1String("x: 500"), QLatin1String("z: -1"))
                    + QStringLiteral("\nproperty int activations: 0\n"
                                     "Shortcut { sequences: ['Escape', 'Ctrl+S']\n"
                                     "onActivated: ++activations }\n"
                                     "TextInput { objectName: 'input'; focus: true }"));
    const QQuickItem *input = scene.find("input");
    const auto turns = [&] { return scene.find("below")->property("turns").toInt(); };
    scene.open();
    QTest::keyClick(scene.window(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(scene.window(), Qt::Key_A);
    for (const QPoint &position : { QPoint(151, 151), QPoint(180, 180), QPoint(120, 120) })
        wheel(scene.window(), position, 1);
    QVERIFY(scene.menu->rootItem());
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!scene.menu->rootItem());
    QCOMPARE(scene.root()->property("activations").toInt(), 0);
    QVERIFY(input->property("text").toString().isEmpty() && input->hasActiveFocus());
    QCOMPARE(turns(), 0);
    QTest::keyClick(scene.window(), Qt::Key_S, Qt::ControlModifier);
    wheel(scene.window(), QPoint(120, 120), 1);
    QCOMPARE(scene.root()->property("activations").toInt(), 1);
    QCOMPARE(turns(), 1);
}

// To the right and downwards, unless the window ends there; in the corner upwards only.
void tst_ContextMenu::geometry()
{
    MenuScene scene(kScene);
    const struct
    {
        QPoint position;
        bool leftwards;
        bool upwards;
    } rows[] = { { { 300, 300 }, false, false },
                 { { 790, 300 }, true, false },
                 { { 300, 590 }, false, true },
                 { { 790, 590 }, false, true } };
    for (const auto &row : rows) {
        scene.menu->showAt(scene.root(), row.position);
        const QQuickItem *popup = scene.frame();
        const auto corner = [&] { // which lies where the pointer was
            return popup->mapToScene(
                QPointF(row.leftwards ? popup->width() : 0, row.upwards ? popup->height() : 0));
        };
        QTRY_VERIFY(popup->height() > 100); // the entries find their places in the next frame
        QTRY_COMPARE(corner(), QPointF(row.position));
    }
}

void tst_ContextMenu::looks()
{
    MenuScene scene(kScene);
    const auto widths = [&] {
        scene.open();
        const QQuickItem *delegate = delegateOf(scene, "rename");
        const auto children = delegate->childItems();
        qreal label = 0;
        for (const QQuickItem *child : children) {
            if (child->property("text").isValid())
                label = child->implicitWidth();
        }
        return delegate->implicitWidth() - label;
    };
    QCOMPARE(widths(), 24.0 + 32); // with the icon
    scene.menu->setItemStyle(ContextMenu::OnlyText);
    QCOMPARE(widths(), 24.0);
    QTRY_COMPARE(scene.menu->rootItem()->opacity(), 1.0);
    const QQuickItem *rename = delegateOf(scene, "rename");
    const QPoint spot = rename->mapToScene(QPointF(rename->width() - 3, 3)).toPoint();
    const auto color = [&](const QPoint &position) {
        return scene.window()->grabWindow().pixelColor(position);
    };
    QCOMPARE(color(scene.menu->rootItem()->position().toPoint()), QColor(0xcc, 0xcc, 0xcc));
    QCOMPARE(color(spot), QColor(Qt::white));
    move(scene.window(), center(rename));
    const QColor hovered = color(spot);
    press(scene.window(), center(rename));
    const QColor pressed = color(spot);
    QVERIFY(hovered != pressed && hovered != QColor(Qt::white) && pressed != QColor(Qt::white));
    move(scene.window(), center(delegateOf(scene, "locked")));
    QCOMPARE(color(spot), QColor(Qt::white));
}

TAMBER_TEST_MAIN(tst_ContextMenu)
#include "tst_contextmenu.moc"
