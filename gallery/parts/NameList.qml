// Names below each other; where there is no room for all of them, the last line counts the rest.
//
// names: the texts. icon: a glyph of the 24 pixel set before each.
import QtQuick 2.15
import tamber.Ui 1.0

Column {
    id: root

    property var names: []
    property string icon: ""

    readonly property int rowHeight: 28
    readonly property int rows: Math.floor(height / rowHeight)
    readonly property int shown: names.length > rows ? rows - 1 : names.length

    Repeater {
        model: root.names.slice(0, root.shown)

        Row {
            height: root.rowHeight
            spacing: 8

            UiIcon {
                anchors.verticalCenter: parent.verticalCenter
                iconName: root.icon
            }

            UiText {
                width: root.width - 32
                height: parent.height
                elide: Text.ElideMiddle
                text: modelData
            }
        }
    }

    UiText {
        height: root.rowHeight
        color: UiColors.getColor(UiColors.MediumGrey45)
        text: qsTr("and %1 more").arg(root.names.length - root.shown)
        visible: root.shown < root.names.length
    }
}
