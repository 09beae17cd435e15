// variants: threaded
#include "popups.h"
#include "support/framecounter.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// The popup as a person meets it: where it appears, what closes it, where the focus goes.
class tst_PopupAnchor : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void placement();
    void rounding();
    void followsAnchor();
    void restsWhenNothingMoves();
    void showAndHide();
    void policies();
    void replacedComponent();
    void arrangedContent();
    void pressOutside();
    void persistent();
    void resizeAndClose();
    void tabCycle();
    void tabWithoutFocus();
    void focusComesBack();
};

namespace {

// An 80 x 24 control at (x, y - 24) with an anchor at its lower left corner, at (x, y).
QString control(int x, int y, const QString &anchor)
{
    return QStringLiteral("Item { objectName: 'control'; x: %1; y: %2; width: 80; height: 24\n"
                          "UiPopupAnchor { objectName: 'anchor'; y: 24; autoLayout: true; %3 } }\n")
        .arg(x)
        .arg(y - 24)
        .arg(anchor);
}

const QString kPopup = QStringLiteral(
    "Item { implicitWidth: 200; implicitHeight: 300; width: 200\n"
    "MouseArea { objectName: 'content'; property int turns: 0; onWheel: ++turns\n"
    "width: 200; height: 20 } }");
const QString kFocusPopup = QStringLiteral(
    "FocusScope { implicitWidth: 200; implicitHeight: 100; width: 200\n"
    "Item { objectName: 'first'; activeFocusOnTab: true; focus: true }\n"
    "Item { objectName: 'second'; activeFocusOnTab: true }\n"
    "Item { objectName: 'third'; activeFocusOnTab: true } }");
const QString kInstant = QStringLiteral("popupCreationPolicy: UiPopupAnchor.InstantCreation\n");
const QString kBelow = QStringLiteral(
    "property int keys: 0; Keys.onPressed: ++keys; focus: true\n"
    "MouseArea { objectName: 'below'; property int presses: 0; property int turns: 0\n"
    "anchors.fill: parent; onPressed: ++presses; onWheel: ++turns }\n");
const QPoint kOutside(500, 500);

} // namespace

// The arithmetic has a test of its own.
void tst_PopupAnchor::placement()
{
    AnchorScene scene(control(700, 500, kInstant + kPopup));
    PopupAnchor *anchor = scene.anchor;
    SignalLog log;
    log.watch(anchor);
    anchor->show();
    const QQuickItem *popup = anchor->popupItem();
    const QQuickItem *layer = popup->parentItem();
    QCOMPARE(QRectF(popup->position(), popup->size()), QRectF(-200, -347, 200, 300));
    QCOMPARE(layer->position(), QPointF(780, 524));
    QCOMPARE(layer->parentItem(), scene.window()->contentItem());
    QCOMPARE(layer->z(), 65635.0);
    QCOMPARE(anchor->distanceTop(), 524);
    QCOMPARE(anchor->distanceBottom(), 76);
    QCOMPARE(anchor->distanceLeft(), 780);
    QCOMPARE(anchor->distanceRight(), 20);
    QCOMPARE(log.take(),
             names({ "aboutToShow", "popupVisibleChanged", "distanceTopChanged",
                     "distanceBottomChanged", "distanceLeftChanged", "distanceRightChanged" }));
    // What it was given above the control does not stay below it.
    anchor->hide();
    scene.find("control")->setY(76);
    anchor->show();
    QCOMPARE(popup->y(), 0.0);
    anchor->hide();
}

// Positions round halves upwards, sizes lose their fraction.
void tst_PopupAnchor::rounding()
{
    AnchorScene scene(control(0, 24, kPopup), QSize(801, 601));
    PopupAnchor *anchor = scene.anchor;
    auto *control = scene.find("control");
    anchor->show();
    const struct
    {
        qreal x;
        int layer;
    } rows[] = { { 10.49, 10 }, { 10.5, 11 }, { -0.5, 0 }, { -0.51, -1 }, { -1.5, -1 } };
    for (const auto &row : rows) {
        control->setX(row.x);
        QVERIFY(scene.waitForFrame());
        QTRY_COMPARE(anchor->popupItem()->parentItem()->x(), qreal(row.layer));
        QCOMPARE(anchor->distanceRight(), 801 - row.layer);
    }
    control->setX(700);
    control->setWidth(80.9);
    anchor->popupItem()->setImplicitWidth(200.9);
    QVERIFY(scene.waitForFrame());
    QTRY_COMPARE(anchor->popupItem()->x(), -200.0);
    QCOMPARE(anchor->popupItem()->parentItem()->x(), 780.0);

    // Numbers that are no positions are survived.
    control->setWidth(qInf());
    anchor->popupItem()->setImplicitWidth(qInf());
    anchor->popupItem()->setImplicitHeight(qInf());
    for (qreal x : { qQNaN(), qInf(), -qInf() }) {
        control->setX(x);
        QVERIFY(scene.waitForFrame());
    }
    control->setX(0);
    anchor->hide();
}

