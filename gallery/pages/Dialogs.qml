// Modal dialogs: messages, roles, sizes, parts of one's own, forms, and dialogs below other popups.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import QtQml 2.15
import "../parts"

Page {
    id: root

    readonly property int columns: contentWidth < 720 ? 1 : 2
    readonly property int cardWidth: Math.floor((contentWidth - 16 * (columns - 1)) / columns)

    property string answer: qsTr("The answer of a dialog is shown here.")

    function tell(dialog, text) {
        answer = qsTr("%1: %2").arg(dialog.label).arg(text)
    }

    title: qsTr("Dialogs")
    summary: qsTr("They keep all other input away until they are answered. Return takes the first primary button, Escape cancels.")

    footer: StatusLine {
        text: root.answer
    }

    Card {
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
                width: Math.max(80, Math.floor((root.contentWidth - 112) / 9))
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

                onClicked: root.tell(roleDialog, qsTr("clicked"))
            }

            onAccepted: root.tell(this, qsTr("accepted"))
            onRejected: root.tell(this, qsTr("rejected"))
            onPreviousPage: root.tell(this, qsTr("back"))
            onNextPage: root.tell(this, qsTr("next"))
        }
    }

    Grid {
        columns: root.columns
        spacing: 16

        Card {
            width: root.cardWidth
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

                onAccepted: root.tell(this, qsTr("accepted"))
                onRejected: root.tell(this, qsTr("rejected"))
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

                onAccepted: root.tell(this, qsTr("accepted"))
                onRejected: root.tell(this, qsTr("rejected"))
            }

            UiMessageBox {
                id: errorBox

                icon: Ui.MessageBoxErrorIcon
                label: qsTr("Screen not found")
                text: qsTr("The screen in the entrance hall does not answer.")

                buttons: UiDialogButton {
                    role: UiDialogButton.CloseRole
                }

                onRejected: root.tell(this, qsTr("closed"))
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

                onAccepted: root.tell(this, qsTr("accepted"))
                onRejected: root.tell(this, qsTr("rejected"))
            }
        }

        Card {
            width: root.cardWidth
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
            }

            BoardDialog {
                id: fixedSized

                width: 480
                height: 320
                label: qsTr("480 x 320")
            }

            BoardDialog {
                id: windowSized

                autoSize: true
                autoSizeMargins: Qt.point(64, 48)
                instructionText: qsTr("64 pixels remain at the sides, 48 above and below, whatever the size of the window.")
                label: qsTr("Window")
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

                onAccepted: root.tell(this, qsTr("accepted"))
                onRejected: root.tell(this, qsTr("rejected"))
            }
        }

        Card {
            width: root.cardWidth
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

                onAccepted: root.tell(this, result)
                onRejected: root.tell(this, qsTr("rejected"))
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

                        onClicked: {
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

                onAccepted: root.tell(this, qsTr("accepted"))
                onContentChanged: if (!content) { upload.stop(); busy = false }
                onRejected: root.tell(this, qsTr("rejected"))
            }

            Timer {
                id: upload

                interval: 2000

                onTriggered: uploadDialog.accept(true)
            }
        }

        Card {
            width: root.cardWidth
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
                        enabled: formDialog.content ? formDialog.content.complete : false
                        role: UiDialogButton.DoneRole
                    }
                ]
                contentDelegate: Component {
                    ScreenForm {}
                }

                onAccepted: {
                    saved = result
                    root.tell(this, result)
                }
                onRejected: root.tell(this, qsTr("rejected"))
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

        Card {
            width: root.cardWidth
            title: qsTr("Wizard")
            summary: qsTr("Back and next leave the dialog open; the last page has another button.")

            DialogOpener {
                dialog: wizard
                text: qsTr("Set up a screen")
            }

            UiDialog {
                id: wizard

                property int page: 0

                readonly property var pages: [
                    qsTr("Connect the screen to power and wait for the green light."),
                    qsTr("Enter the number that the screen shows into the list of screens."),
                    qsTr("The screen is ready. It shows the schedule in a minute.")
                ]

                width: 400
                instructionText: qsTr("Step %1 of %2").arg(page + 1).arg(pages.length)
                label: qsTr("Set up a screen")

                buttons: [
                    UiDialogButton {
                        role: UiDialogButton.BackRole
                        style: Ui.SecondaryPushButtonStyle
                        visible: wizard.page > 0
                    },
                    UiDialogButton {
                        role: UiDialogButton.ForwardRole
                        visible: wizard.page < wizard.pages.length - 1
                    },
                    UiDialogButton {
                        role: UiDialogButton.DoneRole
                        visible: wizard.page === wizard.pages.length - 1
                    }
                ]
                contentDelegate: Component {
                    DialogText {
                        implicitHeight: 112
                        text: wizard.pages[wizard.page]
                    }
                }

                onAccepted: root.tell(this, qsTr("done"))
                onNextPage: ++page
                onOpened: page = 0
                onPreviousPage: --page
                onRejected: root.tell(this, qsTr("left at step %1").arg(page + 1))
            }
        }

        Card {
            width: root.cardWidth
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
                                UiMenuItem {
                                    text: qsTr("Duplicate")

                                    onTriggered: root.tell(lowerDialog, text)
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
                                width: 226
                                currentIndex: 0
                                model: [qsTr("Never"), qsTr("Every day"), qsTr("Every week"), qsTr("Every month"),
                                        qsTr("Every year")]
                            }

                            DialogOpener {
                                dialog: upperDialog
                                text: qsTr("Second dialog")
                            }
                        }
                    }
                }

                onRejected: root.tell(this, qsTr("closed"))
            }

            UiMessageBox {
                id: upperDialog

                icon: Ui.MessageBoxOkIcon
                label: qsTr("Second dialog")
                text: qsTr("The first one waits until this one is answered.")

                onAccepted: root.tell(this, qsTr("accepted"))
                onRejected: root.tell(this, qsTr("rejected"))
            }
        }
    }
}
