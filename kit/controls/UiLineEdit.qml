// A line of text to edit.
//
// text: what was committed. The user commits by leaving the field.
// placeHolderText: shown while nothing is typed.
// typedText: what the field shows, committed or not.
// validator, inputMask, maximumLength, echoMode, readOnly, inputMethodHints, horizontalAlignment: see
//     TextInput.
// error: marks the field as wrong. False by default.
// invalid: whether it is marked, for that reason or because the validator does not accept what is
//     typed. An empty field is not marked by the validator.
// accessibleName: what the field is about, for assistive tools, which see the text input in it and so
//     what is typed. The placeholder by default.
// leftInset, rightInset: room for what a control puts beside the text. 0 by default.
// bindable, empty, hovered, textInput, selectAll(), editText(), updateRequested(newValue),
//     editingFinished(), returnPressed(): see UiLineEditBase.
// Keys: Return and Enter end the edit, Escape goes back to what was committed.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiLineEditBase {
    id: root

    property string accessibleName: placeHolderText
    property alias echoMode: input.echoMode
    property bool error: false
    property alias horizontalAlignment: input.horizontalAlignment
    property alias inputMask: input.inputMask
    property alias inputMethodHints: input.inputMethodHints
    property int leftInset: 0
    property alias maximumLength: input.maximumLength
    property alias readOnly: input.readOnly
    property int rightInset: 0
    property alias validator: input.validator

    readonly property alias typedText: input.text
    readonly property bool invalid: error || (input.length > 0 && !input.acceptableInput)

    implicitWidth: 200
    implicitHeight: 32
    textInput: input

    // The text may have come before the item that shows it.
    onTextInputChanged: if (textInput === input) input.text = text

    Rectangle {
        width: root.width
        height: root.height
        border.color: UiColors.getColor(!root.enabled ? UiColors.DisabledLightGrey13
                                       : root.invalid ? UiColors.WarningRed
                                       : root.hovered ? UiColors.DarkBlueGrey
                                       : UiColors.MediumLightGrey27)
        border.width: 1
        color: UiColors.getColor(root.enabled && !root.readOnly ? UiColors.White : UiColors.HeaderGrey4)
        radius: 3
    }

    // Most fields have none.
    UiLoader {
        x: input.x
        width: input.width
        height: root.height
        sourceComponent: root.placeHolderText === "" ? null : placeHolder

        Component {
            id: placeHolder

            Text {
                color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                elide: Text.ElideRight
                font: input.font
                horizontalAlignment: input.effectiveHorizontalAlignment
                leftPadding: input.leftPadding
                rightPadding: input.rightPadding
                text: root.placeHolderText
                textFormat: Text.PlainText
                verticalAlignment: Text.AlignVCenter
                visible: input.displayText === ""
            }
        }
    }

    TextInput {
        id: input

        x: 4 + root.leftInset
        y: 1
        width: root.width - 8 - root.leftInset - root.rightInset
        height: root.height - 2
        activeFocusOnTab: true
        clip: true
        color: UiColors.getColor(root.enabled ? UiColors.DarkGrey80 : UiColors.MediumGrey33)
        font: UiFonts.getFont(UiFonts.Regular, 14)
        leftPadding: 8 // a press there is one on the text
        maximumLength: 0x7fffffff // the text is the host's, and none of it is cut off
        rightPadding: 8
        selectByMouse: true
        selectedTextColor: UiColors.getColor(UiColors.Black)
        selectionColor: UiColors.getColor(UiColors.SelectionGreen)
        verticalAlignment: TextInput.AlignVCenter

        Accessible.role: Accessible.EditableText
        Accessible.name: root.accessibleName
        Accessible.readOnly: readOnly

        // A long text that the host writes is seen from its beginning.
        onTextChanged: if (!activeFocus) cursorPosition = 0
    }

    // What is typed in is framed whatever brought the focus, which is all that a FocusFrame is for.
    Rectangle {
        x: -2
        y: -2
        width: root.width + 4
        height: root.height + 4
        border.color: UiColors.getColor(UiColors.FocusColor)
        border.width: 2
        color: "transparent"
        radius: 4
        visible: input.activeFocus
    }
}
