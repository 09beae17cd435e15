// A place for right clicks.
//
// text: what stands in it.
// active: whether its menu is open.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string text: ""
    property bool active: false

    height: 96

    Rectangle {
        anchors.fill: parent
        color: UiColors.getColor(root.active ? UiColors.TimeTableHover : UiColors.HeaderGrey4)
        radius: 3
    }

    UiBorder {
        anchors.fill: parent
        borderWidth: 1
        color: UiColors.getColor(root.active ? UiColors.DarkBlueGrey : UiColors.MediumLightGrey27)
        dashWidth: 4
        gapWidth: 4
    }

    UiText {
        anchors.fill: parent
        anchors.margins: 8
        color: UiColors.getColor(UiColors.MediumGrey45)
        horizontalAlignment: Text.AlignHCenter
        text: root.text
        wrapMode: Text.Wrap
    }
}
