#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// What must hold whatever handlers and contents do in the middle of an opening or a close: no
// crash, no dialog left on the stack, the focus where it was.
class tst_DialogLifetime : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void handlersThatDestroy_data();
    void handlersThatDestroy();
    void clicksThatDestroy();
    void answersWithEventLoops();
    void handlersThatClose();
    void handlersThatReopen();
    void contentThatCallsBack();
    void shownBeforeWindow();
    void answersThatOpenAnother();
    void previousFocusDestroyed();
    void hostDestroyedOutside();
    void windowGoes();
    void engineGoes();
};

namespace {

const QString kDialog = QStringLiteral(
    "Item { objectName: 'before'; focus: true }\n"
    "UiDialog { id: theDialog; objectName: 'dialog'; label: 'Title'\n"
    "buttons: [ UiDialogButton { role: UiDialogButton.OkRole } ]\n"
    "contentDelegate: Component { FocusScope { property var dialog; focus: true\n"
    "Item { objectName: 'inside'; focus: true } } } }\n");

// In the middle of something that its items take part in: they have to live on for a while.
void destroyInUse(const QPointer<Dialog> &dialog)
{
    const QPointer<QQuickItem> host = dialog->rootItem();
    delete dialog.data();
    QVERIFY(host);
}

// All the ways that a dialog closes in.
void close(const DialogScene &scene, const QString &way)
{
    Dialog *dialog = scene.dialog;
    if (way == QLatin1String("accept"))
        dialog->accept(1);
    else if (!scene.window())
        dialog->reject();
    else if (way == QLatin1String("escape"))
        QTest::keyClick(scene.window(), Qt::Key_Escape);
    else if (way == QLatin1String("click outside"))
        click(scene.window(), QPoint(5, 5));
    else if (way == QLatin1String("close event"))
        QCoreApplication::sendEvent(scene.window(), makeEvent(QEvent::Close, 0, {}).get());
    else if (dialog->rootItem())
        click(scene.window(), center(scene.pushButtons().constFirst()));
}

} // namespace

void tst_DialogLifetime::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("victim");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<int>("time");
    for (const char *victim : { "dialog", "host", "content", "window" }) {
        const auto row = [&](const char *signal, int time) {
            QTest::addRow("%s in %s %d", victim, signal, time)
                << QString::fromLatin1(victim) << QString::fromLatin1(signal) << time;
        };
        for (const char *signal : { "contentChanged", "opened", "accepted", "rejected" })
            row(signal, 1);
        row("contentChanged", 2); // when it closes
        if (QLatin1String(victim) == QLatin1String("dialog"))
            row("activeFocusItemChanged", 1); // as the focus comes to it
    }
}

void tst_DialogLifetime::handlersThatDestroy()
{
    QFETCH(QString, victim);
    QFETCH(QString, signal);
    QFETCH(int, time);
    // A window in the middle of giving an item an event survives the end of neither.
    const QStringList whileDelivering = names({ "button", "click outside" });
    for (const QString &way : names({ "accept", "escape", "close event" }) + whileDelivering) {
        if ((victim == QLatin1String("host") || victim == QLatin1String("window"))
            && whileDelivering.contains(way))
            continue;
        if (victim == QLatin1String("window") && way == QLatin1String("escape"))
            continue; // QTest goes on with the window
        DialogScene scene(kDialog);
        scene.dialog->setFlags(Dialog::Flags(7));
        QPointer<QQuickItem> host;
        QObject *sender = scene.dialog;
        if (signal == QLatin1String("activeFocusItemChanged"))
            sender = scene.window();
        on(
            sender, signal,
            [&] {
                if (sender == scene.window())
                    destroyInUse(scene.dialog);
                else if (victim == QLatin1String("dialog"))
                    delete scene.dialog.data();
                else if (victim == QLatin1String("window"))
                    scene.destroyWindow();
                else if (victim == QLatin1String("host"))
                    delete (host ? host.data() : scene.dialog->rootItem());
                else
                    delete scene.dialog->content();
            },
            time);
        scene.dialog->show();
        if (scene.dialog) {
            host = scene.dialog->rootItem();
            close(scene, way);
        }
        QVERIFY(!PopupStack::top());
        QVERIFY(!scene.dialog || !scene.dialog->rootItem());
        QTRY_VERIFY(!host);
        if (scene.window())
            QVERIFY(scene.find("before")->hasActiveFocus());
    }
}

