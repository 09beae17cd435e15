// variants: scale2 x11
#include "palettes/picking.h"

#include "support/framecounter.h"
#include "support/input.h"
#include "support/signallog.h"
#include "support/testcase.h"

using namespace ta::ui;
using namespace ta::test;

class tst_Eyedropper : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void events();
    void pick();
    void snapshotWithoutPreview();
    void oneGrab();
    void outside();
    void withoutEngineOrWindow();
    void again();
    void ends();
    void handlersThatDestroy();
};

void tst_Eyedropper::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    TestCase::cleanup();
}

// What the filter does with each event, and whether it is one afterwards.
void tst_Eyedropper::events()
{
    using Event = std::shared_ptr<QEvent>;
    const auto mouse = [](QEvent::Type type, Qt::MouseButton button, QPointF at = { 50.4, 20 }) {
        return std::make_shared<QMouseEvent>(type, at, button, button, Qt::NoModifier);
    };
    const auto key = [](QEvent::Type type, Qt::Key code) {
        return std::make_shared<QKeyEvent>(type, code, Qt::NoModifier);
    };
    const auto hover = [](QEvent::Type type) {
        return std::make_shared<QHoverEvent>(type, QPointF(1, 1), QPointF());
    };
    const auto plain = [](QEvent::Type type) { return std::make_shared<QEvent>(type); };
    const auto wheel = std::make_shared<QWheelEvent>(QPointF(), QPointF(), QPoint(), QPoint(0, 120),
                                                     Qt::NoButton, Qt::NoModifier,
                                                     Qt::NoScrollPhase, false);
    const struct
    {
        Event event;
        bool consumed;
        QStringList told = {};
        bool goesOn = true;
    } rows[] = {
        { mouse(QEvent::MouseButtonPress, Qt::LeftButton), true, names({ "colorPicked" }), false },
        { mouse(QEvent::MouseButtonPress, Qt::LeftButton, { -3, 5 }), true },
        { mouse(QEvent::MouseButtonPress, Qt::RightButton), true },
        { mouse(QEvent::MouseButtonRelease, Qt::LeftButton), true },
        { mouse(QEvent::MouseButtonDblClick, Qt::LeftButton), true },
        { mouse(QEvent::MouseMove, Qt::NoButton), true, names({ "previewColorChanged" }) },
        { key(QEvent::KeyPress, Qt::Key_Escape), true, names({ "aborted" }), false },
        { key(QEvent::KeyPress, Qt::Key_Return), true },
        { key(QEvent::KeyRelease, Qt::Key_Escape), true },
        { wheel, true },
        { hover(QEvent::HoverEnter), true },
        { hover(QEvent::HoverLeave), true },
        { plain(QEvent::Leave), false, names({ "previewColorChanged" }) },
        { std::make_shared<QResizeEvent>(QSize(), QSize()), false },
        { plain(QEvent::Close), false, names({ "aborted" }), false },
        { plain(QEvent::Hide), false, names({ "aborted" }), false },
        { plain(QEvent::User), false },
    };
    PickScene scene;
    for (const auto &row : rows) {
        const QByteArray name = QByteArray::number(row.event->type());
        ColorPickerCanvas canvas(scene.window());
        QVERIFY(isPicking());
        QCOMPARE(canvas.z(), 65535.0);
        QCOMPARE(canvas.parentItem(), scene.window()->contentItem());
        SignalLog log;
        log.watch(&canvas, names({ "colorPicked", "aborted", "previewColorChanged" }));
        const auto seen = seenBy(&canvas);
        QColor picked;
        connect(&canvas, &ColorPickerCanvas::colorPicked, &canvas,
                [&picked](const QColor &color) { picked = color; });
        QCoreApplication::processEvents(); // the snapshot; what the real pointer does counts, too
        log.take();

        QVERIFY2(canvas.eventFilter(scene.window(), row.event.get()) == row.consumed, name);
        QVERIFY2(log.take() == row.told, name);
        QVERIFY2(isPicking() == row.goesOn, name);
        if (row.told.contains(QStringLiteral("colorPicked")))
            QCOMPARE(picked, kLeft);
        if (row.told.contains(QStringLiteral("previewColorChanged"))) {
            const bool leaves = row.event->type() == QEvent::Leave;
            QCOMPARE(*seen, leaves ? QColor(Qt::transparent) : kLeft);
        }
        // A second Escape ends what goes on, and comes too late for what does not.
        QTest::keyClick(scene.window(), Qt::Key_Escape);
        QCOMPARE(log.count(QStringLiteral("aborted")), row.goesOn ? 1 : 0);
    }
}

