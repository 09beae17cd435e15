// The buttons of a dialog, what tells that it is busy, and controls of the dialog's own beside them.
// Keys: Left and Right go from button to button.
import QtQuick 2.5
import tamber.Ui 1.0

Rectangle {
    id: dialogFooter

    property UiDialog dialog
    property bool separatorLine: true

    function buttonIndex(btn) {
        for (let index = 0; index < dialog.buttons.length; ++index) {
            if (dialog.buttons[index] === btn)
                return index
        }
        return -1
    }

    // The button that has the focus, else the default one.
    function focusButton() {
        for (let index = 0; index < repeater.count; ++index) {
            const item = repeater.itemAt(index)
            if (item && item.activeFocus)
                return index
        }
        return dialog.defaultButton ? buttonIndex(dialog.defaultButton) : -1
    }

    function focusIndex(index) {
        const item = repeater.itemAt(index)
        if (item)
            item.forceActiveFocus()
    }

    anchors.left: parent.left
    anchors.right: parent.right
    implicitWidth: extra.implicitWidth + controls.implicitWidth + 24 // no button is cut off
    implicitHeight: 48

    Component.onCompleted: {
        const index = dialog.defaultButton ? buttonIndex(dialog.defaultButton) : -1
        if (index >= 0)
            focusIndex(index)
    }

    Keys.onLeftPressed: {
        const index = focusButton()
        if (index >= 0)
            focusIndex(index > 0 ? index - 1 : repeater.count - 1)
    }
    Keys.onRightPressed: {
        const index = focusButton()
        if (index >= 0)
            focusIndex((index + 1) % repeater.count)
    }

    UiHorizontalSeparator {
        anchors.left: dialogFooter.left
        anchors.leftMargin: 7
        anchors.right: dialogFooter.right
        anchors.rightMargin: 7
        anchors.top: dialogFooter.top
        visible: dialogFooter.separatorLine
    }

    Loader {
        id: extra

        anchors.left: dialogFooter.left
        anchors.leftMargin: 8
        anchors.right: controls.left
        anchors.rightMargin: 8
        anchors.verticalCenter: dialogFooter.verticalCenter
        sourceComponent: dialogFooter.dialog.footerControls
    }

    Row {
        id: controls

        anchors.right: dialogFooter.right
        anchors.rightMargin: 8
        anchors.verticalCenter: dialogFooter.verticalCenter
        spacing: 4

        UiLoadIndicator {
            anchors.verticalCenter: controls.verticalCenter
            implicitWidth: 30
            implicitHeight: 30
            loading: dialogFooter.dialog.busy
        }

        Item {
            width: 4
            height: 1
        }

        Repeater {
            id: repeater

            model: dialogFooter.dialog.buttons.length

            UiPushButton {
                function button() {
                    return dialogFooter.dialog.buttons[index] || none
                }

                enabled: button().enabled
                // The style of the role is not told when the role changes.
                style: (button().role, button().effectiveStyle)
                text: button().text
                visible: button().visible

                onClicked: dialogFooter.dialog.trigger(button())
                // As Qt does where it is disabled: nobody would know what the keys are for.
                onVisibleChanged: if (!button().visible) focus = false
            }
        }
    }

    // Stands for a button that was destroyed, which keeps its place in the list.
    UiDialogButton {
        id: none

        enabled: false
        visible: false
    }
}
