#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <QtQml/QQmlListReference>

using namespace ta::ui;
using namespace ta::test;

// What a dialog shows, its size, the order of its signals, its keys and the focus.
class tst_Dialog : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void items();
    void sizes_data();
    void sizes();
    void sizeWhileShown();
    void badParts();
    void buttonsWhileShown();
    void order_data();
    void order();
    void returnKey_data();
    void returnKey();
    void footerArrows();
    void hiddenButton();
    void tabCycle();
    void clicksAndFocus();
};

namespace {

// Two tab stops; the first one has the focus.
const QString kContent = QStringLiteral(
    "contentDelegate: Component { FocusScope { property var dialog; property int extra: 0\n"
    "property bool disableTabOverride: false\n"
    "implicitWidth: 300; implicitHeight: 150; focus: true\n"
    "Item { objectName: 'a'; activeFocusOnTab: true; width: 50; height: 20; focus: true }\n"
    "Item { objectName: 'b'; activeFocusOnTab: true; y: 30; width: 50; height: 20 } } }\n");

// An item that has the focus, and a dialog with the \a properties.
QString dialogQml(const QString &properties, const QString &outside = {})
{
    return QStringLiteral("Item { objectName: 'before'; focus: true; width: 100; height: 30 }\n"
                          "UiDialog { objectName: 'dialog'\n%1 }\n%2")
        .arg(properties, outside);
}

QString buttons(std::initializer_list<const char *> list)
{
    QStringList buttons;
    for (const char *properties : list)
        buttons.append(QStringLiteral("UiDialogButton { %1 }").arg(QLatin1String(properties)));
    return QStringLiteral("buttons: [ %1 ]\n").arg(buttons.join(QLatin1Char(',')));
}

QString focused(const Scene &scene)
{
    const QQuickItem *item = scene.window()->activeFocusItem();
    return !item                          ? QString()
           : item->objectName().isEmpty() ? item->property("text").toString()
                                          : item->objectName();
}

} // namespace

void tst_Dialog::items()
{
    DialogScene scene(dialogQml(
        QStringLiteral("label: 'Title'; instructionText: 'Do it'; contentOptions: ({ extra: 7 })\n"
                       "footerControls: Component { Item { objectName: 'more'; implicitWidth: 40;"
                       " implicitHeight: 20 } }\n")
        + kContent));
    Dialog *dialog = scene.dialog;
    dialog->show();
    QQuickItem *host = dialog->rootItem();
    dialog->show();
    QCOMPARE(dialog->rootItem(), host);
    QCOMPARE(host->parentItem(), scene.window()->contentItem());
    QCOMPARE(host->z(), 65635.0);
    QCOMPARE(host->size(), QSizeF(800, 600));
    QVERIFY(!host->property("_ta_isPopup").isValid());
    QCOMPARE(QQmlEngine::objectOwnership(host), QQmlEngine::CppOwnership);

    const QQuickItem *content = dialog->content();
    QCOMPARE(content->property("dialog").value<Dialog *>(), dialog);
    QCOMPARE(content->property("extra").toInt(), 7);
    QVERIFY(dialog->contentOptions().count() == 1); // the dialog was put into a copy

    // From the top: header, content, footer; in the middle of the window.
    const QQuickItem *more = scene.find("more");
    const QQuickItem *footer = more->parentItem()->parentItem();
    const QRectF frame(scene.box()->position(), scene.box()->size());
    QCOMPARE(frame.center(), QPointF(400, 300));
    QCOMPARE(content->size(), QSizeF(300, 150));
    QCOMPARE(footer->height(), 48.0);
    QCOMPARE(footer->y(), content->y() + 150);
    QCOMPARE(frame.size(), QSizeF(300, content->y() + 150 + 48));
    QVERIFY(content->y() > 40);
    QCOMPARE(more->parentItem()->position(), QPointF(8, 14));

    // The white ground reaches exactly to the edges of the box, the shadow beyond.
    QTRY_VERIFY(!host->property("layer").value<QObject *>()->property("enabled").toBool());
    const QImage image = scene.window()->grabWindow();
    const auto pixel = [&](qreal x, qreal y) { return image.pixelColor(int(x), int(y)); };
    const int middle = int(content->mapToScene(QPointF(0, 75)).y());
    QCOMPARE(pixel(frame.left(), middle), QColor(Qt::white));
    QCOMPARE(pixel(frame.right() - 1, middle), QColor(Qt::white));
    QVERIFY(pixel(frame.left() - 1, middle).lightness() < pixel(2, 2).lightness());
    QCOMPARE(pixel(2, 2), QColor(238, 238, 238)); // 0x11 of black over white
    dialog->reject();
}

