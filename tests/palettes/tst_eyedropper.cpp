// variants: threaded scale2 x11
#include "support/input.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ColorPickerBase>
#include <TamberUi/ColorPickerCanvas>
#include <TamberUi/PopupAnchor>

#include <QtGui/QPixmap>
#include <QtGui/QScreen>

using namespace ta::ui;
using namespace ta::test;

class tst_Eyedropper : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void events_data();
    void events();
    void pick();
    void colorsOnTheScreen();
    void snapshotWithoutPreview();
    void oneGrab();
    void outside();
    void withoutEngine();
    void withoutWindow();
    void again();
    void ends_data();
    void ends();
    void handlersThatDestroy_data();
    void handlersThatDestroy();
};

namespace {

const QColor kLeft(0x31, 0x7A, 0xB9);
const QColor kRight(0xE7, 0x42, 0x11);
// Two colours, an item below that counts what reaches it, and a picker.
const QString kScene = QStringLiteral(
    "property int presses: 0\n"
    "Rectangle { objectName: 'left'; width: 200; height: 300; color: '#317ab9' }\n"
    "Rectangle { x: 200; width: 200; height: 300; color: '#e74211' }\n"
    "MouseArea { anchors.fill: parent; hoverEnabled: true; onPressed: ++presses }\n"
    "UiColorPickerBase { objectName: 'picker' }\n");
const QSize kSize(400, 300);

const QStringList kReports { QStringLiteral("colorPicked"), QStringLiteral("aborted"),
                             QStringLiteral("previewColorChanged") };

ColorPickerCanvas *canvasOf(const QQuickWindow *window)
{
    const QList<QQuickItem *> items = window->contentItem()->childItems();
    for (QQuickItem *item : items) {
        if (auto *canvas = qobject_cast<ColorPickerCanvas *>(item))
            return canvas;
    }
    return nullptr;
}

// The parts of a pick that must not be left behind.
bool isPicking()
{
    return QGuiApplication::overrideCursor()
           && QGuiApplication::overrideCursor()->shape() == Qt::CrossCursor;
}

} // namespace

void tst_Eyedropper::initTestCase()
{
    Scene::useKit();
}

void tst_Eyedropper::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    TestCase::cleanup();
}

void tst_Eyedropper::events_data()
{
    using Make = std::function<QEvent *()>;
    QTest::addColumn<Make>("make");
    QTest::addColumn<bool>("consumed");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<bool>("goesOn");
    const auto mouse = [](QEvent::Type type, Qt::MouseButton button, QPointF position) -> Make {
        return [=] { return new QMouseEvent(type, position, button, button, Qt::NoModifier); };
    };
    const auto key = [](QEvent::Type type, Qt::Key code) -> Make {
        return [=] { return new QKeyEvent(type, code, Qt::NoModifier); };
    };
    const auto hover = [](QEvent::Type type) -> Make {
        return [=] { return new QHoverEvent(type, QPointF(1, 1), QPointF()); };
    };
    const auto plain = [](QEvent::Type type) -> Make { return [=] { return new QEvent(type); }; };
    const QPointF left(50.4, 20);
    const QStringList none;

    QTest::newRow("left press") << mouse(QEvent::MouseButtonPress, Qt::LeftButton, left) << true
                                << names({ "colorPicked" }) << false;
    QTest::newRow("right press") << mouse(QEvent::MouseButtonPress, Qt::RightButton, left) << true
                                 << none << true;
    QTest::newRow("middle press") << mouse(QEvent::MouseButtonPress, Qt::MiddleButton, left) << true
                                  << none << true;
    QTest::newRow("left press outside")
        << mouse(QEvent::MouseButtonPress, Qt::LeftButton, QPointF(-3, 5)) << true << none << true;
    QTest::newRow("release") << mouse(QEvent::MouseButtonRelease, Qt::LeftButton, left) << true
                             << none << true;
    QTest::newRow("double click") << mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, left)
                                  << true << none << true;
    QTest::newRow("move") << mouse(QEvent::MouseMove, Qt::NoButton, left) << true
                          << names({ "previewColorChanged" }) << true;
    QTest::newRow("Escape") << key(QEvent::KeyPress, Qt::Key_Escape) << true << names({ "aborted" })
                            << false;
    QTest::newRow("Return") << key(QEvent::KeyPress, Qt::Key_Return) << true << none << true;
    QTest::newRow("Escape, released")
        << key(QEvent::KeyRelease, Qt::Key_Escape) << true << none << true;
    QTest::newRow("wheel") << Make([] {
        return new QWheelEvent(QPointF(), QPointF(), QPoint(), QPoint(0, 120), Qt::NoButton,
                               Qt::NoModifier, Qt::NoScrollPhase, false);
    }) << true << none << true;
    QTest::newRow("hover enter") << hover(QEvent::HoverEnter) << true << none << true;
    QTest::newRow("hover leave") << hover(QEvent::HoverLeave) << true << none << true;
    QTest::newRow("leave") << plain(QEvent::Leave) << false << names({ "previewColorChanged" })
                           << true;
    QTest::newRow("resize") << Make([] { return new QResizeEvent(kSize, kSize); }) << false << none
                            << true;
    QTest::newRow("close") << plain(QEvent::Close) << false << names({ "aborted" }) << false;
    QTest::newRow("hide") << plain(QEvent::Hide) << false << names({ "aborted" }) << false;
    QTest::newRow("timer") << Make([] { return new QTimerEvent(1); }) << false << none << true;
    QTest::newRow("enter") << plain(QEvent::User) << false << none << true;
}

