#include "popups.h"
#include "support/heap.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

// What stays behind without the heap's numbers shows as well after fewer, which take their time
// there.
constexpr int kBatch = kHeapTells ? 1000 : 50;

// Popups of each kind that come and go leave nothing behind.
class tst_PopupCycles : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void heap_data();
    void heap();
};

void tst_PopupCycles::heap_data()
{
    QTest::addColumn<int>("warmUp"); // batches, until caches are full
    QTest::addColumn<int>("layers"); // that stay in the window
    QTest::newRow("menu") << 3 << 0;
    QTest::newRow("dialog") << 3 << 0;
    QTest::newRow("popup") << 20 << 1; // Qt's list of timers grows to the size it keeps
}

void tst_PopupCycles::heap()
{
    QFETCH(int, warmUp);
    QFETCH(int, layers);
    const QByteArray kind = QTest::currentDataTag();
    Scene scene(QStringLiteral(
        "Item { focus: true; UiContextMenu { objectName: 'menu'; UiMenuItem { text: 'One' }\n"
        "UiMenuSeparator {} UiMenuItem { text: 'Two' } } }\n"
        "UiDialog { objectName: 'dialog'; label: 'Title'\n"
        "buttons: UiDialogButton { role: UiDialogButton.OkRole }\n"
        "contentDelegate: Component { FocusScope { property var dialog; focus: true } } }\n"
        "UiPopupAnchor { objectName: 'anchor'; autoLayout: true; Item { implicitHeight: 30 } }\n"));
    auto *menu = scene.find<ContextMenu>("menu");
    auto *dialog = scene.find<Dialog>("dialog");
    auto *anchor = scene.find<PopupAnchor>("anchor");
    const auto openAndClose = [&] {
        QPointer<QQuickItem> item;
        if (kind == "menu") {
            menu->showAt(scene.root(), QPointF(10, 10));
            item = menu->rootItem();
            menu->close();
        } else if (kind == "dialog") {
            dialog->show();
            item = dialog->rootItem();
            dialog->reject();
        } else {
            anchor->show();
            item = anchor->popupItem();
            anchor->hide();
        }
        delete item; // so that the items of all cycles are not there at once
    };
    const auto cycles = [&](int batches) {
        for (int batch = 0; batch < batches; ++batch) {
            for (int cycle = 0; cycle < kBatch; ++cycle) {
                openAndClose();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            QCoreApplication::processEvents();
            scene.engine().collectGarbage();
        }
        QTest::qWait(800); // a popup's delays end
        QTRY_COMPARE(scene.window()->contentItem()->childItems().count(), 1 + layers);
        scene.engine().collectGarbage();
        scene.waitForFrame();
    };
    cycles(warmUp);
    QVERIFY(keepsHeap([&] { cycles(10); }));
}

TAMBER_TEST_MAIN(tst_PopupCycles)
#include "tst_popupcycles.moc"
