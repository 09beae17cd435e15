// A form that is filled in with the keyboard alone.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import QtQml 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Form")
    summary: qsTr("Filled in with the keyboard alone: Tab, letters, Space, Return.")

    Row {
        spacing: 16

        DialogOpener {
            dialog: formDialog
            objectName: "openFormButton"
            text: qsTr("New screen")
        }

        UiText {
            height: 32
            objectName: "saved" + text.replace(/\W/g, "")
            text: formDialog.saved
            visible: text !== ""
        }
    }

    UiDialog {
        id: formDialog

        property string saved: ""

        instructionText: qsTr("It appears in the list of screens at once.")
        label: qsTr("New screen")

        buttons: [
            UiDialogButton {
                role: UiDialogButton.CancelRole
            },
            UiDialogButton {
                // Return takes a primary button that is disabled as well.
                action: enabled ? UiDialogButton.AutomaticAction : UiDialogButton.NoAction
                enabled: formDialog.content ? formDialog.content.complete : false
                role: UiDialogButton.DoneRole
            }
        ]
        contentDelegate: Component {
            ScreenForm {}
        }

        onAccepted: {
            saved = result
            root.answered(this, result)
        }
        onRejected: root.answered(this, qsTr("rejected"))
    }

    // What Return and the button accept.
    Binding {
        property: "result"
        restoreMode: Binding.RestoreNone
        target: formDialog
        value: formDialog.content ? formDialog.content.summary : ""
        when: formDialog.content
    }
}
