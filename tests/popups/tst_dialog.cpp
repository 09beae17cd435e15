#include "dialogs.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Dialog>
#include <TamberUi/PopupStack>

using namespace ta::ui;
using namespace ta::test;

// What a dialog shows, its size, the order of its signals, its keys and the focus.
class tst_Dialog : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void closed();
    void items();
    void sizes_data();
    void sizes();
    void sizeWhileShown();
    void badParts_data();
    void badParts();
    void buttonsWhileShown();
    void order_data();
    void order();
    void returnKey_data();
    void returnKey();
    void footerArrows();
    void tabCycle_data();
    void tabCycle();
    void coverTakesFocus();
    void fadingTakesNoFocus();
    void previousFocus_data();
    void previousFocus();
    void heldKey();
};

namespace {

// Two tab stops; the first one has the focus.
const QString kContent = QStringLiteral(
    "contentDelegate: Component { FocusScope { property var dialog; property int extra: 0\n"
    "implicitWidth: 300; implicitHeight: 150; focus: true; property bool disableTabOverride: "
    "false\n"
    "Item { objectName: 'a'; activeFocusOnTab: true; width: 50; height: 20; focus: true }\n"
    "Item { objectName: 'b'; activeFocusOnTab: true; y: 30; width: 50; height: 20 } } }\n");

// An item that has the focus, and a dialog with the \a properties.
QString dialogQml(const QString &properties, const QString &outside = {})
{
    return QStringLiteral("Item { objectName: 'before'; focus: true; width: 100; height: 30 }\n"
                          "UiDialog { objectName: 'dialog'\n%1 }\n%2")
        .arg(properties, outside);
}

QStringList texts(const QList<QQuickItem *> &buttons)
{
    QStringList texts;
    for (const QQuickItem *button : buttons)
        texts.append(button->isVisible() ? button->property("text").toString() : QString());
    return texts;
}

} // namespace

void tst_Dialog::initTestCase()
{
    Scene::useKit();
}

void tst_Dialog::cleanup()
{
    TestCase::cleanup();
    QVERIFY(!PopupStack::top());
}

void tst_Dialog::closed()
{
    Dialog dialog;
    auto *popup = qobject_cast<IPopup *>(&dialog);
    QVERIFY(popup && popup->preventAutoScroll() && !popup->rootItem());
    QCOMPARE(dialog.qt_metacast("tamber.IPopup/1.0"), static_cast<void *>(popup));
    QCOMPARE(int(dialog.flags()), 5);
    SignalLog log;
    log.watch(&dialog);
    dialog.reject();
    dialog.accept(1);
    dialog.back();
    dialog.forward();
    dialog.setWidth(-3);
    dialog.setAutoSizeMargins(QPoint(1, 2));
    dialog.setHeaderOptions({ { QStringLiteral("a"), 1 } });
    dialog.setResult(1);
    dialog.setResult(QStringLiteral("1")); // equal to 1, as variants go
    dialog.setResult(QStringLiteral("1"));
    dialog.setFlags(Dialog::NoFlag);
    QCOMPARE(log.take(), names({ "widthChanged", "autoSizeMarginsChanged", "resultChanged",
                                 "resultChanged", "flagsChanged" }));
    expectWarning(QStringLiteral("cannot be shown without its QML engine"));
    dialog.show();
    QVERIFY(log.take().isEmpty() && !popup->rootItem());
}

