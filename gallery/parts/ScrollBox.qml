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

    ScrollGround {
        view: scrollView
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
