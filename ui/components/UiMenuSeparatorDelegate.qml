// The line between groups of entries of a context menu.
//
// menuItem, menu: the separator and its menu; the menu sets them.
import QtQuick 2.5
import tamber.Ui 1.0

Item {
    id: root

    property UiMenuSeparator menuItem
    property UiContextMenu menu

    implicitWidth: 1
    implicitHeight: 5
    visible: menuItem ? menuItem.visible : false

    Accessible.role: Accessible.Separator

    Rectangle {
        x: 4
        y: 2
        implicitWidth: root.width - 8
        implicitHeight: 1
        color: UiColors.getColor(UiColors.SeparatorLineGrey17)
    }
}
