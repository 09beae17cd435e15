// An upright bar with a handle, for one component of a colour. Part of the kit's own controls.
//
// value: where the handle is, 1 at the upper end and 0 at the lower one.
// upper, middle, lower: the colours of the bar.
// marked: whether there is a handle.
// name: what assistive tools say.
// picked(value): the user chose another place.
// Keys: Up and Down move by a hundredth, Page Up and Page Down by a tenth; Home and End go to the ends.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property real value: 0
    property color upper: "white"
    property color middle: "grey"
    property color lower: "black"
    property bool marked: true
    property string name: ""

    readonly property bool pressed: area.pressed

    signal picked(real value)

    function pick(value) {
        picked(Math.max(0, Math.min(1, value)))
    }

    function handleKey(key) {
        switch (key) {
        case Qt.Key_Up:
            pick(value + 0.01)
            return true
        case Qt.Key_Down:
            pick(value - 0.01)
            return true
        case Qt.Key_PageUp:
            pick(value + 0.1)
            return true
        case Qt.Key_PageDown:
            pick(value - 0.1)
            return true
        case Qt.Key_Home:
            pick(1)
            return true
        case Qt.Key_End:
            pick(0)
            return true
        }
        return false
    }

    activeFocusOnTab: true
    implicitWidth: 25

    Accessible.role: Accessible.Slider
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onIncreaseAction: if (enabled) pick(value + 0.01)
    Accessible.onDecreaseAction: if (enabled) pick(value - 0.01)

    Keys.onPressed: event.accepted = !(event.modifiers & ~Qt.KeypadModifier) && handleKey(event.key)

    Item {
        id: strip

        x: 4
        width: parent.width - 8
        height: parent.height

        UiCheckerBoard {
            anchors.fill: parent
            anchors.margins: 1
            primaryColor: UiColors.getColor(UiColors.White)
            secondaryColor: UiColors.getColor(UiColors.ControlGrey20)
            tileSize: 5
            visible: root.lower.a < 1
        }

        Rectangle {
            anchors.fill: parent
            border.color: UiColors.getColor(UiColors.Black, 0.2)
            border.width: 1

            gradient: Gradient {
                GradientStop { position: 0; color: root.upper }
                GradientStop { position: 0.5; color: root.middle }
                GradientStop { position: 1; color: root.lower }
            }
        }

        Rectangle {
            anchors.fill: parent
            color: UiColors.getColor(UiColors.White, 0.6)
            visible: !root.enabled
        }

        FocusFrame {
            anchors.margins: -3
            control: root
        }
    }

    Image {
        y: Math.round((1 - root.value) * (root.height - 1) - (height - 1) / 2)
        source: "qrc:/ui/images/color-lightness-handle.png"
        visible: root.marked && root.enabled
    }

    MouseArea {
        id: area

        anchors.fill: parent
        preventStealing: true

        onPositionChanged: root.pick(1 - mouse.y / (root.height - 1))
        onPressed: {
            root.forceActiveFocus()
            root.pick(1 - mouse.y / (root.height - 1))
        }
    }
}
