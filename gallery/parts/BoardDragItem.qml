// A card on its way, with what the keys make of it.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    readonly property int modifiers: UiDragZone.modifiers
    readonly property var keys: [
        { flag: Qt.ShiftModifier, name: qsTr("Shift") },
        { flag: Qt.ControlModifier, name: qsTr("Ctrl") },
        { flag: Qt.AltModifier, name: qsTr("Alt") },
        { flag: Qt.MetaModifier, name: qsTr("Meta") }
    ]
    readonly property string held: keys.filter(key => modifiers & key.flag).map(key => key.name).join(" + ")

    height: 56
    rotation: 2

    UiDragZone.hotspot: Qt.point(24, 28)

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 4
        anchors.bottomMargin: -4
        color: UiColors.getColor(UiColors.Black, 0.12)
        radius: 4
    }

    BoardCard {
        anchors.fill: parent
        card: root.UiDragZone.mimeData.value
    }

    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.bottom
        width: label.width + 16
        height: 22
        color: UiColors.getColor(UiColors.DarkGrey80)
        radius: 11

        UiText {
            id: label

            anchors.centerIn: parent
            color: UiColors.getColor(UiColors.White)
            font: UiFonts.getFont(UiFonts.Regular, 12)
            objectName: "dragKeys"
            text: {
                const action = root.modifiers & Qt.ControlModifier ? qsTr("Copy") : qsTr("Move")
                return root.held ? qsTr("%1: %2").arg(root.held).arg(action) : action
            }
        }
    }
}