void tst_Dialog::items()
{
    Scene scene(dialogQml(
        QStringLiteral("property Component kept: headerDelegate; label: 'Title'\n"
                       "instructionText: 'Do it'; contentOptions: ({ extra: 7 })\n"
                       "footerControls: Component { Item { objectName: 'more'; implicitWidth: 40;"
                       " implicitHeight: 20 } }\n")
        + kContent));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    QVERIFY(dialog->headerDelegate() && dialog->footerDelegate());
    dialog->show();
    QQuickItem *host = dialog->rootItem();
    dialog->show();
    QCOMPARE(dialog->rootItem(), host);
    QCOMPARE(host->parent(), dialog);
    QCOMPARE(host->parentItem(), scene.window()->contentItem());
    QCOMPARE(host->z(), 65635.0);
    QCOMPARE(host->size(), QSizeF(800, 600));
    QVERIFY(!host->property("_ta_isPopup").isValid());
    QCOMPARE(host->property("dialog").value<Dialog *>(), dialog);
    QCOMPARE(QQmlEngine::objectOwnership(host), QQmlEngine::CppOwnership);

    QQuickItem *content = dialog->content();
    QCOMPARE(content->objectName(), QStringLiteral("_ta_dialogItem"));
    QCOMPARE(content->property("dialog").value<Dialog *>(), dialog);
    QCOMPARE(content->property("extra").toInt(), 7);
    QVERIFY(dialog->contentOptions().count() == 1); // the dialog was put into a copy

    // From the top: header, content, footer; in the middle of the window.
    const QQuickItem *more = scene.find("more");
    const QQuickItem *footer = more->parentItem()->parentItem();
    const QRectF frame(box(dialog)->position(), box(dialog)->size());
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
    const QString item = QStringLiteral("contentDelegate: Component { Item { property var dialog;"
                                        " implicitWidth: %1; implicitHeight: %2 } }\n");
    QTest::newRow("nothing") << bare << QSizeF(200, 100);
    QTest::newRow("small") << bare + item.arg(20).arg(30) << QSizeF(200, 100);
    QTest::newRow("large") << bare + item.arg(320).arg(230) << QSizeF(320, 230);
    QTest::newRow("fraction") << bare + item.arg(300.25).arg(200.75) << QSizeF(301, 201);
    QTest::newRow("fixed") << bare + item.arg(320).arg(230)
                                  + QStringLiteral("width: 50; height: 40")
                           << QSizeF(50, 40);
    QTest::newRow("one fixed") << bare + item.arg(320).arg(230) + QStringLiteral("width: 400")
                               << QSizeF(400, 230);
    QTest::newRow("auto") << bare
                                 + QStringLiteral("autoSize: true; width: 3; autoSizeMargins: "
                                                  "Qt.point(20, 10)")
                          << QSizeF(760, 580);
    QTest::newRow("auto, no room")
        << bare + QStringLiteral("autoSize: true; autoSizeMargins: Qt.point(500, 2147483647)")
        << QSizeF(0, 0);
    QTest::newRow("fixed, with a header and a footer")
        << item.arg(320).arg(230)
               + QStringLiteral("width: 500; height: 400; label: 'Title'; instructionText: 'A line "
                                "that is too long for a dialog at its smallest size'\n"
                                "buttons: [ UiDialogButton { text: 'One' } ]")
        << QSizeF(500, 400);
    QTest::newRow("own parts") << QStringLiteral(
                                      "headerDelegate: Component { Item { property var dialog;"
                                      " implicitWidth: 250; implicitHeight: 60 } }\n"
                                      "footerDelegate: Component { Item { property var dialog;"
                                      " implicitWidth: 350; implicitHeight: 50 } }\n")
                                      + item.arg(300).arg(100)
                               << QSizeF(350, 210);
}

void tst_Dialog::sizes()
{
    QFETCH(QString, properties);
    Scene scene(dialogQml(properties));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    QTEST(box(dialog)->size(), "size");
    QVERIFY(scene.waitForFrame()); // nothing is arranged late
    QTEST(box(dialog)->size(), "size");
    dialog->reject();
}

