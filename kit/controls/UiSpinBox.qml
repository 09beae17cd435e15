// A field for a number, with arrows that step through it.
//
// value: 0 by default. What the user picks lies between the bounds; what is written need not.
// minimumValue, maximumValue: the bounds; -Infinity and Infinity (the defaults) for none.
// decimals: digits after the decimal point, 0 to 10. 0 by default. A step is one unit of the last one.
// unit: what the number counts, shown after it. Empty by default.
// placeHolderText: what the number is about, for assistive tools.
// bindable: what the user picks is only reported, by updateRequested(newValue), and left to the host
//     to write. False by default.
// error: marks the field as wrong. It marks itself while what is typed is no number.
// invalid: whether it is marked. hovered: whether the pointer is over it.
// displayString: the value as it is written, without the unit. stepSize: what a step changes it by.
// Numbers are typed in the user's locale, or as in C. What is no number is dropped.
// Keys: Up and Down step, Page Up and Page Down by ten; Return and Enter end the edit, Escape goes back.
//     The wheel steps while the field has the focus.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

FocusScope {
    id: root

    property bool bindable: false
    property alias decimals: numbers.decimals
    property bool error: false
    property double maximumValue: Infinity
    property double minimumValue: -Infinity
    property string placeHolderText: ""
    property string unit: ""
    property alias value: numbers.value

    readonly property alias displayString: numbers.displayString
    readonly property alias hovered: field.hovered
    readonly property bool invalid: error || isNaN(numbers.parseNumber(field.typedText))
    readonly property double stepSize: Math.pow(10, -decimals)

    property int heldStep: 0
    property int wheelTurn: 0

    signal updateRequested(double newValue)

    // Each bound stops at the other one, so the lower one may have to wait for the upper one.
    function updateBounds() {
        const largest = Number.MAX_VALUE
        const low = minimumValue === -Infinity ? -largest : minimumValue
        const high = maximumValue === Infinity ? largest : maximumValue
        numbers.minimum = low
        numbers.maximum = high
        numbers.minimum = low
    }

    // As it is shown, so that what is seen is what there is.
    function pick(number) {
        if (isNaN(number))
            return
        const shown = Number(number.toFixed(decimals))
        const bounded = Math.max(Math.min(shown, numbers.maximum), numbers.minimum)
        if (bindable)
            updateRequested(bounded)
        else
            value = bounded
    }

    function step(count) {
        const typed = field.typedText === displayString ? NaN : numbers.parseNumber(field.typedText)
        let number = isNaN(typed) ? value : typed
        for (let i = Math.min(Math.abs(count), 1000); i > 0; --i)
            number = count > 0 ? numbers.stepUp(number) : numbers.stepDown(number)
        pick(number)
        field.textInput.text = displayString
        if (field.activeFocus)
            field.selectAll()
    }

    // An arrow steps at once, and then again and again while it is held.
    function hold(pressed, count) {
        heldStep = count
        repetition.interval = 400
        repetition.running = pressed
        if (!pressed)
            return
        field.forceActiveFocus(Qt.MouseFocusReason)
        step(count)
    }

    implicitWidth: 120
    implicitHeight: 32

    Accessible.role: Accessible.SpinBox
    Accessible.name: placeHolderText
    Accessible.description: unit
    Accessible.editable: true
    Accessible.focusable: true
    Accessible.onIncreaseAction: if (enabled) step(1)
    Accessible.onDecreaseAction: if (enabled) step(-1)

    Component.onCompleted: updateBounds()

    Keys.onPressed: {
        const counts = { [Qt.Key_Up]: 1, [Qt.Key_Down]: -1, [Qt.Key_PageUp]: 10, [Qt.Key_PageDown]: -10 }
        const count = counts[event.key]
        event.accepted = count !== undefined
        if (event.accepted)
            step(count)
    }

    onMaximumValueChanged: updateBounds()
    onMinimumValueChanged: updateBounds()

    UiSpinBoxExPrivate {
        id: numbers

        decimals: 0
    }

    UiLineEdit {
        id: field

        width: root.width
        height: root.height
        accessibleName: root.placeHolderText
        bindable: true
        error: root.invalid
        focus: true
        inputMethodHints: Qt.ImhFormattedNumbersOnly
        objectName: root.objectName === "" ? "" : root.objectName + "Field"
        rightInset: up.width + unitLoader.width
        text: numbers.displayString

        // A value with more digits than are shown stays as it is until something is typed.
        onUpdateRequested: if (newValue !== numbers.displayString) root.pick(numbers.parseNumber(newValue))
    }

    UiLoader {
        id: unitLoader

        x: up.x - width - 6
        height: root.height
        sourceComponent: root.unit === "" ? null : unitText

        Component {
            id: unitText

            Text {
                color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                font: UiFonts.getFont(UiFonts.Regular, 14)
                text: root.unit
                textFormat: Text.PlainText
                verticalAlignment: Text.AlignVCenter

                // A press there is one behind the number.
                TapHandler {
                    onPressedChanged: {
                        if (!pressed)
                            return
                        field.forceActiveFocus(Qt.MouseFocusReason)
                        field.textInput.cursorPosition = field.textInput.length
                    }
                }
            }
        }
    }

    // The ground of the arrow that the pointer is over; it is over one at most.
    Rectangle {
        readonly property Item arrow: down.hovered || down.pressed ? down : up

        x: up.x
        y: arrow.y
        width: up.width
        height: arrow.height
        color: UiColors.getColor(arrow.pressed ? UiColors.SelectionGreen : UiColors.HoverGreen)
        radius: 2
        visible: arrow.hovered || arrow.pressed
    }

    SpinBoxArrow {
        id: up

        x: root.width - width - 1
        y: 1
        height: Math.ceil((root.height - 2) / 2)
        objectName: root.objectName === "" ? "" : root.objectName + "Up"
        offset: 1
        source: "qrc:/ui/images/spinbox-arrow-up.png"

        onPressedChanged: root.hold(pressed, 1)
    }

    SpinBoxArrow {
        id: down

        x: up.x
        y: up.y + up.height
        height: root.height - 2 - up.height
        objectName: root.objectName === "" ? "" : root.objectName + "Down"
        offset: -1
        source: "qrc:/ui/images/spinbox-arrow-down.png"

        onPressedChanged: root.hold(pressed, -1)
    }

    Timer {
        id: repetition

        repeat: true

        onTriggered: {
            interval = 60
            root.step(root.heldStep)
        }
    }

    WheelHandler {
        enabled: field.activeFocus
        onWheel: {
            root.wheelTurn += event.angleDelta.y
            const notches = Math.trunc(root.wheelTurn / 120)
            root.wheelTurn -= notches * 120
            if (notches !== 0)
                root.step(notches)
        }
    }
}
