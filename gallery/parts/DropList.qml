// Rows to drop something on, in a scroll view.
//
// count: how many.
// dropped(row): something was let go over that row.
import QtQuick 2.15
import tamber.Ui 1.0

ScrollBox {
    id: root

    property int count: 60

    signal dropped(int row)

    Column {
        Repeater {
            model: root.count

            ListRow {
                marked: area.containsDrag
                text: qsTr("Shelf %1").arg(index + 1)

                DropArea {
                    id: area

                    anchors.fill: parent

                    onDropped: root.dropped(index + 1)
                }
            }
        }
    }
}
