// A dialog that shows how large its content is.
import QtQuick 2.15
import tamber.Ui 1.0

UiDialog {
    id: root

    buttons: UiDialogButton {
        role: UiDialogButton.CloseRole
    }
    contentDelegate: Component {
        Item {
            id: area

            property UiDialog dialog

            implicitWidth: 320
            implicitHeight: 120

            UiBorder {
                anchors.fill: parent
                anchors.margins: 16
                color: UiColors.getColor(UiColors.MediumLightGrey27)
                style: UiBorder.Dashed
            }

            UiText {
                anchors.centerIn: parent
                color: UiColors.getColor(UiColors.MediumGrey45)
                text: qsTr("%1 \u00d7 %2").arg(area.width).arg(area.height)
            }
        }
    }
}
