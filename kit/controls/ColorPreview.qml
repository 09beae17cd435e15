// A colour over a checker board, in a frame. Part of the kit's own controls.
//
// value: the colour.
// indeterminate: shows the sign for several colours instead.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property color value: UiColors.getColor(UiColors.Black)
    property bool indeterminate: false

    border.color: UiColors.getColor(UiColors.Black, 0.2)
    border.width: 1
    color: UiColors.getColor(UiColors.White)

    UiCheckerBoard {
        anchors.fill: parent
        anchors.margins: 1
        primaryColor: UiColors.getColor(UiColors.White)
        secondaryColor: UiColors.getColor(UiColors.ControlGrey20)
        tileSize: 5
        visible: !root.indeterminate && root.value.a < 1
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        color: root.value
        visible: !root.indeterminate
    }

    UiIcon {
        anchors.centerIn: parent
        disabled: root.enabled ? 0 : 1
        iconName: "indeterminate-color"
        visible: root.indeterminate
    }
}
