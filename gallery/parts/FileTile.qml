// A file on a shelf.
//
// name, iconName: what is written and drawn.
// locked: whether it may not be changed.
// active: whether a menu was asked for it.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string name: ""
    property string iconName: ""
    property bool locked: false
    property bool active: false

    width: 144
    height: 88

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(root.active ? UiColors.DarkBlueGrey : UiColors.ProgressbarBGGrey)
        border.width: 1
        color: UiColors.getColor(root.active ? UiColors.TimeTableHover : UiColors.White)
        radius: 3
    }

    UiIcon {
        x: Math.round((root.width - width) / 2)
        y: 18
        iconName: root.iconName
        iconSize: UiIcon.Icon_24x24
    }

    UiIcon {
        x: root.width - 24
        y: 8
        iconName: "access-read"
        iconSize: UiIcon.Icon_16x16
        visible: root.locked
    }

    UiText {
        x: 8
        y: 52
        width: root.width - 16
        height: 24
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        text: root.name
    }
}
