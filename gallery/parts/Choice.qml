// A combo box with a caption above it.
//
// caption: the text.
// model, currentIndex, currentText: as those of the combo box.
import QtQuick 2.15
import tamber.Ui 1.0

Column {
    id: root

    property string caption: ""
    property alias model: box.model
    property alias currentIndex: box.currentIndex
    property alias boxName: box.objectName

    readonly property alias currentText: box.currentText

    spacing: 4

    UiText {
        color: UiColors.getColor(UiColors.MediumGrey45)
        font: UiFonts.getFont(UiFonts.Regular, 12)
        text: root.caption
    }

    UiComboBox {
        id: box

        width: root.width
    }
}
