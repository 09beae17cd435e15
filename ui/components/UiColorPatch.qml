// One colour of a palette: a click chooses it, a ring marks the chosen one and the one under the
// pointer.
//
// It is always of its implicit size, so what fills it is of a fixed size as well: anchors would make
// each patch a sixth slower to create, and follow every move of it.
import QtQuick 2.6
import tamber.Ui 1.0

Rectangle {
    id: patch

    property Item colorPicker
    property int swatchIndex: 0
    property int colorIndex: 0

    readonly property bool selected: !!colorPicker && Qt.colorEqual(colorPicker.color, color)

    implicitWidth: 22
    implicitHeight: 22
    z: selected ? 1 : mouseArea.containsMouse ? 2 : 0

    UiBorder {
        width: 22
        height: 22
        borderWidth: 1
        color: Qt.rgba(0, 0, 0, .1)
        style: UiBorder.Solid
        visible: patch.color.hslLightness >= .90
    }

    MouseArea {
        id: mouseArea

        width: 22
        height: 22
        hoverEnabled: true

        onClicked: if (colorPicker) colorPicker.updateColor(patch.color)
    }

    UiBorder {
        id: inner

        width: 22
        height: 22
        borderWidth: 2
        color: UiColors.getColor(UiColors.White)
        opacity: 0
        style: UiBorder.Solid
    }

    UiBorder {
        id: outer

        x: -3
        y: -3
        width: 28
        height: 28
        borderWidth: 3
        color: UiColors.getColor(UiColors.HoverGreen)
        opacity: 0
        style: UiBorder.Solid
    }

    states: [
        State {
            name: "selected"
            // The picker may be gone before the patch.
            when: !!colorPicker && !colorPicker.indeterminate && patch.selected

            PropertyChanges {
                target: inner
                opacity: 1
            }

            PropertyChanges {
                target: outer
                color: UiColors.getColor(UiColors.SelectionGreen)
                opacity: 1
            }
        },
        State {
            name: "hovered"
            when: mouseArea.containsMouse && !selected

            PropertyChanges {
                target: inner
                opacity: 1
            }

            PropertyChanges {
                target: outer
                opacity: 1
            }
        }
    ]

    transitions: Transition {
        NumberAnimation {
            duration: 70
            properties: "opacity"
        }
    }
}
