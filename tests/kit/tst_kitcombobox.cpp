#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/PopupAnchor>

using namespace ta::ui;
using namespace ta::test;

class tst_KitComboBox : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void texts();
    void keys();
    void typeAhead();
    void leavesKeysAlone();
    void keysBesideRestingPointer();
    void pointer();
    void showsItsRow();
    void followsItsModel();
    void badIndexes();
};

namespace {

const QString kComboBox = QStringLiteral(
    "UiComboBox { objectName: 'combo'; x: 100; y: 100; currentIndex: 1\n"
    "model: ['Apple', 'Banana', 'Blackberry', 'Cherry', 'Damson']; placeholder: 'Fruit' }");

int currentIndex(const QObject *combo)
{
    return combo->property("currentIndex").toInt();
}

bool isOpen(const QObject *combo)
{
    return combo->property("popupVisible").toBool();
}

} // namespace

void tst_KitComboBox::texts()
{
    const QString names = QStringLiteral(
        "model: ListModel { ListElement { name: 'x' } ListElement { name: 'y' } }\n"
        "textRole: '%1'; currentIndex: 1");
    const struct
    {
        QString properties;
        const char *text;
        int count;
    } rows[] = {
        { QStringLiteral("model: ['a', 'b']; currentIndex: 1"), "b", 2 },
        { QStringLiteral("model: 5; currentIndex: 4"), "4", 5 },
        { names.arg(QLatin1String("name")), "y", 2 },
        { names.arg(QLatin1String("nothing")), "", 2 },
    };
    for (const auto &row : rows) {
        Scene scene(QStringLiteral("UiComboBox { objectName: 'combo'; %1 }").arg(row.properties));
        const auto *combo = scene.find("combo");
        QCOMPARE(combo->property("currentText").toString(), QLatin1String(row.text));
        QCOMPARE(combo->property("count").toInt(), row.count);
    }
}

void tst_KitComboBox::keys()
{
    Scene scene(kComboBox);
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    SignalLog log;
    log.watch(combo, { QStringLiteral("activated") });
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(scene.window(), code, modifiers);
    };

    // Closed: the keys change the value.
    key(Qt::Key_Down);
    QCOMPARE(currentIndex(combo), 2);
    key(Qt::Key_Home);
    key(Qt::Key_Up);
    QCOMPARE(currentIndex(combo), 0);
    QCOMPARE(log.take().count(), 2);

    // Every way to open it; the value stays until something is chosen.
    const QPair<Qt::Key, Qt::KeyboardModifiers> openers[] = {
        { Qt::Key_Space, Qt::NoModifier },
        { Qt::Key_F4, Qt::NoModifier },
        { Qt::Key_Down, Qt::AltModifier },
    };
    for (const auto &opener : openers) {
        key(opener.first, opener.second);
        QVERIFY(isOpen(combo));
        key(Qt::Key_Down);
        QCOMPARE(currentIndex(combo), 0);
        key(Qt::Key_Escape);
        QVERIFY(!isOpen(combo));
        QVERIFY(combo->hasActiveFocus());
    }
    QCOMPARE(log.take(), QStringList());
    key(Qt::Key_Space);
    key(Qt::Key_PageDown);
    key(Qt::Key_Up);
    key(Qt::Key_Space);
    QCOMPARE(currentIndex(combo), 3);
    QCOMPARE(log.take(), QStringList { QStringLiteral("activated") });
}

void tst_KitComboBox::typeAhead()
{
    Scene scene(kComboBox);
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    QTest::keyClick(scene.window(), Qt::Key_D);
    QCOMPARE(currentIndex(combo), 4);
    combo->setProperty("typedAt", 0); // a second later
    QTest::keyClick(scene.window(), Qt::Key_B);
    QTest::keyClick(scene.window(), Qt::Key_L);
    QCOMPARE(currentIndex(combo), 2);
    combo->setProperty("typedAt", 0);
    for (int expected : { 1, 2, 1 }) { // the same letter walks through its rows
        QTest::keyClick(scene.window(), Qt::Key_B);
        QCOMPARE(currentIndex(combo), expected);
    }
}

// Keys that are nothing to the field go on to what is around it.
void tst_KitComboBox::leavesKeysAlone()
{
    Scene scene(QStringLiteral("property int keys: 0\n"
                               "Keys.onPressed: if (event.key !== Qt.Key_Alt) ++keys\n")
                + kComboBox);
    auto *combo = scene.find("combo");
    combo->forceActiveFocus();
    for (Qt::Key key : { Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete })
        QTest::keyClick(scene.window(), key);
    QTest::keyClick(scene.window(), Qt::Key_F4, Qt::AltModifier);
    QCOMPARE(scene.root()->property("keys").toInt(), 4);
    QVERIFY(!isOpen(combo));
}