void tst_Dialog::sizes_data()
{
    QTest::addColumn<QString>("properties");
    QTest::addColumn<QSizeF>("size");
    const QString bare = QStringLiteral("headerDelegate: null; footerDelegate: null\n");
    const auto part = [](const char *name, double width, double height) {
        return QStringLiteral("%1Delegate: Component { Item { property var dialog\n"
                              "implicitWidth: %2; implicitHeight: %3 } }\n")
            .arg(QLatin1String(name))
            .arg(width)
            .arg(height);
    };
    const QString large = part("content", 320, 230);
    const auto row = [](const char *name, const QString &properties, const char *more,
                        const QSizeF &size) {
        QTest::newRow(name) << properties + QLatin1String(more) << size;
    };
    row("nothing", bare, "", QSizeF(200, 100));
    row("small", bare + part("content", 20, 30), "", QSizeF(200, 100));
    row("large", bare + large, "", QSizeF(320, 230));
    row("fraction", bare + part("content", 300.25, 200.75), "", QSizeF(301, 201));
    row("fixed", bare + large, "width: 50; height: 40", QSizeF(50, 40));
    row("one fixed", bare + large, "width: 400", QSizeF(400, 230));
    row("auto", bare, "autoSize: true; width: 3; autoSizeMargins: Qt.point(20, 10)",
        QSizeF(760, 580));
    row("auto, no room", bare, "autoSize: true; autoSizeMargins: Qt.point(500, 2147483647)",
        QSizeF(0, 0));
    row("fixed, with a header and a footer", large + buttons({ "text: 'One'" }),
        "width: 500; height: 400; label: 'Title'; instructionText: 'A line that is too long for "
        "a dialog at its smallest size'",
        QSizeF(500, 400));
    row("own parts", part("header", 250, 60) + part("footer", 350, 50), "", QSizeF(350, 110));
}

void tst_Dialog::sizes()
{
    QFETCH(QString, properties);
    DialogScene scene(dialogQml(properties));
    scene.dialog->show();
    QTEST(scene.box()->size(), "size");
    QVERIFY(scene.waitForFrame()); // nothing is arranged late
    QTEST(scene.box()->size(), "size");
    scene.dialog->reject();
}

void tst_Dialog::sizeWhileShown()
{
    DialogScene scene(
        dialogQml(QStringLiteral("headerDelegate: null; footerDelegate: null\n") + kContent));
    Dialog *dialog = scene.dialog;
    dialog->show();
    const auto size = [&] { return scene.box()->size(); };
    on(dialog, QStringLiteral("widthChanged"), [&] { QCOMPARE(size(), QSizeF(400, 150)); });
    dialog->setWidth(400);
    dialog->content()->setImplicitWidth(350); // the content's size is followed beside the fixed one
    QCOMPARE(size(), QSizeF(350, 150));
    dialog->setHeight(333);
    dialog->setAutoSize(true);
    QCOMPARE(size(), QSizeF(800, 600));
    dialog->setAutoSizeMargins(QPoint(100, 50));
    QCOMPARE(size(), QSizeF(600, 500));
    dialog->content()->setImplicitWidth(360);
    QCOMPARE(size(), QSizeF(600, 500));
    dialog->setAutoSize(false);
    QCOMPARE(size(), QSizeF(400, 333));
    dialog->setAutoSize(true);
    scene.window()->resize(700, 500);
    QTRY_COMPARE(size(), QSizeF(500, 400));
    QTRY_COMPARE(dialog->rootItem()->size(), QSizeF(700, 500));
    dialog->reject();
}

