// The colour under the eyedropper. Two faint rings keep it visible on any ground.
import QtQuick 2.6

Rectangle {
    width: 30
    height: 30
    radius: 15

    Rectangle {
        anchors.fill: parent
        anchors.margins: -1
        border.color: Qt.rgba(1, 1, 1, .2)
        border.width: 1
        color: "transparent"
        radius: width / 2
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: -2
        border.color: Qt.rgba(0, 0, 0, .2)
        border.width: 1
        color: "transparent"
        radius: width / 2
    }
}
