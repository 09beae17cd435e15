// Mixes the colour of a UiColorPicker from hue, saturation, lightness and opacity. Part of the kit's
// own controls.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property Item picker

    // What the colour itself does not tell where it is grey, black or white.
    property real hue: 0
    property real saturation: 0
    property real lightness: 0

    // What the user has picked last; the host may have the last word about it.
    property var wanted: null

    readonly property bool marked: !picker.indeterminate

    function solid(hue, saturation, lightness) {
        return Qt.hsla(hue, saturation, lightness, 1).toString()
    }

    // The colour as it is shown with its opacity taken away.
    function solidOf(color) {
        return Qt.rgba(color.r, color.g, color.b, 1).toString()
    }

    function pick(hue, saturation, lightness) {
        const color = solid(hue, saturation, lightness)
        wanted = { hue: hue, saturation: saturation, lightness: lightness }
        picker.choose(color, picker.indeterminate ? 1 : picker.color.a)
        follow()
    }

    function follow() {
        const shown = solidOf(picker.color)
        if (wanted && solid(wanted.hue, wanted.saturation, wanted.lightness) === shown) {
            hue = wanted.hue
            saturation = wanted.saturation
            lightness = wanted.lightness
        } else if (solid(hue, saturation, lightness) !== shown) {
            const color = picker.color
            lightness = color.hslLightness
            if (color.hslHue >= 0)
                hue = color.hslHue
            if (lightness > 0 && lightness < 1)
                saturation = color.hslSaturation
        }
    }

    implicitHeight: 150

    Component.onCompleted: follow()

    Connections {
        function onColorChanged() {
            root.follow()
        }

        target: root.picker
    }

    ColorField {
        anchors.left: parent.left
        anchors.right: lightnessBar.left
        anchors.rightMargin: 8
        height: parent.height
        hue: root.hue
        marked: root.marked
        objectName: "colorField"
        saturation: root.saturation

        onPicked: root.pick(hue, saturation, root.marked ? root.lightness : 0.5)
    }

    ColorBar {
        id: lightnessBar

        anchors.right: opacityBar.left
        height: parent.height
        lower: UiColors.getColor(UiColors.Black)
        marked: root.marked
        middle: root.solid(root.hue, root.saturation, 0.5)
        name: qsTr("Lightness")
        objectName: "lightnessBar"
        upper: UiColors.getColor(UiColors.White)
        value: root.lightness

        onPicked: root.pick(root.hue, root.saturation, value)
    }

    ColorBar {
        id: opacityBar

        readonly property color color: root.picker.color

        anchors.right: parent.right
        width: visible ? implicitWidth : 0
        height: parent.height
        lower: Qt.rgba(color.r, color.g, color.b, 0)
        marked: root.marked
        middle: Qt.rgba(color.r, color.g, color.b, 0.5)
        name: qsTr("Opacity")
        objectName: "opacityBar"
        upper: Qt.rgba(color.r, color.g, color.b, 1)
        value: color.a
        visible: root.picker.usesAlpha

        onPicked: root.picker.choose(root.solidOf(color), value)
    }
}
