// Frames its parent while that has the active focus, unless a press of the pointer brought it there.
// A parent without "pressed" is one that is typed in, and always framed. Part of the kit's own controls.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0

Rectangle {
    id: root

    property Item control: parent

    readonly property bool focused: control.activeFocus

    property bool pointed: false
    property bool windowLeft: false

    anchors.fill: parent
    anchors.margins: -2
    border.color: UiColors.getColor(UiColors.FocusColor)
    border.width: 2
    color: "transparent"
    radius: 4
    visible: focused && !pointed

    // A window that is left takes the focus along and brings it back as it was.
    onFocusedChanged: {
        if (focused && !windowLeft)
            pointed = control.pressed === true
        windowLeft = !focused && !root.Window.active
    }
}
