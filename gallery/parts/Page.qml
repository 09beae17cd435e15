// A page: a title, a sentence about it, and cards below each other that scroll where they are long.
//
// summary: the sentence.
// footer: an item that stays at the lower edge, as wide as the page.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0

FocusScope {
    id: root

    property string title: ""
    property string summary: ""
    property alias footer: footerArea.data

    default property alias content: cards.data

    // The cards keep a readable width in a wide window.
    readonly property int contentWidth: Math.min(width - 80, 1040)

    function reveal(item) {
        const margin = 24
        const top = item.mapToItem(sheet, 0, 0).y - margin
        const bottom = top + item.height + 2 * margin
        if (top < view.scrollPosition)
            view.scrollPosition = top
        else if (bottom > view.scrollPosition + view.height)
            view.scrollPosition = bottom - view.height
    }

    Connections {
        function onActiveFocusItemChanged() {
            // What is being pressed must not move away from under the pointer.
            if (root.Window.activeFocusItem && root.Window.activeFocusItem.pressed)
                return
            for (let item = root.Window.activeFocusItem; item; item = item.parent) {
                if (item === sheet) {
                    root.reveal(root.Window.activeFocusItem)
                    return
                }
            }
        }

        target: root.Window.window
    }

    ScrollGround {
        view: view
    }

    UiVerticalScrollView {
        id: view

        anchors.top: parent.top
        anchors.bottom: footerArea.top
        width: parent.width
        scrollbarOffset: 2
        scrollbarOverlapsContent: true

        Item {
            id: sheet

            implicitHeight: body.height + 64

            Column {
                id: body

                x: 40
                y: 32
                width: root.contentWidth
                spacing: 24

                Column {
                    width: parent.width
                    spacing: 8

                    UiText {
                        font: UiFonts.getFont(UiFonts.Light, 28)
                        text: root.title
                    }

                    UiText {
                        width: parent.width
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        lineHeight: lineCount > 1 ? 1.2 : 1
                        text: root.summary
                        wrapMode: Text.Wrap
                    }
                }

                Column {
                    id: cards

                    width: parent.width
                    spacing: 16
                }
            }
        }
    }

    Item {
        id: footerArea

        anchors.bottom: parent.bottom
        width: parent.width
        height: childrenRect.height
    }
}
