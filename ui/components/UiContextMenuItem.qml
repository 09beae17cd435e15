// The items of an open context menu. It has no size and lies where the pointer was; the frame opens
// to the right and downwards from there, and upwards or to the left where the window ends.
//
// contextMenu: the menu; it sets it.
// popup: the frame, which is what one sees.
// discard(): fades out and destroys the item.
// clicks: how many clicks on entries are being handled. What they came through stays until they are:
//     a handler may run an event loop of its own, and the menu close in it.
import QtQuick 2.5
import QtQuick.Window 2.2
import tamber.Ui 1.0

Item {
    id: menu

    property UiContextMenu contextMenu
    property int clicks: 0

    readonly property Item popup: popup

    signal discard()

    function end() {
        // The delegates first: as parts of a parent that is being destroyed they would still follow
        // its end with their bindings.
        for (let i = 0; i < content.children.length; ++i)
            content.children[i].destroy()
        destroy()
    }

    opacity: 0

    Component.onCompleted: state = "visible"
    onDiscard: state = "discarded"

    states: [
        State {
            name: "visible"

            PropertyChanges {
                target: menu
                opacity: 1
            }
        },
        State {
            name: "discarded"

            // What is fading out takes no second click; it goes to what lies below.
            PropertyChanges {
                target: mouseArea
                enabled: false
            }

            PropertyChanges {
                target: shield
                enabled: false
            }
        }
    ]

    transitions: [
        Transition {
            to: "visible"

            // Not from nothing, which would make the first two frames empty: the first one shows
            // what the fade comes to in a sixtieth of a second.
            NumberAnimation {
                duration: 80
                from: 0.2
                property: "opacity"
                target: menu
            }
        },
        Transition {
            to: "discarded"

            SequentialAnimation {
                NumberAnimation {
                    duration: 80
                    property: "opacity"
                    target: menu
                }

                ScriptAction {
                    script: if (menu && menu.clicks === 0) menu.end()
                }
            }
        }
    ]

    Rectangle {
        id: popup

        readonly property real rightOverflow: Math.max(0, menu.x + content.requiredWidth - Window.width)
        readonly property real bottomOverflow: Math.max(0, menu.y + height - Window.height)

        // Where both overflow it opens upwards only.
        x: rightOverflow > 0 && bottomOverflow === 0 ? -width : 0
        y: bottomOverflow > 0 ? -height : 0
        width: content.requiredWidth + 6
        height: content.implicitHeight + 6
        color: UiColors.getColor(UiColors.White)

        Accessible.role: Accessible.PopupMenu

        // Input over the menu stays there. A right press is the exception: it asks the target below
        // for the menu at another place.
        MouseArea {
            id: shield

            width: popup.width
            height: popup.height
            acceptedButtons: Qt.AllButtons & ~Qt.RightButton
            cursorShape: Qt.ArrowCursor
            hoverEnabled: true

            onWheel: wheel.accepted = true
        }

        UiBorder {
            width: popup.width
            height: popup.height
            borderWidth: 1
            color: UiColors.getColor(UiColors.ControlGrey20)
            style: UiBorder.Solid
            z: 2
        }

        MouseArea {
            id: mouseArea

            readonly property Item itemUnderMouse: containsMouse ? content.childAt(mouseX, mouseY) : null

            x: content.x
            y: content.y
            width: content.width
            height: content.height
            hoverEnabled: true

            onReleased: {
                const item = itemUnderMouse
                // A separator is enabled, too, and has nothing to click.
                if (item && item.enabled && item.clicked)
                    content.click(item)
                else if (!item || !item.enabled)
                    menu.contextMenu.close()
            }
        }

        Column {
            id: content

            property int requiredWidth: 0

            function click(item) {
                ++menu.clicks
                try {
                    item.clicked()
                } finally {
                    // A handler may destroy the context menu; names mean nothing any more then.
                    if (menu && --menu.clicks === 0 && menu.state === "discarded" && menu.opacity === 0)
                        menu.end()
                }
            }

            // A delegate that is a control knows by itself, and its properties cannot be written.
            function follow(item, property, value) {
                try {
                    if (item[property] !== undefined)
                        item[property] = Qt.binding(value)
                } catch (error) {
                }
            }

            x: 3
            y: 3
            width: popup.width

            Component.onCompleted: {
                // The list begins anew when a delegate changes it.
                const ranked = menu.contextMenu.rankedItems
                const entries = []
                for (let i = 0; i < ranked.length; ++i)
                    entries.push(ranked[i])
                let widest = 0
                for (const entry of entries) {
                    const delegate = entry ? entry.delegate : null
                    if (!delegate)
                        continue
                    const item = delegate.createObject(content, {
                        menuItem: entry,
                        menu: menu.contextMenu
                    })
                    if (!menu) // as above
                        return
                    if (!item) {
                        console.warn("An entry of a menu cannot be created", delegate.errorString())
                        continue
                    }
                    widest = Math.max(widest, item.implicitWidth)
                    item.width = Qt.binding(() => content.requiredWidth)
                    follow(item, "hovered", () => item.enabled && mouseArea.itemUnderMouse === item)
                    follow(item, "pressed", () => item.enabled && mouseArea.itemUnderMouse === item
                                                  && mouseArea.containsPress)
                }
                requiredWidth = widest
            }
        }
    }
}