Q_DECLARE_METATYPE(std::function<QEvent *()>)

// What the filter does with each event, and whether it is one afterwards.
void tst_Eyedropper::events()
{
    QFETCH(std::function<QEvent *()>, make);
    QFETCH(QStringList, told);
    QFETCH(bool, goesOn);
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    ColorPickerCanvas canvas(scene.window());
    QVERIFY(isPicking());
    QCOMPARE(canvas.z(), 65535.0);
    QCOMPARE(canvas.parentItem(), scene.window()->contentItem());
    SignalLog log;
    log.watch(&canvas, kReports);
    QSignalSpy picked(&canvas, &ColorPickerCanvas::colorPicked);
    QSignalSpy hovered(&canvas, &ColorPickerCanvas::previewColorChanged);
    QCoreApplication::processEvents(); // the snapshot; what the real pointer does counts, too
    log.take();
    hovered.clear();

    const std::unique_ptr<QEvent> event(make());
    QTEST(canvas.eventFilter(scene.window(), event.get()), "consumed");
    QCOMPARE(log.take(), told);
    QCOMPARE(isPicking(), goesOn);
    if (!picked.isEmpty())
        QCOMPARE(picked.first().first().value<QColor>(), kLeft);
    if (!hovered.isEmpty()) {
        const QColor expected = event->type() == QEvent::Leave ? QColor(Qt::transparent) : kLeft;
        QCOMPARE(hovered.last().first().value<QColor>(), expected);
    }

    // A second Escape ends what goes on, and comes too late for what does not.
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(log.count(QStringLiteral("aborted")), goesOn ? 1 : 0);
}

