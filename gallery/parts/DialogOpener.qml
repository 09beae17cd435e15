// A button that opens a dialog.
//
// dialog: the dialog.
import QtQuick 2.15
import tamber.Ui 1.0

UiPushButton {
    property UiDialog dialog: null

    style: Ui.SecondaryPushButtonStyle

    onClicked: {
        forceActiveFocus() // where it comes back to
        dialog.show()
    }
}
