// The drop-down list of a UiComboBox. Part of the kit's own controls.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property Item comboBox

    readonly property int rowHeight: 28
    readonly property int maximumRows: 12

    property point pointer: Qt.point(-1, -1)

    function pointed(position, index) {
        const moved = position.x !== pointer.x || position.y !== pointer.y
        pointer = position
        if (moved)
            comboBox.highlightedIndex = index
    }

    function reveal(index) {
        view.positionViewAtIndex(index, ListView.Contain)
    }

    width: comboBox.width
    implicitHeight: Math.min(comboBox.count, maximumRows) * rowHeight + 10
    border.color: UiColors.getColor(UiColors.MediumLightGrey27)
    border.width: 1
    color: UiColors.getColor(UiColors.White)
    opacity: enabled ? 1 : 0
    radius: 3

    Accessible.role: Accessible.List

    Keys.forwardTo: [comboBox]

    onEnabledChanged: {
        if (enabled)
            reveal(Math.max(0, comboBox.highlightedIndex)) // the anchor has placed the list by now
        else
            view.cancelFlick() // the combo box may go while it fades: no more rows then
    }

    Behavior on opacity {
        NumberAnimation {
            duration: 80
        }
    }

    // Not in a scroll view: its bar would take room from the texts, and its animations would run
    // behind the keys, which bring their row into view at once.
    ListView {
        id: view

        anchors.fill: parent
        anchors.topMargin: 5
        anchors.bottomMargin: 5
        anchors.leftMargin: 1
        anchors.rightMargin: 1
        boundsBehavior: Flickable.StopAtBounds
        // Rows out of sight would be made between frames, and may be in the making when it closes.
        cacheBuffer: 0
        clip: true
        model: root.comboBox.model

        delegate: Rectangle {
            id: row

            readonly property bool highlighted: root.comboBox.highlightedIndex === index
            readonly property string text: root.comboBox.changes >= 0 ? root.comboBox.textAt(index) : ""

            width: view.width
            height: root.rowHeight
            color: highlighted ? UiColors.getColor(area.pressed ? UiColors.SelectionGreen : UiColors.HoverGreen)
                               : UiColors.getColor(UiColors.White)
            objectName: root.comboBox.objectName === "" ? "" : root.comboBox.objectName + "Item" + index

            Accessible.role: Accessible.ListItem
            Accessible.name: text
            Accessible.selectable: true
            Accessible.selected: index === root.comboBox.currentIndex
            Accessible.onPressAction: root.comboBox.choose(index)

            UiText {
                x: 11
                width: row.width - 22
                height: row.height
                elide: Text.ElideRight
                font: UiFonts.getFont(index === root.comboBox.currentIndex ? UiFonts.SemiBold : UiFonts.Regular, 14)
                highlight: row.highlighted
                text: row.text

                Accessible.ignored: true
            }

            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true

                onClicked: root.comboBox.choose(index)
                // Rows that scroll past a resting pointer are not what it chooses.
                onPositionChanged: root.pointed(mapToItem(root, mouse.x, mouse.y), index)
                onEntered: root.pointed(mapToItem(root, mouseX, mouseY), index)
            }
        }
    }

    // Where the visible rows are among all.
    Rectangle {
        x: root.width - width - 3
        y: view.y + Math.round(view.visibleArea.yPosition * view.height)
        width: 4
        height: Math.round(view.visibleArea.heightRatio * view.height)
        color: UiColors.getColor(UiColors.ControlGrey20)
        radius: 2
        visible: view.visibleArea.heightRatio < 1
    }
}
