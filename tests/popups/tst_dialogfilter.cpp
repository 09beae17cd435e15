#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// What a dialog does with the events of the application: each type with each receiver as a table,
// and the same as it comes from a person's hands.
class tst_DialogFilter : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void table_data();
    void table();
    void closing_data();
    void closing();
    void withoutWindow();
    void systemModalWindow();
    void clickOutside();
    void otherWindow();
    void shortcuts();
    void resizeBelow();
    void heldKey();
    void heldBefore();
};

namespace {

const QString kDialog = QStringLiteral(
    "Item { objectName: 'before'; focus: true }\n"
    "MouseArea { objectName: 'under'; anchors.fill: parent; property int presses: 0\n"
    "property int wheels: 0; onPressed: ++presses; onWheel: ++wheels; hoverEnabled: true }\n"
    "Item { objectName: 'popup'; Item { objectName: 'inPopup' } }\n"
    "UiDialog { objectName: 'dialog'; contentDelegate: Component { Item { property var dialog\n"
    "implicitWidth: 300; implicitHeight: 150; property bool disableTabOverride: false\n"
    "MouseArea { objectName: 'inside'; anchors.fill: parent; property int presses: 0\n"
    "property int wheels: 0; onPressed: ++presses; onWheel: ++wheels } } } }\n");

const QPointF kOutside(5, 5);

} // namespace

void tst_DialogFilter::table_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<QStringList>("swallowed"); // for which receivers
    const auto row = [](const char *name, QEvent::Type type, int key,
                        const QStringList &swallowed) {
        QTest::newRow(name) << type << key << swallowed;
    };
    const QStringList elsewhere = names({ "under", "other window", "object", "null" });
    const QStringList popups = names({ "popup", "inPopup" });
    const QStringList window = names({ "window" });
    const QStringList all = names({ "all" });
    row("press", QEvent::MouseButtonPress, 0, elsewhere);
    row("wheel", QEvent::Wheel, 0, elsewhere);
    row("hover enter", QEvent::HoverEnter, 0, elsewhere + window);
    row("shortcut", QEvent::Shortcut, 0, elsewhere + window + popups);
    row("key", QEvent::KeyPress, Qt::Key_A, elsewhere + popups);
    row("tab", QEvent::KeyPress, Qt::Key_Tab, all);
    row("backtab", QEvent::KeyPress, Qt::Key_Backtab, all);
    row("escape", QEvent::KeyPress, Qt::Key_Escape, all);
    row("key release", QEvent::KeyRelease, Qt::Key_Escape, {});
    row("release", QEvent::MouseButtonRelease, 0, {});
    row("double click", QEvent::MouseButtonDblClick, 0, {});
    row("move", QEvent::MouseMove, 0, {});
    row("hover move", QEvent::HoverMove, 0, {});
    row("hover leave", QEvent::HoverLeave, 0, {});
    row("resize", QEvent::Resize, 0, {});
    row("close", QEvent::Close, 0, {});
    row("timer", QEvent::Timer, 0, {});
}

// With no flags: the dialog stays open.
void tst_DialogFilter::table()
{
    QFETCH(QEvent::Type, type);
    QFETCH(int, key);
    QFETCH(QStringList, swallowed);
    DialogScene scene(kDialog);
    Dialog *dialog = scene.dialog;
    dialog->setFlags(Dialog::NoFlag);
    scene.find("popup")->setProperty("_ta_isPopup", true);
    dialog->show();
    QQuickItem *scope = scene.box();
    QQuickWindow other;
    other.show();
    QObject object;
    QObject inDialog(dialog);
    QObject inBox(scope);
    const QVector<std::pair<const char *, QObject *>> receivers = {
        { "window", scene.window() },
        { "under", scene.find("under") },
        { "popup", scene.find("popup") },
        { "inPopup", scene.find("inPopup") },
        { "other window", &other },
        { "object", &object },
        { "null", nullptr },
        { "inside", scene.find("inside") },
        { "box", scope },
        { "host", dialog->rootItem() },
        { "in the dialog", &inDialog },
        { "in the box", &inBox },
    };
    for (const auto &receiver : receivers) {
        const QString name = QString::fromLatin1(receiver.first);
        const bool answer = dialog->eventFilter(receiver.second,
                                                makeEvent(type, key, kOutside).get());
        const bool expected = swallowed.contains(name) || swallowed.contains(QLatin1String("all"));
        QVERIFY2(answer == expected, receiver.first);
        QVERIFY(dialog->rootItem());
    }
    dialog->content()->setProperty("disableTabOverride", true);
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
        QVERIFY(!dialog->eventFilter(scene.window(), makeEvent(type, key, kOutside).get()));
    dialog->reject();
}

