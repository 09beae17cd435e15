// What an entry of a context menu looks like.
//
// menuItem, menu: the entry and its menu; the menu sets them.
// hovered, pressed: whether the pointer is over the enabled entry, and pressed there; the menu
//     binds them.
// clicked(): chooses the entry; the menu calls it.
import QtQuick 2.5
import tamber.Ui 1.0

Item {
    id: root

    property bool pressed: false
    property bool hovered: false
    property UiMenuItem menuItem
    property UiContextMenu menu

    readonly property bool iconAndText: menu ? menu.itemStyle === UiContextMenu.IconAndText : false

    signal clicked()

    implicitWidth: iconAndText ? label.implicitWidth + icon.implicitWidth + 4 * 8
                               : label.implicitWidth + 3 * 8
    implicitHeight: 32
    // An entry may be destroyed while it is shown.
    enabled: menuItem ? menuItem.enabled && menuItem.visible : false
    visible: menuItem ? menuItem.visible : false

    Accessible.role: Accessible.MenuItem
    Accessible.name: label.text
    Accessible.onPressAction: if (root.enabled) root.parent.click(root) // as the pointer does

    onClicked: {
        // A handler may destroy the menu, which then has no properties any more, and this item with
        // it, whose names are gone then.
        const contextMenu = menu
        menuItem.triggered()
        if (contextMenu.menuVisible)
            contextMenu.close()
    }

    Rectangle {
        width: root.width
        height: root.height
        color: UiColors.getColor(root.pressed ? UiColors.SelectionGreen
                                : root.hovered ? UiColors.HoverGreen
                                : UiColors.White)
        visible: root.pressed || root.hovered // white on the white frame
    }

    UiIcon {
        id: icon

        x: 5
        y: Math.round((root.height - height) / 2)
        disabled: root.enabled ? 0 : 1
        highlight: root.pressed ? 1 : 0
        iconName: root.menuItem ? root.menuItem.iconName : ""
        visible: root.iconAndText
    }

    UiText {
        id: label

        x: (root.iconAndText ? icon.x + icon.width : 0) + 7
        y: Math.round((root.height - height) / 2)
        highlight: root.pressed
        text: root.menuItem ? root.menuItem.text : ""

        Accessible.ignored: true
    }
}
