// Rows to drop a parcel on, in a scroll view. A row's zone is called as the list, followed by the
// row's number.
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

            UiListDelegate {
                width: parent.width
                active: zone.containsDrag
                text: qsTr("Shelf %1").arg(index + 1)

                UiDropZone {
                    id: zone

                    anchors.fill: parent
                    objectName: root.objectName + (index + 1)

                    onDrop: root.dropped(index + 1)

                    UiMimeDropHandler {
                        acceptedMimeTypes: ["application/x-tamberui-parcel"]
                    }
                }
            }
        }
    }
}