void tst_Dialog::sizeWhileShown()
{
    Scene scene(
        dialogQml(QStringLiteral("headerDelegate: null; footerDelegate: null\n") + kContent));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    const auto size = [&] { return box(dialog)->size(); };
    connect(dialog, &Dialog::widthChanged, this,
            [&] { QCOMPARE(size(), QSizeF(dialog->width(), 150)); });
    dialog->setWidth(400);
    QCOMPARE(size(), QSizeF(400, 150));
    dialog->content()->setImplicitWidth(350); // the content's size is followed beside the fixed one
    QCOMPARE(size(), QSizeF(350, 150));
    dialog->setHeight(333);
    dialog->setAutoSize(true);
    QCOMPARE(size(), QSizeF(800, 600));
    dialog->setAutoSizeMargins(QPoint(100, 50));
    QCOMPARE(size(), QSizeF(600, 500));
    dialog->content()->setImplicitWidth(360);
    QCOMPARE(size(), QSizeF(600, 500));
    scene.window()->resize(700, 500);
    QTRY_COMPARE(size(), QSizeF(500, 400));
    QTRY_COMPARE(dialog->rootItem()->size(), QSizeF(700, 500));
    dialog->reject();
}

void tst_Dialog::badParts_data()
{
    QTest::addColumn<QByteArray>("qml");
    QTest::addColumn<QString>("warning");
    QTest::newRow("syntax error") << QByteArray("Item {") << QStringLiteral("cannot be created");
    QTest::newRow("no item") << QByteArray("import QtQml 2.15; QtObject { property var dialog }")
                             << QStringLiteral("must be an item");
}

// The dialog opens without the part.
void tst_Dialog::badParts()
{
    QFETCH(QByteArray, qml);
    QFETCH(QString, warning);
    Scene scene(dialogQml(QString()));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    QQmlComponent component(&scene.engine());
    component.setData(qml, QUrl(QStringLiteral("qrc:/part.qml")));
    for (auto set :
         { &Dialog::setHeaderDelegate, &Dialog::setContentDelegate, &Dialog::setFooterDelegate })
        (dialog->*set)(&component);
    expectWarning(warning);
    if (component.isError())
        expectWarning(QStringLiteral("Component is not ready"));
    dialog->show();
    QVERIFY(dialog->rootItem() && !dialog->content());
    QCOMPARE(box(dialog)->size(), QSizeF(200, 100));
    dialog->reject();
}

void tst_Dialog::buttonsWhileShown()
{
    Scene scene(dialogQml(QStringLiteral("buttons: [ UiDialogButton { text: 'one' },\n"
                                         "UiDialogButton { text: 'two'; enabled: false },\n"
                                         "UiDialogButton { text: 'three'; visible: false } ]")));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    QQmlListProperty<DialogButton> list = dialog->buttons();
    delete list.at(&list, 0);
    dialog->show();
    QCOMPARE(texts(pushButtons(dialog)), QStringList({ {}, QStringLiteral("two"), {} }));
    QVERIFY(!pushButtons(dialog).at(1)->isEnabled());
    list.at(&list, 2)->setVisible(true);
    list.at(&list, 1)->setText(QStringLiteral("deux"));
    list.at(&list, 1)->setRole(DialogButton::OkRole);
    QCOMPARE(pushButtons(dialog).at(1)->property("style").toInt(), int(Ui::PrimaryPushButtonStyle));
    DialogButton *third = list.at(&list, 2);
    delete list.at(&list, 1);
    QTRY_COMPARE(texts(pushButtons(dialog)), QStringList({ {}, {}, QStringLiteral("three") }));
    DialogButton fourth;
    fourth.setText(QStringLiteral("four"));
    list.append(&list, &fourth);
    QTRY_COMPARE(texts(pushButtons(dialog)).last(), QStringLiteral("four"));
    SignalLog log;
    log.watch(third, names({ "clicked" }));
    QVERIFY(scene.waitForFrame()); // the row arranges its buttons
    click(scene.window(), center(pushButtons(dialog).at(2)));
    QCOMPARE(log.take(), names({ "clicked" }));
    QTest::keyClick(scene.window(), Qt::Key_Return); // there is no primary button
    QVERIFY(dialog->rootItem());
    dialog->reject();
    QVERIFY(scene.waitForFrame());
}

void tst_Dialog::order_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("answer");
    for (const char *way : { "accept", "reject", "ok", "cancel", "escape", "close" }) {
        const bool accepts = qstrcmp(way, "accept") == 0 || qstrcmp(way, "ok") == 0;
        QTest::newRow(way) << QString::fromLatin1(way)
                           << (accepts ? QStringLiteral("accepted") : QStringLiteral("rejected"));
    }
}

