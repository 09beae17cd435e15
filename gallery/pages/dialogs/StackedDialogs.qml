// A dialog above a dialog, and what opens above both.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Above each other")
    summary: qsTr("A dialog above a dialog, a menu and a popup above both.")

    DialogOpener {
        dialog: lowerDialog
        text: qsTr("Open the first")
    }

    UiDialog {
        id: lowerDialog

        label: qsTr("First dialog")

        buttons: UiDialogButton {
            role: UiDialogButton.CloseRole
        }
        contentDelegate: Component {
            Item {
                property UiDialog dialog

                implicitWidth: 432
                implicitHeight: 144

                Rectangle {
                    x: 15
                    y: 24
                    width: 402
                    height: 40
                    color: UiColors.getColor(UiColors.HeaderGrey4)
                    radius: 3

                    UiText {
                        anchors.centerIn: parent
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        text: qsTr("A right click here opens a menu")
                    }

                    UiContextMenu {
                        itemStyle: UiContextMenu.OnlyText

                        UiMenuItem {
                            text: qsTr("Duplicate")

                            onTriggered: root.answered(lowerDialog, text)
                        }

                        UiMenuSeparator {}

                        UiMenuItem {
                            text: qsTr("Second dialog")

                            onTriggered: upperDialog.show()
                        }
                    }
                }

                Row {
                    x: 15
                    y: 88
                    spacing: 8

                    UiComboBox {
                        width: 402 - parent.spacing - opener.width
                        currentIndex: 0
                        model: [qsTr("Never"), qsTr("Every day"), qsTr("Every week"), qsTr("Every month"),
                                qsTr("Every year")]
                    }

                    DialogOpener {
                        id: opener

                        dialog: upperDialog
                        text: qsTr("Second dialog")
                    }
                }
            }
        }

        onRejected: root.answered(this, qsTr("closed"))
    }

    UiMessageBox {
        id: upperDialog

        icon: Ui.MessageBoxOkIcon
        label: qsTr("Second dialog")
        text: qsTr("The first one waits until this one is answered.")

        onAccepted: root.answered(this, qsTr("accepted"))
        onRejected: root.answered(this, qsTr("rejected"))
    }
}