// The dialog opens without the part.
void tst_Dialog::badParts()
{
    expectWarning(QStringLiteral("cannot be created"));
    expectWarning(QStringLiteral("Component is not ready"));
    expectWarning(QStringLiteral("must be an item"));
    for (const char *qml : { "Item {", "import QtQml 2.15; QtObject { property var dialog }" }) {
        DialogScene scene(dialogQml(QString()));
        Dialog *dialog = scene.dialog;
        QQmlComponent component(&scene.engine());
        component.setData(qml, QUrl(QStringLiteral("qrc:/part.qml")));
        for (auto set : { &Dialog::setHeaderDelegate, &Dialog::setContentDelegate,
                          &Dialog::setFooterDelegate })
            (dialog->*set)(&component);
        dialog->show();
        QVERIFY(dialog->rootItem() && !dialog->content());
        QCOMPARE(scene.box()->size(), QSizeF(200, 100));
        dialog->reject();
    }
}

void tst_Dialog::buttonsWhileShown()
{
    DialogScene scene(dialogQml(buttons(
        { "text: 'one'", "text: 'two'; enabled: false", "text: 'three'; visible: false" })));
    Dialog *dialog = scene.dialog;
    const auto texts = [&] {
        QStringList seen;
        const auto items = scene.pushButtons();
        for (const QQuickItem *item : items)
            seen.append(item->isVisible() ? item->property("text").toString() : QString());
        return seen;
    };
    QQmlListProperty<DialogButton> list = dialog->buttons();
    delete list.at(&list, 0);
    dialog->show();
    QCOMPARE(texts(), names({ "", "two", "" }));
    QVERIFY(!scene.pushButtons().at(1)->isEnabled());
    list.at(&list, 2)->setVisible(true);
    list.at(&list, 1)->setRole(DialogButton::OkRole);
    QCOMPARE(scene.pushButtons().at(1)->property("style").toInt(), int(Ui::PrimaryPushButtonStyle));
    DialogButton *third = list.at(&list, 2);
    delete list.at(&list, 1);
    QTRY_COMPARE(texts(), names({ "", "", "three" }));
    DialogButton fourth;
    fourth.setText(QStringLiteral("four"));
    list.append(&list, &fourth);
    QTRY_COMPARE(texts(), names({ "", "", "three", "four" }));
    SignalLog log;
    log.watch(third, names({ "clicked" }));
    QVERIFY(scene.waitForFrame()); // the row arranges its buttons
    click(scene.window(), center(scene.pushButtons().at(2)));
    QCOMPARE(log.take(), names({ "clicked" }));
    QTest::keyClick(scene.window(), Qt::Key_Return); // there is no primary button
    QVERIFY(dialog->rootItem());
    dialog->reject();
    QVERIFY(scene.waitForFrame());
}

void tst_Dialog::order_data()
{
    QTest::addColumn<QString>("answer");
    for (const char *way : { "accept", "ok" })
        QTest::newRow(way) << QStringLiteral("accepted");
    for (const char *way : { "reject", "cancel", "escape", "close" })
        QTest::newRow(way) << QStringLiteral("rejected");
}

// What a handler of each signal sees, from show() to the end.
void tst_Dialog::order()
{
    QFETCH(QString, answer);
    const QString way = QString::fromLatin1(QTest::currentDataTag());
    DialogScene scene(
        dialogQml(QStringLiteral("result: 'r'\n") + kContent
                  + buttons({ "role: UiDialogButton.CancelRole", "role: UiDialogButton.OkRole" })));
    Dialog *dialog = scene.dialog;
    const auto *before = scene.find("before");
    QStringList log;
    for (const char *signal : { "contentChanged", "opened", "rejected", "accepted" }) {
        on(dialog, QLatin1String(signal), [&, signal] {
            QStringList seen { QLatin1String(signal) };
            if (dialog->rootItem())
                seen.append(QStringLiteral("host"));
            if (dialog->content())
                seen.append(QStringLiteral("content"));
            if (PopupStack::top() == dialog)
                seen.append(QStringLiteral("top"));
            if (before->hasActiveFocus())
                seen.append(QStringLiteral("restored"));
            log.append(seen.join(QLatin1Char(' ')));
        });
    }
    QVariant result;
    connect(dialog, &Dialog::accepted, [&](const QVariant &value) { result = value; });
    for (int round = 0; round < 2; ++round) {
        dialog->show();
        QCOMPARE(log, names({ "contentChanged host content", "opened host content top" }));
        QVERIFY(scene.find("a")->hasActiveFocus());
        log.clear();
        const QPointer<QQuickItem> host = dialog->rootItem();
        if (way == QLatin1String("accept"))
            dialog->accept(QStringLiteral("r"));
        else if (way == QLatin1String("reject"))
            dialog->reject();
        else if (way == QLatin1String("escape"))
            QTest::keyClick(scene.window(), Qt::Key_Escape);
        else if (way == QLatin1String("close"))
            QCoreApplication::sendEvent(scene.window(), makeEvent(QEvent::Close, 0, {}).get());
        else
            click(scene.window(), center(scene.pushButtons().at(way == QLatin1String("ok"))));
        QCOMPARE(log, QStringList({ QStringLiteral("contentChanged top"),
                                    answer + QLatin1String(" restored") }));
        log.clear();
        if (answer == QLatin1String("accepted"))
            QCOMPARE(result, QVariant(QStringLiteral("r")));
        QVERIFY(host);
        QCOMPARE(bool(host->parentItem()), way != QLatin1String("close")); // that needs no fade
        QTRY_VERIFY(!host);
    }
    QCOMPARE(scene.window()->contentItem()->childItems().count(), 1);
}