void tst_DialogFilter::closing_data()
{
    QTest::addColumn<int>("flag");
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("swallowed");
    const auto row = [](Dialog::Flag flag, QEvent::Type type, const char *receiver,
                        const QPointF &position, bool closes, bool swallowed) {
        QTest::addRow("flag %d, %s at %g", flag, receiver, position.x())
            << int(flag) << type << QString::fromLatin1(receiver) << position << closes
            << swallowed;
    };
    row(Dialog::RejectOnEscape, QEvent::KeyPress, "window", kOutside, true, true);
    for (const char *window : { "window", "other window" })
        row(Dialog::RejectOnCloseEvent, QEvent::Close, window, kOutside, true, false);
    const auto flag = Dialog::RejectOnClickOutside;
    const auto press = QEvent::MouseButtonPress;
    row(flag, press, "window", kOutside, false, false); // sees it first: nothing is decided then
    row(flag, press, "under", kOutside, true, true);
    row(flag, press, "host", kOutside, true, false);
    row(flag, press, "inPopup", kOutside, false, false);
    row(flag, press, "other window", kOutside, true, true);
    row(flag, press, "under", QPointF(249.5, 300), false, true); // at the left edge of the box
    row(flag, press, "under", QPointF(249.4, 300), true, true);
}

// Each flag alone closes, and all the others together do not.
void tst_DialogFilter::closing()
{
    QFETCH(int, flag);
    QFETCH(QEvent::Type, type);
    QFETCH(QString, receiver);
    QFETCH(QPointF, position);
    QFETCH(bool, closes);
    for (bool set : { true, false }) {
        DialogScene scene(kDialog);
        Dialog *dialog = scene.dialog;
        scene.find("popup")->setProperty("_ta_isPopup", true);
        QQuickWindow other;
        other.show();
        SignalLog log;
        log.watch(dialog, names({ "rejected", "accepted" }));
        dialog->setFlags(Dialog::Flags(set ? flag : 7 & ~flag));
        dialog->show();
        QObject *watched = scene.window();
        if (receiver == QLatin1String("other window"))
            watched = &other;
        else if (receiver == QLatin1String("host"))
            watched = dialog->rootItem();
        else if (receiver != QLatin1String("window"))
            watched = scene.find(receiver.toLatin1());
        const QPointF screen = scene.window()->mapToGlobal(QPoint()) + position;
        const bool swallowed = dialog->eventFilter(watched,
                                                   makeEvent(type, Qt::Key_Escape, screen).get());
        QCOMPARE(!dialog->rootItem(), closes && set);
        QCOMPARE(log.take(), closes && set ? names({ "rejected" }) : QStringList());
        QTEST(swallowed, "swallowed");
        dialog->reject();
    }
}

