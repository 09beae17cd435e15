// A scroll view in a frame.
//
// content: what it scrolls.
// view: the scroll view itself.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    readonly property alias view: scrollView

    default property alias content: scrollView.contentItem

    height: 264
    border.color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    border.width: 1
    color: UiColors.getColor(UiColors.White)
    radius: 3

    // The ground of the bar, whose own colours are light.
    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 1
        y: 1
        width: 16
        height: parent.height - 2
        color: UiColors.getColor(UiColors.DisabledLightGrey13, 0.5)
        visible: scrollView.heightRatio < 1
    }

    UiVerticalScrollView {
        id: scrollView

        anchors.fill: parent
        anchors.margins: 1
        activeFocusOnTab: true
        objectName: root.objectName === "" ? "" : root.objectName + "View"
        scrollbarMargin: 2
        scrollbarOffset: 2
    }

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(UiColors.FocusColor)
        border.width: 1
        color: "transparent"
        radius: parent.radius
        visible: scrollView.activeFocus
    }
}
