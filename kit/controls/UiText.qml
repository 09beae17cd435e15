// Text in the design's font and colours.
//
// highlight: shows the text as part of something pressed or selected. False by default.
import QtQuick 2.15
import tamber.Ui 1.0

Text {
    property bool highlight: false

    color: !enabled ? UiColors.getColor(UiColors.MediumGrey33)
         : highlight ? UiColors.getColor(UiColors.Black)
         : UiColors.getColor(UiColors.DarkGrey80)
    font: UiFonts.getFont(UiFonts.Regular, 14)
    linkColor: UiColors.getColor(UiColors.DarkerBlueGrey)
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
