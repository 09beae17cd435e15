// How far something has come.
//
// value: between minimumValue (0 by default) and maximumValue (100); what lies outside counts as the
//     nearer end.
// busy: whether stripes run over the part that is done. False by default; nothing is animated while
//     it is false or the bar is invisible.
// indeterminate: fills all of the bar, where nobody knows how much there is to do. False by default.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0

Item {
    id: root

    property real minimumValue: 0
    property real maximumValue: 100
    property real value: 0
    property bool busy: false
    property bool indeterminate: false

    // Between 0 and 1; 0 as well where the ends make no sense.
    readonly property real fraction: {
        const part = (value - minimumValue) / (maximumValue - minimumValue)
        return part > 0 ? Math.min(1, part) : 0
    }
    readonly property int tile: 17 // pixels from one stripe to the next

    implicitWidth: 200
    implicitHeight: 10

    Accessible.role: Accessible.ProgressBar
    Accessible.name: indeterminate ? "" : qsTr("%1 %").arg(Math.round(fraction * 100))

    Rectangle {
        anchors.fill: parent
        color: UiColors.getColor(UiColors.ProgressbarBGGrey)
    }

    Rectangle {
        width: root.indeterminate ? root.width : Math.round(root.fraction * root.width)
        height: root.height
        clip: true
        color: UiColors.getColor(root.enabled ? UiColors.ButtonNormalBlue : UiColors.MediumLightGrey27)

        // Starts one stripe before the bar and runs as far.
        Image {
            x: -root.tile
            width: root.width + root.tile
            height: root.height
            fillMode: Image.TileHorizontally
            horizontalAlignment: Image.AlignLeft
            opacity: 0.35
            smooth: false // at scale 2 each of its pixels is four, and none is blurred
            source: "qrc:/ui/images/progressbar-overlay.png"
            visible: root.busy && root.enabled

            NumberAnimation on x {
                from: -root.tile
                to: 0
                duration: 700
                loops: Animation.Infinite
                running: root.busy && root.enabled && root.visible
                         && root.Window.visibility !== Window.Hidden
            }
        }
    }
}