void tst_PopupAnchor::followsAnchor()
{
    AnchorScene scene(control(100, 100, kPopup));
    scene.anchor->setAutoLayout(false);
    scene.anchor->show();
    scene.root()->setScale(0.5); // not only its own position counts
    scene.root()->setTransformOrigin(QQuickItem::TopLeft);
    QTRY_COMPARE(scene.anchor->popupItem()->parentItem()->position(), QPointF(50, 50));
    QCOMPARE(scene.anchor->distanceLeft(), 50);
    scene.anchor->hide();
    QVERIFY(scene.waitForFrame());
    const QQuickItem *layer = scene.anchor->findChild<QQuickItem *>();
    scene.root()->setScale(1);
    QVERIFY(scene.waitForFrame());
    QCoreApplication::processEvents();
    QCOMPARE(layer->position(), QPointF(50, 50));
}

void tst_PopupAnchor::restsWhenNothingMoves()
{
    AnchorScene scene(control(100, 500, kFocusPopup));
    scene.anchor->show();
    QVERIFY(scene.waitForFrame());
    QVERIFY(scene.waitForFrame());
    QTest::qWait(50); // what is under way may still land
    const FrameCounter frames(scene.window());
    QTest::qWait(300);
    QCOMPARE(frames.count(), 0);
    scene.anchor->hide();
}

void tst_PopupAnchor::showAndHide()
{
    AnchorScene scene(control(100, 100, kPopup));
    PopupAnchor *anchor = scene.anchor;
    auto *interface = qobject_cast<IPopup *>(static_cast<QObject *>(anchor));
    QCOMPARE(anchor->qt_metacast("tamber.IPopup/1.0"), static_cast<void *>(interface));
    QVERIFY(!anchor->popupItem());
    anchor->show();
    QPointer<QQuickItem> popup = anchor->popupItem();
    QVERIFY(popup->isEnabled() && !popup->parent());
    QVERIFY(popup->property("_ta_isPopup").toBool());
    QCOMPARE(interface->rootItem(), popup.data());
    QCOMPARE(PopupStack::top(), anchor);

    SignalLog log;
    log.watch(anchor);
    QElapsedTimer timer;
    timer.start();
    anchor->hide();
    QCOMPARE(log.take(), names({ "aboutToHide", "popupVisibleChanged", "popupItemChanged" }));
    QVERIFY(!anchor->popupItem() && !PopupStack::top());
    QVERIFY(popup && !popup->isEnabled() && popup->isVisible() && popup->window());

    // A show within the delay makes a new item and leaves the old one to its end.
    anchor->show();
    QVERIFY(anchor->popupItem() && anchor->popupItem() != popup);
    QVERIFY(!popup->isEnabled());
    QTRY_VERIFY(!popup);
    QVERIFY(timer.elapsed() >= 699);
    QVERIFY(anchor->popupItem());
    anchor->hide();
}

void tst_PopupAnchor::policies()
{
    AnchorScene scene(control(100, 100, kPopup));
    PopupAnchor *anchor = scene.anchor;
    SignalLog log;
    log.watch(anchor, names({ "popupItemChanged", "popupCreationPolicyChanged", "popupChanged" }));
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    QCOMPARE(log.take(), names({ "popupItemChanged", "popupCreationPolicyChanged" }));
    const QPointer<QQuickItem> popup = anchor->popupItem();
    QVERIFY(popup);
    anchor->setPopupCreationPolicy(PopupAnchor::OnDemandCreation);
    QCOMPARE(anchor->popupItem(), popup.data());
    anchor->show();
    anchor->hide();
    QVERIFY(!anchor->popupItem());
    log.take();

    // Without a component there is nothing to create; the next one is created at once, and shown
    // where that was asked for meanwhile.
    QQmlComponent *component = anchor->popup();
    anchor->setPopup(nullptr);
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    anchor->show();
    QCOMPARE(log.take(), names({ "popupChanged", "popupCreationPolicyChanged" }));
    anchor->setPopup(component);
    QCOMPARE(log.take(), names({ "popupItemChanged", "popupChanged" }));
    QVERIFY(anchor->popupItem()->isEnabled());
    QCOMPARE(PopupStack::top(), anchor);
    anchor->hide();
    anchor->setPopup(nullptr);
    QVERIFY(anchor->popupItem());
}

