// Pages with a way back and forward.
//
// answered(): what came of one of its dialogs, in words.
import QtQuick 2.15
import tamber.Ui 1.0
import "../../parts"

Card {
    id: root

    signal answered(UiDialog dialog, string text)

    title: qsTr("Wizard")
    summary: qsTr("Back and next leave the dialog open; the last page has another button.")

    DialogOpener {
        dialog: wizard
        objectName: "openWizardButton"
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
                // Return takes the first primary button, seen or not.
                style: visible ? Ui.AutomaticPushButtonStyle : Ui.SecondaryPushButtonStyle
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
                textName: "wizardPage" + (wizard.page + 1)
            }
        }

        onAccepted: root.answered(this, qsTr("done"))
        onNextPage: ++page
        onOpened: page = 0
        onPreviousPage: --page
        onRejected: root.answered(this, qsTr("left at step %1").arg(page + 1))
    }
}
