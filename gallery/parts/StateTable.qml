// A table of one control in many states: captions on top and on the left, a control in each cell.
//
// columns, rows: the captions.
// The children fill the cells, row by row; an Item leaves a cell empty.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property var columns: []
    property var rows: []

    default property alias cells: grid.data

    readonly property int captionWidth: 96
    readonly property int columnWidth: Math.floor((width - captionWidth) / columns.length)
    readonly property int rowHeight: 48

    width: parent.width
    height: 24 + rows.length * rowHeight - 8 // the last row brings some of the room below

    Row {
        x: root.captionWidth

        Repeater {
            model: root.columns

            UiText {
                width: root.columnWidth
                height: 24
                color: UiColors.getColor(UiColors.MediumGrey45)
                font: UiFonts.getFont(UiFonts.Regular, 12)
                text: modelData
            }
        }
    }

    Column {
        y: 24

        Repeater {
            model: root.rows

            Item {
                width: root.width
                height: root.rowHeight

                UiHorizontalSeparator {
                    width: parent.width
                    color: UiColors.getColor(UiColors.ProgressbarBGGrey)
                }

                UiText {
                    height: parent.height
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: modelData
                }
            }
        }
    }

    Grid {
        id: grid

        x: root.captionWidth
        y: 24
        columns: root.columns.length
    }
}
