// The form for a new screen: a name, a place, a mark.
//
// complete: whether there is a name. summary: what was filled in.
import QtQuick 2.15
import tamber.Ui 1.0

FocusScope {
    property UiDialog dialog

    readonly property bool complete: nameField.typedText !== ""
    readonly property string summary: qsTr("%1, %2%3").arg(nameField.typedText).arg(placeBox.currentText)
                                      .arg(nightBox.checked ? qsTr(", off at night") : "")

    implicitWidth: 400
    implicitHeight: form.height + 48
    focus: true

    Column {
        id: form

        x: 15
        y: 24
        width: parent.width - 30
        spacing: 12

        Column {
            width: parent.width
            spacing: 4

            UiText {
                color: UiColors.getColor(UiColors.MediumGrey45)
                font: UiFonts.getFont(UiFonts.Regular, 12)
                text: qsTr("Name")
            }

            UiLineEdit {
                id: nameField

                width: parent.width
                focus: true
                objectName: "formName"

                // It keeps the key for itself otherwise, and gives the focus away.
                onReturnPressed: {
                    if (complete)
                        dialog.accept(dialog.result)
                    else
                        forceActiveFocus()
                }
            }
        }

        Choice {
            id: placeBox

            width: parent.width
            boxName: "formPlace"
            caption: qsTr("Place")
            currentIndex: 0
            model: [qsTr("Entrance"), qsTr("Canteen"), qsTr("Meeting room")]
        }

        UiCheckBox {
            id: nightBox

            width: parent.width
            objectName: "formNight"
            text: qsTr("Off at night")
        }
    }
}
