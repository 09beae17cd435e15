// A glyph of the icon sets with its name below.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string name: ""
    property int size: 24
    property double disabled: 0
    property double highlight: 0
    property alias highlightColor: icon.highlightColor
    property alias ink: label.color

    height: 80

    UiIcon {
        id: icon

        x: Math.floor((root.width - width) / 2)
        y: 12 + Math.floor((32 - height) / 2)
        disabled: root.disabled
        highlight: root.highlight
        highlightColor: UiColors.getColor(UiColors.DarkerBlueGrey)
        iconName: root.name
        iconSize: root.size
    }

    UiText {
        id: label

        x: 2
        y: 52
        width: root.width - 4
        color: UiColors.getColor(UiColors.MediumGrey45)
        elide: Text.ElideMiddle
        font: UiFonts.getFont(UiFonts.Regular, 11)
        horizontalAlignment: Text.AlignHCenter
        text: root.name
    }
}
