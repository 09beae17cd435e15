// The ground of a scroll view's bar, whose own colours are light.
//
// view: the scroll view, beside which it is declared first.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    property UiVerticalScrollView view

    anchors.right: view.right
    anchors.top: view.top
    width: 16
    height: view.height
    color: UiColors.getColor(UiColors.DisabledLightGrey13, 0.5)
    visible: view.heightRatio < 1
}
