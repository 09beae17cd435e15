#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/Dialog>
#include <TamberUi/PopupStack>

#include <QtCore/QLocale>
#include <QtCore/QThread>
#include <QtCore/QTranslator>
#include <QtGui/QAccessible>

#include <memory>

using namespace ta::ui;
using namespace ta::test;

class tst_KitDialogs : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void captions_data();
    void captions();
    void hostsCatalogueWins();
    void captionsOnAnotherThread();
    void messageBox_data();
    void messageBox();
    void messageBoxAnswers();
    void goesWithWindow();
};

namespace {

// The catalogue of a host: it has one text.
class HostCatalogue : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return qstrcmp(sourceText, "37ae1dd525a0ce7a") == 0 ? QStringLiteral("Never mind")
                                                            : QString();
    }
    bool isEmpty() const override { return false; }
};

HostCatalogue *s_early = nullptr; // installed before the kit was loaded

const char *const kRoles[] = { "Ok",     "Accept", "Done", "Cancel",
                               "Revert", "Close",  "Back", "Forward" };

QStringList captionsInQml(Scene &scene)
{
    QStringList captions;
    for (const char *role : kRoles) {
        const auto button = scene.create(
            QStringLiteral("UiDialogButton { role: UiDialogButton.%1Role }")
                .arg(QLatin1String(role)));
        captions.append(button->property("text").toString());
    }
    return captions;
}

} // namespace

// One catalogue of the host is there before the kit, in German, comes to the application.
void tst_KitDialogs::initTestCase()
{
    Scene::useKit();
    s_early = new HostCatalogue;
    QVERIFY(QCoreApplication::installTranslator(s_early));
    QLocale::setDefault(QLocale(QStringLiteral("de_AT")));
    const Scene scene(QString {});
}

void tst_KitDialogs::cleanup()
{
    TestCase::cleanup();
    QVERIFY(!PopupStack::top());
}

void tst_KitDialogs::captions_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QStringList>("expected");
    const QStringList english { QStringLiteral("OK"),     QStringLiteral("Accept"),
                                QStringLiteral("Done"),   QStringLiteral("Cancel"),
                                QStringLiteral("Revert"), QStringLiteral("Close"),
                                QStringLiteral("Back"),   QStringLiteral("Next") };
    QTest::newRow("German") << QStringLiteral("de_AT")
                            << QStringList { QStringLiteral("OK"),
                                             QStringLiteral("Annehmen"),
                                             QStringLiteral("Fertig"),
                                             QStringLiteral("Abbrechen"),
                                             QStringLiteral("Zur\u00fccksetzen"),
                                             QStringLiteral("Schlie\u00dfen"),
                                             QStringLiteral("Zur\u00fcck"),
                                             QStringLiteral("Weiter") };
    QTest::newRow("English") << QStringLiteral("en_GB") << english;
    QTest::newRow("no catalogue") << QStringLiteral("fi_FI") << english;
    QTest::newRow("C") << QStringLiteral("C") << english;
}

// The kit looks at the locale once in a process, so each locale gets a process of its own.
void tst_KitDialogs::captions()
{
    QFETCH(QString, locale);
    QFETCH(QStringList, expected);
    if (locale == QLatin1String("de_AT")) {
        QCoreApplication::removeTranslator(s_early);
        Scene scene(QString {});
        QCOMPARE(captionsInQml(scene), expected);
        QCoreApplication::installTranslator(s_early);
        return;
    }
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  { QStringLiteral("--captions"), locale });
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n')), expected);
}

void tst_KitDialogs::hostsCatalogueWins()
{
    Scene scene(QString {});
    const auto caption = [&] { return captionsInQml(scene).at(3); };
    // Moved to the place behind the kit's and before it, and away.
    QCOMPARE(caption(), QStringLiteral("Never mind"));
    QCoreApplication::removeTranslator(s_early);
    QCOMPARE(caption(), QStringLiteral("Abbrechen"));
    QCoreApplication::installTranslator(s_early);
    QCOMPARE(caption(), QStringLiteral("Never mind"));
    QCOMPARE(captionsInQml(scene).at(5), QStringLiteral("Schlie\u00dfen"));
    // Other texts are none of the kit's business.
    QCOMPARE(QCoreApplication::translate("Host", "37ae"), QStringLiteral("37ae"));
    QCOMPARE(qtTrId("0000000000000000"), QStringLiteral("0000000000000000"));
}