void tst_Eyedropper::pick()
{
    PickScene scene;
    ColorPickerBase *picker = scene.picker();
    SignalLog log;
    log.watch(picker, names({ "colorPickActiveChanged", "colorChanged", "updateRequested" }));
    for (bool bindable : { false, true }) {
        picker->setBindable(bindable);
        QPointer<ColorPickerCanvas> canvas = scene.pick();
        QVERIFY(canvas && picker->colorPickActive() && isPicking());
        QCOMPARE(log.take(), names({ "colorPickActiveChanged" }));

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
        const int before = scene.presses();
        click(scene.window(), QPoint(300, 120), Qt::RightButton);
        QTest::keyClick(scene.window(), Qt::Key_Return);
        QVERIFY(picker->colorPickActive());
        press(scene.window(), bindable ? QPoint(20, 10) : QPoint(300, 120));
        QCOMPARE(scene.presses(), before);
        QCOMPARE(log.take(), names({ bindable ? "updateRequested" : "colorChanged",
                                     "colorPickActiveChanged" }));
        QCOMPARE(picker->color(), kRight);
        QVERIFY(!picker->colorPickActive() && !isPicking() && !canvasOf(scene.window()));
        QTRY_VERIFY(!canvas);
        release(scene.window(), QPoint(300, 120));
        click(scene.window(), QPoint(300, 120));
        QCOMPARE(scene.presses(), before + 1);
    }
    // Escape is the eyedropper's, whatever shortcut the window has.
    const int before = scene.presses();
    scene.pick();
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(log.take(), names({ "colorPickActiveChanged", "colorPickActiveChanged" }));
    QCOMPARE(picker->color(), kRight);
    QCOMPARE(scene.presses(), before);
    QTest::keyClick(scene.window(), Qt::Key_Escape);
    QCOMPARE(scene.presses(), before + 1);
}

// The circle lies beside the pointer, over another colour. A later snapshot does not have it.
void tst_Eyedropper::snapshotWithoutPreview()
{
    PickScene scene;
    ColorPickerCanvas canvas(scene.window());
    QCoreApplication::processEvents();
    const auto seen = seenBy(&canvas);
    const QPoint beside(190, 100);
    const QPoint underPreview = beside + QPoint(8 + 15, 8 + 15);
    move(scene.window(), beside);
    QCOMPARE(*seen, kLeft);
    QVERIFY(scene.waitForFrame());
    const QPoint pixel = underPreview * scene.window()->effectiveDevicePixelRatio();
    QCOMPARE(scene.window()->grabWindow().pixelColor(pixel), kLeft); // it is there to be seen
    QVERIFY(QMetaObject::invokeMethod(&canvas, "updateRender"));
    QVERIFY(canvas.childItems().first()->isVisible());
    move(scene.window(), underPreview);
    QCOMPARE(*seen, kRight);
}

// What the window shows is looked at when the event loop is reached, and a second after the last
// resize; however often the pointer moves meanwhile, its colours are those of then.
void tst_Eyedropper::oneGrab()
{
    PickScene scene;
    const auto seen = seenBy(scene.pick());
    scene.find("left")->setProperty("color", QColor(Qt::white));
    for (int x : { 10, 60, 110 }) {
        QVERIFY(scene.waitForFrame());
        QTest::mouseMove(scene.window(), QPoint(x, 50));
        QCOMPARE(*seen, kLeft);
    }

    QElapsedTimer timer;
    for (int width : { 440, 470, 500 }) {
        scene.window()->resize(width, 300);
        QTRY_COMPARE(scene.root()->width(), qreal(width));
        timer.restart();
    }
    const auto looksAgain = [&] {
        move(scene.window(), QPoint(100, 50));
        return *seen == QColor(Qt::white);
    };
    QTRY_VERIFY(looksAgain());
    QVERIFY2(timer.elapsed() > 800, qPrintable(QString::number(timer.elapsed())));
    delete scene.picker();
}

// Beyond the snapshot there is nothing to see and nothing to pick, also over another window.
void tst_Eyedropper::outside()
{
    PickScene scene;
    PickScene other;
    const QPoint place = scene.window()->position() + QPoint(500, 200);
    other.window()->setPosition(place);
    QTRY_COMPARE(other.window()->position(), place);
    const auto seen = seenBy(scene.pick());
    for (const QPoint &position : { QPoint(20, 30), QPoint(200, 100) }) {
        move(other.window(), position);
        QCOMPARE(*seen, QColor(Qt::transparent));
        click(other.window(), position);
        QVERIFY(scene.picker()->colorPickActive());
    }
    // Where the two windows overlap in coordinates, the place on the screen counts.
    click(other.window(), other.window()->mapFromGlobal(scene.window()->mapToGlobal({ 300, 20 })));
    QCOMPARE(scene.picker()->color(), kRight);
    QVERIFY(!scene.picker()->colorPickActive());
}

void tst_Eyedropper::withoutEngineOrWindow()
{
    QQuickWindow window;
    window.setColor(Qt::green);
    ColorPickerBase picker(window.contentItem());
    const FrameCounter frames(&window);
    window.show();
    QTRY_VERIFY(frames.count() > 0);
    picker.pickColor();
    QVERIFY(canvasOf(&window)->childItems().isEmpty());
    press(&window, QPoint(10, 10)); // before the first snapshot
    QCOMPARE(picker.color(), QColor(Qt::green));
    QVERIFY(!picker.colorPickActive());
    picker.pickColor();
    move(&window, QPoint(30, 30));
    press(&window, QPoint(30, 30));
    QVERIFY(!picker.colorPickActive());

    expectWarning(QStringLiteral("^Cannot pick a color for a picker that is in no window$"));
    picker.setParentItem(nullptr);
    picker.pickColor();
    const ColorPickerCanvas nowhere(nullptr);
    QVERIFY(!picker.colorPickActive() && !isPicking());
}

