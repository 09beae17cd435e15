// The look of a tooltip. Its agent puts it where the pointer is; the box finds its place from there.
import QtQuick 2.4
import QtQuick.Window 2.2
import tamber.Ui 1.0

Item {
    id: uiTooltip

    readonly property bool show: UiTooltipAgent.tooltipVisible
    readonly property string text: UiTooltipAgent.tooltipText
    readonly property int availHeight: Window.height
    readonly property int availWidth: Window.width
    readonly property int borderOffset: 10
    readonly property int maximumWidth: Math.min(availWidth - 60, 700)

    Item {
        id: tooltip

        objectName: "tooltip"
        x: Math.min(0, uiTooltip.availWidth - uiTooltip.x - width - uiTooltip.borderOffset)
        y: 20
        width: Math.min(uiTooltip.maximumWidth, label.implicitWidth + 22)
        height: label.implicitHeight + 21
        enabled: uiTooltip.show
        opacity: uiTooltip.show ? 1 : 0

        states: State {
            name: "over-cursor"
            when: uiTooltip.availHeight - uiTooltip.y - tooltip.height < uiTooltip.borderOffset

            PropertyChanges {
                target: tooltip
                y: -tooltip.height - 2
            }
        }

        Behavior on opacity {
            NumberAnimation {}
        }

        BorderImage {
            anchors.fill: parent
            border.left: 11
            border.right: 11
            border.top: 12
            border.bottom: 18
            cache: true
            source: "qrc:/ui/images/tooltip-border.png"
        }

        Text {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: 11
            anchors.right: parent.right
            anchors.rightMargin: 11
            y: 7
            elide: Text.ElideRight
            font: UiFonts.getFont(UiFonts.Light, 13)
            lineHeight: 16
            lineHeightMode: Text.FixedHeight
            maximumLineCount: 20
            text: uiTooltip.text
            wrapMode: Text.Wrap
        }
    }
}
