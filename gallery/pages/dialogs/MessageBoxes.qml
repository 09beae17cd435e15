// Messages and questions.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Message boxes")
    summary: qsTr("A text, an icon, and buttons by role.")

    Flow {
        width: parent.width
        spacing: 8

        DialogOpener {
            dialog: doneBox
            objectName: "doneButton"
            text: qsTr("Done")
        }

        DialogOpener {
            dialog: warningBox
            text: qsTr("Warning")
        }

        DialogOpener {
            dialog: errorBox
            text: qsTr("Error")
        }

        DialogOpener {
            dialog: questionBox
            text: qsTr("Question")
        }
    }

    UiMessageBox {
        id: doneBox

        icon: Ui.MessageBoxOkIcon
        label: qsTr("Schedule published")
        text: qsTr("All twelve screens show the new schedule.")

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
    }

    UiMessageBox {
        id: warningBox

        icon: Ui.MessageBoxWarningIcon
        label: qsTr("Discard changes?")
        text: qsTr("The playlist has changes that were not saved. They are lost if you go on, on all screens that play it.")

        buttons: [
            UiDialogButton {
                role: UiDialogButton.CancelRole
            },
            UiDialogButton {
                role: UiDialogButton.AcceptRole
                text: qsTr("Discard")
            }
        ]

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
    }

    UiMessageBox {
        id: errorBox

        icon: Ui.MessageBoxErrorIcon
        label: qsTr("Screen not found")
        text: qsTr("The screen in the entrance hall does not answer.")

        buttons: UiDialogButton {
            role: UiDialogButton.CloseRole
        }

        onRejected: root.answered(this, qsTr("closed"))
    }

    UiMessageBox {
        id: questionBox

        label: qsTr("Repeat every week?")
        text: qsTr("Click outside to leave it as it is.")
        flags: UiDialog.RejectOnEscape | UiDialog.RejectOnClickOutside

        buttons: [
            UiDialogButton {
                action: UiDialogButton.RejectAction
                text: qsTr("Once")
            },
            UiDialogButton {
                role: UiDialogButton.OkRole
                text: qsTr("Every week")
            }
        ]

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
    }
}