// The item that is in the middle of the click outlives it.
void tst_DialogLifetime::clicksThatDestroy()
{
    for (const bool accepts : { false, true }) {
        DialogScene scene(QStringLiteral(
            "Item { objectName: 'before' }\n"
            "UiDialog { objectName: 'dialog'; contentDelegate: Component { MouseArea {\n"
            "property var dialog; signal struck\n"
            "implicitWidth: 200; implicitHeight: 200; onClicked: struck() } } }"));
        scene.dialog->show();
        const QPointer<QQuickItem> area = scene.dialog->content();
        on(area, QStringLiteral("struck"), [&] {
            if (accepts)
                scene.dialog->accept(1);
            delete scene.dialog.data();
        });
        click(scene.window(), center(area));
        QVERIFY(!scene.dialog);
        QTRY_VERIFY(!area);
    }
}

// A handler of an answer runs an event loop of its own: what was clicked is there until it returns.
void tst_DialogLifetime::answersWithEventLoops()
{
    for (const bool destroys : { false, true }) {
        DialogScene scene(kDialog);
        scene.dialog->show();
        QVERIFY(scene.waitForFrame());
        const QPointer<QQuickItem> host = scene.dialog->rootItem();
        bool outlived = false;
        on(scene.dialog, QStringLiteral("accepted"), [&] {
            if (destroys)
                QTimer::singleShot(0, scene.window(), [&] { delete scene.dialog.data(); });
            runEventLoop(400);
            outlived = host && host->opacity() == 0;
        });
        clickInEventLoop(scene.window(), center(scene.pushButtons().constFirst()));
        QVERIFY(outlived && !PopupStack::top());
        QTRY_VERIFY(!host);
    }
}

// A dialog that a handler closes while it opens is closed, and was never opened or had been.
void tst_DialogLifetime::handlersThatClose()
{
    for (const QString &signal : names({ "contentChanged", "activeFocusItemChanged", "opened" })) {
        DialogScene scene(kDialog);
        Dialog *dialog = scene.dialog;
        SignalLog log;
        log.watch(dialog, names({ "opened", "rejected" }));
        QObject *sender = dialog;
        if (signal == QLatin1String("activeFocusItemChanged"))
            sender = scene.window();
        on(sender, signal, [dialog] { dialog->reject(); });
        dialog->show();
        const bool opened = signal == QLatin1String("opened");
        QCOMPARE(log.take(), opened ? names({ "opened", "rejected" }) : names({ "rejected" }));
        QVERIFY(!dialog->rootItem() && !dialog->content() && !PopupStack::top());
        QVERIFY(scene.find("before")->hasActiveFocus());
    }
}