// A dialog that is below no item has no window to be in: it opens all the same.
void tst_DialogFilter::withoutWindow()
{
    Scene scene(QString {});
    const auto object = scene.create(QStringLiteral("UiDialog { autoSize: true; width: 300 }"));
    auto *dialog = qobject_cast<Dialog *>(object.get());
    SignalLog log;
    log.watch(dialog, names({ "opened", "rejected" }));
    dialog->show();
    QVERIFY(dialog->rootItem() && !dialog->rootItem()->parentItem());
    QCOMPARE(PopupStack::top(), dialog);
    for (QObject *watched :
         { static_cast<QObject *>(scene.window()), static_cast<QObject *>(scene.root()),
           static_cast<QObject *>(nullptr) }) {
        for (auto type : { QEvent::MouseButtonPress, QEvent::Wheel, QEvent::KeyPress })
            QVERIFY(dialog->eventFilter(watched, makeEvent(type, Qt::Key_A, kOutside).get()));
    }
    dialog->setFlags(Dialog::RejectOnClickOutside);
    QVERIFY(dialog->eventFilter(nullptr, makeEvent(QEvent::MouseButtonPress, 0, kOutside).get()));
    QVERIFY(dialog->rootItem());
    dialog->reject();
    QCOMPARE(log.take(), names({ "opened", "rejected" }));
}

// A window that the system makes modal goes before.
void tst_DialogFilter::systemModalWindow()
{
    DialogScene scene(kDialog);
    Dialog *dialog = scene.dialog;
    dialog->show();
    QQuickWindow modal;
    modal.setModality(Qt::ApplicationModal);
    modal.show();
    QVERIFY(
        !dialog->eventFilter(&modal, makeEvent(QEvent::KeyPress, Qt::Key_Escape, kOutside).get()));
    QVERIFY(!dialog->eventFilter(&modal, makeEvent(QEvent::Close, 0, kOutside).get()));
    QVERIFY(dialog->rootItem());
    modal.hide();
    QVERIFY(
        dialog->eventFilter(&modal, makeEvent(QEvent::KeyPress, Qt::Key_Escape, kOutside).get()));
}

