// The ground of a field that drops something down, in the colours of the field's state. Part of the
// kit's own controls.
import QtQuick 2.15
import tamber.Ui 1.0

Rectangle {
    property Item field: parent

    anchors.fill: parent
    border.color: UiColors.getColor(!field.enabled ? UiColors.DisabledLightGrey13
                                   : field.hovered || field.pressed || field.down ? UiColors.DarkBlueGrey
                                   : UiColors.MediumLightGrey27)
    border.width: 1
    color: UiColors.getColor(!field.enabled || field.pressed || field.down ? UiColors.HeaderGrey4
                            : field.hovered ? UiColors.TimeTableHover
                            : UiColors.White)
    radius: 3
}
