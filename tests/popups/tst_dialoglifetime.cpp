// variants: threaded
#include "dialogs.h"
#include "support/heap.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Dialog>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>

using namespace ta::ui;
using namespace ta::test;

// What must hold whatever handlers and contents do in the middle of an opening or a close: no
// crash, no dialog left on the stack, the focus where it was.
class tst_DialogLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void handlersThatClose_data();
    void handlersThatClose();
    void handlersThatReopen_data();
    void handlersThatReopen();
    void contentThatCallsBack();
    void answersThatOpenAnother();
    void eventThatDestroysItsReceiver();
    void previousFocusDestroyed();
    void hostDestroyedOutside();
    void windowGoes_data();
    void windowGoes();
    void engineGoes();
    void twoEngines();
    void popupAbove();
    void openedInItsContent();
    void heap();
};

namespace {

const QString kDialog = QStringLiteral(
    "Item { objectName: 'before'; focus: true }\n"
    "UiDialog { id: theDialog; objectName: 'dialog'; label: 'Title'\n"
    "buttons: [ UiDialogButton { role: UiDialogButton.OkRole } ]\n"
    "contentDelegate: Component { FocusScope { property var dialog; focus: true\n"
    "Item { objectName: 'inside'; focus: true } } } }\n");

const QStringList kSignals = names({ "contentChanged", "opened", "accepted", "rejected" });

// Calls \a what the first time, or the second, that \a dialog sends \a signal.
template <typename What>
void on(Dialog *dialog, const QString &signal, int time, What what)
{
    const auto count = std::make_shared<int>(0);
    const auto call = [=] {
        if (++*count == time)
            what();
    };
    if (signal == QLatin1String("contentChanged"))
        QObject::connect(dialog, &Dialog::contentChanged, dialog, call);
    else if (signal == QLatin1String("opened"))
        QObject::connect(dialog, &Dialog::opened, dialog, call);
    else if (signal == QLatin1String("accepted"))
        QObject::connect(dialog, &Dialog::accepted, dialog, call);
    else
        QObject::connect(dialog, &Dialog::rejected, dialog, call);
}

} // namespace

void tst_DialogLifetime::initTestCase()
{
    Scene::useKit();
}

void tst_DialogLifetime::cleanup()
{
    TestCase::cleanup();
    QVERIFY(!PopupStack::top());
}

void tst_DialogLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<int>("time");
    for (const char *victim : { "dialog", "host", "content", "window" }) {
        for (const QString &signal : kSignals)
            QTest::addRow("%s in %s", victim, qPrintable(signal))
                << QString::fromLatin1(victim) << signal << 1;
        QTest::addRow("%s when it closes", victim)
            << QString::fromLatin1(victim) << QStringLiteral("contentChanged") << 2;
    }
}

void tst_DialogLifetime::handlersThatDestroy()
{
    QFETCH(QString, victim);
    QFETCH(QString, signal);
    QFETCH(int, time);
    for (const char *way : { "accept", "reject", "escape", "close", "return", "ok", "outside" }) {
        // A window in the middle of giving an item an event survives the end of neither.
        const bool duringDelivery = QByteArrayList({ "return", "ok", "outside" }).contains(way);
        if (duringDelivery
            && (victim == QLatin1String("host") || victim == QLatin1String("window")))
            continue;
        if (victim == QLatin1String("window") && qstrcmp(way, "escape") == 0)
            continue; // QTest goes on with the window
        Scene scene(kDialog);
        QVERIFY(scene.isValid());
        const QPointer<Dialog> dialog = scene.find<Dialog>("dialog");
        dialog->setFlags(Dialog::Flags(7));
        QPointer<QQuickItem> host;
        on(dialog, signal, time, [&] {
            if (victim == QLatin1String("dialog"))
                delete dialog.data();
            else if (victim == QLatin1String("window"))
                scene.destroyWindow();
            else if (victim == QLatin1String("host"))
                delete (host ? host.data() : dialog->rootItem());
            else
                delete dialog->content();
        });
        dialog->show();
        if (dialog) {
            host = dialog->rootItem();
            if (qstrcmp(way, "accept") == 0)
                dialog->accept(1);
            else if (qstrcmp(way, "reject") == 0)
                dialog->reject();
            else if (!scene.window())
                dialog->reject();
            else if (qstrcmp(way, "escape") == 0)
                QTest::keyClick(scene.window(), Qt::Key_Escape);
            else if (qstrcmp(way, "outside") == 0)
                click(scene.window(), QPoint(5, 5));
            else if (qstrcmp(way, "ok") == 0 && host)
                click(scene.window(), center(pushButtons(dialog).first()));
            else if (qstrcmp(way, "return") == 0)
                QTest::keyClick(scene.window(), Qt::Key_Return);
            else
                QCoreApplication::sendEvent(scene.window(), std::make_unique<QCloseEvent>().get());
        }
        QVERIFY(!PopupStack::top());
        QVERIFY(!dialog || !dialog->rootItem());
        QTRY_VERIFY(!host);
        if (scene.window())
            QVERIFY(scene.find("before")->hasActiveFocus());
    }
}

