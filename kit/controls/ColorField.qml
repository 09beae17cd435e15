// The field of all hues, pale at its lower edge. Part of the kit's own controls.
//
// hue, saturation: what is marked, from 0 to 1.
// marked: whether anything is.
// picked(hue, saturation): the user chose another place.
// Keys: the arrows move by a hundredth, with Shift by a tenth.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property real hue: 0
    property real saturation: 0
    property bool marked: true

    readonly property bool pressed: area.pressed

    signal picked(real hue, real saturation)

    function pick(hue, saturation) {
        picked(Math.max(0, Math.min(1, hue)), Math.max(0, Math.min(1, saturation)))
    }

    function handleKey(event) {
        const step = event.modifiers & Qt.ShiftModifier ? 0.1 : 0.01
        switch (event.key) {
        case Qt.Key_Left:
            pick(hue - step, saturation)
            return true
        case Qt.Key_Right:
            pick(hue + step, saturation)
            return true
        case Qt.Key_Up:
            pick(hue, saturation + step)
            return true
        case Qt.Key_Down:
            pick(hue, saturation - step)
            return true
        }
        return false
    }

    activeFocusOnTab: true

    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Hue and saturation")
    Accessible.focusable: true
    Accessible.onIncreaseAction: if (enabled) pick(hue + 0.01, saturation)
    Accessible.onDecreaseAction: if (enabled) pick(hue - 0.01, saturation)

    Keys.onPressed: event.accepted = !(event.modifiers & ~(Qt.ShiftModifier | Qt.KeypadModifier)) && handleKey(event)

    Rectangle {
        anchors.fill: parent

        // Between two neighbours one channel changes evenly, just as with the hue.
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: "#ff0000" }
            GradientStop { position: 1 / 6; color: "#ffff00" }
            GradientStop { position: 2 / 6; color: "#00ff00" }
            GradientStop { position: 3 / 6; color: "#00ffff" }
            GradientStop { position: 4 / 6; color: "#0000ff" }
            GradientStop { position: 5 / 6; color: "#ff00ff" }
            GradientStop { position: 1; color: "#ff0000" }
        }
    }

    Rectangle {
        anchors.fill: parent

        gradient: Gradient {
            GradientStop { position: 0; color: "#00808080" }
            GradientStop { position: 1; color: "#ff808080" }
        }
    }

    Rectangle {
        anchors.fill: parent
        color: UiColors.getColor(UiColors.White, 0.6)
        visible: !root.enabled
    }

    Image {
        x: Math.round(root.hue * (root.width - 1) - (width - 1) / 2)
        y: Math.round((1 - root.saturation) * (root.height - 1) - (height - 1) / 2)
        source: "qrc:/ui/images/color-hue-saturation-handle.png"
        visible: root.marked && root.enabled
    }

    FocusFrame {
        anchors.margins: -3
        control: root
    }

    MouseArea {
        id: area

        function pick(mouse) {
            root.pick(mouse.x / (root.width - 1), 1 - mouse.y / (root.height - 1))
        }

        anchors.fill: parent
        cursorShape: Qt.CrossCursor
        preventStealing: true

        onPositionChanged: pick(mouse)
        onPressed: {
            root.forceActiveFocus()
            pick(mouse)
        }
    }
}
