// A button with a caption, for an action.
//
// text: the caption.
// iconName: a glyph of the 16 pixel set before the caption, see UiIcon; none by default.
// style: Ui.PrimaryPushButtonStyle for the action that a screen is about, Ui.SecondaryPushButtonStyle
//     (and Ui.AutomaticPushButtonStyle) for the others.
// Keys: Return, Enter and Space click it.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiPushButtonBase {
    id: root

    property string iconName: ""

    readonly property bool primary: style === Ui.PrimaryPushButtonStyle
    readonly property bool sunken: pressed || down

    implicitWidth: Math.max(88, Math.ceil(caption.implicitWidth) + content.iconWidth + 32)
    implicitHeight: 32

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.focusable: true
    Accessible.pressed: sunken
    Accessible.onPressAction: if (enabled) root.clicked(Qt.NoModifier)

    Rectangle {
        anchors.fill: parent
        border.color: !root.enabled ? UiColors.getColor(UiColors.DisabledLightGrey13)
                    : root.primary ? color
                    : root.hovered || root.sunken ? UiColors.getColor(UiColors.DarkBlueGrey)
                    : UiColors.getColor(UiColors.MediumLightGrey27)
        border.width: 1
        color: !root.enabled ? UiColors.getColor(root.primary ? UiColors.DisabledLightGrey13
                                                             : UiColors.HeaderGrey4)
             : UiColors.getColor(root.primary ? UiColors.DarkerBlueGrey : UiColors.White)
        radius: 3

        // Lighter under the pointer, darker while it is pressed.
        Rectangle {
            anchors.fill: parent
            color: root.sunken ? UiColors.getColor(UiColors.Black, root.primary ? 0.25 : 0.12)
                 : root.primary ? UiColors.getColor(UiColors.White, 0.14)
                 : UiColors.getColor(UiColors.Black, 0.04)
            radius: parent.radius
            visible: root.enabled && (root.hovered || root.sunken)
        }
    }

    Item {
        id: content

        readonly property int iconWidth: icon.visible ? icon.width + 8 : 0

        anchors.centerIn: parent
        width: iconWidth + caption.width
        height: 16

        UiIcon {
            id: icon

            disabled: root.enabled ? 0 : 1
            highlight: root.enabled && root.primary ? 1 : 0
            iconName: root.iconName
            iconSize: UiIcon.Icon_16x16
            visible: iconName !== ""
        }

        UiText {
            id: caption

            x: content.iconWidth
            width: Math.min(Math.ceil(implicitWidth), root.width - content.iconWidth - 16)
            height: content.height
            color: !root.enabled ? UiColors.getColor(UiColors.MediumGrey33)
                 : root.primary ? UiColors.getColor(UiColors.White)
                 : UiColors.getColor(UiColors.DarkGrey80)
            elide: Text.ElideRight
            font: UiFonts.getFont(root.primary ? UiFonts.SemiBold : UiFonts.Regular, 14)
            horizontalAlignment: Text.AlignHCenter
            text: root.text

            Accessible.ignored: true
        }
    }

    FocusFrame {}
}
