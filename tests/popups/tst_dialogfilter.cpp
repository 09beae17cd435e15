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
    void systemModalWindow();
    void hiddenWindow();
    void clickOutside();
};

namespace {

const QString kDialog = QStringLiteral(
    "Item { objectName: 'before'; focus: true }\n"
    "MouseArea { objectName: 'under'; anchors.fill: parent; property int presses: 0\n"
    "onPressed: ++presses; hoverEnabled: true }\n"
    "Item { objectName: 'popup'; Item { objectName: 'inPopup' } }\n"
    "UiDialog { objectName: 'dialog'; contentDelegate: Component { Item { property var dialog\n"
    "implicitWidth: 300; implicitHeight: 150; property bool disableTabOverride: false\n"
    "MouseArea { objectName: 'inside'; anchors.fill: parent } } } }\n");

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
    row("escape", QEvent::KeyPress, Qt::Key_Escape, all);
    row("key release", QEvent::KeyRelease, Qt::Key_Escape, {});
    row("release", QEvent::MouseButtonRelease, 0, {});
    row("move", QEvent::MouseMove, 0, {});
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
    if (key == Qt::Key_Tab)
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
    const QPointF inside(400, 300);
    const auto row = [](const char *name, Dialog::Flag flag, QEvent::Type type,
                        const char *receiver, const QPointF &position, bool closes,
                        bool swallowed) {
        QTest::newRow(name) << int(flag) << type << QString::fromLatin1(receiver) << position
                            << closes << swallowed;
    };
    row("escape", Dialog::RejectOnEscape, QEvent::KeyPress, "window", kOutside, true, true);
    row("close", Dialog::RejectOnCloseEvent, QEvent::Close, "other window", kOutside, true, false);
    const auto press = [&](const char *receiver, const QPointF &position, bool closes,
                           bool swallowed) {
        row(qPrintable(
                QStringLiteral("press on %1 at %2").arg(QLatin1String(receiver)).arg(position.x())),
            Dialog::RejectOnClickOutside, QEvent::MouseButtonPress, receiver, position, closes,
            swallowed);
    };
    press("window", kOutside, false, false); // it sees the press first, and nothing is decided then
    press("under", kOutside, true, true);
    press("host", kOutside, true, false);
    press("inPopup", kOutside, false, false);
    press("other window", kOutside, true, true);
    press("inside", inside, false, false);
    press("under", QPointF(249.5, 300), false, true); // at the left edge of the box
    press("under", QPointF(249.4, 300), true, true);
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
    QVERIFY(dialog->rootItem());
    modal.hide();
    QVERIFY(
        dialog->eventFilter(&modal, makeEvent(QEvent::KeyPress, Qt::Key_Escape, kOutside).get()));
}

// What nobody can see does not block the rest of the application.
void tst_DialogFilter::hiddenWindow()
{
    Scene scene(kDialog);
    Scene other(kDialog);
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->setFlags(Dialog::RejectOnEscape);
    dialog->show();
    scene.window()->hide();
    click(other.window(), kOutside.toPoint());
    QCOMPARE(other.find("under")->property("presses").toInt(), 1);
    QTest::keyClick(other.window(), Qt::Key_Escape);
    QVERIFY(dialog->rootItem());
    scene.window()->show();
    click(other.window(), kOutside.toPoint());
    QCOMPARE(other.find("under")->property("presses").toInt(), 1);
    dialog->reject();
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

TAMBER_TEST_MAIN(tst_DialogFilter)
#include "tst_dialogfilter.moc"
