// More paragraphs than fit into a dialog, which scroll. Keys: Up, Down, Page Up and Page Down.
import QtQuick 2.15
import tamber.Ui 1.0

FocusScope {
    property UiDialog dialog

    implicitWidth: 480
    implicitHeight: 240
    focus: true

    Keys.onDownPressed: flickable.scroll(24)
    Keys.onUpPressed: flickable.scroll(-24)
    Keys.onPressed: {
        const page = event.key === Qt.Key_PageDown ? 1 : event.key === Qt.Key_PageUp ? -1 : 0
        flickable.scroll(page * flickable.height)
        event.accepted = page !== 0
    }

    Flickable {
        id: flickable

        function scroll(distance) {
            contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance))
        }

        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: paragraphs.height + 48
        focus: true

        Column {
            id: paragraphs

            x: 15
            y: 24
            width: flickable.width - 30
            spacing: 12

            Repeater {
                model: 12

                UiText {
                    width: paragraphs.width
                    lineHeight: 1.2
                    text: qsTr("%1. What a screen shows is the business of those who publish on it. It shows the schedule that was published last until another one takes its place.").arg(index + 1)
                    wrapMode: Text.Wrap
                }
            }
        }
    }

    Rectangle {
        anchors.right: parent.right
        anchors.rightMargin: 4
        y: Math.round(flickable.visibleArea.yPosition * flickable.height)
        width: 4
        height: Math.round(flickable.visibleArea.heightRatio * flickable.height)
        color: UiColors.getColor(UiColors.ControlGrey20)
        radius: 2
    }
}
