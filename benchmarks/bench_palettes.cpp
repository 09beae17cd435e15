#include "rows.h"
#include "stage.h"

#include <TamberUi/ColorPickerCanvas>
#include <TamberUi/ColorSwatch>
#include <TamberUi/Palette>

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtQml/QQmlContext>
#include <QtQuick/QQuickItem>

using namespace ta::ui;

namespace bench {

namespace {

constexpr int kColors = 1000;
constexpr int kChanges = 10; // of the width, timed per repetition
constexpr int kMoves = 1000; // of the pointer
constexpr QSize kLargeWindow(1280, 960);

// Both sides stand in for what a host would write; the picker is part of both.
const QByteArray kOurs = R"(
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

Item {
    width: 1200

    UiColorPickerBase { id: picker }

    UiPaletteItem { width: parent.width; colorPicker: picker; palette: benchPalette }
})";

const QByteArray kTheirs = R"(
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import "qrc:/ui/components"

Item {
    width: 1200

    UiColorPickerBase { id: picker }

    Flow {
        width: parent.width

        Repeater {
            model: benchColors

            UiColorPatch { color: modelData; colorIndex: index; colorPicker: picker }
        }
    }
})";

class ManyColors : public Palette
{
public:
    ManyColors()
    {
        QList<QColor> colors;
        for (int i = 0; i < kColors; ++i)
            colors.append(QColor::fromHsv(i % 360, 255 - i % 100, 255 - i / 10));
        insertSwatch(new ColorSwatch(colors, this), 0);
    }
    int sortInfo() const override { return 0; }
};

void offerColors(Stage &stage)
{
    static ManyColors palette;
    QVariantList colors;
    const QList<QColor> all = palette.swatches().constFirst()->colors();
    for (const QColor &color : all)
        colors.append(color);
    QQmlContext *context = stage.engine().rootContext();
    context->setContextProperty(QStringLiteral("benchPalette"), &palette);
    context->setContextProperty(QStringLiteral("benchColors"), colors);
}

int countPatches(const QQuickItem *item)
{
    int count = item->metaObject()->indexOfProperty("swatchIndex") >= 0 ? 1 : 0;
    const QList<QQuickItem *> children = item->childItems();
    for (const QQuickItem *child : children)
        count += countPatches(child);
    return count;
}

// Under a pointer the window looks through all patches before each frame for the one that is
// hovered, which costs both sides the same and is no part of their work.
void sendPointerAway(Stage &stage)
{
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&stage.window(), &leave);
}

using Side = std::function<double(Stage &, QQuickItem &view, double creation)>;

// What \a side makes of a view of 1,000 patches that was created just now.
Measure withView(const QByteArray &qml, const Side &side)
{
    return [qml, side](Stage &stage) {
        const Stage::Enlarged enlarged(stage, kLargeWindow);
        offerColors(stage);
        const auto component = stage.compile(qml);
        stage.settle();
        sendPointerAway(stage);
        std::unique_ptr<QObject> view;
        const double creation = stage.untilFrame(
            [&] { view.reset(stage.create(*component, stage.window().contentItem())); },
            &QQuickWindow::beforeSynchronizing);
        auto *item = qobject_cast<QQuickItem *>(view.get());
        if (countPatches(item) != kColors)
            qFatal("There are %d patches", countPatches(item));
        const double result = side(stage, *item, creation);
        view.reset();
        stage.settle();
        return result;
    };
}

Measure building(const QByteArray &qml)
{
    return withView(qml, [](Stage &, QQuickItem &, double creation) { return creation; });
}

Measure reflowing(const QByteArray &qml)
{
    return withView(qml, [](Stage &stage, QQuickItem &view, double) {
        // A frame in which nothing happens takes its time, too.
        QVector<double> empty;
        QVector<double> times;
        for (int i = 0; i < kChanges; ++i) {
            stage.settle();
            sendPointerAway(stage);
            empty.append(stage.untilFrame([&] { stage.window().update(); },
                                          &QQuickWindow::beforeSynchronizing));
            times.append(stage.untilFrame([&] { view.setWidth(i % 2 ? 1200 : 900); },
                                          &QQuickWindow::beforeSynchronizing));
        }
        return median(times) - median(empty);
    });
}

// One move of the pointer while an eyedropper runs, up to what it shows.
double eyedropperMove(Stage &stage)
{
    const Stage::Enlarged enlarged(stage, kLargeWindow);
    ColorPickerCanvas canvas(&stage.window());
    stage.settle(); // takes the snapshot
    int seen = 0;
    QObject::connect(&canvas, &ColorPickerCanvas::previewColorChanged,
                     [&seen](const QColor &color) { seen += color.alpha() == 255 ? 1 : 0; });
    const double begin = threadTime();
    for (int i = 0; i < kMoves; ++i) {
        QMouseEvent move(QEvent::MouseMove, QPointF(i % 1200, i % 900), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.window(), &move);
    }
    const double time = threadTime() - begin;
    if (seen != kMoves)
        qFatal("The eyedropper saw %d colours", seen);
    return time / kMoves;
}

double windowGrab(Stage &stage)
{
    const Stage::Enlarged enlarged(stage, kLargeWindow);
    stage.settle();
    const double begin = threadTime();
    const QImage picture = stage.window().grabWindow();
    const double time = threadTime() - begin;
    if (picture.size() != kLargeWindow)
        qFatal("There is no picture of the window");
    return time;
}

} // namespace

Rows paletteRows()
{
    return {
        { "palette of 1,000 colours, built", "µs", 1.0, building(kOurs), building(kTheirs) },
        { "palette of 1,000 colours, another width", "µs", 0.2, reflowing(kOurs),
          reflowing(kTheirs) },
        { "move of the eyedropper, beside a grab", "µs", 0.01, eyedropperMove, windowGrab },
    };
}

} // namespace bench
