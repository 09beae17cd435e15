// A place to drop things on: a dashed frame that fills up while something is held over it.
//
// handlers: what may be dropped, the default property.
// hint: shown while the box is empty. icon: a glyph of the 24 pixel set above it.
// empty: whether there is nothing in the box yet.
// box: the items in it.
// dropped: the value, and the keys that were held.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string hint: ""
    property string icon: ""
    property bool empty: true
    property alias box: content.data
    property alias zoneName: zone.objectName

    default property alias handlers: zone.dropHandlers

    signal dropped(var data, int modifiers)

    height: 144

    Rectangle {
        anchors.fill: parent
        color: zone.containsDrag ? UiColors.getColor(UiColors.HoverGreen, 0.5)
                                 : UiColors.getColor(UiColors.HeaderGrey4)
        radius: 4
    }

    UiBorder {
        anchors.fill: parent
        borderWidth: zone.containsDrag ? 2 : 1
        color: UiColors.getColor(zone.containsDrag ? UiColors.DarkerSelectionGreen
                                                   : UiColors.MediumGrey33)
    }

    Column {
        anchors.centerIn: parent
        spacing: 8
        visible: root.empty

        UiIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            iconName: root.icon
            opacity: 0.5
        }

        UiText {
            width: root.width - 32
            color: UiColors.getColor(UiColors.MediumGrey45)
            font: UiFonts.getFont(UiFonts.Regular, 12)
            horizontalAlignment: Text.AlignHCenter
            text: root.hint
            wrapMode: Text.Wrap
        }
    }

    Item {
        id: content

        anchors.fill: parent
        anchors.margins: 12
        visible: !root.empty
    }

    UiDropZone {
        id: zone

        anchors.fill: parent

        onDrop: root.dropped(data, modifiers)
    }
}
