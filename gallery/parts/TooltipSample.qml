// A field with a tooltip.
//
// text: the caption in the field; tip: the tooltip.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property string text: ""
    property string tip: ""

    height: 32
    border.color: UiColors.getColor(UiColors.MediumLightGrey27)
    border.width: 1
    color: UiColors.getColor(UiColors.HeaderGrey4)
    radius: 3

    UiTooltip {
        text: root.tip
    }

    UiText {
        x: 12
        width: root.width - 24
        height: 32
        elide: Text.ElideRight
        text: root.text
    }
}
