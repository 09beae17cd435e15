#include "support/framecounter.h"
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/DelegateBase>

#include <QtGui/QAccessible>
#include <QtGui/QImage>

#include <utility>

using namespace ta::ui;
using namespace ta::test;

class tst_KitLoading : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listDelegate();
    void progress();
    void rest();
    void group();
};

namespace {

QImage picture(Scene &scene)
{
    return scene.window()->grabWindow();
}

} // namespace

void tst_KitLoading::initTestCase()
{
    Scene::useKit();
}

// Each state of a row shows, and what is not enabled reacts to nothing.
void tst_KitLoading::listDelegate()
{
    Scene scene(QStringLiteral("UiListDelegate { objectName: 'row'; width: 200; text: 'Row' }"),
                QSize(240, 60));
    auto *row = scene.find<DelegateBase>("row");
    QVector<QColor> colors { row->color() };
    QCOMPARE(row->color().alpha(), 0);
    move(scene.window(), center(row));
    colors << row->color();
    press(scene.window(), center(row));
    colors << row->color();
    row->setActive(true);
    colors << row->color();
    release(scene.window(), center(row));
    row->setDefocused(true);
    colors << row->color();
    for (int i = 0; i < colors.count(); ++i)
        QCOMPARE(colors.indexOf(colors.at(i)), i);

    SignalLog log;
    log.watch(row, names({ "clicked" }));
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(row);
    QVERIFY(accessible && accessible->state().selected);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Row"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(log.take().count(), 1);
    row->setEnabled(false);
    click(scene.window(), center(row));
    QCOMPARE(log.take().count(), 0);
}

void tst_KitLoading::progress()
{
    const struct
    {
        const char *properties;
        int filled; // of 200 pixels
    } rows[] = {
        { "value: 30.2", 60 },
        { "value: 1e9", 200 },
        { "minimumValue: -1; maximumValue: 1; value: 0", 100 },
        { "value: NaN", 0 },
        { "indeterminate: true", 200 },
    };
    for (const auto &row : rows) {
        Scene scene(QStringLiteral("UiProgressBar { width: 200; height: 10; %1 }")
                        .arg(QLatin1String(row.properties)),
                    QSize(240, 60));
        const QImage image = picture(scene);
        const QRgb empty = QColor(0xE4, 0xE4, 0xE4).rgb();
        for (int x = 0; x < 200; ++x)
            QVERIFY2((image.pixel(x, 5) == empty) == (x >= row.filled), row.properties);
    }
}

// What moves does so while there is something to wait for and somebody who sees it, and at no other
// time.
void tst_KitLoading::rest()
{
    for (const auto &[type, property] :
         { std::pair("UiProgressBar { width: 200; height: 10; value: 50", "busy"),
           std::pair("UiLoadIndicator {", "loading") }) {
        Scene scene(QStringLiteral("property bool seen: true\n%1\n"
                                   "objectName: 'bar'; visible: parent.seen }")
                        .arg(QLatin1String(type)),
                    QSize(240, 60));
        auto *bar = scene.find("bar");
        const auto moves = [&](int patience = 5000) {
            scene.waitForFrame();
            const FrameCounter frames(scene.window());
            return QTest::qWaitFor([&] { return frames.count() > 2; }, patience);
        };
        QVERIFY(!moves(300));
        const QImage still = picture(scene);
        bar->setProperty(property, true);
        QVERIFY(moves());
        QVERIFY(picture(scene) != still);
        scene.root()->setProperty("seen", false);
        QVERIFY(!moves(300));
        scene.root()->setProperty("seen", true);
        QVERIFY(moves());
    }
}

void tst_KitLoading::group()
{
    Scene scene(QStringLiteral("UiGroup { objectName: 'group'; width: 240; title: 'Title'\n"
                               "UiCheckBox { objectName: 'inside'; text: 'Inside' } }\n"
                               "UiCheckBox { objectName: 'after'; y: 300; text: 'After' }"));
    auto *group = scene.find("group");
    auto *inside = scene.find("inside");
    SignalLog log;
    log.watch(group, names({ "toggled" }));
    const qreal unfolded = group->implicitHeight();
    click(scene.window(), QPoint(60, 16));
    QVERIFY(group->property("collapsed").toBool());
    QTRY_COMPARE(group->implicitHeight(), 32.0);
    QVERIFY(!inside->isVisible());
    QCOMPARE(log.take().count(), 1);

    // From the keyboard; what is folded away is no tab stop.
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(scene.find("after")->hasActiveFocus());
    QTest::keyClick(scene.window(), Qt::Key_Backtab);
    for (Qt::Key key : { Qt::Key_Space, Qt::Key_Left, Qt::Key_Right }) {
        QTest::keyClick(scene.window(), key);
        QCOMPARE(group->property("collapsed").toBool(), key == Qt::Key_Left);
    }
    QCOMPARE(log.take().count(), 3);
    QTRY_COMPARE(group->implicitHeight(), unfolded);
    QTest::keyClick(scene.window(), Qt::Key_Tab);
    QVERIFY(inside->hasActiveFocus());

    // Assistive tools cannot do what nobody can.
    QAccessibleInterface *title = QAccessible::queryAccessibleInterface(group)->child(0);
    const auto pressTitle = [&] {
        title->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        return log.take().count();
    };
    group->setEnabled(false);
    QCOMPARE(pressTitle(), 0);
    group->setEnabled(true);
    QCOMPARE(pressTitle(), 1);

    // One that does not fold is open, whatever it says.
    group->setProperty("collapsed", true);
    group->setProperty("collapsible", false);
    QCOMPARE(log.take(), QStringList()); // only the user toggles
    QVERIFY(inside->isVisible() && inside->isEnabled());

    // What is unfolded is not cut off.
    Scene framed(QStringLiteral("UiGroup { x: 20; width: 200; collapsible: false\n"
                                "UiLineEdit { objectName: 'edit'; width: parent.width } }"),
                 QSize(240, 100));
    auto *edit = framed.find("edit");
    edit->forceActiveFocus();
    QCOMPARE(picture(framed).pixelColor(221, center(edit).y()), QColor(0x8B, 0xC7, 0xD8));
}

TAMBER_TEST_MAIN(tst_KitLoading)
#include "tst_kitloading.moc"