// A second call ends the running pick and starts the next one; so does a handler of the first one's
// end, or of the colour that it brought.
void tst_Eyedropper::again()
{
    PickScene scene;
    ColorPickerBase *picker = scene.picker();
    QPointer<ColorPickerCanvas> first = scene.pick();
    QVector<bool> active;
    auto connection = connect(picker, &ColorPickerBase::colorPickActiveChanged, this,
                              [&] { active.append(picker->colorPickActive()); });
    picker->pickColor();
    QCOMPARE(active, QVector<bool>({ false, true }));
    QTRY_VERIFY(!first);
    disconnect(connection);

    connection = connect(picker, &ColorPickerBase::colorPickActiveChanged, this, [&] {
        if (!picker->colorPickActive())
            picker->pickColor();
    });
    picker->pickColor();
    disconnect(connection);
    QVERIFY(picker->colorPickActive());

    connection = connect(picker, &ColorPickerBase::colorChanged, picker,
                         &ColorPickerBase::pickColor);
    press(scene.window(), QPoint(300, 20));
    disconnect(connection);
    QCOMPARE(picker->color(), kRight);
    QVERIFY(picker->colorPickActive() && isPicking());
    press(scene.window(), QPoint(30, 20));
    QCOMPARE(picker->color(), kLeft);
    QTRY_VERIFY(picker->findChildren<ColorPickerCanvas *>().isEmpty());
}

// Nothing is left behind of a pick whose picker or window goes.
void tst_Eyedropper::ends()
{
    using Scene = std::unique_ptr<PickScene>;
    const struct
    {
        const char *name;
        std::function<void(Scene &, QQuickItem *other)> end;
    } rows[] = {
        { "picker", [](Scene &scene, auto) { delete scene->picker(); } },
        { "no window", [](Scene &scene, auto) { scene->picker()->setParentItem(nullptr); } },
        { "moves", [](Scene &scene, auto other) { scene->picker()->setParentItem(other); } },
        { "close", [](Scene &scene, auto) { scene->window()->close(); } },
        { "hide", [](Scene &scene, auto) { scene->window()->hide(); } },
        { "window", [](Scene &scene, auto) { scene->destroyWindow(); } },
        { "engine", [](Scene &scene, auto) { scene.reset(); } },
    };
    PickScene other;
    for (const auto &row : rows) {
        auto scene = std::make_unique<PickScene>();
        const QPointer<ColorPickerBase> picker = scene->picker();
        QPointer<ColorPickerCanvas> canvas = scene->pick();
        move(scene->window(), QPoint(30, 30));
        SignalLog log;
        log.watch(picker, names({ "colorPickActiveChanged" }));
        row.end(scene, other.root());
        QVERIFY2(!isPicking(), row.name);
        QVERIFY2(!picker || !picker->colorPickActive(), row.name);
        if (picker)
            QCOMPARE(log.take(), names({ "colorPickActiveChanged" }));
        QTRY_VERIFY2(!canvas, row.name);
        const int before = other.presses();
        click(other.window(), QPoint(300, 200));
        QCOMPARE(other.presses(), before + 1);
    }
}

// A handler of what a pick tells destroys the picker, or the window with all that is in it.
void tst_Eyedropper::handlersThatDestroy()
{
    const auto choose = [](QWindow *window) { press(window, QPoint(20, 20)); };
    const auto close = [](QWindow *window) { window->close(); };
    const auto hover = [](QWindow *window) { QTest::mouseMove(window, QPoint(21, 20)); };
    const auto leave = [](QWindow *window) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(window, &event);
    };
    const struct
    {
        const char *signal;
        std::function<void(QWindow *)> cause; // none: the begin of the pick
    } rows[] = {
        { "colorPickActiveChanged", {} },    { "colorPickActiveChanged", choose },
        { "colorPickActiveChanged", close }, { "colorChanged", choose },
        { "updateRequested", choose },       { "previewColorChanged", hover },
        { "previewColorChanged", leave },
    };
    for (bool window : { false, true }) {
        for (const auto &row : rows) {
            PickScene scene;
            const QPointer<ColorPickerBase> picker = scene.picker();
            const QString signal = QLatin1String(row.signal);
            const auto strike = [&] {
                if (window)
                    scene.destroyWindow();
                else
                    delete picker;
            };
            picker->setBindable(signal == QLatin1String("updateRequested"));
            if (!row.cause)
                on(picker, signal, strike, 1);
            QQuickItem *canvas = scene.pick();
            if (row.cause) {
                on(signal.startsWith(QLatin1String("preview")) ? canvas : picker, signal, strike,
                   1);
                row.cause(scene.window());
            }
            QVERIFY2(!picker, row.signal);
            QVERIFY2(!isPicking(), row.signal);
        }
    }
}

TAMBER_TEST_MAIN(tst_Eyedropper)
#include "tst_eyedropper.moc"
