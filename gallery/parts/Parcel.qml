// A thing to drag, for a DropList.
import QtQuick 2.15
import tamber.Ui 1.0

UiDragZone {
    id: root

    property string text: ""

    width: look.width
    height: 32

    dragDelegate: ParcelLook {
        text: root.text

        UiDragZone.hotspot: Qt.point(16, 16)
    }
    mimeData: UiJsonMimeData {
        mimeType: "application/x-tamberui-parcel"
        value: ({ text: root.text })
    }

    ParcelLook {
        id: look

        highlighted: area.containsMouse
        text: root.text

        MouseArea {
            id: area

            anchors.fill: parent
            cursorShape: Qt.OpenHandCursor
            hoverEnabled: true
        }
    }
}
