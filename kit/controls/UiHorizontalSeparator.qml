// A line across, one logical pixel high; as wide as it is told.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    implicitWidth: 100
    implicitHeight: 1
    color: UiColors.getColor(UiColors.SeparatorLineGrey17)

    Accessible.role: Accessible.Separator
}