void tst_DialogLifetime::handlersThatClose_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal : { "contentChanged", "opened", "activeFocus", "width" })
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

// A dialog that a handler closes while it opens is closed, and was never opened or had been.
void tst_DialogLifetime::handlersThatClose()
{
    QFETCH(QString, signal);
    Scene scene(kDialog);
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->setWidth(444);
    SignalLog log;
    log.watch(dialog, names({ "opened", "rejected" }));
    QMetaObject::Connection connection;
    connection = connect(scene.window(), &QQuickWindow::activeFocusItemChanged, dialog, [&] {
        if (signal == QLatin1String("activeFocus") && dialog->rootItem())
            dialog->reject();
        if (signal != QLatin1String("width") || !dialog->rootItem())
            return;
        disconnect(connection);
        connect(scene.window()->activeFocusItem()->parentItem(), &QQuickItem::widthChanged, dialog,
                [&] {
                    if (PopupStack::top() == dialog)
                        dialog->reject();
                });
    });
    if (signal == QLatin1String("contentChanged") || signal == QLatin1String("opened"))
        on(dialog, signal, 1, [&] { dialog->reject(); });
    dialog->show();
    QCOMPARE(log.take(), signal == QLatin1String("opened") ? names({ "opened", "rejected" })
                                                           : names({ "rejected" }));
    QVERIFY(!dialog->rootItem() && !dialog->content() && !PopupStack::top());
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_DialogLifetime::handlersThatReopen_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<int>("time");
    QTest::newRow("contentChanged") << QStringLiteral("contentChanged") << 2;
    QTest::newRow("rejected") << QStringLiteral("rejected") << 1;
}