// One press: the window lets it pass, and the cover's sight of it closes the dialog. Nothing else
// gets it.
void tst_DialogFilter::clickOutside()
{
    DialogScene scene(kDialog);
    Dialog *dialog = scene.dialog;
    dialog->setFlags(Dialog::RejectOnClickOutside);
    SignalLog log;
    log.watch(dialog, names({ "rejected", "opened" }));
    dialog->show();
    click(scene.window(), QPoint(400, 300));
    QCOMPARE(log.take(), names({ "opened" }));
    click(scene.window(), kOutside.toPoint());
    QCOMPARE(log.take(), names({ "rejected" }));
    QCOMPARE(scene.find("under")->property("presses").toInt(), 0);
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_DialogFilter::otherWindow()
{
    Scene scene(kDialog);
    Scene other(QStringLiteral("TextInput { objectName: 'text'; focus: true }\n") + kDialog);
    auto *dialog = scene.find<Dialog>("dialog");
    const auto count = [&](const char *name) {
        return other.find("under")->property(name).toInt();
    };
    dialog->setFlags(Dialog::RejectOnEscape);
    dialog->show();
    click(other.window(), QPoint(400, 300));
    wheel(other.window(), QPoint(400, 300), 1);
    QTest::keyClick(other.window(), Qt::Key_X);
    QCOMPARE(count("presses"), 0);
    QCOMPARE(count("wheels"), 0);
    QVERIFY(other.find("text")->property("text").toString().isEmpty());

    // What nobody can see does not block the rest of the application.
    scene.window()->hide();
    click(other.window(), QPoint(400, 300));
    QCOMPARE(count("presses"), 1);
    QTest::keyClick(other.window(), Qt::Key_Escape);
    QVERIFY(dialog->rootItem());
    scene.window()->show();
    click(other.window(), QPoint(400, 300));
    QCOMPARE(count("presses"), 1);

    QTest::keyClick(other.window(), Qt::Key_Escape); // goes to the dialog wherever it is pressed
    QVERIFY(!dialog->rootItem());
    click(other.window(), QPoint(400, 300));
    QCOMPARE(count("presses"), 2);
}

void tst_DialogFilter::shortcuts()
{
    Scene scene(QStringLiteral(
        "property int outer: 0; property int inner: 0\n"
        "Shortcut { sequence: 'Ctrl+O'; onActivated: ++outer }\n"
        "UiDialog { objectName: 'dialog'; contentDelegate: Component { Item { property var dialog\n"
        "Shortcut { sequence: 'Ctrl+I'; onActivated: ++inner } } } }"));
    auto *dialog = scene.find<Dialog>("dialog");
    const auto count = [&](const char *name) { return scene.root()->property(name).toInt(); };
    dialog->show();
    QTest::keyClick(scene.window(), Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(scene.window(), Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(count("outer"), 0);
    QCOMPARE(count("inner"), 1);
    dialog->reject();
    QTest::keyClick(scene.window(), Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(count("outer"), 1);
}

// A dialog that another one covers follows its window as well.
void tst_DialogFilter::resizeBelow()
{
    Scene scene(QString(kDialog).replace(QLatin1String("'dialog'"), QLatin1String("'below'"))
                + kDialog);
    auto *below = scene.find<Dialog>("below");
    auto *dialog = scene.find<Dialog>("dialog");
    below->setAutoSize(true);
    below->show();
    dialog->show();
    scene.window()->resize(640, 480);
    QTRY_COMPARE(below->content()->width(), 640.0);
    dialog->reject();
    below->reject();
}

// The key that closes a dialog does nothing to the button that gets the focus back; the next one
// does. A text input lets the press go on to what it lies in.
void tst_DialogFilter::heldKey()
{
    for (const char *content :
         { "Item {}", "TextInput { focus: true; onAccepted: dialog.accept(1) }" }) {
        DialogScene scene(
            QStringLiteral("UiPushButton { objectName: 'opener'; focus: true }\n"
                           "UiDialog { objectName: 'dialog'\n"
                           "contentDelegate: Component { FocusScope { focus: true\n"
                           "property var dialog; %1 } }\n"
                           "buttons: UiDialogButton { role: UiDialogButton.OkRole } }")
                .arg(QLatin1String(content)));
        auto *opener = scene.find("opener");
        SignalLog log;
        log.watch(opener, names({ "clicked", "pressedChanged" }));
        scene.dialog->show();
        QTest::keyPress(scene.window(), Qt::Key_Return);
        QVERIFY(!PopupStack::top() && opener->hasActiveFocus());
        QKeyEvent repetition(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(scene.window(), &repetition);
        QTest::keyRelease(scene.window(), Qt::Key_Return);
        QVERIFY(log.take().isEmpty());
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QCOMPARE(log.take(), names({ "pressedChanged", "pressedChanged", "clicked" }));
    }
}

// The key that opens a dialog does not answer it, however long it is held; the next one does.
void tst_DialogFilter::heldBefore()
{
    for (const char *defaultButton : { "ok", "null" }) {
        DialogScene scene(
            QStringLiteral("TextInput { focus: true; onAccepted: dialog.show() }\n"
                           "UiDialog { id: dialog; objectName: 'dialog'; defaultButton: %1\n"
                           "buttons: UiDialogButton { id: ok; role: UiDialogButton.OkRole } }")
                .arg(QLatin1String(defaultButton)));
        QTest::keyPress(scene.window(), Qt::Key_Control);
        QTest::keyPress(scene.window(), Qt::Key_Return);
        for (auto type : { QEvent::KeyPress, QEvent::KeyRelease, QEvent::KeyPress }) {
            QKeyEvent repetition(type, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(scene.window(), &repetition);
        }
        QTest::keyRelease(scene.window(), Qt::Key_Control);
        QTest::keyRelease(scene.window(), Qt::Key_Return);
        QVERIFY(scene.dialog->rootItem());
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QVERIFY(!scene.dialog->rootItem());
    }
}

TAMBER_TEST_MAIN(tst_DialogFilter)
#include "tst_dialogfilter.moc"
