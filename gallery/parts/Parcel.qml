// A thing to drag with the mouse, as data that other windows understand, too.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string text: ""

    width: label.implicitWidth + 32
    height: 32
    color: UiColors.getColor(area.pressed ? UiColors.ButtonPressBlue
                            : area.containsMouse ? UiColors.ButtonHoverBlue
                            : UiColors.ButtonNormalBlue)
    radius: 16

    Drag.active: area.drag.active
    Drag.dragType: Drag.Automatic
    Drag.mimeData: ({ "text/plain": text })
    Drag.supportedActions: Qt.CopyAction

    UiText {
        id: label

        anchors.centerIn: parent
        color: UiColors.getColor(UiColors.White)
        text: root.text
    }

    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: Qt.OpenHandCursor
        drag.target: handle
        hoverEnabled: true
        preventStealing: true

        onPressed: root.grabToImage(result => root.Drag.imageSource = result.url)
    }

    // What follows the mouse is the platform's picture; the parcel itself stays.
    Item {
        id: handle
    }
}
