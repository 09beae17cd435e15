#include "measures.h"
#include "rows.h"

namespace bench {

namespace {

// The same for both sides.
const char kSize[] = "width: 100; height: 50;";

QByteArray border(const char *style)
{
    return QByteArray("import QtQuick 2.15; import tamber.Ui 1.0\nUiBorder {") + kSize
           + "style: UiBorder." + style + " }";
}

// Its stroke lies inside of it as that of a border does, and its pattern counts in stroke widths.
QByteArray dashedShape()
{
    return QByteArray("import QtQuick 2.15; import QtQuick.Shapes 1.15\nShape { id: shape;") + kSize
           + "ShapePath { strokeColor: 'black'; strokeWidth: 2; fillColor: 'transparent';"
             "strokeStyle: ShapePath.DashLine; dashPattern: [4, 2]; capStyle: ShapePath.FlatCap;"
             "joinStyle: ShapePath.MiterJoin; startX: 1; startY: 1;"
             "PathLine { x: shape.width - 1; y: 1 }"
             "PathLine { x: shape.width - 1; y: shape.height - 1 }"
             "PathLine { x: 1; y: shape.height - 1 }"
             "PathLine { x: 1; y: 1 } } }";
}

QByteArray rectangle()
{
    return QByteArray("import QtQuick 2.15; Rectangle {") + kSize
           + "color: 'transparent'; border.width: 2; border.color: 'black' }";
}

QByteArray checkerBoard(const QByteArray &size)
{
    return "import QtQuick 2.15; import tamber.Ui 1.0\nUiCheckerBoard {" + size + '}';
}

QByteArray tiledImage(const QByteArray &size)
{
    return "import QtQuick 2.15; Image {" + size
           + "fillMode: Image.Tile; horizontalAlignment: Image.AlignLeft;"
             "verticalAlignment: Image.AlignTop; source: 'qrc:/ui/images/color-transparent.png' }";
}

// One of twelve glyphs of a size.
QByteArray icon(const char *size)
{
    return QByteArray("import QtQuick 2.15; import tamber.Ui 1.0\nUiIcon { iconSize: ") + size
           + "; iconName: ['close', 'edit', 'refresh', 'down', 'filter', 'shared', 'left', 'add',"
             "'link', 'up', 'info', 'view'][Math.floor(Math.random() * 12)] }";
}

// One of twelve pictures in the same size; Qt Quick packs them into one texture.
QByteArray picture(const char *size)
{
    return QByteArray("import QtQuick 2.15; Image { height: width; width: ") + size
           + "; source: 'qrc:/ui/images/' + ['checkmark', 'color-transparent',"
             "'dropdown-indicator', 'color-lightness-handle', 'infotip-peak-up',"
             "'color-hue-saturation-handle', 'infotip-peak-down', 'tooltip-border',"
             "'spinbox-arrow-up', 'spinbox-arrow-down', 'progressbar-overlay',"
             "'color-lightness-handle@2x'][Math.floor(Math.random() * 12)] + '.png' }";
}

const char kAnySize[] = "[16, 24, 32][Math.floor(Math.random() * 3)]";

const char kIcon[] = "import QtQuick 2.15; import tamber.Ui 1.0\nUiIcon { iconName: 'okay' }";
const char kImage[] = "import QtQuick 2.15; Image { source: 'qrc:/ui/images/checkmark.png' }";

} // namespace

Rows sceneGraphRows()
{
    const Frames dashed = { border("Dashed") };
    const Frames solid = { border("Solid") };
    const Frames shape = { dashedShape() };
    const Frames frame = { rectangle() };
    const Frames board = { checkerBoard(kSize), 100 };
    const Frames image = { tiledImage(kSize), 100 };
    const QByteArray large = "width: 1200; height: 900;";
    const Frames largeBoard = { checkerBoard(large), 1 };
    const Frames largeImage = { tiledImage(large), 1 };

    const Frames icons = { icon("UiIcon.Icon_16x16"),
                           10000,
                           34,
                           { icon("UiIcon.Icon_24x24"), icon("UiIcon.Icon_32x32") } };
    const Frames pictures = { picture("16"), 10000, 34, { picture("24"), picture("32") } };
    const Frames mixedIcons = { icon(kAnySize), 10000, 34, {} };
    const Frames mixedPictures = { picture(kAnySize), 10000, 34, {} };

    const auto create = [](const Frames &kind) { return creationTime(kind.qml); };
    const auto heap = [](const Frames &kind) { return creationHeap(kind.qml); };
    const auto same = [](const Frames &kind) {
        return frameTime(kind, Before::Nothing, Until::Rendered);
    };
    const auto resized = [](const Frames &kind) {
        return frameTime(kind, Before::Resize, Until::Rendered);
    };
    const auto appearing = [](const Frames &kind) {
        return frameTime(kind, Before::Appear, Until::Rendered);
    };
    const auto shown = [](const Frames &kind) {
        return frameTime(kind, Before::Nothing, Until::Shown);
    };
    return {
        { "create a dashed border", "µs", 0.15, create(dashed), create(shape) },
        { "heap of a dashed border", "bytes", 0.15, heap(dashed), heap(shape) },
        { "1,000 dashed borders, next frame", "µs", 0.3, same(dashed), same(shape) },
        { "1,000 dashed borders, resized", "µs", 0.3, resized(dashed), resized(shape) },
        { "1,000 dashed borders, with pixels", "µs", 0.3, shown(dashed), shown(shape) },
        { "create a solid border", "µs", 1.0, create(solid), create(frame) },
        { "heap of a solid border", "bytes", 1.0, heap(solid), heap(frame) },
        { "1,000 solid borders, next frame", "µs", 1.0, same(solid), same(frame) },
        { "1,000 solid borders, resized", "µs", 1.0, resized(solid), resized(frame) },
        { "1,000 solid borders, with pixels", "µs", 1.0, shown(solid), shown(frame) },
        { "create a checker board", "µs", 0.8, create(board), create(image) },
        { "heap of a checker board", "bytes", 0.8, heap(board), heap(image) },
        { "large checker board, next frame", "µs", 0.8, same(largeBoard), same(largeImage) },
        { "large checker board, with pixels", "µs", 0.8, shown(largeBoard), shown(largeImage) },
        { "100 checker boards, next frame", "µs", 0.8, same(board), same(image) },
        { "100 checker boards, resized", "µs", 0.8, resized(board), resized(image) },
        { "create an icon", "µs", 0.7, creationTime(kIcon), creationTime(kImage) },
        { "heap of an icon", "bytes", 0.7, creationHeap(kIcon), creationHeap(kImage) },
        { "10,000 icons, first frame", "µs", 0.7, appearing(icons), appearing(pictures) },
        { "10,000 icons, next frame", "µs", 0.7, same(icons), same(pictures) },
        { "10,000 icons, resized", "µs", 0.7, resized(icons), resized(pictures) },
        { "10,000 icons, sizes mixed, first frame", "µs", 0.7, appearing(mixedIcons),
          appearing(mixedPictures) },
    };
}

} // namespace bench
