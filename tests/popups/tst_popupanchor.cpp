// variants: threaded
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

using namespace ta::ui;
using namespace ta::test;

// The popup as a person meets it: where it appears, what closes it, where the focus goes.
class tst_PopupAnchor : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void interfaces();
    void placement_data();
    void placement();
    void rounding();
    void yReturnsToZero();
    void followsAnchor();
    void restsWhenNothingMoves();
    void showAndHide();
    void instantCreation();
    void policies();
    void replacedComponent();
    void policyWhileShown();
    void arrangedContent_data();
    void arrangedContent();
    void pressOutside();
    void pressOnTrigger();
    void persistent();
    void wheelStaysOut();
    void resizeAndClose();
    void escape();
    void tabCycle();
    void tabWithoutFocus();
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
    "Item { objectName: 'popup'; implicitWidth: 200; implicitHeight: 300; width: 200 }");
const QString kFocusPopup = QStringLiteral(
    "FocusScope { objectName: 'popup'; implicitWidth: 200; implicitHeight: 100; width: 200\n"
    "Item { objectName: 'first'; activeFocusOnTab: true; focus: true }\n"
    "Item { objectName: 'second'; activeFocusOnTab: true }\n"
    "Item { objectName: 'third'; activeFocusOnTab: true } }");

} // namespace

void tst_PopupAnchor::cleanup()
{
    TestCase::cleanup();
    QVERIFY(!PopupStack::top());
}

void tst_PopupAnchor::interfaces()
{
    PopupAnchor anchor;
    auto *popup = qobject_cast<IPopup *>(&anchor);
    QVERIFY(popup);
    QCOMPARE(anchor.qt_metacast("IPopup"), static_cast<void *>(popup));
    QCOMPARE(anchor.qt_metacast("tamber.IPopup/1.0"), static_cast<void *>(popup));
    QVERIFY(!popup->rootItem());
    QVERIFY(popup->preventAutoScroll());
    anchor.setPreventAutoScroll(false);
    QVERIFY(!popup->preventAutoScroll());
}

void tst_PopupAnchor::placement_data()
{
    QTest::addColumn<QPoint>("position"); // of the anchor
    QTest::addColumn<QSize>("implicit");
    QTest::addColumn<QRectF>("popup"); // in the layer
    QTest::addColumn<QPointF>("layer");
    QTest::addColumn<QVector<int>>("distances"); // top, bottom, left, right
    const QSize implicit(200, 300);
    QTest::newRow("fits") << QPoint(100, 100) << implicit << QRectF(0, 0, 200, 300)
                          << QPointF(100, 100) << QVector<int> { 100, 500, 100, 700 };
    QTest::newRow("left") << QPoint(700, 100) << implicit << QRectF(-200, 0, 200, 300)
                          << QPointF(780, 100) << QVector<int> { 100, 500, 780, 20 };
    QTest::newRow("above") << QPoint(100, 500) << implicit << QRectF(0, -347, 200, 300)
                           << QPointF(100, 524) << QVector<int> { 524, 76, 100, 700 };
    QTest::newRow("cut") << QPoint(100, 300) << QSize(200, 500) << QRectF(0, 0, 200, 290)
                         << QPointF(100, 300) << QVector<int> { 300, 300, 100, 700 };
}

