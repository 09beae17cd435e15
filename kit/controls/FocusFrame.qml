// Frames its parent while that has the active focus. Part of the kit's own controls.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    property Item control: parent

    anchors.fill: parent
    anchors.margins: -2
    border.color: UiColors.getColor(UiColors.FocusColor)
    border.width: 2
    color: "transparent"
    radius: 4
    visible: control.activeFocus
}