void tst_Dialog::returnKey_data()
{
    QTest::addColumn<QString>("buttonList");
    QTest::addColumn<QString>("signal"); // empty: none
    const auto row = [](const char *name, std::initializer_list<const char *> list,
                        const char *signal) {
        QTest::newRow(name) << buttons(list) << QString::fromLatin1(signal);
    };
    const char *const ok = "role: UiDialogButton.OkRole";
    const char *const cancel = "role: UiDialogButton.CancelRole";
    const char *const back = "role: UiDialogButton.BackRole";
    const char *const close = "role: UiDialogButton.CloseRole";
    row("none", {}, "");
    row("cancel alone", { cancel }, "");
    row("cancel, ok", { cancel, ok }, "accepted");
    row("back, ok", { back, ok }, "previousPage");
    row("forward", { "role: UiDialogButton.ForwardRole" }, "nextPage");
    row("close", { close }, "rejected");
    row("primary cancel",
        { "role: UiDialogButton.CancelRole; style: Ui.PrimaryPushButtonStyle", ok }, "rejected");
    row("own action", { "role: UiDialogButton.OkRole; action: UiDialogButton.ForwardAction" },
        "nextPage");
    row("disabled before", { "role: UiDialogButton.OkRole; enabled: false", close }, "accepted");
    row("hidden before", { "role: UiDialogButton.BackRole; visible: false", ok }, "previousPage");
    row("without action", { "role: UiDialogButton.OkRole; action: UiDialogButton.NoAction", ok },
        "");
}

void tst_Dialog::returnKey()
{
    QFETCH(QString, buttonList);
    QFETCH(QString, signal);
    DialogScene scene(dialogQml(buttonList + kContent));
    SignalLog log;
    log.watch(scene.dialog, names({ "accepted", "rejected", "previousPage", "nextPage" }));
    for (Qt::Key key : { Qt::Key_Return, Qt::Key_Enter }) {
        scene.dialog->show();
        QTest::keyClick(scene.window(), key);
        QCOMPARE(log.take().join(QLatin1Char(' ')), signal);
        scene.dialog->reject();
        log.take();
    }
}

void tst_Dialog::footerArrows()
{
    DialogScene scene(dialogQml(QStringLiteral("defaultButton: second\n")
                                + buttons({ "text: '0'", "id: second; text: '1'", "text: '2'" })));
    Dialog *dialog = scene.dialog;
    dialog->show();
    QCOMPARE(focused(scene), QStringLiteral("1"));
    const std::pair<Qt::Key, const char *> steps[] = {
        { Qt::Key_Left, "0" },   { Qt::Key_Left, "2" }, { Qt::Key_Right, "0" },
        { Qt::Key_Right, "1" },  { Qt::Key_Tab, "2" },  { Qt::Key_Tab, "0" },
        { Qt::Key_Backtab, "2" }
    };
    for (const auto &step : steps) {
        QTest::keyClick(scene.window(), step.first);
        QCOMPARE(focused(scene), QLatin1String(step.second));
    }
    // Space clicks the button that has the focus; it has no role.
    SignalLog log;
    QQmlListProperty<DialogButton> list = dialog->buttons();
    log.watch(list.at(&list, 2), names({ "clicked" }));
    QTest::keyClick(scene.window(), Qt::Key_Space);
    QCOMPARE(log.take(), names({ "clicked" }));
    dialog->reject();
}