void tst_PopupAnchor::placement()
{
    QFETCH(QPoint, position);
    QFETCH(QSize, implicit);
    Scene scene(control(position.x(), position.y(), kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    SignalLog log;
    log.watch(anchor);
    connect(anchor, &PopupAnchor::popupItemChanged, anchor, [&] {
        if (anchor->popupItem())
            anchor->popupItem()->setImplicitHeight(implicit.height());
    });
    anchor->show();
    QQuickItem *popup = anchor->popupItem();
    QVERIFY(popup);
    QTEST(QRectF(popup->position(), popup->size()), "popup");
    QTEST(popup->parentItem()->position(), "layer");
    QCOMPARE(popup->parentItem()->parentItem(), scene.window()->contentItem());
    QCOMPARE(popup->parentItem()->z(), 65635.0);
    QTEST((QVector<int> { anchor->distanceTop(), anchor->distanceBottom(), anchor->distanceLeft(),
                          anchor->distanceRight() }),
          "distances");
    QCOMPARE(log.take(),
             names({ "aboutToShow", "popupVisibleChanged", "popupItemChanged", "distanceTopChanged",
                     "distanceBottomChanged", "distanceLeftChanged", "distanceRightChanged" }));
    anchor->hide();
}

// Positions round halves upwards, sizes lose their fraction.
void tst_PopupAnchor::rounding()
{
    Scene scene(control(0, 24, kPopup), QSize(801, 601));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
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
    control->setX(qQNaN());
    QVERIFY(scene.waitForFrame());
    control->setX(qInf());
    control->setWidth(qInf());
    anchor->popupItem()->setImplicitWidth(qInf());
    anchor->popupItem()->setImplicitHeight(qInf());
    QVERIFY(scene.waitForFrame());
    control->setX(-qInf());
    QVERIFY(scene.waitForFrame());
    control->setX(0);
    anchor->hide();
}

void tst_PopupAnchor::yReturnsToZero()
{
    Scene scene(
        control(100, 500,
                QStringLiteral("popupCreationPolicy: UiPopupAnchor.InstantCreation;") + kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    QCOMPARE(anchor->popupItem()->y(), -347.0);
    anchor->hide();
    scene.find("control")->setY(76);
    anchor->show();
    QCOMPARE(anchor->popupItem()->y(), 0.0);
    anchor->hide();
}

void tst_PopupAnchor::followsAnchor()
{
    Scene scene(control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->setAutoLayout(false);
    anchor->show();
    scene.root()->setScale(0.5); // not only its own position counts
    scene.root()->setTransformOrigin(QQuickItem::TopLeft);
    QTRY_COMPARE(anchor->popupItem()->parentItem()->position(), QPointF(50, 50));
    QCOMPARE(anchor->distanceLeft(), 50);
    anchor->hide();
    QVERIFY(scene.waitForFrame());
    const QQuickItem *layer = anchor->findChild<QQuickItem *>();
    scene.root()->setScale(1);
    QVERIFY(scene.waitForFrame());
    QCoreApplication::processEvents();
    QCOMPARE(layer->position(), QPointF(50, 50));
}

void tst_PopupAnchor::restsWhenNothingMoves()
{
    Scene scene(control(100, 500, kFocusPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    QVERIFY(scene.waitForFrame());
    QVERIFY(scene.waitForFrame());
    QTest::qWait(50); // what is under way may still land
    QSignalSpy frames(scene.window(), &QQuickWindow::beforeSynchronizing);
    QTest::qWait(300);
    QCOMPARE(frames.count(), 0);
    anchor->hide();
}

void tst_PopupAnchor::showAndHide()
{
    Scene scene(control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    QVERIFY(!anchor->popupItem());
    anchor->show();
    QPointer<QQuickItem> popup = anchor->popupItem();
    QVERIFY(popup->isEnabled());
    QVERIFY(!popup->parent());
    QVERIFY(popup->property("_ta_isPopup").toBool());
    QCOMPARE(qobject_cast<IPopup *>(anchor)->rootItem(), popup.data());
    QCOMPARE(PopupStack::top(), anchor);

    SignalLog log;
    log.watch(anchor);
    QElapsedTimer timer;
    timer.start();
    anchor->hide();
    QCOMPARE(log.take(), names({ "aboutToHide", "popupVisibleChanged", "popupItemChanged" }));
    QVERIFY(!anchor->popupItem());
    QVERIFY(popup && !popup->isEnabled() && popup->isVisible() && popup->window());
    QVERIFY(!PopupStack::top());

    // A show within the delay makes a new item and leaves the old one to its end.
    anchor->show();
    QVERIFY(anchor->popupItem() && anchor->popupItem() != popup);
    QVERIFY(!popup->isEnabled());
    QTRY_VERIFY(!popup);
    QVERIFY(timer.elapsed() >= 699);
    QVERIFY(anchor->popupItem());
    anchor->hide();
}

void tst_PopupAnchor::instantCreation()
{
    Scene scene(
        control(100, 100,
                QStringLiteral("popupCreationPolicy: UiPopupAnchor.InstantCreation;") + kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    QQuickItem *popup = anchor->popupItem();
    QVERIFY(popup && !popup->isEnabled());
    for (int round = 0; round < 2; ++round) {
        anchor->show();
        QCOMPARE(anchor->popupItem(), popup);
        QVERIFY(popup->isEnabled());
        anchor->hide();
        QCOMPARE(anchor->popupItem(), popup);
        QVERIFY(!popup->isEnabled());
    }
}

void tst_PopupAnchor::policies()
{
    Scene scene(control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    SignalLog log;
    log.watch(anchor, names({ "popupItemChanged", "popupCreationPolicyChanged", "popupChanged" }));
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    QCOMPARE(log.take(), names({ "popupItemChanged", "popupCreationPolicyChanged" }));
    QPointer<QQuickItem> popup = anchor->popupItem();
    QVERIFY(popup);
    anchor->setPopupCreationPolicy(PopupAnchor::OnDemandCreation);
    QCOMPARE(anchor->popupItem(), popup.data());
    anchor->show();
    anchor->hide();
    QVERIFY(!anchor->popupItem());
    log.take();

    // Without a component there is nothing to create; the next one is created at once.
    QQmlComponent *component = anchor->popup();
    anchor->setPopup(nullptr);
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    QCOMPARE(log.take(), names({ "popupChanged", "popupCreationPolicyChanged" }));
    anchor->setPopup(component);
    QCOMPARE(log.take(), names({ "popupItemChanged", "popupChanged" }));
    anchor->setPopup(nullptr);
    QVERIFY(anchor->popupItem());
}

void tst_PopupAnchor::replacedComponent()
{
    Scene scene(control(100, 100, kPopup)
                + QStringLiteral("property Component other: Item { implicitHeight: 33 }"));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    QPointer<QQuickItem> popup = anchor->popupItem();
    anchor->setPopup(qvariant_cast<QQmlComponent *>(scene.root()->property("other")));
    QVERIFY(anchor->popupItem() != popup);
    QVERIFY(anchor->popupItem()->isEnabled());
    QCOMPARE(anchor->popupItem()->height(), 33.0);
    QCOMPARE(PopupStack::top(), anchor);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup);
    anchor->hide();
}

// What was asked for while there was nothing to show comes as soon as there is.
void tst_PopupAnchor::policyWhileShown()
{
    Scene scene(control(100, 100, QString()) + QStringLiteral("property Component popup: Item {}"));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    anchor->setPopup(qvariant_cast<QQmlComponent *>(scene.root()->property("popup")));
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    QVERIFY(anchor->popupItem() && anchor->popupItem()->isEnabled());
    QCOMPARE(PopupStack::top(), anchor);
    anchor->hide();
}

void tst_PopupAnchor::arrangedContent_data()
{
    QTest::addColumn<QString>("type");
    for (const char *type : { "Column", "Row", "Grid", "Flow" })
        QTest::newRow(type) << QString::fromLatin1(type);
}

// A popup that arranges its children does not arrange what keeps input from below, and is covered
// by it all the same.
void tst_PopupAnchor::arrangedContent()
{
    QFETCH(QString, type);
    Scene scene(QStringLiteral("MouseArea { objectName: 'below'; property int presses: 0;"
                               "anchors.fill: parent; onPressed: ++presses }\n")
                + control(100, 100,
                          QStringLiteral("popupCreationPolicy: UiPopupAnchor.InstantCreation; %1 {"
                                         "objectName: 'popup'; padding: 20;"
                                         "Item { width: 40; height: 30 } }")
                              .arg(type)));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->setAutoLayout(false);
    anchor->show();
    QVERIFY(scene.waitForFrame());
    QVERIFY(scene.waitForFrame());
    QCOMPARE(anchor->popupItem()->size(), QSizeF(80, 70));
    click(scene.window(), QPoint(105, 105));
    QVERIFY(anchor->isPopupVisible());
    QCOMPARE(scene.find("below")->property("presses").toInt(), 0);
    anchor->hide();
}

void tst_PopupAnchor::pressOutside()
{
    Scene scene(QStringLiteral("MouseArea { objectName: 'below'; property int presses: 0;"
                               "anchors.fill: parent; onPressed: ++presses }")
                + control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    auto *below = scene.find("below");
    anchor->show();
    click(scene.window(), QPoint(150, 150)); // on an empty part of the popup
    QVERIFY(anchor->isPopupVisible());
    QVERIFY(anchor->popupItem()->hasActiveFocus());
    QCOMPARE(below->property("presses").toInt(), 0);
    click(scene.window(), QPoint(500, 500));
    QVERIFY(!anchor->isPopupVisible());
    QCOMPARE(below->property("presses").toInt(), 1);

    // The popup that opened last closes first; the one below then takes its own look at the press.
    anchor->show();
    click(scene.window(), QPoint(500, 500), Qt::RightButton);
    QVERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::pressOnTrigger()
{
    Scene scene(QStringLiteral("MouseArea { objectName: 'trigger'; x: 400; width: 50; height: 50;"
                               "property int presses: 0; onPressed: ++presses }")
                + control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    auto *trigger = scene.find("trigger");
    anchor->setTriggerItem(trigger);
    anchor->show();
    click(scene.window(), center(trigger));
    QVERIFY(!anchor->isPopupVisible());
    QCOMPARE(trigger->property("presses").toInt(), 0);
    click(scene.window(), center(trigger));
    QCOMPARE(trigger->property("presses").toInt(), 1);

    anchor->show();
    delete trigger;
    QVERIFY(!anchor->triggerItem());
    click(scene.window(), QPoint(425, 25));
    QVERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::persistent()
{
    Scene scene(QStringLiteral("property int keys: 0; focus: true; Keys.onPressed: ++keys;")
                + control(100, 100, QStringLiteral("persistent: true;") + kPopup));
    QVERIFY(scene.isValid());
    scene.root()->forceActiveFocus();
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    click(scene.window(), QPoint(500, 500));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QTest::keyClick(scene.window(), Qt::Key_A);
    QVERIFY(anchor->isPopupVisible());
    QCOMPARE(scene.root()->property("keys").toInt(), 2);
    QResizeEvent event(QSize(700, 500), QSize(800, 600));
    QCoreApplication::sendEvent(scene.window(), &event);
    QVERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::wheelStaysOut()
{
    Scene scene(QStringLiteral("MouseArea { objectName: 'below'; property int turns: 0;"
                               "anchors.fill: parent; onWheel: ++turns }")
                + control(100, 100,
                          QStringLiteral("Item { implicitHeight: 100; width: 200; MouseArea {"
                                         "objectName: 'content'; property int turns: 0;"
                                         "anchors.fill: parent; onWheel: ++turns } }")));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    for (bool persistent : { false, true }) {
        anchor->setPersistent(persistent);
        wheel(scene.window(), QPoint(500, 500), 1);
        QVERIFY(anchor->isPopupVisible());
    }
    QCOMPARE(scene.find("below")->property("turns").toInt(), 0);
    wheel(scene.window(), QPoint(150, 150), 1);
    QCOMPARE(scene.find("content")->property("turns").toInt(), 1);
    anchor->hide();
    wheel(scene.window(), QPoint(500, 500), 1);
    QCOMPARE(scene.find("below")->property("turns").toInt(), 1);
}

void tst_PopupAnchor::resizeAndClose()
{
    Scene scene(control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    QWindow other;
    QResizeEvent resize(QSize(10, 10), QSize(20, 20));
    QCloseEvent close;

    anchor->show();
    QCoreApplication::sendEvent(&other, &resize);
    QVERIFY(anchor->isPopupVisible());
    QCoreApplication::sendEvent(&other, &close);
    QVERIFY(!anchor->isPopupVisible());

    anchor->show();
    scene.window()->resize(700, 500);
    QTRY_VERIFY(!anchor->isPopupVisible());
}

void tst_PopupAnchor::escape()
{
    Scene scene(QStringLiteral("property int keys: 0; focus: true; Keys.onPressed: ++keys;")
                + control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    scene.root()->forceActiveFocus();
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    QTest::keyClick(scene.window(), Qt::Key_A);
    QCOMPARE(scene.root()->property("keys").toInt(), 1);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!anchor->isPopupVisible());
    QCOMPARE(scene.root()->property("keys").toInt(), 1);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(scene.root()->property("keys").toInt(), 2);
}

void tst_PopupAnchor::tabCycle()
{
    Scene scene(QStringLiteral("Item { objectName: 'before'; activeFocusOnTab: true }")
                + control(100, 100, kFocusPopup)
                + QStringLiteral("Item { objectName: 'after'; activeFocusOnTab: true }"));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    scene.find("before")->forceActiveFocus();
    anchor->show();
    anchor->popupItem()->forceActiveFocus();
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
    anchor->hide();
}

void tst_PopupAnchor::tabWithoutFocus()
{
    Scene scene(QStringLiteral("Item { objectName: 'before'; activeFocusOnTab: true }"
                               "Item { objectName: 'next'; activeFocusOnTab: true }")
                + control(100, 100, kPopup));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    scene.find("before")->forceActiveFocus();
    anchor->show();
    QTest::keyClick(scene.window(), Qt::Key_Tab); // nothing in the popup takes the focus
    QVERIFY(scene.find("before")->hasActiveFocus());
    anchor->hide();
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.find("next")->hasActiveFocus());
}

TAMBER_TEST_MAIN(tst_PopupAnchor)
#include "tst_popupanchor.moc"
