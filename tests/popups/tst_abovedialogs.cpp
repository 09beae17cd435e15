#include "popups.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// A menu and a popup above a dialog: which of the two the keys, the pointer and the end of one of
// them are for, and where the focus is afterwards.
class tst_AboveDialogs : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void init();
    void cleanup();
    void escape_data() { kinds(); }
    void escape();
    void presses_data() { kinds(); }
    void presses();
    void chosenEntryClosesDialog();
    void dialogClosesFirst_data() { kinds(); }
    void dialogClosesFirst();
    void dialogAbovePopup();
    void stackedDialogs();

private:
    static void kinds();
    void openAbove(const QString &kind);
    bool isOpenAbove() const // they go with the dialog's content
    {
        return (m_menu && m_menu->rootItem()) || (m_anchor && m_anchor->isPopupVisible());
    }
    bool hasFocus(const char *name) const
    {
        const QQuickItem *item = m_scene->find(name);
        return item && item->hasActiveFocus();
    }
    int presses(const char *name) const
    {
        const QQuickItem *item = m_scene->find(name);
        return item ? item->property("n").toInt() : 0;
    }

    std::unique_ptr<DialogScene> m_scene;
    QPointer<Dialog> m_dialog;
    QPointer<ContextMenu> m_menu;
    QPointer<PopupAnchor> m_anchor;
    SignalLog m_answers;
};

namespace {

// The box lies in the middle, at (200, 150); menu and popup open at its upper left corner and reach
// out of it on the left. The popup takes the focus, as a list of choices does.
const QString kScene = QStringLiteral(
    "Item { objectName: 'before'; focus: true }\n"
    "MouseArea { objectName: 'under'; property int n: 0; anchors.fill: parent; onPressed: ++n }\n"
    "UiDialog { objectName: 'dialog'; headerDelegate: null; footerDelegate: null\n"
    "contentDelegate: Component { FocusScope { property var dialog\n"
    "implicitWidth: 400; implicitHeight: 300; focus: true\n"
    "MouseArea { objectName: 'content'; property int n: 0; anchors.fill: parent; onPressed: ++n }\n"
    "Item { objectName: 'field'; focus: true\n"
    "UiContextMenu { objectName: 'menu'\n"
    "UiMenuItem { text: 'More' }\n"
    "UiMenuItem { objectName: 'leave'; text: 'Leave'; onTriggered: dialog.accept('left') } } }\n"
    "UiPopupAnchor { objectName: 'anchor'; x: -50\n"
    "onPopupItemChanged: if (popupItem) popupItem.forceActiveFocus()\n"
    "FocusScope { width: 100; height: 70\n"
    "Item { objectName: 'first'; focus: true } } } } } }\n");

const QPoint kInMenu(160, 170); // in the popup, too, and outside of the dialog
const QPoint kInDialog(500, 400);
const QPoint kOutside(20, 20);

} // namespace

void tst_AboveDialogs::init()
{
    TestCase::init();
    m_scene = std::make_unique<DialogScene>(kScene);
    m_dialog = m_scene->dialog;
    m_answers.watch(m_dialog, names({ "accepted", "rejected" }));
    m_dialog->show();
    m_menu = m_scene->find<ContextMenu>("menu");
    m_anchor = m_scene->find<PopupAnchor>("anchor");
    QVERIFY(hasFocus("field"));
}

void tst_AboveDialogs::cleanup()
{
    m_scene.reset();
    m_answers.take();
    TestCase::cleanup();
}

void tst_AboveDialogs::kinds()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("menu") << QStringLiteral("menu");
    QTest::newRow("popup") << QStringLiteral("popup");
}

void tst_AboveDialogs::openAbove(const QString &kind)
{
    if (kind == QLatin1String("menu"))
        m_menu->showAt(m_scene->find("field"), QPointF(-50, 0));
    else
        m_anchor->show();
    QVERIFY(m_scene->waitForFrame());
    if (const QQuickItem *frame = MenuScene::frameOf(m_menu))
        QTRY_VERIFY(frame->height() > 6);
    QVERIFY(isOpenAbove() && PopupStack::top() != m_dialog);
    QCOMPARE(hasFocus("first"), m_anchor->isPopupVisible());
}

// Once for what lies above, once more for the dialog.
void tst_AboveDialogs::escape()
{
    QFETCH(QString, kind);
    openAbove(kind);
    QTest::keyClick(m_scene->window(), Qt::Key_Escape);
    QVERIFY(!isOpenAbove() && m_dialog->rootItem());
    QCOMPARE(PopupStack::top(), m_dialog);
    QVERIFY(hasFocus("field"));
    QTest::keyClick(m_scene->window(), Qt::Key_Escape);
    QVERIFY(!m_dialog->rootItem() && hasFocus("before"));
    QCOMPARE(m_answers.take(), names({ "rejected" }));
}

