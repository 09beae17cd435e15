// One of several things beside each other, with a line of text below it.
//
// caption: the text.
// The children lie in a box as wide as the sample and 96 pixels high.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string caption: ""

    default property alias content: box.data

    height: 124

    Item {
        id: box

        width: parent.width
        height: 96
    }

    UiText {
        y: 104
        width: parent.width
        height: 20
        color: UiColors.getColor(UiColors.MediumGrey45)
        elide: Text.ElideRight
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.caption
    }
}
