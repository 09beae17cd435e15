#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/ContextMenu>
#include <TamberUi/Dialog>
#include <TamberUi/PopupAnchor>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtQml/QQmlComponent>

using namespace ta::ui;
using namespace ta::test;

class tst_Documents : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void examples_data();
    void examples();
};

void tst_Documents::examples_data()
{
    QTest::addColumn<QByteArray>("qml");
    const struct
    {
        const char *file;
        int examples;
    } documents[] = { { "README.md", 1 }, { "docs/recipes.md", 4 }, { "kit/README.md", 1 } };
    const QRegularExpression fence(QStringLiteral("^```qml\n(.*?)^```"),
                                   QRegularExpression::MultilineOption
                                       | QRegularExpression::DotMatchesEverythingOption);
    for (const auto &document : documents) {
        QFile file(QStringLiteral(TAMBERUI_SOURCE_DIR "/") + QLatin1String(document.file));
        QVERIFY2(file.open(QIODevice::ReadOnly), document.file);
        auto blocks = fence.globalMatch(QString::fromUtf8(file.readAll()));
        int count = 0;
        while (blocks.hasNext()) {
            const QByteArray qml = blocks.next().captured(1).toUtf8();
            QTest::addRow("%s, %d", document.file, ++count) << qml;
        }
        QCOMPARE(count, document.examples);
    }
}

// An example in a document is a whole one: it loads, and what it can open opens, without a warning.
void tst_Documents::examples()
{
    QFETCH(QByteArray, qml);
    Scene scene((QString()));
    QQmlComponent component(&scene.engine());
    component.setData(qml, QUrl(QStringLiteral("qrc:/example.qml")));
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    auto *item = qobject_cast<QQuickItem *>(object.get());
    QVERIFY(item);
    item->setParentItem(scene.root());
    QVERIFY(scene.waitForFrame());

    const auto anchors = item->findChildren<PopupAnchor *>();
    for (PopupAnchor *anchor : anchors) {
        anchor->show();
        QVERIFY(anchor->popupItem());
        anchor->hide();
    }
    const auto menus = item->findChildren<ContextMenu *>();
    for (ContextMenu *menu : menus) {
        menu->showAt(qobject_cast<QQuickItem *>(menu->parent()), QPointF(1, 1));
        QVERIFY(menu->isMenuVisible());
        menu->close();
    }
    const auto dialogs = item->findChildren<Dialog *>();
    for (Dialog *dialog : dialogs) {
        dialog->show();
        QVERIFY(dialog->content());
        dialog->reject();
    }
}

TAMBER_TEST_MAIN(tst_Documents)
#include "tst_documents.moc"
