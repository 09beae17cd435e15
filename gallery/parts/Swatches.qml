// Named colours in a grid, each with its name and value.
//
// names: entries of UiColors.
import QtQuick 2.15
import tamber.Ui 1.0

Grid {
    id: root

    property var names: []

    columns: width < 720 ? 2 : 3
    rowSpacing: 16
    width: parent.width

    Repeater {
        model: root.names

        Item {
            id: swatch

            readonly property int entry: UiColors[modelData] // complains about a name there is not
            readonly property color value: UiColors.getColor(entry)

            width: Math.floor(root.width / root.columns)
            height: 40

            Rectangle {
                width: 40
                height: 40
                border.color: UiColors.getColor(UiColors.Black, 0.12)
                border.width: 1
                color: swatch.value
                radius: 4
            }

            Column {
                x: 52
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width - x - 8
                spacing: 2

                UiText {
                    width: parent.width
                    elide: Text.ElideRight
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: modelData
                }

                UiText {
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: swatch.value.toString().toUpperCase()
                }
            }
        }
    }
}
