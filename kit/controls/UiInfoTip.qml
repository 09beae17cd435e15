// A hint in a bubble that points at the item it is placed in.
//
// text: the hint; it breaks into lines at maximumWidth logical pixels (280 by default).
// popupVisible, show(), hide(): whether it is there. Escape and a press outside close it.
// The bubble hangs below the item, or stands above it where there is more room, and keeps its
// distance from the window's sides.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiPopupAnchor {
    id: root

    property string text: ""
    property int maximumWidth: 280

    x: parent ? Math.floor(parent.width / 2) : 0
    y: parent ? parent.height : 0
    triggerItem: parent

    Component {
        Item {
            id: tip

            readonly property int margin: 10
            readonly property int targetHeight: root.parent ? root.parent.height : 0
            readonly property int roomAbove: root.distanceTop - targetHeight
            readonly property bool above: height + margin > root.distanceBottom && roomAbove > root.distanceBottom

            x: Math.round(Math.max(margin - root.distanceLeft,
                                   Math.min(-width / 2, root.distanceRight - margin - width)))
            y: above ? -targetHeight - height : 0
            width: bubble.width
            height: bubble.height + peak.height - 1
            opacity: enabled ? 1 : 0

            Accessible.role: Accessible.HelpBalloon
            Accessible.name: root.text

            Behavior on opacity {
                NumberAnimation {
                    duration: 80
                }
            }

            Rectangle {
                id: bubble

                y: tip.above ? 0 : peak.height - 1
                width: Math.ceil(message.width) + 24
                height: Math.ceil(message.height) + 20
                border.color: UiColors.getColor(UiColors.SeparatorLineGrey17)
                border.width: 1
                color: UiColors.getColor(UiColors.White)
                radius: 3

                UiText {
                    id: message

                    x: 12
                    y: 10
                    width: Math.min(Math.ceil(implicitWidth), root.maximumWidth - 24)
                    lineHeight: 1.2
                    text: root.text
                    wrapMode: Text.Wrap

                    Accessible.ignored: true
                }
            }

            // Covers the bubble's border line with its base.
            Image {
                id: peak

                x: Math.max(4, Math.min(bubble.width - width - 4, -tip.x - Math.floor(width / 2)))
                y: tip.above ? bubble.height - 1 : 0
                source: tip.above ? "qrc:/ui/images/infotip-peak-down.png" : "qrc:/ui/images/infotip-peak-up.png"
            }
        }
    }
}
