// All glyphs of a size on one ground, for a picture that an icon designer judges.
//
// look: "light", "dark", "disabled" or "highlighted".
import QtQuick 2.15
import tamber.Ui 1.0
import "parts"

Rectangle {
    id: root

    property int size: 24
    property string look: "light"

    readonly property var names: probe.iconNamesForSize(size).filter(name => name !== "")
    readonly property bool dark: look === "dark" || look === "highlighted"
    readonly property int columns: 10
    readonly property int cellWidth: 136 // the longest name of all

    width: columns * cellWidth + 32
    height: Math.ceil(names.length / columns) * 80 + 32
    color: UiColors.getColor(dark ? UiColors.DarkGrey80 : UiColors.White)

    UiIcon {
        id: probe

        visible: false
    }

    Grid {
        x: 16
        y: 16
        columns: root.columns

        Repeater {
            model: root.names

            Glyph {
                width: root.cellWidth
                disabled: root.look === "disabled" ? 1 : 0
                highlight: root.look === "highlighted" ? 1 : 0
                highlightColor: UiColors.getColor(UiColors.HoverGreen)
                ink: UiColors.getColor(root.dark ? UiColors.ControlGrey20 : UiColors.MediumGrey45)
                name: modelData
                size: root.size
            }
        }
    }
}
