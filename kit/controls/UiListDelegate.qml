// A row of a list: an icon and a text, on a ground that shows hover, press and selection.
//
// text: what the row says; it is cut at the right.
// iconName: a glyph of the 16 pixel set before the text, see UiIcon; none by default.
// active: whether the row is selected; defocused: whether its view has lost the focus. Both are the
//     host's to set.
// hovered, pressed, pressed(modifiers), clicked(position, modifiers),
// doubleClicked(position, modifiers): see UiDelegateBase.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiDelegateBase {
    id: root

    property string text: ""
    property string iconName: ""

    implicitWidth: label.x + Math.ceil(label.implicitWidth) + 12
    implicitHeight: 28
    __color: active ? UiColors.getColor(defocused ? UiColors.InactiveSelectionGreen
                                       : pressed ? UiColors.DarkerSelectionGreen
                                       : UiColors.SelectionGreen)
           : pressed ? UiColors.getColor(UiColors.SelectionGreen)
           : hovered ? UiColors.getColor(UiColors.HoverGreen)
           : UiColors.getColor(UiColors.HoverGreen, 0)

    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selectable: true
    Accessible.selected: active
    Accessible.onPressAction: if (enabled) root.clicked(Qt.point(width / 2, height / 2), Qt.NoModifier)

    UiIcon {
        id: icon

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        disabled: root.enabled ? 0 : 1
        iconName: root.iconName
        iconSize: UiIcon.Icon_16x16
        visible: root.iconName !== ""
    }

    UiText {
        id: label

        x: icon.visible ? 36 : 12
        width: root.width - x - 12
        height: root.height
        elide: Text.ElideRight
        highlight: root.active || root.pressed
        text: root.text

        Accessible.ignored: true
    }
}