void tst_Eyedropper::pick()
{
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    auto *picker = scene.find<ColorPickerBase>("picker");
    const auto presses = [&] { return scene.root()->property("presses").toInt(); };
    SignalLog log;
    log.watch(picker, { QStringLiteral("colorPickActiveChanged"), QStringLiteral("colorChanged"),
                        QStringLiteral("updateRequested") });
    for (bool bindable : { false, true }) {
        picker->setBindable(bindable);
        QVERIFY(QMetaObject::invokeMethod(picker, "pickColor"));
        QVERIFY(picker->colorPickActive() && isPicking());
        QCOMPARE(log.take(), names({ "colorPickActiveChanged" }));
        QPointer<ColorPickerCanvas> canvas = canvasOf(scene.window());
        QVERIFY(canvas);
        QCoreApplication::processEvents();

        // The circle follows the pointer with the colour below it, and goes with the pointer.
        QCOMPARE(canvas->childItems().count(), 1);
        QQuickItem *preview = canvas->childItems().first();
        QCOMPARE(preview->size(), QSizeF(30, 30));
        QVERIFY(!preview->isVisible());
        move(scene.window(), QPoint(300, 120));
        QVERIFY(preview->isVisible());
        QCOMPARE(preview->property("color").value<QColor>(), kRight);
        QCOMPARE(preview->position(), QPointF(308, 128));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(scene.window(), &leave);
        QVERIFY(!preview->isVisible());

        // Other buttons and keys go nowhere; nothing below notices any of it.
        const int before = presses();
        click(scene.window(), QPoint(300, 120), Qt::RightButton);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QVERIFY(picker->colorPickActive());
        press(scene.window(), bindable ? QPoint(20, 10) : QPoint(300, 120));
        QCOMPARE(presses(), before);
        QCOMPARE(log.take(), names({ bindable ? "updateRequested" : "colorChanged",
                                     "colorPickActiveChanged" }));
        QCOMPARE(picker->color(), kRight);
        QVERIFY(!picker->colorPickActive() && !isPicking() && !canvasOf(scene.window()));
        QTRY_VERIFY(!canvas);
        release(scene.window(), QPoint(300, 120));
        click(scene.window(), QPoint(300, 120));
        QCOMPARE(presses(), before + 1);
    }
    picker->pickColor();
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(log.take(), names({ "colorPickActiveChanged", "colorPickActiveChanged" }));
    QCOMPARE(picker->color(), kRight);
}

// Compared with what the X server has on its screen, in a window with popups and items that draw
// by themselves.
void tst_Eyedropper::colorsOnTheScreen()
{
    Scene scene(QStringLiteral(
                    "Rectangle { anchors.fill: parent; gradient: Gradient {\n"
                    "GradientStop { position: 0; color: '#fafa12' }\n"
                    "GradientStop { position: 1; color: '#0a40f0' } } }\n"
                    "UiCheckerBoard { x: 10; y: 10; width: 90; height: 70; tileSize: 3\n"
                    "primaryColor: '#ff2010'; secondaryColor: '#10c0d0' }\n"
                    "UiBorder { x: 110; y: 10; width: 80; height: 70; borderWidth: 3\n"
                    "style: UiBorder.Dashed; color: '#203040' }\n"
                    "UiIcon { x: 210; y: 20; iconName: 'info'; iconSize: UiIcon.Icon_32x32 }\n"
                    "UiDefaultSlider { x: 250; y: 30; width: 120; trackHeight: 6 }\n"
                    "UiText { x: 10; y: 90; text: 'The quick brown fox' }\n"
                    "UiComboBox { objectName: 'combo'; x: 200; y: 100; width: 150\n"
                    "model: ['Apple', 'Banana', 'Cherry'] }\n"
                    "UiColorPickerBase { objectName: 'picker' }"),
                kSize);
    QVERIFY(scene.isValid());
    QMetaObject::invokeMethod(scene.find("combo"), "show");
    QTRY_COMPARE(scene.find<PopupAnchor>("comboPopup")->popupItem()->opacity(), 1.0); // fades in
    QVERIFY(scene.waitForFrame());
    const QImage screen = scene.window()->screen()->grabWindow(scene.window()->winId()).toImage();
    const int ratio = qRound(scene.window()->effectiveDevicePixelRatio());
    QCOMPARE(screen.size(), kSize * ratio);

    auto *picker = scene.find<ColorPickerBase>("picker");
    picker->pickColor();
    QCoreApplication::processEvents();
    QColor seen;
    connect(canvasOf(scene.window()), &ColorPickerCanvas::previewColorChanged, this,
            [&seen](const QColor &color) { seen = color; });
    QSet<QRgb> colors;
    for (int y = 1; y < kSize.height(); y += 7) {
        for (int x = 2; x < kSize.width(); x += 5) {
            QTest::mouseMove(scene.window(), QPoint(x, y));
            const QColor expected(screen.pixel(QPoint(x, y) * ratio));
            QVERIFY2(seen == expected, qPrintable(QStringLiteral("%1 instead of %2 at %3, %4")
                                                      .arg(seen.name(), expected.name())
                                                      .arg(x)
                                                      .arg(y)));
            colors.insert(seen.rgb());
        }
    }
    QVERIFY(colors.count() > 60); // there was something to compare
    press(scene.window(), QPoint(42, 31));
    QCOMPARE(picker->color(), QColor(screen.pixel(QPoint(42, 31) * ratio)));
    QVERIFY(scene.find("combo")->property("popupVisible").toBool());
}