// What a handler of each signal sees, from show() to the end.
void tst_Dialog::order()
{
    QFETCH(QString, way);
    QFETCH(QString, answer);
    Scene scene(dialogQml(
        kContent
        + QStringLiteral("result: 'r'; buttons: [ UiDialogButton { role: UiDialogButton.CancelRole "
                         "}, UiDialogButton { role: UiDialogButton.OkRole } ]")));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    const auto *before = scene.find("before");
    QVERIFY(before->hasActiveFocus());
    QStringList log;
    const auto note = [&](const char *name) {
        log.append(QStringLiteral("%1: %2%3%4%5")
                       .arg(QLatin1String(name),
                            dialog->rootItem() ? QStringLiteral("host ") : QString(),
                            dialog->content() ? QStringLiteral("content ") : QString(),
                            PopupStack::top() == dialog ? QStringLiteral("top ") : QString(),
                            before->hasActiveFocus() ? QStringLiteral("restored") : QString()));
    };
    QVariant result;
    connect(dialog, &Dialog::contentChanged, this, [&] { note("contentChanged"); });
    connect(dialog, &Dialog::opened, this, [&] { note("opened"); });
    connect(dialog, &Dialog::rejected, this, [&] { note("rejected"); });
    connect(dialog, &Dialog::accepted, this, [&](const QVariant &value) {
        result = value;
        note("accepted");
    });
    for (int round = 0; round < 2; ++round) {
        dialog->show();
        QCOMPARE(log, names({ "contentChanged: host content ", "opened: host content top " }));
        QVERIFY(scene.find("a")->hasActiveFocus());
        log.clear();
        const QPointer<QQuickItem> host = dialog->rootItem();
        if (way == QLatin1String("accept"))
            dialog->accept(QStringLiteral("r"));
        else if (way == QLatin1String("reject"))
            dialog->reject();
        else if (way == QLatin1String("ok"))
            click(scene.window(), center(pushButtons(dialog).at(1)));
        else if (way == QLatin1String("cancel"))
            click(scene.window(), center(pushButtons(dialog).at(0)));
        else if (way == QLatin1String("escape"))
            QTest::keyClick(scene.window(), Qt::Key_Escape);
        else
            QCoreApplication::sendEvent(scene.window(), std::make_unique<QCloseEvent>().get());
        QCOMPARE(log, QStringList({ QStringLiteral("contentChanged: top "),
                                    answer + QLatin1String(": restored") }));
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
    QTest::addColumn<QString>("buttons");
    QTest::addColumn<QStringList>("log");
    const auto button = [](const char *properties) {
        return QStringLiteral("UiDialogButton { %1 }").arg(QLatin1String(properties));
    };
    const QString cancel = button("role: UiDialogButton.CancelRole");
    const QString ok = button("role: UiDialogButton.OkRole");
    const QString back = button("role: UiDialogButton.BackRole");
    QTest::newRow("cancel, ok") << cancel + QLatin1Char(',') + ok << names({ "accepted" });
    QTest::newRow("back, ok") << back + QLatin1Char(',') + ok << names({ "previousPage" });
    QTest::newRow("forward") << button("role: UiDialogButton.ForwardRole") << names({ "nextPage" });
    QTest::newRow("close") << button("role: UiDialogButton.CloseRole") << names({ "rejected" });
    QTest::newRow("cancel alone") << cancel << QStringList();
    QTest::newRow("primary cancel")
        << button("role: UiDialogButton.CancelRole; style: Ui.PrimaryPushButtonStyle")
               + QLatin1Char(',') + ok
        << names({ "rejected" });
    QTest::newRow("own action") << button("role: UiDialogButton.OkRole; action: "
                                          "UiDialogButton.ForwardAction")
                                << names({ "nextPage" });
    QTest::newRow("disabled") << button("role: UiDialogButton.OkRole; enabled: false")
                                     + QLatin1Char(',') + button("role: UiDialogButton.CloseRole")
                              << QStringList();
    QTest::newRow("hidden before")
        << button("role: UiDialogButton.BackRole; visible: false") + QLatin1Char(',') + ok
        << names({ "accepted" });
    QTest::newRow("none") << QString() << QStringList();
}

void tst_Dialog::returnKey()
{
    QFETCH(QString, buttons);
    Scene scene(dialogQml(QStringLiteral("buttons: [ %1 ]\n").arg(buttons) + kContent));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    SignalLog log;
    log.watch(dialog, names({ "accepted", "rejected", "previousPage", "nextPage" }));
    for (Qt::Key key : { Qt::Key_Return, Qt::Key_Enter }) {
        dialog->show();
        QTest::keyClick(scene.window(), key);
        QTEST(log.take(), "log");
        dialog->reject();
        log.take();
    }
}

void tst_Dialog::footerArrows()
{
    Scene scene(dialogQml(QStringLiteral("defaultButton: second; buttons: [ UiDialogButton { text: "
                                         "'0' }, UiDialogButton { id: second; "
                                         "text: '1' }, UiDialogButton { text: '2' } ]")));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    const auto focused = [&] {
        const QQuickItem *item = scene.window()->activeFocusItem();
        return item ? item->property("text").toString() : QString();
    };
    QCOMPARE(focused(), QStringLiteral("1"));
    const struct
    {
        Qt::Key key;
        const char *focused;
    } steps[] = { { Qt::Key_Left, "0" },   { Qt::Key_Left, "2" }, { Qt::Key_Right, "0" },
                  { Qt::Key_Right, "1" },  { Qt::Key_Tab, "2" },  { Qt::Key_Tab, "0" },
                  { Qt::Key_Backtab, "2" } };
    for (const auto &step : steps) {
        QTest::keyClick(scene.window(), step.key);
        QCOMPARE(focused(), QLatin1String(step.focused));
    }
    // Space clicks the button that has the focus; it has no role.
    SignalLog log;
    QQmlListProperty<DialogButton> list = dialog->buttons();
    log.watch(list.at(&list, 2), names({ "clicked" }));
    QTest::keyClick(scene.window(), Qt::Key_Space);
    QCOMPARE(log.take(), names({ "clicked" }));
    dialog->reject();
}

void tst_Dialog::tabCycle_data()
{
    QTest::addColumn<QString>("outside");
    QTest::newRow("no stop outside") << QString();
    QTest::newRow("stops outside")
        << QStringLiteral("Item { activeFocusOnTab: true; width: 10; height: 10 }\n"
                          "Item { activeFocusOnTab: true; width: 10; height: 10 }");
}

void tst_Dialog::tabCycle()
{
    QFETCH(QString, outside);
    Scene scene(dialogQml(QStringLiteral("buttons: [ UiDialogButton { text: 'c' }, UiDialogButton "
                                         "{ text: 'd' } ]\n")
                              + kContent,
                          outside));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    const auto focused = [&] {
        const QQuickItem *item = scene.window()->activeFocusItem();
        if (!item || !box(dialog)->isAncestorOf(item))
            return QStringLiteral("outside");
        return item->objectName().isEmpty() ? item->property("text").toString()
                                            : item->objectName();
    };
    QString forward = focused();
    QString backward;
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(scene.window(), Qt::Key_Tab);
        forward += focused();
    }
    for (int step = 0; step < 8; ++step) {
        QTest::keyClick(scene.window(), Qt::Key_Backtab);
        backward += focused();
    }
    // In the order of the items' creation, the footer comes before the content.
    QCOMPARE(forward, QStringLiteral("abcdabcda"));
    QCOMPARE(backward, QStringLiteral("dcbadcba"));

    // From outside the way leads in.
    scene.find("before")->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(focused() != QLatin1String("outside"));

    // The content may ask for the keys.
    dialog->content()->setProperty("disableTabOverride", true);
    scene.find("b")->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_Backtab);
    QVERIFY(focused() == QLatin1String("a"));
    dialog->reject();
    QVERIFY(scene.find("before")->hasActiveFocus());
}