void tst_DialogLifetime::handlersThatReopen()
{
    for (const char *signal : { "contentChanged", "rejected" }) {
        DialogScene scene(kDialog);
        Dialog *dialog = scene.dialog;
        dialog->setFlags(Dialog::RejectOnClickOutside);
        bool reopens = true;
        on(dialog, QLatin1String(signal), [&] {
            if (!dialog->rootItem() && std::exchange(reopens, false))
                dialog->show();
        });
        dialog->show();
        const QPointer<QQuickItem> first = dialog->rootItem();
        click(scene.window(), QPoint(5, 5));
        QVERIFY(dialog->rootItem() && dialog->rootItem() != first);
        QCOMPARE(PopupStack::top(), dialog);
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
    DialogScene scene(QStringLiteral(
        "Item { objectName: 'before'; focus: true }\n"
        "UiDialog { objectName: 'dialog'; contentDelegate: Component {\n"
        "FocusScope { property var dialog; focus: true\n"
        "Component.onCompleted: { dialog.show(); dialog.accept(1); dialog.reject();\n"
        "dialog.width = 350; forceActiveFocus() } } } }"));
    Dialog *dialog = scene.dialog;
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

// As where a view completes its root item: the dialog is seen as soon as there is a window.
void tst_DialogLifetime::shownBeforeWindow()
{
    Scene scene(QString {});
    const auto root = scene.create(QStringLiteral("FocusScope { focus: true\n") + kDialog
                                   + QStringLiteral("Component.onCompleted: theDialog.show() }"));
    auto *dialog = root->findChild<Dialog *>(QStringLiteral("dialog"));
    dialog->setAutoSize(true);
    QVERIFY(dialog->rootItem() && !dialog->rootItem()->parentItem());
    qobject_cast<QQuickItem *>(root.get())->setParentItem(scene.window()->contentItem());
    QTRY_COMPARE(dialog->rootItem()->parentItem(), scene.window()->contentItem());
    QVERIFY(scene.find("inside")->hasActiveFocus());
    QCOMPARE(dialog->content()->width(), 800.0);
    scene.window()->resize(640, 480);
    QTRY_COMPARE(dialog->content()->width(), 640.0);
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(!dialog->rootItem() && scene.find("before")->hasActiveFocus());

    // Destroyed as the focus comes to it.
    const auto again = scene.create(QStringLiteral("Item {\n") + kDialog
                                    + QStringLiteral("Component.onCompleted: theDialog.show() }"));
    const QPointer<Dialog> doomed = again->findChild<Dialog *>(QStringLiteral("dialog"));
    qobject_cast<QQuickItem *>(again.get())->setParentItem(scene.window()->contentItem());
    on(
        scene.window(), QStringLiteral("activeFocusItemChanged"), [&] { destroyInUse(doomed); }, 1);
    QTRY_VERIFY(!doomed);
    QVERIFY(!PopupStack::top() && scene.find("before")->hasActiveFocus());
}

void tst_DialogLifetime::answersThatOpenAnother()
{
    DialogScene scene(kDialog
                      + QStringLiteral("UiDialog { id: other; objectName: 'other' }\n"
                                       "Connections { target: theDialog\n"
                                       "function onAccepted(result) {\n"
                                       "other.show(); theDialog.destroy() } }"));
    auto *other = scene.find<Dialog>("other");
    scene.dialog->show();
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(other->rootItem());
    QTRY_VERIFY(!scene.dialog);
    QCOMPARE(PopupStack::top(), other);
    QVERIFY(other->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_DialogLifetime::previousFocusDestroyed()
{
    DialogScene scene(kDialog + QStringLiteral("UiDialog { objectName: 'above' }"));
    auto *above = scene.find<Dialog>("above");
    scene.dialog->show();
    QVERIFY(scene.find("inside")->hasActiveFocus());
    above->show();
    delete scene.find("inside");
    above->reject();
    QVERIFY(scene.box()->hasActiveFocus());

    delete scene.find("before");
    scene.dialog->reject();
}

void tst_DialogLifetime::hostDestroyedOutside()
{
    DialogScene scene(kDialog);
    SignalLog log;
    log.watch(scene.dialog);
    scene.dialog->show();
    delete scene.dialog->rootItem();
    QCOMPARE(log.take(), names({ "contentChanged", "opened", "contentChanged", "rejected" }));
    QVERIFY(!PopupStack::top());
    QVERIFY(scene.find("before")->hasActiveFocus());
}

// Its dialog belongs to something else, and stays.
void tst_DialogLifetime::windowGoes()
{
    Scene keeper(QString {});
    DialogScene scene(kDialog);
    SignalLog log;
    log.watch(scene.dialog, names({ "opened", "rejected" }));
    scene.dialog->show();
    scene.dialog->setParent(keeper.root());
    scene.destroyWindow();
    QVERIFY(scene.dialog && !PopupStack::top());
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

TAMBER_TEST_MAIN(tst_DialogLifetime)
#include "tst_dialoglifetime.moc"
