// variants: threaded
#include "support/heap.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

#include <QtGui/QWindow>

using namespace ta::ui;
using namespace ta::test;

// What must hold when things go wrong: bad components, no window, and whatever a handler may
// destroy or ask for in the middle of a show or hide.
class tst_PopupLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void badComponents_data();
    void badComponents();
    void withoutWindow();
    void declaredInstant();
    void hiddenBeforeItHadAWindow();
    void movesToAnotherWindow();
    void windowGoes_data();
    void windowGoes();
    void itemDestroyedOutside();
    void handlersThatAskForTheOpposite_data();
    void handlersThatAskForTheOpposite();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void eventsThatDestroy_data();
    void eventsThatDestroy();
    void destroyedWhileShown();
    void nestedPopups();
    void engineGoes();
    void heap();
};

namespace {

const QString kAnchor = QStringLiteral(
    "UiPopupAnchor { objectName: 'anchor'; x: 100; y: 100; autoLayout: true;\n"
    "Item { objectName: 'popup'; implicitWidth: 200; implicitHeight: 300; width: 200 } }\n");

} // namespace

void tst_PopupLifetime::cleanup()
{
    while (PopupStack::top())
        PopupStack::pop(PopupStack::top());
    PopupStack::pop(nullptr); // the entry of an anchor that was destroyed while it was open
    TestCase::cleanup();
}

void tst_PopupLifetime::badComponents_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("warning");
    QTest::newRow("syntax error") << QByteArray("Item {")
                                  << QStringLiteral("Component is not ready");
    QTest::newRow("no item") << QByteArray("import QtQml 2.15; QtObject {}")
                             << QStringLiteral("must be an item, not a QObject");
    QTest::newRow("window") << QByteArray("import QtQuick.Window 2.15; Window { visible: true }")
                            << QStringLiteral("must be an item, not a QQuickWindow");
    QTest::newRow("creation fails")
        << QByteArray("import QtQuick 2.15; Item { property Item i; i.x: 3 }")
        << QStringLiteral("Component is not ready"); // the second time
    QTest::newRow("required property")
        << QByteArray("import QtQuick 2.15; Item { required property int n }")
        << QStringLiteral("Component is not ready");
    QTest::newRow("broken binding") << QByteArray("import QtQuick 2.15; Item { width: Nothing.x }")
                                    << QStringLiteral("ReferenceError");
}

void tst_PopupLifetime::badComponents()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, warning);
    const bool works = qstrcmp(QTest::currentDataTag(), "broken binding") == 0;
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    QQmlComponent component(&scene.engine());
    component.setData(qml, QUrl(QStringLiteral("qrc:/popup.qml")));
    anchor->setPopup(&component);
    SignalLog log;
    log.watch(anchor,
              { QStringLiteral("popupItemChanged"), QStringLiteral("popupVisibleChanged") });
    expectWarning(warning);
    anchor->show();
    QCOMPARE(bool(anchor->popupItem()), works);
    QVERIFY(anchor->isPopupVisible());
    QCOMPARE(PopupStack::top(), works ? anchor : nullptr);
    QCOMPARE(log.take(), QStringList({ QStringLiteral("popupVisibleChanged"),
                                       QStringLiteral("popupItemChanged") }));
    click(scene.window(), QPoint(700, 500));
    anchor->hide();
    QVERIFY(!anchor->isPopupVisible());
    anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    QCOMPARE(bool(anchor->popupItem()), works);

    // While another popup is on the screen, a bad one closes it instead of leaving an empty place.
    if (works)
        return;
    QQmlComponent good(&scene.engine());
    good.setData("import QtQuick 2.15; Item {}", QUrl());
    anchor->setPopup(&good);
    anchor->show();
    QCOMPARE(PopupStack::top(), anchor);
    anchor->setPopup(&component);
    QVERIFY(!anchor->isPopupVisible() && !anchor->popupItem());
    QVERIFY(!PopupStack::top());

    // The engine has not been silenced by it.
    expectWarning(QStringLiteral("ReferenceError: Elsewhere"));
    QVERIFY(scene.create(QStringLiteral("Item { width: Elsewhere.x }")));
}