// The circle lies beside the pointer, over another colour. A later snapshot does not have it.
void tst_Eyedropper::snapshotWithoutPreview()
{
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    ColorPickerCanvas canvas(scene.window());
    QCoreApplication::processEvents();
    QSignalSpy hovered(&canvas, &ColorPickerCanvas::previewColorChanged);
    const QPoint beside(190, 100);
    const QPoint underPreview = beside + QPoint(8 + 15, 8 + 15);
    move(scene.window(), beside);
    QCOMPARE(hovered.last().first().value<QColor>(), kLeft);
    QVERIFY(scene.waitForFrame());
    QQuickItem *preview = canvas.childItems().first();
    QCOMPARE(scene.window()->grabWindow().pixelColor(underPreview
                                                     * scene.window()->effectiveDevicePixelRatio()),
             kLeft); // it is there to be seen
    QVERIFY(QMetaObject::invokeMethod(&canvas, "updateRender"));
    QVERIFY(preview->isVisible());
    move(scene.window(), underPreview);
    QCOMPARE(hovered.last().first().value<QColor>(), kRight);
}

// What the window shows is looked at when the event loop is reached, and a second after the last
// resize; however often the pointer moves meanwhile, its colours are those of then.
void tst_Eyedropper::oneGrab()
{
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    ColorPickerCanvas canvas(scene.window());
    QCoreApplication::processEvents();
    QColor seen;
    connect(&canvas, &ColorPickerCanvas::previewColorChanged, this,
            [&seen](const QColor &color) { seen = color; });
    scene.find("left")->setProperty("color", QColor(Qt::white));
    for (int x = 0; x < 200; x += 10) {
        QTest::mouseMove(scene.window(), QPoint(x, 50));
        QCOMPARE(seen, kLeft);
        if (x % 50 == 0)
            QVERIFY(scene.waitForFrame());
    }

    QElapsedTimer timer;
    timer.start();
    for (int width : { 440, 470, 500 }) {
        scene.window()->resize(width, 300);
        QTRY_COMPARE(scene.root()->width(), qreal(width));
        timer.restart();
    }
    const auto looksAgain = [&] {
        move(scene.window(), QPoint(100, 50));
        return seen == QColor(Qt::white);
    };
    QTRY_VERIFY(looksAgain());
    QVERIFY2(timer.elapsed() > 800, qPrintable(QString::number(timer.elapsed())));
}