// A button that is hidden or disabled while it has the focus is for no key any more.
void tst_Dialog::hiddenButton()
{
    for (const char *property : { "visible", "enabled" }) {
        DialogScene scene(dialogQml(
            QStringLiteral("defaultButton: next\n")
            + buttons(
                { "id: next; role: UiDialogButton.ForwardRole; style: Ui.SecondaryPushButtonStyle",
                  "role: UiDialogButton.DoneRole" })));
        SignalLog log;
        log.watch(scene.dialog, names({ "accepted", "nextPage" }));
        scene.dialog->show();
        QTest::keyClick(scene.window(), Qt::Key_Space);
        scene.dialog->defaultButton()->setProperty(property, false);
        QTest::keyClick(scene.window(), Qt::Key_Space);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QCOMPARE(log.take(), names({ "nextPage", "accepted" }));
    }
}

void tst_Dialog::tabCycle()
{
    const QString stop = QStringLiteral("Item { activeFocusOnTab: true; width: 10; height: 10 }\n");
    for (const QString &outside : { QString(), stop.repeated(2) }) {
        DialogScene scene(dialogQml(buttons({ "text: 'c'", "text: 'd'" }) + kContent, outside));
        scene.dialog->show();
        QString way = focused(scene);
        for (Qt::Key key : { Qt::Key_Tab, Qt::Key_Backtab }) {
            for (int step = 0; step < 8; ++step) {
                QTest::keyClick(scene.window(), key);
                way += focused(scene);
            }
        }
        // In the order of the items' creation, the footer comes before the content.
        QCOMPARE(way, QStringLiteral("abcdabcdadcbadcba"));

        // From outside the way leads in.
        scene.find("before")->forceActiveFocus();
        QTest::keyClick(scene.window(), Qt::Key_Tab);
        QVERIFY(scene.box()->isAncestorOf(scene.window()->activeFocusItem()));

        // The content may ask for the keys.
        scene.dialog->content()->setProperty("disableTabOverride", true);
        scene.find("b")->forceActiveFocus();
        QTest::keyClick(scene.window(), Qt::Key_Backtab);
        QCOMPARE(focused(scene), QStringLiteral("a"));
        scene.dialog->reject();
        QVERIFY(scene.find("before")->hasActiveFocus());
    }
}

// A click beside an open box takes the focus from what is in it; one into a host that is closed
// already takes none, wherever it lands.
void tst_Dialog::clicksAndFocus()
{
    DialogScene scene(
        dialogQml(kContent + buttons({ "text: 'c'" }),
                  QStringLiteral("Item { objectName: 'stop'; activeFocusOnTab: true }")));
    scene.dialog->show();
    QVERIFY(scene.find("a")->hasActiveFocus());
    click(scene.window(), QPoint(5, 5), Qt::RightButton);
    QVERIFY(scene.dialog->rootItem() && !scene.find("a")->hasActiveFocus());
    for (int step = 0; step < 2; ++step) {
        QVERIFY(scene.box()->isAncestorOf(scene.window()->activeFocusItem()));
        QTest::keyClick(scene.window(), Qt::Key_Tab);
    }
    QQuickItem *host = scene.dialog->rootItem();
    const QPoint places[] = { QPoint(5, 5), center(scene.find("b")),
                              center(scene.pushButtons().constFirst()) };
    QQmlListReference(host, "transitions").clear(); // a fade without an end
    SignalLog log;
    QQmlListProperty<DialogButton> list = scene.dialog->buttons();
    log.watch(list.at(&list, 0), names({ "clicked" }));
    press(scene.window(), places[2]);
    scene.dialog->reject();
    release(scene.window(), places[2]);
    for (const QPoint &place : places) {
        click(scene.window(), place);
        QVERIFY(scene.find("before")->hasActiveFocus());
    }
    QVERIFY(log.take().isEmpty());
    QVERIFY(host->isEnabled() && scene.find("b")->isEnabled()); // it fades as it was
    for (int step = 0; step < 2; ++step) {
        QTest::keyClick(scene.window(), Qt::Key_Tab);
        QTRY_COMPARE(focused(scene), QStringLiteral("stop"));
    }
}

TAMBER_TEST_MAIN(tst_Dialog)
#include "tst_dialog.moc"
