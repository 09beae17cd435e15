// The palettes of a UiColorPicker below each other. Part of the kit's own controls.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import "qrc:/ui/components"

Column {
    id: root

    property Item picker

    spacing: 12

    // The picker's own colours.
    Flow {
        width: parent.width
        opacity: root.enabled ? 1 : 0.4
        visible: own.count > 0

        Repeater {
            id: own

            model: root.picker.palette

            UiColorPatch {
                id: patch

                color: modelData
                colorPicker: root.picker

                Image {
                    source: "qrc:/ui/images/color-transparent.png"
                    visible: patch.color.a < 0.01
                    z: -1
                }
            }
        }
    }

    Repeater {
        model: root.picker.palettes

        Column {
            id: entry

            readonly property var palette: modelData

            // The patch of the picker's colour.
            readonly property Item chosen: {
                for (let i = 0; i < patches.children.length; ++i) {
                    if (patches.children[i].selected && !root.picker.indeterminate)
                        return patches.children[i]
                }
                return null
            }

            width: root.width
            spacing: 4

            Item {
                width: parent.width
                height: buttons.active ? 32 : 20
                visible: entry.palette.name !== "" || buttons.active

                UiText {
                    width: parent.width - (buttons.active ? buttons.width + 8 : 0)
                    height: parent.height
                    color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                    elide: Text.ElideRight
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: entry.palette.name
                }

                Loader {
                    id: buttons

                    anchors.right: parent.right
                    active: root.picker.editable && !entry.palette.readOnly

                    sourceComponent: Row {
                        UiToolButton {
                            enabled: !root.picker.indeterminate && !entry.chosen
                            iconName: "add"
                            objectName: "addColorButton"
                            style: Ui.IconOnly
                            text: qsTr("Add the colour")

                            onClicked: entry.palette.insertColor(root.picker.color)
                        }

                        UiToolButton {
                            enabled: entry.chosen !== null
                            iconName: "remove"
                            objectName: "removeColorButton"
                            style: Ui.IconOnly
                            text: qsTr("Remove the colour")

                            onClicked: entry.palette.removeColor(entry.chosen.colorIndex, entry.chosen.swatchIndex)
                        }
                    }
                }
            }

            UiPaletteItem {
                id: patches

                width: parent.width
                colorPicker: root.picker
                opacity: enabled ? 1 : 0.4
                palette: entry.palette
            }

            // The place of the first colour.
            UiBorder {
                width: 22
                height: 22
                color: UiColors.getColor(UiColors.MediumLightGrey27)
                visible: patches.children.length === 0
            }
        }
    }
}
