// Chooses a colour: from palettes, by mixing, by its numbers, or from the window.
//
// color: the colour. bindable, indeterminate, mode, palettes, writablePalettes, hasCustomColor,
//     transparent, colorPickActive, updateColor(color), pickColor(): see UiColorPickerBase.
// updateRequested(newValue): what the user chose while bindable is true; the host writes color.
// palette: a list of colours that this picker offers before all palettes; a transparent one stands
//     for no colour. Empty by default. What is in it when the picker is completed decides
//     usesTransparent.
// usesAlpha: whether the opacity can be changed. True by default.
// editable: whether palettes that are not read-only can be changed here. True by default.
// usesEyedropper: whether a colour of the window can be picked. True by default.
// While indeterminate is true nothing is marked, and the fields are empty; the host takes it back.
// Keys: Tab goes from one part to the next; see ColorField and ColorBar for those of the mixer.
//     Escape ends picking from the window.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiColorPickerBase {
    id: root

    property var palette: []
    property bool usesAlpha: true
    property bool editable: true
    property bool usesEyedropper: true

    // As if the user had picked it: a colour whose own opacity does not count, and an opacity.
    function choose(solid, alpha) {
        const amount = Math.round(Math.max(0, Math.min(1, alpha)) * 255)
        updateColor("#" + ("0" + amount.toString(16)).slice(-2) + solid.toString().slice(-6))
    }

    implicitWidth: 313 // two swatches of the default palette in each row
    implicitHeight: body.height

    Accessible.role: Accessible.ColorChooser
    Accessible.name: qsTr("Colour")

    Column {
        id: body

        width: parent.width
        spacing: 12

        Item {
            width: parent.width
            height: 32

            ColorPreview {
                id: preview

                width: 56
                height: 32
                indeterminate: root.indeterminate
                objectName: "colorPreview"
                opacity: enabled ? 1 : 0.4
                value: root.color
            }

            ColorHexField {
                anchors.left: preview.right
                anchors.leftMargin: 8
                width: 96
                objectName: "hexField"
                picker: root
            }

            Row {
                anchors.right: parent.right

                UiToolButton {
                    down: root.colorPickActive
                    iconName: "eyedropper"
                    objectName: "eyedropperButton"
                    style: Ui.IconOnly
                    text: qsTr("Pick a colour from the window")
                    visible: root.usesEyedropper

                    onClicked: root.pickColor()
                }

                UiToolButton {
                    down: root.mode === UiColorPickerBase.Swatches
                    iconName: "color-swatches"
                    objectName: "swatchesButton"
                    style: Ui.IconOnly
                    text: qsTr("Palettes")

                    onClicked: root.mode = UiColorPickerBase.Swatches
                }

                UiToolButton {
                    down: root.mode === UiColorPickerBase.Mixer
                    iconName: "color-mixer"
                    objectName: "mixerButton"
                    style: Ui.IconOnly
                    text: qsTr("Mixer")

                    onClicked: root.mode = UiColorPickerBase.Mixer
                }
            }
        }

        Loader {
            width: parent.width
            sourceComponent: root.mode === UiColorPickerBase.Mixer ? mixer : swatches
        }
    }

    Component {
        id: mixer

        Column {
            spacing: 12

            ColorMixer {
                width: parent.width
                picker: root
            }

            ColorNumbers {
                width: parent.width
                picker: root
            }
        }
    }

    Component {
        id: swatches

        ColorSwatchList {
            picker: root
        }
    }
}
