// A header and a footer of one's own, and controls in the default footer.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Header and footer")
    summary: qsTr("Of one's own, or the default footer with controls beside its buttons.")

    Flow {
        width: parent.width
        spacing: 8

        DialogOpener {
            dialog: ownParts
            text: qsTr("Own parts")
        }

        DialogOpener {
            dialog: uploadDialog
            text: qsTr("Controls, busy")
        }
    }

    UiDialog {
        id: ownParts

        label: qsTr("Own parts")

        contentDelegate: Component {
            DialogText {
                text: qsTr("The header and the footer of this dialog are components of the page.")
            }
        }
        footerDelegate: Component {
            Item {
                property UiDialog dialog

                implicitHeight: 64

                UiPushButton {
                    anchors.centerIn: parent
                    focus: true // Return is for listed buttons, of which there are none
                    objectName: "ownPartsButton"
                    style: Ui.PrimaryPushButtonStyle
                    text: qsTr("Fine")

                    onClicked: parent.dialog.accept("fine")
                }
            }
        }
        headerDelegate: Component {
            Rectangle {
                property UiDialog dialog

                implicitHeight: 56
                color: UiColors.getColor(UiColors.DarkerBlueGrey)

                UiText {
                    anchors.centerIn: parent
                    color: UiColors.getColor(UiColors.White)
                    font: UiFonts.getFont(UiFonts.Regular, 18)
                    text: parent.dialog.label
                }
            }
        }

        onAccepted: root.answered(this, result)
        onRejected: root.answered(this, qsTr("rejected"))
    }

    UiDialog {
        id: uploadDialog

        label: qsTr("Upload")

        buttons: [
            UiDialogButton {
                role: UiDialogButton.CancelRole
            },
            UiDialogButton {
                enabled: !uploadDialog.busy
                role: UiDialogButton.NoRole
                style: Ui.PrimaryPushButtonStyle
                text: qsTr("Upload")

                // Return takes a primary button that is disabled as well.
                onClicked: {
                    if (uploadDialog.busy)
                        return
                    uploadDialog.busy = true
                    upload.start()
                }
            }
        ]
        contentDelegate: Component {
            DialogText {
                text: qsTr("The footer shows that work is going on, and this dialog closes when it is done.")
            }
        }
        footerControls: Component {
            UiCheckBox {
                checked: true
                text: qsTr("Replace files")
            }
        }

        onAccepted: root.answered(this, qsTr("accepted"))
        onContentChanged: if (!content) { upload.stop(); busy = false }
        onRejected: root.answered(this, qsTr("rejected"))
    }

    Timer {
        id: upload

        interval: 2000

        onTriggered: uploadDialog.accept(true)
    }
}
