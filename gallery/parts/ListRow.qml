// A row of a list: a text, a note on its right, and a line below.
//
// marked: whether the row stands out.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string text: ""
    property string note: ""
    property bool marked: false

    width: parent ? parent.width : 0
    height: 32
    color: UiColors.getColor(marked ? UiColors.HoverGreen : UiColors.White)

    UiText {
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: noteText.left
        anchors.rightMargin: 8
        height: parent.height
        elide: Text.ElideRight
        highlight: root.marked
        text: root.text
    }

    UiText {
        id: noteText

        anchors.right: parent.right
        anchors.rightMargin: 16
        height: parent.height
        color: UiColors.getColor(UiColors.MediumGrey45)
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.note
    }

    UiHorizontalSeparator {
        anchors.bottom: parent.bottom
        width: parent.width
        color: UiColors.getColor(UiColors.TimeTableHover)
    }
}
