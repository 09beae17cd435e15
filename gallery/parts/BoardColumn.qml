// A column of cards that can be dragged out of it and dropped into it, as typed JSON.
//
// title: shown above the cards. name: what the column is called in object names.
// cards: objects with id, title, note and ink.
// dropped: a card came; source is the zone it was dragged from, or null where that is in another
// window's process.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property string title: ""
    property string name: ""
    property var cards: []

    readonly property string cardType: "application/x-tamberui-card"

    signal dropped(var card, var source, int modifiers)

    height: 40 + 3 * 64

    Rectangle {
        anchors.fill: parent
        border.color: UiColors.getColor(UiColors.DarkerSelectionGreen)
        border.width: zone.containsDrag ? 2 : 0
        color: zone.containsDrag ? UiColors.getColor(UiColors.HoverGreen, 0.5)
                                 : UiColors.getColor(UiColors.HeaderGrey4)
        radius: 4
    }

    UiText {
        x: 16
        width: parent.width - 64
        height: 40
        elide: Text.ElideRight
        font: UiFonts.getFont(UiFonts.SemiBold, 14)
        text: root.title
    }

    UiText {
        anchors.right: parent.right
        anchors.rightMargin: 16
        height: 40
        color: UiColors.getColor(UiColors.MediumGrey45)
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.cards.length
    }

    UiDropZone {
        id: zone

        anchors.fill: parent
        objectName: root.name

        onDrop: root.dropped(data, dragSource, modifiers)

        UiMimeDropHandler {
            acceptedMimeTypes: [root.cardType]
        }
    }

    ListView {
        x: 8
        y: 40
        width: parent.width - 16
        height: parent.height - 48
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        interactive: contentHeight > height
        model: root.cards
        spacing: 8

        delegate: UiDragZone {
            id: dragZone

            width: ListView.view.width
            height: 56
            objectName: "card" + modelData.id
            opacity: dragActive ? 0.4 : 1

            dragDelegate: BoardDragItem {
                width: dragZone.width
            }
            mimeData: UiJsonMimeData {
                mimeType: root.cardType
                value: modelData
            }

            BoardCard {
                anchors.fill: parent
                card: modelData

                MouseArea {
                    anchors.fill: parent
                    cursorShape: Qt.OpenHandCursor
                }
            }
        }
    }
}
