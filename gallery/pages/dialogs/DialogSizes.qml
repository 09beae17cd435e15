// Dialogs of each way to get a size.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Size")
    summary: qsTr("The content's, a fixed one, or the window's less margins.")

    Flow {
        width: parent.width
        spacing: 8

        DialogOpener {
            dialog: contentSized
            text: qsTr("Content")
        }

        DialogOpener {
            dialog: fixedSized
            text: qsTr("Fixed")
        }

        DialogOpener {
            dialog: windowSized
            text: qsTr("Window")
        }

        DialogOpener {
            dialog: longDialog
            text: qsTr("Scrolls")
        }
    }

    BoardDialog {
        id: contentSized

        label: qsTr("Content")

        onRejected: root.answered(this, qsTr("closed"))
    }

    BoardDialog {
        id: fixedSized

        width: 480
        height: 320
        label: qsTr("480 \u00d7 320")

        onRejected: root.answered(this, qsTr("closed"))
    }

    BoardDialog {
        id: windowSized

        autoSize: true
        autoSizeMargins: Qt.point(64, 48)
        instructionText: qsTr("64 pixels remain at the sides, 48 above and below, whatever the size of the window.")
        label: qsTr("Window")

        onRejected: root.answered(this, qsTr("closed"))
    }

    UiDialog {
        id: longDialog

        width: 480
        height: 400
        label: qsTr("Terms")

        buttons: [
            UiDialogButton {
                role: UiDialogButton.CancelRole
            },
            UiDialogButton {
                role: UiDialogButton.AcceptRole
            }
        ]
        contentDelegate: Component {
            LongText {}
        }

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
    }
}