void tst_PopupAnchor::replacedComponent()
{
    AnchorScene scene(control(100, 100, kPopup)
                      + QStringLiteral("property Component other: Item { implicitHeight: 33 }"));
    PopupAnchor *anchor = scene.anchor;
    anchor->show();
    const QPointer<QQuickItem> popup = anchor->popupItem();
    anchor->setPopup(qvariant_cast<QQmlComponent *>(scene.root()->property("other")));
    QVERIFY(anchor->popupItem() != popup && anchor->popupItem()->isEnabled());
    QCOMPARE(anchor->popupItem()->height(), 33.0);
    QCOMPARE(PopupStack::top(), anchor);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup);
    anchor->hide();
}

// A popup that arranges its children does not arrange what keeps input from below, and is covered
// by it all the same.
void tst_PopupAnchor::arrangedContent()
{
    for (const QString &type : names({ "Column", "Row", "Grid", "Flow" })) {
        const QString popup = type
                              + QLatin1String(" { padding: 20; Item { width: 40; height: 30 } }");
        AnchorScene scene(kBelow + control(100, 100, kInstant + popup));
        scene.anchor->setAutoLayout(false);
        scene.anchor->show();
        QVERIFY(scene.waitForFrame());
        QVERIFY(scene.waitForFrame());
        QCOMPARE(scene.anchor->popupItem()->size(), QSizeF(80, 70));
        click(scene.window(), QPoint(105, 105));
        QVERIFY(scene.anchor->isPopupVisible());
        QCOMPARE(scene.find("below")->property("presses").toInt(), 0);
        scene.anchor->hide();
    }
}

