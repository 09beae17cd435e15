// A line in one of the fonts.
//
// name: an entry of UiFonts.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string name: "Regular"
    property bool last: false

    readonly property int entry: UiFonts[name] // complains about a name there is not

    height: 56

    UiText {
        width: 144
        height: parent.height
        color: UiColors.getColor(UiColors.MediumGrey45)
        text: root.name
    }

    UiText {
        x: 144
        width: parent.width - x
        height: parent.height
        elide: Text.ElideRight
        font: UiFonts.getFont(root.entry, 24)
        text: qsTr("Quiet tools for a busy stage")
    }

    UiHorizontalSeparator {
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !root.last
    }
}
