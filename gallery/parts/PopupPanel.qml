// The ground of a popup: as wide as it is told, as high as its content.
//
// firstFocus: the item that has the focus when the popup opens.
import QtQuick 2.15
import tamber.Ui 1.0

FocusScope {
    id: root

    property Item firstFocus: null

    default property alias content: column.data

    width: implicitWidth
    implicitWidth: 240
    implicitHeight: column.height + 32
    opacity: enabled ? 1 : 0

    onEnabledChanged: if (enabled && firstFocus) firstFocus.forceActiveFocus()

    Behavior on opacity {
        NumberAnimation {
            duration: 80
        }
    }

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 2
        anchors.bottomMargin: -2
        color: UiColors.getColor(UiColors.Black, 0.06)
        radius: 4
    }

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(UiColors.MediumLightGrey27)
        border.width: 1
        clip: true
        color: UiColors.getColor(UiColors.White)
        radius: 4

        Column {
            id: column

            x: 16
            y: 16
            width: parent.width - 32
            spacing: 12
        }
    }
}