void tst_PopupLifetime::withoutWindow()
{
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    QQmlComponent component(&scene.engine());
    component.setData("import QtQuick 2.15; Item {}", QUrl());
    PopupAnchor anchor;
    SignalLog log;
    log.watch(&anchor, { QStringLiteral("aboutToShow"), QStringLiteral("popupVisibleChanged"),
                         QStringLiteral("popupItemChanged") });
    anchor.setPopup(&component);
    anchor.show();
    QVERIFY(anchor.isPopupVisible() && !anchor.popupItem() && !PopupStack::top());
    QCOMPARE(log.take(),
             QStringList({ QStringLiteral("aboutToShow"), QStringLiteral("popupVisibleChanged") }));
    anchor.setParentItem(scene.root());
    QVERIFY(anchor.popupItem() && anchor.popupItem()->isEnabled());
    QCOMPARE(PopupStack::top(), &anchor);
    QCOMPARE(log.take(), QStringList({ QStringLiteral("popupItemChanged") }));
    anchor.setParentItem(nullptr);
    QVERIFY(!anchor.isPopupVisible() && !PopupStack::top());
}

// In a Window or a view, QML sets all properties of an anchor before it puts the anchor anywhere.
void tst_PopupLifetime::declaredInstant()
{
    Scene scene(QString {});
    QVERIFY(scene.isValid());
    const auto window = scene.create(QStringLiteral(
        "Window { width: 300; height: 300; visible: true; property bool sawContext: false\n"
        "UiPopupAnchor { objectName: 'instant'; popupCreationPolicy: "
        "UiPopupAnchor.InstantCreation\n"
        "Item { objectName: 'popup'; Component.onCompleted: sawContext = later.width === 7 } }\n"
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
    shown->hide();
}

void tst_PopupLifetime::hiddenBeforeItHadAWindow()
{
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    QQmlComponent component(&scene.engine());
    component.setData("import QtQuick 2.15; Item {}", QUrl());
    PopupAnchor anchor;
    anchor.setPopup(&component);
    anchor.show();
    anchor.hide();
    anchor.setParentItem(scene.root());
    QVERIFY(!anchor.popupItem() && !PopupStack::top());
}

void tst_PopupLifetime::movesToAnotherWindow()
{
    Scene first(kAnchor);
    Scene second(QString {});
    QVERIFY(first.isValid() && second.isValid());
    auto *anchor = first.find<PopupAnchor>("anchor");
    anchor->show();
    const QPointer<QQuickItem> item = anchor->popupItem();
    SignalLog log;
    log.watch(anchor, { QStringLiteral("aboutToHide"), QStringLiteral("popupVisibleChanged") });
    anchor->setParentItem(second.root());
    QCOMPARE(log.take(),
             QStringList({ QStringLiteral("aboutToHide"), QStringLiteral("popupVisibleChanged") }));
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

void tst_PopupLifetime::windowGoes_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : { "close", "hide", "destroy" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_PopupLifetime::windowGoes()
{
    QFETCH(QString, way);
    Scene scene(kAnchor
                + QString(kAnchor).replace(QLatin1String("'anchor'"), QLatin1String("'above'")));
    QVERIFY(scene.isValid());
    const QPointer<PopupAnchor> anchor = scene.find<PopupAnchor>("anchor");
    const QPointer<PopupAnchor> above = scene.find<PopupAnchor>("above");
    anchor->show();
    above->show();
    if (way == QLatin1String("close"))
        scene.window()->close();
    else if (way == QLatin1String("hide"))
        scene.window()->hide();
    else
        scene.destroyWindow();
    QVERIFY(!PopupStack::top());
    QVERIFY(!anchor || !anchor->isPopupVisible());
    QVERIFY(!above || !above->isPopupVisible());
}

void tst_PopupLifetime::itemDestroyedOutside()
{
    for (auto policy : { PopupAnchor::OnDemandCreation, PopupAnchor::InstantCreation }) {
        Scene scene(kAnchor);
        QVERIFY(scene.isValid());
        auto *anchor = scene.find<PopupAnchor>("anchor");
        anchor->setPopupCreationPolicy(policy);
        anchor->show();
        SignalLog log;
        log.watch(anchor);
        delete anchor->popupItem();
        QCOMPARE(log.take(),
                 QStringList({ QStringLiteral("popupItemChanged"), QStringLiteral("aboutToHide"),
                               QStringLiteral("popupVisibleChanged") }));
        QVERIFY(!anchor->popupItem() && !PopupStack::top());
        anchor->show();
        QVERIFY(anchor->popupItem());
        anchor->hide();
    }
}

void tst_PopupLifetime::handlersThatAskForTheOpposite_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("instant");
    for (bool instant : { false, true }) {
        for (const char *signal : { "aboutToShow", "aboutToHide", "popupVisibleChanged",
                                    "popupItemChanged", "distanceTopChanged" })
            QTest::addRow("%s %s", signal, instant ? "instant" : "on demand")
                << QString::fromLatin1(signal) << instant;
    }
}

// A QML handler that turns the request round once: what it asks for is how it ends.
void tst_PopupLifetime::handlersThatAskForTheOpposite()
{
    QFETCH(QString, signal);
    QFETCH(bool, instant);
    Scene scene(kAnchor
                + QStringLiteral("property bool armed: false\n"
                                 "Connections { target: anchor; ignoreUnknownSignals: true\n"
                                 "function on%1() { if (!armed) return; armed = false;\n"
                                 "anchor.popupVisible = !anchor.popupVisible } }\n"
                                 "property QtObject anchor: null")
                      .arg(signal.at(0).toUpper() + signal.mid(1)));
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    scene.root()->setProperty("anchor", QVariant::fromValue(anchor));
    if (instant)
        anchor->setPopupCreationPolicy(PopupAnchor::InstantCreation);
    for (bool visible : { true, false, true, false }) {
        scene.root()->setProperty("armed", true);
        anchor->setY(anchor->y() + 1); // so that distances change
        anchor->setPopupVisible(visible);
        const bool turned = !scene.root()->property("armed").toBool();
        const bool shown = visible != turned;
        QCOMPARE(anchor->isPopupVisible(), shown);
        QCOMPARE(PopupStack::top(), shown ? anchor : nullptr);
        QCOMPARE(anchor->popupItem() && anchor->popupItem()->isEnabled(), shown);
        scene.root()->setProperty("armed", false);
        anchor->setPopupVisible(visible);
        QCOMPARE(PopupStack::top(), visible ? anchor : nullptr);
    }
}

void tst_PopupLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("victim");
    for (const char *victim : { "anchor", "item", "window" }) {
        for (const char *signal : { "aboutToShow", "popupVisibleChanged", "popupItemChanged",
                                    "distanceTopChanged", "distanceRightChanged", "aboutToHide" })
            QTest::addRow("%s in %s", victim, signal)
                << QString::fromLatin1(signal) << QString::fromLatin1(victim);
    }
}

void tst_PopupLifetime::handlersThatDestroy()
{
    QFETCH(QString, signal);
    QFETCH(QString, victim);
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    const QPointer<PopupAnchor> anchor = scene.find<PopupAnchor>("anchor");
    bool done = false;
    const auto destroy = [&] {
        if (std::exchange(done, true))
            return;
        if (victim == QLatin1String("anchor"))
            delete anchor.data();
        else if (victim == QLatin1String("item"))
            delete anchor->popupItem();
        else
            scene.destroyWindow();
    };
    if (signal == QLatin1String("aboutToShow"))
        connect(anchor, &PopupAnchor::aboutToShow, destroy);
    else if (signal == QLatin1String("popupVisibleChanged"))
        connect(anchor, &PopupAnchor::popupVisibleChanged, destroy);
    else if (signal == QLatin1String("popupItemChanged"))
        connect(anchor, &PopupAnchor::popupItemChanged, destroy);
    else if (signal == QLatin1String("distanceTopChanged"))
        connect(anchor, &PopupAnchor::distanceTopChanged, destroy);
    else if (signal == QLatin1String("distanceRightChanged"))
        connect(anchor, &PopupAnchor::distanceRightChanged, destroy);
    else
        connect(anchor, &PopupAnchor::aboutToHide, destroy);
    anchor->show();
    if (anchor)
        anchor->hide();
    QVERIFY(done);
    QVERIFY(!PopupStack::top());
}

void tst_PopupLifetime::eventsThatDestroy_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("resize") << QEvent::Resize;
    QTest::newRow("close") << QEvent::Close;
    QTest::newRow("escape") << QEvent::KeyPress;
}

// The event that closes a popup must not go on to a window that the popup's handler destroyed.
void tst_PopupLifetime::eventsThatDestroy()
{
    QFETCH(QEvent::Type, type);
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    connect(anchor, &PopupAnchor::aboutToHide, [&] { scene.destroyWindow(); });
    anchor->show();
    const QPointF outside(700, 500);
    QMouseEvent press(type, outside, outside, scene.window()->mapToGlobal(outside.toPoint()),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QResizeEvent resize(QSize(700, 500), QSize(800, 600));
    QCloseEvent close;
    QKeyEvent escape(type, Qt::Key_Escape, Qt::NoModifier);
    QEvent *event = &press;
    if (type == QEvent::Resize)
        event = &resize;
    else if (type == QEvent::Close)
        event = &close;
    else if (type == QEvent::KeyPress)
        event = &escape;
    QVERIFY(QCoreApplication::sendEvent(scene.window(), event));
    QVERIFY(!scene.window());
}

void tst_PopupLifetime::destroyedWhileShown()
{
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    const QPointer<QQuickItem> item = anchor->popupItem();
    delete anchor;
    QVERIFY(!PopupStack::top());
    QVERIFY(item);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    click(scene.window(), QPoint(700, 500));
    QVERIFY(scene.waitForFrame());
    QTRY_VERIFY(!item);
}

// The inner one closes first; the press goes on, and where something takes it, the outer popup sees
// it, too.
void tst_PopupLifetime::nestedPopups()
{
    Scene scene(QStringLiteral(
        "UiPopupAnchor { objectName: 'outer'\n"
        "Item { width: 300; height: 300\n"
        "UiPopupAnchor { objectName: 'inner'; x: 50; y: 50; Item { width: 50; height: 50 } } } }"));
    QVERIFY(scene.isValid());
    auto *outer = scene.find<PopupAnchor>("outer");
    outer->show();
    auto *inner = scene.find<PopupAnchor>("inner");
    QVERIFY(inner);
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
        Scene scene(kAnchor);
        QVERIFY(scene.isValid());
        auto *anchor = scene.find<PopupAnchor>("anchor");
        anchor->show();
        hidden = anchor->popupItem();
        anchor->hide();
        anchor->show();
        shown = anchor->popupItem();
    }
    QVERIFY(!hidden && !shown); // nothing waits for its delay without an engine
}

// An on-demand popup that comes and goes leaves nothing behind.
void tst_PopupLifetime::heap()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's allocator does not tell its numbers; the run without one does this test");
#endif
    Scene scene(kAnchor);
    QVERIFY(scene.isValid());
    auto *anchor = scene.find<PopupAnchor>("anchor");
    const auto cycles = [&](int count) {
        for (int cycle = 0; cycle < count; ++cycle) {
            anchor->show();
            const QPointer<QQuickItem> item = anchor->popupItem();
            anchor->hide();
            delete item; // so that the items of all cycles are not there at once
        }
        QTest::qWait(800); // the delays end
        scene.engine().collectGarbage();
        scene.waitForFrame();
    };
    // Caches fill, and Qt's list of timer ids grows to the size it keeps.
    cycles(10000);
    cycles(10000);
    QVERIFY(keepsHeap([&] { cycles(10000); }));
    QCOMPARE(scene.window()->contentItem()->childItems().count(), 2); // the root and the layer
}

TAMBER_TEST_MAIN(tst_PopupLifetime)
#include "tst_popuplifetime.moc"
