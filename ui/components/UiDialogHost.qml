// All that a dialog shows: a cover over the window and, in its middle, a box with the header, the
// content and the footer.
import QtQuick 2.5
import QtQuick.Window 2.2
import QtQml 2.15
import tamber.Ui 1.0

Rectangle {
    id: dialogCover

    property UiDialog dialog
    // How many of its clicks and answers the dialog is dealing with: it counts them.
    property int uses: 0
    property bool faded: false

    readonly property bool discarded: state === "discarded"
    // A handler of an answer may run an event loop of its own, and what was clicked has to outlive it.
    readonly property bool ended: faded && uses === 0

    // Fades out and destroys itself. Meanwhile it looks as it did, but neither pointer nor keys reach
    // it.
    signal discard()

    // Takes the parts out of a host that goes at once: they have to go by themselves. As parts of
    // something else they would look for the parents that they miss, and complain.
    function clear() {
        dialogContent.discard()
    }

    // Gives the focus to the window's first tab stop.
    function focusFirstStop() {
        const first = parent ? parent.nextItemInFocusChain(true) : null
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason)
    }

    anchors.fill: parent
    color: "#11000000"
    opacity: 0

    Component.onCompleted: state = "visible"
    onDiscard: {
        state = "discarded"
        content.focus = false
    }
    onEndedChanged: {
        dialogContent.discard()
        destroy()
    }

    MouseArea {
        anchors.fill: parent
        z: dialogCover.discarded ? 2 : 0
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true

        onWheel: wheel.accepted = dialogCover.discarded && content.contains(mapToItem(content, wheel.x, wheel.y))
        onClicked: {
            const active = Window.activeFocusItem
            if (dialogCover.discarded || !active) // the focus is elsewhere by now
                return
            active.focus = false
            content.forceActiveFocus()
            focusAnchor.focus = true
        }
    }

    FocusScope {
        id: content

        signal tabPressed()
        signal backtabPressed()

        function isChild(item) {
            for (let parent = item; parent; parent = parent.parent) {
                if (parent === content)
                    return true
            }
            return false
        }

        // The first tab stop inside; null where there is none.
        function firstStop() {
            const first = content.nextItemInFocusChain(true)
            return first !== content && isChild(first) ? first : null
        }

        // Whether the button is seen and enabled does not matter: its style says whether Return
        // is for it, its action what comes of that.
        function triggerPrimaryAction() {
            for (let index = 0; index < dialog.buttons.length; ++index) {
                const button = dialog.buttons[index] // null where it was destroyed
                if (button && button.effectiveStyle === Ui.PrimaryPushButtonStyle) {
                    dialog.trigger(button)
                    return
                }
            }
        }

        anchors.centerIn: parent
        z: 1
        activeFocusOnTab: true
        focus: true
        objectName: "_ta_dialogContent"

        Accessible.role: Accessible.Dialog
        Accessible.name: dialog.label

        // Tab may lead into what fades out. It goes on from there, once Qt is done with the key.
        onActiveFocusChanged: {
            if (activeFocus && dialogCover.discarded) {
                enabled = false
                Qt.callLater(dialogCover.focusFirstStop)
            }
        }

        Keys.forwardTo: dialogContent.contentItem
        Keys.onEnterPressed: triggerPrimaryAction()
        Keys.onReturnPressed: triggerPrimaryAction()

        // Where there is no tab stop outside, the chain comes back to the box itself.
        onTabPressed: {
            const active = Window.activeFocusItem
            if (!active)
                return
            const next = active.nextItemInFocusChain(true)
            const target = next !== content && isChild(next) ? next : firstStop()
            if (target)
                target.forceActiveFocus(Qt.TabFocusReason)
        }
        onBacktabPressed: {
            const active = Window.activeFocusItem
            if (!active)
                return
            const previous = active.nextItemInFocusChain(false)
            let target = previous !== content && isChild(previous) ? previous : firstStop()
            if (target && target !== previous) {
                const first = target
                for (let next = first; next !== content && isChild(next); ) {
                    target = next
                    next = next.nextItemInFocusChain(true)
                    if (next === first)
                        break
                }
            }
            if (target)
                target.forceActiveFocus(Qt.BacktabFocusReason)
        }

        Item {
            id: focusAnchor
        }

        Binding {
            property: "width"
            restoreMode: Binding.RestoreNone
            target: content
            value: Math.max(dialogContent.implicitWidth, 200)
            when: !dialog.autoSize
        }

        Binding {
            property: "height"
            restoreMode: Binding.RestoreNone
            target: content
            value: Math.max(dialogContent.implicitHeight, 100)
            when: !dialog.autoSize
        }

        UiTooltipAgent {
            id: dialogContent

            property Item headerItem: null
            property Item footerItem: null
            property Item contentItem: null
            // Whole pixels that nothing is cut by: a text wraps where it lacks a fraction of one.
            property int headerHeight: headerItem ? Math.ceil(headerItem.implicitHeight) : 0
            property int headerWidth: headerItem ? Math.ceil(headerItem.implicitWidth) : 0
            property int footerHeight: footerItem ? Math.ceil(footerItem.implicitHeight) : 0
            property int footerWidth: footerItem ? Math.ceil(footerItem.implicitWidth) : 0
            property int contentHeight: contentItem ? Math.ceil(contentItem.implicitHeight) : 0
            property int contentWidth: contentItem ? Math.ceil(contentItem.implicitWidth) : 0

            function instantiate(component, options) {
                options["dialog"] = dialog
                const item = component.createObject(dialogContent, options)
                if (!item) {
                    console.warn("A part of a dialog cannot be created", component.errorString())
                    return null
                }
                if (!(item instanceof Item)) {
                    console.warn("A part of a dialog must be an item, not", item)
                    item.destroy()
                    return null
                }
                item.width = Qt.binding(() => content.width)
                return item
            }

            function discard() {
                for (let index = children.length - 1; index >= 0; --index)
                    children[index].destroy()
            }

            anchors.fill: parent
            implicitWidth: Math.max(headerWidth, footerWidth, contentWidth)
            implicitHeight: headerHeight + contentHeight + footerHeight

            Component.onCompleted: {
                if (dialog.headerDelegate)
                    headerItem = instantiate(dialog.headerDelegate, dialog.headerOptions || {})
                if (headerItem) {
                    headerItem.anchors.left = dialogContent.left
                    headerItem.anchors.right = dialogContent.right
                    headerItem.anchors.top = dialogContent.top
                }
                if (dialog.footerDelegate)
                    footerItem = instantiate(dialog.footerDelegate, dialog.footerOptions || {})
                if (footerItem) {
                    footerItem.anchors.left = dialogContent.left
                    footerItem.anchors.right = dialogContent.right
                    footerItem.anchors.bottom = dialogContent.bottom
                }
                if (dialog.contentDelegate)
                    contentItem = instantiate(dialog.contentDelegate, dialog.contentOptions || {})
                if (contentItem) {
                    contentItem.anchors.fill = dialogContent
                    contentItem.anchors.topMargin = Qt.binding(() => dialogContent.headerHeight)
                    contentItem.anchors.bottomMargin = Qt.binding(() => dialogContent.footerHeight)
                    contentItem.objectName = "_ta_dialogItem"
                }
            }
        }
    }

    // The white ground of the box is the inner part of this.
    BorderImage {
        id: shadow

        anchors.centerIn: content
        z: 0
        width: content.width + 60
        height: content.height + 60
        border.bottom: 37
        border.left: 37
        border.right: 37
        border.top: 37
        source: "qrc:/ui/images/dialog-shadow.png"
    }

    states: [
        State {
            name: "visible"

            PropertyChanges {
                opacity: 1
                target: dialogCover
            }
        },
        State {
            name: "discarded"

            PropertyChanges {
                opacity: 0
                target: dialogCover
            }
        }
    ]

    // A layer, so that the box and what lies in it fade as one.
    transitions: [
        Transition {
            to: "visible"

            SequentialAnimation {
                PropertyAction {
                    property: "layer.enabled"
                    target: dialogCover
                    value: true
                }

                NumberAnimation {
                    duration: 150
                    property: "opacity"
                    target: dialogCover
                }

                PropertyAction {
                    property: "layer.enabled"
                    target: dialogCover
                    value: false
                }
            }
        },
        Transition {
            to: "discarded"

            SequentialAnimation {
                PropertyAction {
                    property: "layer.enabled"
                    target: dialogCover
                    value: true
                }

                NumberAnimation {
                    duration: 150
                    property: "opacity"
                    target: dialogCover
                }

                ScriptAction {
                    script: if (dialogCover) dialogCover.faded = true
                }
            }
        }
    ]
}
