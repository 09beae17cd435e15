// The title of a dialog and, below it, a line that says what to do.
import QtQuick 2.5
import tamber.Ui 1.0

Rectangle {
    id: dialogHeader

    property UiDialog dialog

    implicitWidth: headerContent.implicitWidth + 30
    implicitHeight: headerContent.implicitHeight + 26
    color: UiColors.getColor(UiColors.HeaderGrey4)

    // Not a Column: that arranges its children a frame later, and the header's height has to be right
    // when the dialog opens. A long title widens the dialog to a point, the line below it wraps.
    Item {
        id: headerContent

        anchors.left: dialogHeader.left
        anchors.leftMargin: 15
        anchors.right: dialogHeader.right
        anchors.rightMargin: 15
        y: 13
        implicitWidth: Math.min(titleLabel.implicitWidth, 470)
        implicitHeight: titleLabel.implicitHeight + (instructionLabel.visible ? 4 + instructionLabel.implicitHeight : 0)

        Text {
            id: titleLabel

            anchors.left: headerContent.left
            anchors.right: headerContent.right
            color: UiColors.getColor(UiColors.DialogHeaderText)
            elide: Text.ElideRight
            font: UiFonts.getFont(UiFonts.Light, 18)
            text: dialogHeader.dialog.label
        }

        Text {
            id: instructionLabel

            anchors.left: headerContent.left
            anchors.right: headerContent.right
            anchors.top: titleLabel.bottom
            anchors.topMargin: 4
            color: UiColors.getColor(UiColors.DialogHeaderText)
            font: UiFonts.getFont(UiFonts.Light, 14)
            text: dialogHeader.dialog.instructionText
            visible: text !== ""
            wrapMode: Text.WordWrap
        }
    }
}
