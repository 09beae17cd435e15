// Modal dialogs: messages, roles, sizes, parts of one's own, forms, and dialogs below other popups.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"
import "dialogs"

Page {
    id: root

    readonly property int columns: contentWidth < 720 ? 1 : 2
    readonly property int cardWidth: Math.floor((contentWidth - 16 * (columns - 1)) / columns)

    property string answer: qsTr("The answer of a dialog is shown here.")

    function tell(dialog, text) {
        answer = qsTr("%1 \u2013 %2").arg(dialog.label).arg(text)
    }

    title: qsTr("Dialogs")
    summary: qsTr("They keep all other input away until they are answered. Return takes the first primary button, Escape cancels.")

    footer: StatusLine {
        text: root.answer
    }

    DialogRoles {
        onAnswered: root.tell(dialog, text)
    }

    Grid {
        columns: root.columns
        spacing: 16

        MessageBoxes {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }

        DialogSizes {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }

        DialogParts {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }

        DialogForm {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }

        DialogWizard {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }

        StackedDialogs {
            width: root.cardWidth

            onAnswered: root.tell(dialog, text)
        }
    }
}
