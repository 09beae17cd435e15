// A group of things on a page, with a heading.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string title: ""
    property string summary: ""

    default property alias content: body.data

    readonly property int bodyWidth: width - 48
    readonly property int contentHeight: column.height + 48

    width: parent ? parent.width : 0
    height: contentHeight
    border.color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    border.width: 1
    color: UiColors.getColor(UiColors.White)
    radius: 4

    Column {
        id: column

        x: 24
        y: 24
        width: root.bodyWidth
        spacing: 16

        Column {
            width: parent.width
            spacing: 4

            UiText {
                font: UiFonts.getFont(UiFonts.Regular, 18)
                text: root.title
            }

            UiText {
                width: parent.width
                color: UiColors.getColor(UiColors.MediumGrey45)
                font: UiFonts.getFont(UiFonts.Regular, 12)
                lineHeight: lineCount > 1 ? 1.2 : 1
                text: root.summary
                visible: text !== ""
                wrapMode: Text.Wrap
            }
        }

        Column {
            id: body

            width: parent.width
            spacing: 16
        }
    }
}
