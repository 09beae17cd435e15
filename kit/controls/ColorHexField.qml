// The colour of a UiColorPicker as it is written in HTML. Part of the kit's own controls.
//
// Takes three, six or eight digits, with or without #; eight begin with the opacity, as QML has it.
import QtQuick 2.15
import tamber.Ui 1.0

UiLineEdit {
    id: root

    property Item picker

    readonly property var pattern: /^\s*#?([0-9a-f]{3}|[0-9a-f]{6}|[0-9a-f]{8})\s*$/i

    function enter(entry) {
        const match = pattern.exec(entry)
        if (!match || entry === text)
            return
        let digits = match[1]
        if (digits.length === 3)
            digits = digits.replace(/./g, "$&$&")
        const alpha = digits.length === 8 && picker.usesAlpha ? parseInt(digits.slice(0, 2), 16) / 255
                    : picker.indeterminate ? 1
                    : picker.color.a
        picker.choose(digits, alpha)
    }

    accessibleName: qsTr("Colour in hexadecimal digits")
    bindable: true
    error: typedText !== "" && !pattern.test(typedText)
    maximumLength: 16
    placeHolderText: "#"
    text: picker.indeterminate ? "" : "#" + picker.color.toString().slice(-6).toUpperCase()

    onUpdateRequested: enter(newValue)
}