void tst_KitDialogs::captionsOnAnotherThread()
{
    QString caption;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { caption = qtTrId("28c3843d05fb11e9"); }));
    thread->start();
    QVERIFY(thread->wait());
    QCOMPARE(caption, QStringLiteral("Schlie\u00dfen"));
}

void tst_KitDialogs::messageBox_data()
{
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("iconName");
    QTest::newRow("none") << QStringLiteral("No") << QString();
    QTest::newRow("ok") << QStringLiteral("Ok") << QStringLiteral("ok");
    QTest::newRow("warning") << QStringLiteral("Warning") << QStringLiteral("warning");
    QTest::newRow("error") << QStringLiteral("Error") << QStringLiteral("error");
}

// The text wraps, keeps its distance from the icon, and the dialog is as large as that takes.
void tst_KitDialogs::messageBox()
{
    QFETCH(QString, icon);
    QFETCH(QString, iconName);
    Scene scene(QStringLiteral("UiMessageBox { objectName: 'box'; label: 'Title'; text: 'Short'\n"
                               "icon: Ui.MessageBox%1Icon }")
                    .arg(icon));
    auto *box = scene.find<Dialog>("box");
    box->show();
    QQuickItem *content = box->content();
    const QQuickItem *picture = content->childItems().at(0);
    const QQuickItem *text = content->childItems().at(1);
    QCOMPARE(picture->property("iconName").toString(), iconName);
    QCOMPARE(picture->isVisible(), !iconName.isEmpty());
    QCOMPARE(content->size(), QSizeF(320, iconName.isEmpty() ? 48 + text->height() : 80));
    QVERIFY(qAbs(text->y() + text->height() / 2 - content->height() / 2) <= 0.5);
    QCOMPARE(text->x(), iconName.isEmpty() ? 15.0 : 60.0);
    box->setProperty("text", QStringLiteral("word ").repeated(60));
    QCOMPARE(text->width(), 400.0);
    QCOMPARE(content->width(), text->x() + 415);
    QCOMPARE(content->height(), text->height() + 48);
    QVERIFY(text->height() > 60);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(content);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::AlertMessage);
    QCOMPARE(accessible->text(QAccessible::Name), box->property("text").toString());
    box->reject();
}

void tst_KitDialogs::messageBoxAnswers()
{
    Scene scene(
        QStringLiteral("UiMessageBox { objectName: 'told' }\n"
                       "UiMessageBox { objectName: 'asked'; result: 'yes'; defaultButton: no\n"
                       "buttons: [ UiDialogButton { id: no; role: UiDialogButton.CancelRole },\n"
                       "UiDialogButton { role: UiDialogButton.AcceptRole } ] }"));
    SignalLog log;
    for (const char *name : { "told", "asked" }) {
        auto *box = scene.find<Dialog>(name);
        QQmlListProperty<DialogButton> list = box->buttons();
        QCOMPARE(list.count(&list), qstrcmp(name, "told") == 0 ? 1 : 2);
        log.watch(box, ta::test::names({ "accepted", "rejected" }));
        box->show();
        QTest::keyClick(scene.window(),
                        Qt::Key_Return); // on the default button, where there is one
        QVERIFY(!box->rootItem());
    }
    QCOMPARE(log.take(), ta::test::names({ "accepted", "rejected" }));
}

// What is in a dialog is taken away without a word when the window is closed.
void tst_KitDialogs::goesWithWindow()
{
    Scene scene(QStringLiteral("UiDialog { objectName: 'dialog'\n"
                               "contentDelegate: Component { Item { property var dialog\n"
                               "UiComboBox { model: ['a', 'b'] }\n"
                               "UiLineEdit {}\nUiDateField {}\nUiColorButton {} } } }"));
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    const QPointer<QQuickItem> content = dialog->content();
    QVERIFY(scene.waitForFrame());
    scene.window()->close();
    QVERIFY(!dialog->rootItem());
    QTRY_VERIFY(!content);
}

// With --captions LOCALE the program prints the captions instead, one a line.
int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--captions")) {
        QLocale::setDefault(QLocale(arguments.value(2)));
        Scene::useKit();
        Scene scene(QString {});
        std::fputs(captionsInQml(scene).join(QLatin1Char('\n')).toUtf8(), stdout);
        return 0;
    }
    tst_KitDialogs test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kitdialogs.moc"
