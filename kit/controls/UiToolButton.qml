// A button of a tool bar: an icon, with its text beside it or without.
//
// text: the caption; with Ui.IconOnly it is what assistive tools say.
// iconName: a glyph of the 24 pixel set, see UiIcon.
// iconSource: a picture of 24 x 24 instead, where the set has no such glyph.
// style: Ui.IconAndText (the default) or Ui.IconOnly.
// Keys: Return, Enter and Space click it. It takes the focus by Tab, not by the mouse.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiToolButtonBase {
    id: root

    property string text: ""
    property string iconName: ""
    property url iconSource: ""

    readonly property bool hasIcon: iconName !== "" || iconSource.toString() !== ""
    readonly property bool hasText: text !== "" && (style === Ui.IconAndText || !hasIcon)

    implicitWidth: content.width + (hasText ? 16 : 8)
    implicitHeight: 32

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.focusable: true
    Accessible.pressed: pressed || down
    Accessible.onPressAction: if (enabled) root.clicked(Qt.NoModifier)

    Rectangle {
        anchors.fill: parent
        color: root.pressed || root.down ? UiColors.getColor(root.enabled ? UiColors.SelectionGreen
                                                                          : UiColors.DisabledLightGrey13)
             : root.hovered ? UiColors.getColor(UiColors.HoverGreen)
             : UiColors.getColor(UiColors.HoverGreen, 0)
        radius: 3
    }

    Row {
        id: content

        anchors.centerIn: parent
        height: 24
        spacing: 6

        UiIcon {
            disabled: root.enabled ? 0 : 1
            iconName: root.iconName
            visible: root.iconName !== ""
        }

        Image {
            width: 24
            height: 24
            fillMode: Image.Pad
            opacity: root.enabled ? 1 : 0.4
            source: root.iconSource
            visible: root.iconName === "" && root.hasIcon
        }

        UiText {
            height: 24
            highlight: root.pressed || root.down
            text: root.text
            visible: root.hasText

            Accessible.ignored: true
        }
    }

    FocusFrame {}
}