// It reaches what lies there, but for the item that opens the popup.
void tst_PopupAnchor::pressOutside()
{
    AnchorScene scene(kBelow + control(100, 100, kPopup));
    PopupAnchor *anchor = scene.anchor;
    auto *below = scene.find("below");
    const auto presses = [&] { return below->property("presses").toInt(); };
    anchor->show();
    click(scene.window(), QPoint(150, 150)); // on an empty part of the popup
    QVERIFY(anchor->isPopupVisible() && anchor->popupItem()->hasActiveFocus());
    QCOMPARE(presses(), 0);
    for (auto button : { Qt::LeftButton, Qt::RightButton }) {
        anchor->show();
        click(scene.window(), kOutside, button);
        QVERIFY(!anchor->isPopupVisible());
        QCOMPARE(presses(), 1);
    }
    anchor->setTriggerItem(below);
    for (int expected : { 1, 2 }) { // closes it, and is one like any other
        anchor->setPopupVisible(expected == 1);
        click(scene.window(), kOutside);
        QVERIFY(!anchor->isPopupVisible());
        QCOMPARE(presses(), expected);
    }
    anchor->show();
    delete below;
    QVERIFY(!anchor->triggerItem());
    click(scene.window(), kOutside);
    QVERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::persistent()
{
    AnchorScene scene(kBelow + control(100, 100, kPopup));
    PopupAnchor *anchor = scene.anchor;
    scene.root()->forceActiveFocus();
    const auto keys = [&] { return scene.root()->property("keys").toInt(); };
    const auto turns = [](const QQuickItem *item) { return item->property("turns").toInt(); };
    wheel(scene.window(), kOutside, 1);
    for (bool persistent : { false, true }) {
        anchor->setPersistent(persistent);
        anchor->show();
        wheel(scene.window(), kOutside, 1);
        wheel(scene.window(), QPoint(150, 110), 1);
        QVERIFY(anchor->isPopupVisible());
        QCOMPARE(turns(scene.find("below")), 1); // from before
        QCOMPARE(turns(anchor->popupItem()->findChild<QQuickItem *>(QStringLiteral("content"))), 1);
        QTest::keyClick(scene.window(), Qt::Key_A);
        QTest::keyClick(scene.window(), Qt::Key_Escape);
        QCOMPARE(anchor->isPopupVisible(), persistent);
        QCOMPARE(keys(), persistent ? 3 : 1);
    }
    click(scene.window(), kOutside);
    QVERIFY(anchor->isPopupVisible());
    QCoreApplication::sendEvent(scene.window(), makeEvent(QEvent::Resize, 0, {}).get());
    QVERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::resizeAndClose()
{
    AnchorScene scene(control(100, 100, kPopup));
    QWindow other;
    scene.anchor->show();
    QCoreApplication::sendEvent(&other, makeEvent(QEvent::Resize, 0, {}).get());
    QVERIFY(scene.anchor->isPopupVisible());
    QCoreApplication::sendEvent(&other, makeEvent(QEvent::Close, 0, {}).get());
    QVERIFY(!scene.anchor->isPopupVisible());
    scene.anchor->show();
    scene.window()->resize(700, 500);
    QTRY_VERIFY(!scene.anchor->isPopupVisible());
}

void tst_PopupAnchor::tabCycle()
{
    AnchorScene scene(QStringLiteral("Item { objectName: 'before'; activeFocusOnTab: true }")
                      + control(100, 100, kFocusPopup)
                      + QStringLiteral("Item { objectName: 'after'; activeFocusOnTab: true }"));
    scene.find("before")->forceActiveFocus();
    scene.anchor->show();
    scene.anchor->popupItem()->forceActiveFocus();
    const auto focus = [&] { return scene.window()->activeFocusItem()->objectName(); };
    QCOMPARE(focus(), QStringLiteral("first"));
    for (const char *expected : { "second", "third", "first", "second" }) {
        QTest::keyClick(scene.window(), Qt::Key_Tab);
        QCOMPARE(focus(), QLatin1String(expected));
    }
    for (const char *expected : { "first", "third", "second" }) {
        QTest::keyClick(scene.window(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(focus(), QLatin1String(expected));
    }

    // One tab stop: the key is swallowed.
    scene.find("first")->forceActiveFocus();
    for (const char *name : { "second", "third" })
        scene.find(name)->setActiveFocusOnTab(false);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QCOMPARE(focus(), QStringLiteral("first"));
    scene.anchor->hide();
}

void tst_PopupAnchor::tabWithoutFocus()
{
    AnchorScene scene(QStringLiteral("Item { objectName: 'before'; activeFocusOnTab: true }"
                                     "Item { objectName: 'next'; activeFocusOnTab: true }")
                      + control(100, 100, kPopup));
    scene.find("before")->forceActiveFocus();
    scene.anchor->show();
    QTest::keyClick(scene.window(), Qt::Key_Tab); // nothing in the popup takes the focus
    QVERIFY(scene.find("before")->hasActiveFocus());
    scene.anchor->hide();
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.find("next")->hasActiveFocus());
}

// To the item that had it, where the popup has it when it closes, and where that item can take it.
void tst_PopupAnchor::focusComesBack()
{
    for (const QString &policy : { kInstant, QString() }) {
        AnchorScene scene(QStringLiteral("Item { objectName: 'before'; focus: true }\n"
                                         "Item { objectName: 'other' }\n")
                          + control(100, 100, policy + kFocusPopup));
        auto *before = scene.find("before");
        const auto closeFrom = [&](const char *name) {
            scene.anchor->show();
            scene.anchor->popupItem()->forceActiveFocus();
            if (name)
                scene.find(name)->forceActiveFocus();
            scene.anchor->hide();
        };
        closeFrom(nullptr);
        QVERIFY(before->hasActiveFocus());
        closeFrom("other");
        QVERIFY(scene.find("other")->hasActiveFocus());
        // A handler that shows it again while it closes does not make it remember itself.
        before->forceActiveFocus();
        on(
            scene.anchor, QStringLiteral("aboutToHide"), [&] { scene.anchor->show(); }, 1);
        closeFrom(nullptr);
        QVERIFY(scene.anchor->popupItem()->isAncestorOf(scene.window()->activeFocusItem()));
        scene.anchor->hide();
        QVERIFY(before->hasActiveFocus());
        on(
            scene.anchor, QStringLiteral("aboutToHide"), [&] { before->setEnabled(false); }, 1);
        closeFrom(nullptr);
        QVERIFY(!before->hasActiveFocus());
    }
}

TAMBER_TEST_MAIN(tst_PopupAnchor)
#include "tst_popupanchor.moc"