void tst_DialogLifetime::handlersThatReopen()
{
    QFETCH(QString, signal);
    QFETCH(int, time);
    Scene scene(kDialog);
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    on(dialog, signal, time, [&] { dialog->show(); });
    for (const char *way : { "reject", "escape" }) {
        dialog->show();
        const QPointer<QQuickItem> first = dialog->rootItem();
        if (qstrcmp(way, "reject") == 0)
            dialog->reject();
        else
            QTest::keyClick(scene.window(), Qt::Key_Escape);
        if (qstrcmp(way, "escape") == 0) {
            QVERIFY(!dialog->rootItem());
            break;
        }
        QVERIFY(dialog->rootItem() && dialog->rootItem() != first);
        QCOMPARE(PopupStack::top(), dialog);
        QVERIFY(dialog->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
        QTRY_VERIFY(!first);
        QVERIFY(dialog->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
        dialog->reject();
        QVERIFY(scene.find("before")->hasActiveFocus());
        QVERIFY(!PopupStack::top());
    }
}

// The dialog is not shown yet when its content is completed.
void tst_DialogLifetime::contentThatCallsBack()
{
    Scene scene(QStringLiteral(
        "Item { objectName: 'before'; focus: true }\n"
        "UiDialog { objectName: 'dialog'; contentDelegate: Component { FocusScope { property var "
        "dialog\n"
        "focus: true; Component.onCompleted: { dialog.show(); dialog.accept(1); dialog.reject();\n"
        "dialog.width = 350; forceActiveFocus() } } } }"));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    SignalLog log;
    log.watch(dialog, names({ "opened", "accepted", "rejected" }));
    dialog->show();
    QCOMPARE(log.take(), names({ "opened" }));
    QCOMPARE(dialog->findChildren<QQuickItem *>(QString(), Qt::FindDirectChildrenOnly).count(), 1);
    QCOMPARE(dialog->content()->width(), 350.0);
    QVERIFY(dialog->content()->hasActiveFocus());
    dialog->reject();
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_DialogLifetime::answersThatOpenAnother()
{
    Scene scene(kDialog
                + QString(kDialog)
                      .replace(QLatin1String("theDialog"), QLatin1String("other"))
                      .replace(QLatin1String("'dialog'"), QLatin1String("'other'"))
                      .replace(QLatin1String("'before'; focus: true"), QLatin1String("'rest'"))
                + QStringLiteral("Connections { target: theDialog; function onAccepted(result) "
                                 "{ other.show(); theDialog.destroy() } }"));
    QVERIFY(scene.isValid());
    const QPointer<Dialog> dialog = scene.find<Dialog>("dialog");
    auto *other = scene.find<Dialog>("other");
    dialog->show();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(other->rootItem());
    QTRY_VERIFY(!dialog);
    QCOMPARE(PopupStack::top(), other);
    QVERIFY(other->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(scene.find("before")->hasActiveFocus());
}

// The event that closes a dialog must not go on to a window that a handler destroyed.
void tst_DialogLifetime::eventThatDestroysItsReceiver()
{
    for (auto type : { QEvent::Close, QEvent::KeyPress }) {
        Scene scene(kDialog);
        QVERIFY(scene.isValid());
        auto *dialog = scene.find<Dialog>("dialog");
        connect(dialog, &Dialog::rejected, [&] { scene.destroyWindow(); });
        dialog->show();
        QCloseEvent close;
        QKeyEvent escape(type, Qt::Key_Escape, Qt::NoModifier);
        QEvent *event = type == QEvent::Close ? static_cast<QEvent *>(&close) : &escape;
        QVERIFY(QCoreApplication::sendEvent(scene.window(), event));
        QVERIFY(!scene.window());
    }
}

void tst_DialogLifetime::previousFocusDestroyed()
{
    Scene scene(kDialog + QStringLiteral("UiDialog { objectName: 'above' }"));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    auto *above = scene.find<Dialog>("above");
    dialog->show();
    QVERIFY(scene.find("inside")->hasActiveFocus());
    above->show();
    delete scene.find("inside");
    above->reject();
    QVERIFY(box(dialog)->hasActiveFocus());

    const QPointer<QQuickItem> host = dialog->rootItem();
    delete scene.find("before");
    dialog->reject();
    QVERIFY(!host->isAncestorOf(scene.window()->activeFocusItem()));
    QTRY_VERIFY(!host);
}

void tst_DialogLifetime::hostDestroyedOutside()
{
    Scene scene(kDialog);
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    SignalLog log;
    log.watch(dialog);
    for (int round = 0; round < 2; ++round) {
        dialog->show();
        delete dialog->rootItem();
        QCOMPARE(log.take(), names({ "contentChanged", "opened", "contentChanged", "rejected" }));
        QVERIFY(!PopupStack::top());
        QVERIFY(scene.find("before")->hasActiveFocus());
    }
}

void tst_DialogLifetime::windowGoes_data()
{
    QTest::addColumn<bool>("outlives"); // whether the dialog belongs to something else
    QTest::newRow("with its dialog") << false;
    QTest::newRow("and the dialog stays") << true;
}

void tst_DialogLifetime::windowGoes()
{
    QFETCH(bool, outlives);
    Scene keeper(QString {});
    Scene scene(kDialog);
    QVERIFY(keeper.isValid() && scene.isValid());
    const QPointer<Dialog> dialog = scene.find<Dialog>("dialog");
    SignalLog log;
    log.watch(dialog, names({ "opened", "rejected" }));
    dialog->show();
    if (outlives)
        dialog->setParent(keeper.root());
    scene.destroyWindow();
    QVERIFY(!PopupStack::top());
    QCOMPARE(bool(dialog), outlives);
    if (!outlives)
        return;
    QCOMPARE(log.take(), names({ "opened", "rejected" }));
}

// A dialog outlives its engine, open or closed, and says that it cannot be shown any more.
void tst_DialogLifetime::engineGoes()
{
    expectWarning(QStringLiteral("without its QML engine"));
    for (bool shown : { true, false }) {
        std::unique_ptr<Dialog> dialog;
        {
            Scene scene(kDialog);
            QVERIFY(scene.isValid());
            dialog.reset(scene.find<Dialog>("dialog"));
            dialog->show();
            if (!shown)
                dialog->reject();
            QQmlEngine::setObjectOwnership(dialog.get(), QQmlEngine::CppOwnership);
            dialog->setParent(nullptr);
        }
        QVERIFY(!PopupStack::top());
        dialog->show();
        QVERIFY(!dialog->rootItem());
    }
}

void tst_DialogLifetime::twoEngines()
{
    Scene first(kDialog);
    QVERIFY(first.isValid());
    auto *one = first.find<Dialog>("dialog");
    one->show();
    {
        Scene second(kDialog);
        QVERIFY(second.isValid());
        auto *two = second.find<Dialog>("dialog");
        QVERIFY(two->headerDelegate() != one->headerDelegate());
        two->show();
        QCOMPARE(qmlEngine(two->rootItem()), &second.engine());
        QCOMPARE(PopupStack::top(), two);
        two->reject();
    }
    QCOMPARE(PopupStack::top(), one);
    one->reject();
    one->show();
    QVERIFY(one->content());
    one->reject();
}

// A popup above a dialog gets its input, and the dialog is back in charge when it closes.
void tst_DialogLifetime::popupAbove()
{
    Scene scene(QStringLiteral(
        "Item { objectName: 'before'; focus: true }\n"
        "UiDialog { objectName: 'dialog'; contentDelegate: Component { Item { property var dialog\n"
        "implicitWidth: 300; implicitHeight: 200\n"
        "UiPopupAnchor { objectName: 'anchor'; y: 180; Item { width: 300; height: 200\n"
        "MouseArea { objectName: 'inPopup'; anchors.fill: parent; property int presses: 0; "
        "onPressed: ++presses } } } } } }"));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->setFlags(Dialog::Flags(7));
    dialog->show();
    auto *anchor = scene.find<PopupAnchor>("anchor");
    anchor->show();
    const QQuickItem *inPopup = scene.find("inPopup");
    QVERIFY(center(inPopup).y() > 450); // below the dialog
    click(scene.window(), center(inPopup));
    QCOMPARE(inPopup->property("presses").toInt(), 1);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(!anchor->isPopupVisible() && dialog->rootItem());
    QCOMPARE(PopupStack::top(), dialog);
    anchor->show();
    dialog->reject(); // in the wrong order
    QCOMPARE(PopupStack::top(), anchor);
    QVERIFY(scene.find("before")->hasActiveFocus());
    QTRY_VERIFY(!PopupStack::top()); // the content took the anchor along
}

// A dialog that another one's content shows at once opens when that has opened, and goes with it.
void tst_DialogLifetime::openedInItsContent()
{
    Scene scene(QStringLiteral(
        "Item { objectName: 'before'; focus: true }\n"
        "UiDialog { objectName: 'outer'; contentDelegate: Component { Item { property var dialog\n"
        "Component.onCompleted: inner.show()\n"
        "UiDialog { id: inner; objectName: 'inner'; contentDelegate: Component {\n"
        "Item { property var dialog; objectName: 'innermost' } } } } } }"));
    QVERIFY(scene.isValid());
    auto *outer = scene.find<Dialog>("outer");
    SignalLog log;
    log.watch(outer, names({ "opened", "rejected" }));
    outer->show();
    const QPointer<Dialog> inner = outer->content()->findChild<Dialog *>();
    QCOMPARE(PopupStack::top(), inner.data());
    QVERIFY(inner->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
    const auto items = scene.window()->contentItem()->childItems();
    QVERIFY(items.indexOf(inner->rootItem()) > items.indexOf(outer->rootItem()));
    outer->reject();
    QTRY_VERIFY(!inner);
    QVERIFY(!PopupStack::top());
    QCOMPARE(log.take(), names({ "opened", "rejected" }));
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_DialogLifetime::heap()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("A sanitizer's allocator does not tell its numbers; the run without one does this test");
#endif
    Scene scene(kDialog);
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    const auto cycles = [&](int count) {
        for (int cycle = 0; cycle < count; ++cycle) {
            dialog->show();
            const QPointer<QQuickItem> host = dialog->rootItem();
            dialog->reject();
            delete host; // so that no cycle waits for the fade of the one before
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            if (cycle % 500 == 0)
                scene.engine().collectGarbage();
        }
        dialog->show();
        dialog->reject();
        QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1);
        scene.engine().collectGarbage();
        scene.waitForFrame();
    };
    for (int batch = 0; batch < 3; ++batch) // caches fill
        cycles(1000);
    QVERIFY(keepsHeap([&] {
        for (int batch = 0; batch < 10; ++batch)
            cycles(1000);
    }));
    QVERIFY(dialog->findChildren<QQuickItem *>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
}

TAMBER_TEST_MAIN(tst_DialogLifetime)
#include "tst_dialoglifetime.moc"