// Beyond the snapshot there is nothing to see and nothing to pick, also over another window.
void tst_Eyedropper::outside()
{
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    Scene other(QStringLiteral("Rectangle { anchors.fill: parent; color: 'lime' }"), kSize);
    QVERIFY(other.isValid());
    other.window()->setPosition(scene.window()->position() + QPoint(500, 200));
    QTRY_COMPARE(other.window()->position(), scene.window()->position() + QPoint(500, 200));
    auto *picker = scene.find<ColorPickerBase>("picker");
    picker->pickColor();
    QCoreApplication::processEvents();
    ColorPickerCanvas *canvas = canvasOf(scene.window());
    QSignalSpy hovered(canvas, &ColorPickerCanvas::previewColorChanged);
    for (const QPoint &position : { QPoint(20, 30), QPoint(200, 100) }) {
        move(other.window(), position);
        QCOMPARE(hovered.last().first().value<QColor>(), QColor(Qt::transparent));
        click(other.window(), position);
        QVERIFY(picker->colorPickActive());
    }
    // Where the two windows overlap in coordinates, the place on the screen counts.
    click(other.window(), other.window()->mapFromGlobal(scene.window()->mapToGlobal({ 300, 20 })));
    QCOMPARE(picker->color(), kRight);
    QVERIFY(!picker->colorPickActive());
}

void tst_Eyedropper::withoutEngine()
{
    QQuickWindow window;
    window.setColor(Qt::green);
    window.resize(kSize);
    ColorPickerBase picker(window.contentItem());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy frames(&window, &QQuickWindow::frameSwapped);
    window.update();
    QVERIFY(frames.wait());
    picker.pickColor();
    QVERIFY(picker.colorPickActive());
    QVERIFY(canvasOf(&window)->childItems().isEmpty());
    press(&window, QPoint(10, 10)); // before the first snapshot
    QCOMPARE(picker.color(), QColor(Qt::green));
    QVERIFY(!picker.colorPickActive());
    picker.pickColor();
    move(&window, QPoint(30, 30));
    press(&window, QPoint(30, 30));
    QVERIFY(!picker.colorPickActive());
}

void tst_Eyedropper::withoutWindow()
{
    ColorPickerBase picker;
    SignalLog log;
    log.watch(&picker, { QStringLiteral("colorPickActiveChanged") });
    expectWarning(QStringLiteral("^Cannot pick a color for a picker that is in no window$"));
    picker.pickColor();
    QVERIFY(!picker.colorPickActive());
    QCOMPARE(log.take(), QStringList());
    ColorPickerCanvas nowhere(nullptr);
    QVERIFY(!isPicking());
}

// A second call ends the running pick and starts the next one; so does a handler of the first one's
// end.
void tst_Eyedropper::again()
{
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    auto *picker = scene.find<ColorPickerBase>("picker");
    picker->pickColor();
    QPointer<ColorPickerCanvas> first = canvasOf(scene.window());
    QVector<bool> active;
    auto connection = connect(picker, &ColorPickerBase::colorPickActiveChanged, this,
                              [&] { active.append(picker->colorPickActive()); });
    picker->pickColor();
    QCOMPARE(active, QVector<bool>({ false, true }));
    QTRY_VERIFY(!first);
    QVERIFY(canvasOf(scene.window()));
    disconnect(connection);

    connection = connect(picker, &ColorPickerBase::colorPickActiveChanged, this, [&] {
        if (!picker->colorPickActive())
            picker->pickColor();
    });
    picker->pickColor();
    disconnect(connection);
    QVERIFY(picker->colorPickActive());

    // The pick that a handler of the new colour begins is not the one that is over.
    connection = connect(picker, &ColorPickerBase::colorChanged, picker,
                         &ColorPickerBase::pickColor);
    QCoreApplication::processEvents();
    press(scene.window(), QPoint(300, 20));
    disconnect(connection);
    QCOMPARE(picker->color(), kRight);
    QVERIFY(picker->colorPickActive() && isPicking());
    QCoreApplication::processEvents();
    press(scene.window(), QPoint(30, 20));
    QCOMPARE(picker->color(), kLeft);
    QVERIFY(!picker->colorPickActive());
    int canvases = 0;
    QTRY_COMPARE((canvases = picker->findChildren<ColorPickerCanvas *>().count()), 0);
}

