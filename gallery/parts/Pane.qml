// What fills a pane of a splitter: a heading and some lines.
//
// lines: the texts below the heading.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string title: ""
    property var lines: []

    anchors.fill: parent
    color: UiColors.getColor(UiColors.White)

    Column {
        x: 16
        y: 16
        width: Math.max(0, root.width - 32)
        spacing: 8

        UiText {
            width: parent.width
            elide: Text.ElideRight
            font: UiFonts.getFont(UiFonts.SemiBold, 14)
            text: root.title
        }

        Repeater {
            model: root.lines

            UiText {
                width: parent.width
                color: UiColors.getColor(UiColors.MediumDarkGrey67)
                elide: Text.ElideRight
                maximumLineCount: 3
                text: modelData
                wrapMode: Text.Wrap
            }
        }
    }
}
