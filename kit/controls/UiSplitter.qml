// Two panes beside or above each other, and a bar between them that moves the border.
//
// orientation: Qt.Horizontal (the default) for panes beside each other, Qt.Vertical for one above the
//     other.
// first, second: what is in the panes; anchor it to its parent.
// size: how wide (or high) one of the panes is, in logical pixels; the other one takes the rest. It
//     is what the user has chosen, and stays so while the splitter is too small for it.
// sizesSecond: whether that pane is the second one. False by default.
// minimumSize, minimumRest: what is left of that pane and of the other one at least; 48 each. Where
//     there is no room for both, the rest gives way.
// defaultSize: what a double click on the bar and Delete go back to. As size is at first.
// paneSize: what size comes to, as things are.
// text: what the bar is called by assistive tools. Empty by default.
// moved(): the user has moved the border.
// Keys, on the bar: the arrows along it move it by 16 pixels, Home and End to its ends, Delete back.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    id: root

    property int orientation: Qt.Horizontal
    property alias first: firstPane.data
    property alias second: secondPane.data
    property int size: 200
    property bool sizesSecond: false
    property int minimumSize: 48
    property int minimumRest: 48
    property int defaultSize: -1
    property alias text: handle.text

    readonly property bool horizontal: orientation === Qt.Horizontal
    readonly property int available: Math.max(0, Math.floor(horizontal ? width : height) - 1)
    readonly property int largest: Math.min(available, Math.max(minimumSize, available - minimumRest))
    readonly property int paneSize: bounded(size)
    readonly property int border: sizesSecond ? available - paneSize : paneSize

    signal moved()

    function bounded(wanted) {
        return Math.max(0, Math.min(Math.max(wanted, minimumSize), largest))
    }

    // As if the user had dragged the border there.
    function resize(wanted) {
        const before = paneSize
        size = bounded(Math.round(wanted))
        if (paneSize !== before)
            moved()
    }

    // By so many pixels to the right or downwards.
    function shift(way) {
        resize(sizesSecond ? paneSize - way : paneSize + way)
    }

    function handleKey(key) {
        const step = 16
        switch (key) {
        case horizontal ? Qt.Key_Left : Qt.Key_Up:
            shift(-step)
            return true
        case horizontal ? Qt.Key_Right : Qt.Key_Down:
            shift(step)
            return true
        case Qt.Key_Home:
            shift(-available)
            return true
        case Qt.Key_End:
            shift(available)
            return true
        case Qt.Key_Delete:
            resize(defaultSize)
            return true
        }
        return false
    }

    implicitWidth: 400
    implicitHeight: 300

    Component.onCompleted: if (defaultSize < 0) defaultSize = size

    Item {
        id: firstPane

        width: root.horizontal ? root.border : root.width
        height: root.horizontal ? root.height : root.border
        clip: true
    }

    Item {
        id: secondPane

        x: root.horizontal ? root.border + 1 : 0
        y: root.horizontal ? 0 : root.border + 1
        width: root.horizontal ? Math.max(0, root.width - x) : root.width
        height: root.horizontal ? root.height : Math.max(0, root.height - y)
        clip: true
    }

    // Wider than the line that it shows, so that it is easy to hit.
    UiDragHandle {
        id: handle

        property string text: ""
        property bool pressed: false
        property int start: 0
        property bool dragged: false
        property double clickedAt: 0

        x: root.horizontal ? root.border - 4 : 0
        y: root.horizontal ? 0 : root.border - 4
        width: root.horizontal ? 9 : root.width
        height: root.horizontal ? root.height : 9
        activeFocusOnTab: true
        direction: root.horizontal ? UiDragHandle.Horizontal : UiDragHandle.Vertical
        objectName: root.objectName === "" ? "" : root.objectName + "Handle"

        Accessible.role: Accessible.Splitter
        Accessible.name: text
        Accessible.focusable: true
        Accessible.onIncreaseAction: if (enabled) root.shift(16)
        Accessible.onDecreaseAction: if (enabled) root.shift(-16)

        Keys.onPressed: event.accepted = !(event.modifiers & ~Qt.KeypadModifier) && root.handleKey(event.key)

        onDragBegin: {
            start = root.paneSize
            pressed = true
            dragged = false
            forceActiveFocus()
        }
        onDragUpdate: {
            dragged = dragged || Math.abs(offset) > 2 // a click may tremble
            root.resize(root.sizesSecond ? start - offset : start + offset)
        }
        onDragEnd: {
            pressed = false
            const now = Date.now()
            if (dragged) {
                clickedAt = 0
            } else if (now - clickedAt > Qt.styleHints.mouseDoubleClickInterval) {
                clickedAt = now
            } else {
                clickedAt = 0
                root.resize(root.defaultSize)
            }
        }

        HoverHandler {
            id: hover
        }

        Rectangle {
            readonly property bool lit: root.enabled && (handle.pressed || hover.hovered)

            anchors.centerIn: parent
            width: root.horizontal ? (lit ? 3 : 1) : parent.width
            height: root.horizontal ? parent.height : (lit ? 3 : 1)
            color: UiColors.getColor(!lit ? UiColors.SeparatorLineGrey17
                                    : handle.pressed ? UiColors.ButtonPressBlue
                                    : UiColors.ButtonHoverBlue)
        }

        FocusFrame {
            control: handle
        }
    }
}
