// One of the two arrows of a UiSpinBox. Part of the kit's own controls.
//
// source: the picture. offset: pixels that it lies below the middle.
// stepped(): once when it is pressed, and again and again while it is held.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property int offset: 0
    property alias source: picture.source

    signal stepped

    activeFocusOnTab: false

    onPressedChanged: {
        if (pressed)
            stepped()
        repetition.interval = 400
    }

    Rectangle {
        anchors.fill: parent
        color: root.pressed ? UiColors.getColor(UiColors.SelectionGreen)
             : root.hovered ? UiColors.getColor(UiColors.HoverGreen)
             : UiColors.getColor(UiColors.HoverGreen, 0)
        radius: 2
    }

    Image {
        id: picture

        x: Math.floor((root.width - width) / 2)
        y: Math.floor((root.height - height) / 2) + root.offset
        opacity: root.enabled ? 1 : 0.4
        smooth: false
    }

    Timer {
        id: repetition

        repeat: true
        running: root.pressed

        onTriggered: {
            interval = 60
            root.stepped()
        }
    }
}
