// A slider with labels around it.
//
// text, valueText: the labels above the track, at its left and right end: what it is about, and what
//     its value is in words.
// minimumText, maximumText: the labels below the ends.
// value, minimumValue, maximumValue, easing, resetValue, bindable: see UiSliderBase.
// fillOrigin: where the filled part of the track starts, as a fraction of it. 0 by default.
// stepSize: what an arrow key moves the value by; 0 (the default) for a twentieth of the range.
// The middle button and Delete reset it.
// Keys: the arrows move by a step, Page Up and Page Down by five; Home and End go to the ends.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiSliderBase {
    id: root

    property string text: ""
    property string valueText: ""
    property string minimumText: ""
    property string maximumText: ""
    property double fillOrigin: 0
    property double stepSize: 0

    readonly property bool hasHead: text !== "" || valueText !== ""
    readonly property bool hasEnds: minimumText !== "" || maximumText !== ""
    readonly property double step: stepSize > 0 ? stepSize : (maximumValue - minimumValue) / 20

    // As if the user had dragged it there.
    function pick(newValue) {
        const bounded = Math.min(Math.max(newValue, minimumValue), maximumValue)
        if (bindable)
            updateRequested(bounded)
        else
            value = bounded
    }

    function handleKey(key) {
        switch (key) {
        case Qt.Key_Left:
        case Qt.Key_Down:
            pick(value - step)
            return true
        case Qt.Key_Right:
        case Qt.Key_Up:
            pick(value + step)
            return true
        case Qt.Key_PageDown:
            pick(value - 5 * step)
            return true
        case Qt.Key_PageUp:
            pick(value + 5 * step)
            return true
        case Qt.Key_Home:
            pick(minimumValue)
            return true
        case Qt.Key_End:
            pick(maximumValue)
            return true
        case Qt.Key_Delete:
            reset()
            return true
        }
        return false
    }

    activeFocusOnTab: true
    // A press on a label is none on the slider.
    containmentMask: QtObject {
        function contains(point: point): bool {
            return point.x >= 0 && point.x < root.width && point.y >= track.y && point.y < track.y + track.height
        }
    }
    implicitWidth: 200
    implicitHeight: track.y + track.height + (hasEnds ? ends.height : 0)
    margin: handle.width / 2

    Accessible.role: Accessible.Slider
    Accessible.name: text
    Accessible.description: valueText
    Accessible.focusable: true
    Accessible.onIncreaseAction: if (enabled) pick(value + step)
    Accessible.onDecreaseAction: if (enabled) pick(value - step)

    Keys.onPressed: event.accepted = !(event.modifiers & ~Qt.KeypadModifier) && handleKey(event.key)

    onPressedChanged: if (pressed) forceActiveFocus()

    Item {
        id: head

        width: parent.width
        height: 24
        visible: root.hasHead

        UiText {
            width: parent.width - (amount.width > 0 ? amount.width + 16 : 0)
            height: parent.height
            elide: Text.ElideRight
            text: root.text

            Accessible.ignored: true
        }

        UiText {
            id: amount

            anchors.right: parent.right
            width: Math.min(Math.ceil(implicitWidth), parent.width)
            height: parent.height
            color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
            elide: Text.ElideRight
            text: root.valueText

            Accessible.ignored: true
        }
    }

    Item {
        id: track

        y: root.hasHead ? head.height : 0
        width: parent.width
        height: 24

        Rectangle {
            y: 10
            width: parent.width
            height: 4
            color: UiColors.getColor(root.enabled ? UiColors.SeparatorLineGrey17 : UiColors.ProgressbarBGGrey)
            radius: 2
        }

        Rectangle {
            readonly property int handleX: handle.x + handle.width / 2
            readonly property int originX: Math.round(Math.min(Math.max(root.fillOrigin, 0), 1) * parent.width)

            x: Math.min(originX, handleX)
            y: 10
            width: Math.abs(handleX - originX)
            height: 4
            color: UiColors.getColor(root.enabled ? UiColors.DarkerBlueGrey : UiColors.ControlGrey20)
            radius: 2
        }

        Rectangle {
            id: handle

            x: Math.round(root.normalizedValue * (parent.width - width))
            y: 4
            width: 16
            height: 16
            border.color: UiColors.getColor(!root.enabled ? UiColors.DisabledLightGrey13
                                           : root.hovered || root.pressed ? UiColors.DarkerBlueGrey
                                           : UiColors.DarkBlueGrey)
            border.width: 1
            color: UiColors.getColor(!root.enabled ? UiColors.HeaderGrey4
                                    : root.pressed ? UiColors.SelectionGreen
                                    : root.hovered ? UiColors.HoverGreen
                                    : UiColors.White)
            radius: 8

            FocusFrame {
                control: root
                radius: 10
            }
        }
    }

    Item {
        id: ends

        y: track.y + track.height
        width: parent.width
        height: 16
        visible: root.hasEnds

        UiText {
            height: parent.height
            color: amount.color
            font: UiFonts.getFont(UiFonts.Regular, 12)
            text: root.minimumText

            Accessible.ignored: true
        }

        UiText {
            anchors.right: parent.right
            height: parent.height
            color: amount.color
            font: UiFonts.getFont(UiFonts.Regular, 12)
            text: root.maximumText

            Accessible.ignored: true
        }
    }
}
