// A small table whose columns are as wide as their handles say.
//
// columns: the headings. rows: lists of as many texts.
// shares: the parts of the table's width that the columns begin with.
// resized(column, size): a column has got another width.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property var columns: []
    property var rows: []
    property var shares: columns.map(() => 1 / columns.length)
    property var sizes: shares.map(share => Math.floor(width * share))

    readonly property int minimum: 72
    readonly property int rowHeight: 36

    signal resized(int column, int size)

    function xOf(column) {
        return sizes.slice(0, column).reduce((sum, size) => sum + size, 0)
    }

    // Up to where the table ends; in one that has become too narrow, columns only shrink.
    function resize(column, wanted) {
        const now = sizes[column]
        const room = Math.max(0, width - xOf(sizes.length))
        const size = Math.max(minimum, Math.min(wanted, now + room))
        if (size === now)
            return
        sizes = sizes.map((old, index) => index === column ? size : old)
        resized(column, size)
    }

    height: (rows.length + 1) * rowHeight + 2
    border.color: UiColors.getColor(UiColors.SeparatorLineGrey17)
    border.width: 1
    clip: true

    Rectangle {
        x: 1
        y: 1
        width: root.width - 2
        height: root.rowHeight
        color: UiColors.getColor(UiColors.HeaderGrey4)
    }

    Repeater {
        model: root.columns

        Item {
            id: column

            readonly property int number: index

            x: root.xOf(number)
            width: root.sizes[number]
            height: root.height

            Repeater {
                model: [modelData].concat(root.rows.map(row => row[column.number]))

                UiText {
                    x: 16
                    y: 1 + index * root.rowHeight
                    width: column.width - 24
                    height: root.rowHeight
                    elide: Text.ElideRight
                    font: UiFonts.getFont(index === 0 ? UiFonts.SemiBold : UiFonts.Regular, 14)
                    text: modelData
                }
            }

            UiDragHandle {
                id: handle

                property int start: 0
                property bool dragged: false

                x: column.width - 5
                width: 9
                height: root.rowHeight
                objectName: "columnHandle" + column.number

                onDragBegin: {
                    start = column.width
                    dragged = true
                }
                onDragUpdate: root.resize(column.number, start + offset)
                onDragEnd: dragged = false

                HoverHandler {
                    id: hover
                }

                Rectangle {
                    x: 4
                    y: 9
                    width: 1
                    height: parent.height - 16
                    color: UiColors.getColor(handle.dragged || hover.hovered ? UiColors.ButtonHoverBlue
                                            : UiColors.SeparatorLineGrey17)
                }
            }
        }
    }
}
