// A control with a line above that says what it is.
//
// text: the line.
import QtQuick 2.15
import tamber.Ui 1.0

Column {
    id: root

    property string text: ""

    spacing: 4

    UiText {
        width: Math.max(implicitWidth, 1)
        color: UiColors.getColor(UiColors.MediumGrey45)
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.text
    }
}
