// variants: threaded-scale2 x11
#include "palettes/picking.h"

#include "support/input.h"
#include "support/testcase.h"

#include <TamberUi/ContextMenu>
#include <TamberUi/Dialog>

#include <QtGui/QPixmap>
#include <QtGui/QScreen>

using namespace ta::ui;
using namespace ta::test;

// What the eyedropper reports, beside what the X server has on its screen.
class tst_EyedropperColors : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void colorsOnTheScreen();
};

namespace {

// Items that draw by themselves and a popup, for the window and for a dialog in it.
const QString kItems = QStringLiteral(
    "UiCheckerBoard { x: 10; y: 10; width: 90; height: 30; tileSize: 3\n"
    "primaryColor: '#ff2010'; secondaryColor: '#6010c0d0' }\n"
    "UiBorder { x: 105; y: 10; width: 41; height: 30; borderWidth: 3\n"
    "style: UiBorder.Dashed; color: '#203040' }\n"
    "UiIcon { x: 156; y: 13; iconName: 'info'; iconSize: UiIcon.Icon_24x24 }\n"
    "UiDefaultSlider { x: 190; y: 20; width: 70; trackHeight: 6 }\n"
    "UiText { x: 10; y: 50; text: 'The quick brown fox' }\n");

const QString kScene =
    QStringLiteral(
        "Rectangle { anchors.fill: parent; gradient: Gradient {\n"
        "GradientStop { position: 0; color: '#fafa12' }\n"
        "GradientStop { position: 1; color: '#0a40f0' } } }\n%1"
        "UiContextMenu { objectName: 'menu'\n"
        "UiMenuItem { text: 'Rename'; iconName: 'edit' }\nUiMenuSeparator { }\n"
        "UiMenuItem { text: 'Delete'; enabled: false } }\n"
        "UiDialog { objectName: 'dialog'; label: 'Colours'; contentDelegate: Component { Item {\n"
        "property var dialog\nimplicitWidth: 270; implicitHeight: 110\n%1"
        "UiComboBox { objectName: 'combo'; x: 140; y: 60; width: 120\n"
        "model: ['Apple', 'Banana', 'Cherry'] } } } }\n")
        .arg(kItems);

QImage screenOf(const Scene &scene)
{
    return scene.window()->screen()->grabWindow(scene.window()->winId()).toImage();
}

} // namespace

// A dialog lies over the window, a list over the dialog, and a menu over both.
void tst_EyedropperColors::colorsOnTheScreen()
{
    PickScene scene(kScene);
    const QImage before = screenOf(scene);
    auto *dialog = scene.find<Dialog>("dialog");
    dialog->show();
    QMetaObject::invokeMethod(scene.find("combo"), "show");
    auto *menu = scene.find<ContextMenu>("menu");
    menu->showAt(scene.root(), QPointF(20, 120));
    QImage screen;
    const auto rests = [&] { // all of it fades in
        const QImage last = screen;
        QTest::qWait(300);
        screen = screenOf(scene);
        return screen == last && screen != before;
    };
    QVERIFY(QTest::qWaitFor(rests, 20000));
    const QSize size = scene.window()->size();
    const int ratio = qRound(scene.window()->effectiveDevicePixelRatio());
    QCOMPARE(screen.size(), size * ratio);

    const auto seen = seenBy(scene.pick());
    QSet<QRgb> colors;
    int covered = 0;
    for (int y = 1; y < size.height(); y += 7) {
        for (int x = 2; x < size.width(); x += 5) {
            QTest::mouseMove(scene.window(), QPoint(x, y));
            const QColor expected(screen.pixel(QPoint(x, y) * ratio));
            QVERIFY2(*seen == expected, qPrintable(QStringLiteral("%1 instead of %2 at %3, %4")
                                                       .arg(seen->name(), expected.name())
                                                       .arg(x)
                                                       .arg(y)));
            colors.insert(seen->rgb());
            covered += before.pixel(QPoint(x, y) * ratio) != expected.rgb();
        }
    }
    QVERIFY2(colors.count() > 100, qPrintable(QString::number(colors.count())));
    QVERIFY(covered > 3000); // of 3,440

    const QPoint entry = center(menu->rootItem()->property("popup").value<QQuickItem *>());
    press(scene.window(), entry);
    QCOMPARE(scene.picker()->color(), QColor(screen.pixel(entry * ratio)));
    QVERIFY(menu->isMenuVisible() && dialog->content());
    QVERIFY(scene.find("combo")->property("popupVisible").toBool());
}

TAMBER_TEST_MAIN(tst_EyedropperColors)
#include "tst_eyedroppercolors.moc"