void tst_Dialog::coverTakesFocus()
{
    Scene scene(dialogQml(kContent));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    QVERIFY(scene.find("a")->hasActiveFocus());
    click(scene.window(), QPoint(5, 5), Qt::RightButton);
    QVERIFY(dialog->rootItem());
    const QQuickItem *focusItem = scene.window()->activeFocusItem();
    QVERIFY(!scene.find("a")->hasActiveFocus() && box(dialog)->isAncestorOf(focusItem));
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(box(dialog)->isAncestorOf(scene.window()->activeFocusItem()));
    dialog->reject();
}

// Whatever is clicked in a host that is closed already.
void tst_Dialog::fadingTakesNoFocus()
{
    Scene scene(
        dialogQml(kContent + QStringLiteral("buttons: [ UiDialogButton { text: 'c' } ]\n")));
    QVERIFY(scene.isValid());
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    const QPointer<QQuickItem> host = dialog->rootItem();
    QQuickItem *inside = scene.find("b");
    QQuickItem *button = pushButtons(dialog).at(0);
    dialog->reject();
    for (const QPoint &position : { QPoint(5, 5), center(inside), center(button) }) {
        click(scene.window(), position);
        QVERIFY(host);
        QVERIFY(scene.find("before")->hasActiveFocus());
    }
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(!host->isAncestorOf(scene.window()->activeFocusItem()));
    QTRY_VERIFY(!host);
}

