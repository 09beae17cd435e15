// A text as the content of a dialog.
//
// textName: the text's object name; the content's own is the dialog's.
import QtQuick 2.15
import tamber.Ui 1.0

Item {
    property UiDialog dialog
    property alias text: label.text
    property alias textName: label.objectName

    implicitWidth: 384
    implicitHeight: label.height + 48

    UiText {
        id: label

        x: 15
        y: 24
        width: parent.width - 30
        lineHeight: 1.2
        wrapMode: Text.Wrap
    }
}
