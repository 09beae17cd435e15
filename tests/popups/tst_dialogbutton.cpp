#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Dialog>
#include <TamberUi/DialogButton>
#include <TamberUi/PopupStack>

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickWindow>

using namespace ta::ui;
using namespace ta::test;

// The buttons of dialogs, and all that can be told without the kit.
class tst_DialogButton : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void roles_data();
    void roles();
    void changes();
    void withoutPublicModule();
};

void tst_DialogButton::roles_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("action");
    const auto row = [](int role, const char *caption, int style, int action) {
        QTest::addRow("%d", role) << role << QString::fromLatin1(caption) << style << action;
    };
    row(DialogButton::NoRole, "", 2, 0);
    row(DialogButton::OkRole, "8032344dab7a0d5e", 1, 2);
    row(DialogButton::ApplyRole, "", 1, 2);
    row(DialogButton::AcceptRole, "a30faf650f427ada", 1, 2);
    row(DialogButton::DoneRole, "18c4498018b6f1d1", 1, 2);
    row(DialogButton::CancelRole, "37ae1dd525a0ce7a", 2, 3);
    row(DialogButton::RevertRole, "f9330eba97fc373e", 2, 0);
    row(DialogButton::CloseRole, "28c3843d05fb11e9", 1, 3);
    row(DialogButton::BackRole, "b5e16992c23938d2", 1, 4);
    row(DialogButton::ForwardRole, "a67d7bccc6d4448e", 1, 5);
    row(DialogButton::ForwardRole + 1, "", 2, 0);
    row(-1, "", 2, 0);
}

// Without a catalogue the caption is the id; the kit's catalogues have a test of their own.
void tst_DialogButton::roles()
{
    QFETCH(int, role);
    DialogButton button;
    button.setRole(DialogButton::ButtonRole(role));
    QTEST(button.text(), "caption");
    QTEST(int(button.effectiveStyle()), "style");
    QTEST(button.styleForRole(button.role()), "style");
    QTEST(button.actionForRole(button.role()), "action");
    QCOMPARE(button.action(), DialogButton::AutomaticAction); // never rewritten
    button.setStyle(Ui::PrimaryPushButtonStyle);
    button.setText(QStringLiteral("Go"));
    QCOMPARE(button.effectiveStyle(), Ui::PrimaryPushButtonStyle);
    QCOMPARE(button.text(), QStringLiteral("Go"));
}

void tst_DialogButton::changes()
{
    DialogButton button;
    SignalLog log;
    log.watch(&button);
    button.setRole(DialogButton::OkRole);
    QCOMPARE(log.take(), names({ "roleChanged", "textChanged" }));
    button.setText(button.text()); // the stored text is empty still
    button.setRole(DialogButton::CancelRole);
    QCOMPARE(log.take(), names({ "textChanged", "roleChanged" }));

    auto *doomed = new DialogButton;
    connect(doomed, &DialogButton::roleChanged, doomed, [doomed] { delete doomed; });
    doomed->setRole(DialogButton::OkRole);
}

// The library's components need the types of a public module, which is nowhere here.
void tst_DialogButton::withoutPublicModule()
{
    qmlRegisterType<Dialog>("tests.Dialogs", 1, 0, "UiDialog");
    QQmlEngine engine;
    engine.setImportPathList({});
    QQuickWindow window;
    QQmlComponent component(&engine);
    component.setData("import tests.Dialogs 1.0; UiDialog {}", QUrl());
    const std::unique_ptr<QObject> object(component.create());
    auto *dialog = qobject_cast<Dialog *>(object.get());
    QVERIFY2(dialog, qPrintable(component.errorString()));
    dialog->setParent(window.contentItem());
    SignalLog log;
    log.watch(dialog);
    expectWarning(QStringLiteral("UiDialogHost.qml.*is not installed"));
    for (int round = 0; round < 2; ++round) {
        dialog->show();
        QVERIFY(!dialog->rootItem() && !PopupStack::top());
    }
    QVERIFY(log.take().isEmpty());
    QVERIFY(window.contentItem()->childItems().isEmpty());
    dialog->setParent(nullptr);
}

TAMBER_TEST_MAIN(tst_DialogButton)
#include "tst_dialogbutton.moc"
