// A line of text at the lower edge of a page.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string text: ""

    width: parent.width
    height: 40
    color: UiColors.getColor(UiColors.White)

    UiHorizontalSeparator {
        width: parent.width
        color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    }

    UiText {
        x: 40
        width: parent.width - 80
        height: parent.height
        elide: Text.ElideRight
        text: root.text
    }
}