// Rows that the keys scroll past a resting pointer are not what it chooses.
void tst_KitComboBox::keysBesideRestingPointer()
{
    Scene scene(QStringLiteral("UiComboBox { objectName: 'combo'; model: 50; currentIndex: 0 }"));
    auto *combo = scene.find("combo");
    QMetaObject::invokeMethod(combo, "show");
    QVERIFY(scene.waitForFrame());
    move(scene.window(), center(scene.find("comboItem3")));
    QCOMPARE(combo->property("highlightedIndex").toInt(), 3);
    for (int row = 4; row < 20; ++row) {
        QTest::keyClick(scene.window(), Qt::Key_Down);
        QVERIFY(scene.waitForFrame());
        QCOMPARE(combo->property("highlightedIndex").toInt(), row);
    }
    QTest::keyClick(scene.window(), Qt::Key_Escape);
}

void tst_KitComboBox::pointer()
{
    Scene scene(kComboBox);
    auto *combo = scene.find("combo");
    click(scene.window(), center(combo));
    QVERIFY(isOpen(combo));
    auto *row = scene.find("comboItem3");
    QVERIFY(row);
    click(scene.window(), center(row));
    QVERIFY(!isOpen(combo));
    QCOMPARE(currentIndex(combo), 3);

    // The press that closes the list is not one that opens it.
    click(scene.window(), center(combo));
    QVERIFY(isOpen(combo));
    click(scene.window(), center(combo));
    QVERIFY(!isOpen(combo));

    // The wheel turns the value of one that has the focus.
    wheel(scene.window(), center(combo), -1);
    QCOMPARE(currentIndex(combo), 4);
    combo->setFocus(false);
    wheel(scene.window(), center(combo), 1);
    QCOMPARE(currentIndex(combo), 4);
}

// The list opens where the value is: with room for all rows, for a few, and upwards.
void tst_KitComboBox::showsItsRow()
{
    const std::pair<int, int> rows[] = { { 100, 59 }, { 250, 30 }, { 560, 45 } };
    for (const auto &row : rows) {
        Scene scene(
            QStringLiteral("UiComboBox { objectName: 'combo'; y: %1; model: 60; currentIndex: %2 }")
                .arg(row.first)
                .arg(row.second));
        QMetaObject::invokeMethod(scene.find("combo"), "show");
        QVERIFY(scene.waitForFrame());
        const auto *popup = scene.find<PopupAnchor>("comboPopup")->popupItem();
        const auto *item = scene.find(qPrintable(QStringLiteral("comboItem%1").arg(row.second)));
        QVERIFY(popup && item);
        const QRectF place = item->mapRectToItem(popup, QRectF(QPointF(), item->size()));
        QVERIFY(QRectF(QPointF(), popup->size()).contains(place));
        QTest::keyClick(scene.window(), Qt::Key_Escape);
    }
}

void tst_KitComboBox::followsItsModel()
{
    Scene scene(
        QStringLiteral("property QtObject names: ListModel { ListElement { name: 'x' } }\n"
                       "UiComboBox { objectName: 'combo'; textRole: 'name'; currentIndex: 0; "
                       "model: names }\n"
                       "function rename() { names.setProperty(0, 'name', 'y') }"));
    const auto text = [&] { return scene.find("combo")->property("currentText").toString(); };
    QCOMPARE(text(), QStringLiteral("x"));
    QMetaObject::invokeMethod(scene.root(), "rename");
    QCOMPARE(text(), QStringLiteral("y"));
}

void tst_KitComboBox::badIndexes()
{
    Scene scene(kComboBox);
    auto *combo = scene.find("combo");
    for (int index : { -7, 5 }) {
        combo->setProperty("currentIndex", index);
        QCOMPARE(combo->property("currentText").toString(), QString());
        QMetaObject::invokeMethod(combo, "show");
        QMetaObject::invokeMethod(combo, "hide");
    }
    combo->setProperty("currentIndex", 2);
    QMetaObject::invokeMethod(combo, "show");
    combo->setProperty("model", QStringList { QStringLiteral("Only") }); // while the list is open
    QTest::keyClick(scene.window(), Qt::Key_Return);
    QVERIFY(!isOpen(combo));
}

TAMBER_TEST_MAIN(tst_KitComboBox)
#include "tst_kitcombobox.moc"