void tst_Eyedropper::ends_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way :
         { "picker", "no window", "other window", "close", "hide", "window", "engine" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

// Nothing is left behind of a pick whose picker or window goes.
void tst_Eyedropper::ends()
{
    QFETCH(QString, way);
    auto scene = std::make_unique<Scene>(kScene, kSize);
    Scene other(QStringLiteral("property int presses: 0\n"
                               "MouseArea { anchors.fill: parent; onPressed: ++presses }"));
    QVERIFY(scene->isValid() && other.isValid());
    const QPointer<ColorPickerBase> picker = scene->find<ColorPickerBase>("picker");
    picker->pickColor();
    QPointer<ColorPickerCanvas> canvas = canvasOf(scene->window());
    QCoreApplication::processEvents();
    move(scene->window(), QPoint(30, 30));
    SignalLog log;
    log.watch(picker, { QStringLiteral("colorPickActiveChanged") });
    if (way == QLatin1String("picker"))
        delete picker;
    else if (way == QLatin1String("no window"))
        picker->setParentItem(nullptr);
    else if (way == QLatin1String("other window"))
        picker->setParentItem(other.root());
    else if (way == QLatin1String("close"))
        scene->window()->close();
    else if (way == QLatin1String("hide"))
        scene->window()->hide();
    else if (way == QLatin1String("window"))
        scene->destroyWindow();
    else
        scene.reset();
    QVERIFY(!isPicking());
    QVERIFY(!picker || !picker->colorPickActive());
    if (picker)
        QCOMPARE(log.take(), names({ "colorPickActiveChanged" }));
    QTRY_VERIFY(!canvas);
    click(other.window(), QPoint(300, 200));
    QCOMPARE(other.root()->property("presses").toInt(), 1);
}

void tst_Eyedropper::handlersThatDestroy_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("victim");
    for (const char *victim : { "picker", "window" }) {
        for (const char *signal :
             { "begin", "colour", "request", "end", "hover", "leave", "close" })
            QTest::addRow("%s at %s", victim, signal)
                << QString::fromLatin1(signal) << QString::fromLatin1(victim);
    }
}

void tst_Eyedropper::handlersThatDestroy()
{
    QFETCH(QString, signal);
    QFETCH(QString, victim);
    Scene scene(kScene, kSize);
    QVERIFY(scene.isValid());
    QVERIFY(scene.waitForFrame());
    QPointer<ColorPickerBase> picker = scene.find<ColorPickerBase>("picker");
    bool done = false;
    const auto strike = [&] {
        if (std::exchange(done, true))
            return;
        if (victim == QLatin1String("picker"))
            delete picker;
        else
            scene.destroyWindow();
    };
    if (signal == QLatin1String("begin"))
        connect(picker, &ColorPickerBase::colorPickActiveChanged, this, strike);
    picker->pickColor();
    if (!done) {
        QCoreApplication::processEvents();
        ColorPickerCanvas *canvas = canvasOf(scene.window());
        if (signal == QLatin1String("colour"))
            connect(picker, &ColorPickerBase::colorChanged, this, strike);
        if (signal == QLatin1String("request"))
            connect(picker, &ColorPickerBase::updateRequested, this, strike);
        if (signal == QLatin1String("end") || signal == QLatin1String("close"))
            connect(picker, &ColorPickerBase::colorPickActiveChanged, this, strike);
        if (signal == QLatin1String("hover") || signal == QLatin1String("leave"))
            connect(canvas, &ColorPickerCanvas::previewColorChanged, this, strike);
        picker->setBindable(signal == QLatin1String("request"));
        if (signal == QLatin1String("hover")) {
            QTest::mouseMove(scene.window(), QPoint(21, 20));
        } else if (signal == QLatin1String("leave")) {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(scene.window(), &leave);
        } else if (signal == QLatin1String("close")) {
            scene.window()->close();
        } else {
            press(scene.window(), QPoint(20, 20));
        }
    }
    QVERIFY(done);
    QVERIFY(!isPicking());
    QVERIFY(!picker || !picker->colorPickActive());
}

TAMBER_TEST_MAIN(tst_Eyedropper)
#include "tst_eyedropper.moc"