void tst_Dialog::previousFocus_data()
{
    QTest::addColumn<QString>("closing"); // of the dialogs 1, 2 and 3, each opened from the last
    for (const char *order : { "321", "123", "213", "132", "231", "312" })
        QTest::newRow(order) << QString::fromLatin1(order);
}

// However stacked dialogs close, the topmost one that is left keeps the focus, and in the end it is
// back where it was.
void tst_Dialog::previousFocus()
{
    QFETCH(QString, closing);
    const QString another = QStringLiteral("UiDialog { objectName: '%1'; defaultButton: button%1\n"
                                           "buttons: [ UiDialogButton { id: button%1 } ] }\n");
    Scene scene(QStringLiteral("Item { objectName: 'before'; focus: true }\n") + another.arg(1)
                + another.arg(2) + another.arg(3));
    QVERIFY(scene.isValid());
    QVector<Dialog *> dialogs;
    for (const char *name : { "1", "2", "3" }) {
        dialogs.append(scene.find<Dialog>(name));
        dialogs.last()->show();
    }
    for (const QChar name : closing) {
        dialogs.at(name.digitValue() - 1)->reject();
        auto *top = qobject_cast<Dialog *>(PopupStack::top());
        const QQuickItem *focusItem = scene.window()->activeFocusItem();
        if (top)
            QVERIFY(top->rootItem()->isAncestorOf(focusItem));
        else
            QCOMPARE(focusItem, scene.find("before"));
    }
    QVERIFY(!PopupStack::top());
}

// The key that closes a dialog does nothing to the button that gets the focus back; the next one
// does.
void tst_Dialog::heldKey()
{
    Scene scene(QStringLiteral("UiPushButton { objectName: 'opener'; focus: true }\n"
                               "UiDialog { objectName: 'dialog'\n"
                               "buttons: [ UiDialogButton { role: UiDialogButton.OkRole } ] }"));
    QVERIFY(scene.isValid());
    auto *opener = scene.find("opener");
    SignalLog log;
    log.watch(opener, names({ "clicked", "pressedChanged" }));
    scene.find<Dialog>("dialog")->show();
    QTest::keyPress(scene.window(), Qt::Key_Return);
    QVERIFY(!PopupStack::top() && opener->hasActiveFocus());
    QKeyEvent repetition(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(scene.window(), &repetition);
    QTest::keyRelease(scene.window(), Qt::Key_Return);
    QCOMPARE(log.take(), QStringList());
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QCOMPARE(log.take(), names({ "pressedChanged", "pressedChanged", "clicked" }));
}

TAMBER_TEST_MAIN(tst_Dialog)
#include "tst_dialog.moc"