// A press beside it closes what lies above, and goes on to what it hit. The dialog is the top by
// the time that the press comes to its cover.
void tst_AboveDialogs::presses()
{
    QFETCH(QString, kind);
    m_dialog->setFlags(Dialog::RejectOnClickOutside);
    openAbove(kind);
    click(m_scene->window(), kInDialog);
    QVERIFY(!isOpenAbove() && m_dialog->rootItem() && hasFocus("field"));
    QCOMPARE(presses("content"), 1);
    openAbove(QStringLiteral("menu"));
    click(m_scene->window(), kOutside);
    QVERIFY(!isOpenAbove() && !m_dialog->rootItem() && hasFocus("before"));
    QCOMPARE(m_answers.take(), names({ "rejected" }));
    QCOMPARE(presses("under"), 0);
    QVERIFY(!PopupStack::top());
}

void tst_AboveDialogs::chosenEntryClosesDialog()
{
    openAbove(QStringLiteral("menu"));
    m_answers.watch(m_menu, names({ "closed" }));
    m_answers.watch(m_scene->find<QObject>("leave"), names({ "triggered" }));
    click(m_scene->window(), kInMenu + QPoint(0, 32));
    QCOMPARE(m_answers.take(), names({ "accepted", "triggered", "closed" }));
    QVERIFY(hasFocus("before") && !PopupStack::top());
    QTRY_VERIFY(!m_menu); // with the content
    QCOMPARE(m_scene->window()->contentItem()->childItems().count(), 1);
}

// The one above stays until the content goes, and takes no focus along that is elsewhere by then.
void tst_AboveDialogs::dialogClosesFirst()
{
    QFETCH(QString, kind);
    openAbove(kind);
    m_dialog->reject();
    QVERIFY(isOpenAbove() && PopupStack::top() != m_dialog);
    QVERIFY(hasFocus("before"));
    QTest::keyClick(m_scene->window(), Qt::Key_Escape);
    QVERIFY(!isOpenAbove() && !PopupStack::top() && hasFocus("before"));
    QTRY_VERIFY(!m_menu);
}

// As a button of a popup opens it.
void tst_AboveDialogs::dialogAbovePopup()
{
    m_dialog->reject();
    AnchorScene scene(QStringLiteral("Item { objectName: 'opener'; focus: true }\n"
                                     "UiPopupAnchor { objectName: 'anchor'; FocusScope {\n"
                                     "Item { objectName: 'inPopup'; focus: true } } }\n"
                                     "UiDialog { objectName: 'above' }"));
    auto *above = scene.find<Dialog>("above");
    scene.anchor->show();
    scene.anchor->popupItem()->forceActiveFocus();
    above->show();
    scene.anchor->hide();
    QVERIFY(above->rootItem()->isAncestorOf(scene.window()->activeFocusItem()));
    above->reject();
    QVERIFY(scene.find("opener")->hasActiveFocus() && !PopupStack::top());
}

// However stacked dialogs close, the topmost one that is left keeps the focus, and in the end it is
// back where it was.
void tst_AboveDialogs::stackedDialogs()
{
    QString qml = QStringLiteral("Item { objectName: 'before'; focus: true }\n");
    for (int number : { 1, 2, 3 })
        qml += QStringLiteral("UiDialog { objectName: '%1'; defaultButton: button%1\n"
                              "buttons: [ UiDialogButton { id: button%1 } ] }\n")
                   .arg(number);
    m_dialog->reject();
    Scene scene(qml);
    // Of the dialogs 1, 2 and 3, each opened from the last.
    for (const char *closing : { "321", "123", "213", "132" }) {
        QVector<Dialog *> dialogs;
        for (const char *name : { "1", "2", "3" }) {
            dialogs.append(scene.find<Dialog>(name));
            dialogs.last()->show();
        }
        for (const QChar name : QString::fromLatin1(closing)) {
            dialogs.at(name.digitValue() - 1)->reject();
            auto *top = qobject_cast<Dialog *>(PopupStack::top());
            const QQuickItem *focusItem = scene.window()->activeFocusItem();
            if (top)
                QVERIFY2(top->rootItem()->isAncestorOf(focusItem), closing);
            else
                QVERIFY2(focusItem == scene.find("before"), closing);
        }
        QVERIFY(!PopupStack::top());
    }
}

TAMBER_TEST_MAIN(tst_AboveDialogs)
#include "tst_abovedialogs.moc"
