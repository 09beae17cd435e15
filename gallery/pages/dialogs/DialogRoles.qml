// One button for each role, and a dialog that has a button of that role.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Roles")
    summary: qsTr("A role brings a caption, a style and an action.")

    Flow {
        width: parent.width
        spacing: 8

        Repeater {
            model: [
                UiDialogButton.OkRole,
                UiDialogButton.ApplyRole,
                UiDialogButton.AcceptRole,
                UiDialogButton.DoneRole,
                UiDialogButton.CancelRole,
                UiDialogButton.RevertRole,
                UiDialogButton.CloseRole,
                UiDialogButton.BackRole,
                UiDialogButton.ForwardRole
            ]

            UiPushButton {
                width: Math.max(80, Math.floor((root.bodyWidth - 8 * 8) / 9))
                style: probe.effectiveStyle
                text: probe.text

                onClicked: {
                    roleButton.role = modelData
                    roleButton.text = modelData === UiDialogButton.ApplyRole ? qsTr("Apply") : ""
                    roleDialog.show()
                }

                UiDialogButton {
                    id: probe

                    role: modelData
                    text: modelData === UiDialogButton.ApplyRole ? qsTr("Apply") : ""
                }
            }
        }
    }

    UiMessageBox {
        id: roleDialog

        label: qsTr("Role")
        text: qsTr("Back, next and revert leave the dialog open. Escape closes it.")

        buttons: UiDialogButton {
            id: roleButton

            onClicked: root.answered(roleDialog, qsTr("clicked"))
        }

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
        onPreviousPage: root.answered(this, qsTr("back"))
        onNextPage: root.answered(this, qsTr("next"))
    }
}
