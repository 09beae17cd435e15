// A line to type what is looked for.
//
// text: what was typed. placeholder: shown while that is nothing. Escape empties the field.
import QtQuick 2.15
import tamber.Ui 1.0

FocusScope {
    id: root

    property alias text: input.text
    property string placeholder: ""

    height: 32

    Accessible.role: Accessible.EditableText
    Accessible.name: placeholder

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(input.activeFocus ? UiColors.FocusColor
                                                          : UiColors.MediumLightGrey27)
        border.width: input.activeFocus ? 2 : 1
        color: UiColors.getColor(UiColors.White)
        radius: 3
    }

    UiIcon {
        x: 9
        y: 8
        iconName: "filter"
        iconSize: UiIcon.Icon_16x16
    }

    TextInput {
        id: input

        anchors.fill: parent
        anchors.leftMargin: 34
        anchors.rightMargin: 12
        activeFocusOnTab: true
        clip: true
        color: UiColors.getColor(UiColors.DarkGrey80)
        focus: true
        font: UiFonts.getFont(UiFonts.Regular, 14)
        selectByMouse: true
        selectedTextColor: UiColors.getColor(UiColors.Black)
        selectionColor: UiColors.getColor(UiColors.SelectionGreen)
        verticalAlignment: TextInput.AlignVCenter

        Keys.onEscapePressed: clear()

        UiText {
            anchors.fill: parent
            color: UiColors.getColor(UiColors.MediumGrey45)
            text: root.placeholder
            visible: input.text === "" && !input.activeFocus
        }
    }
}
