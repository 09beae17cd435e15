// A popup with more rows than any window shows.
import QtQuick 2.15
import tamber.Ui 1.0

PopupPanel {
    id: root

    implicitHeight: list.contentHeight + 32

    ListView {
        id: list

        width: parent.width
        height: root.height - 32
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        model: 80

        delegate: UiText {
            width: list.width
            height: 24
            text: qsTr("Row %1 of 80").arg(index + 1)
        }
    }
}
