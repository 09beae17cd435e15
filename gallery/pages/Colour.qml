// Pickers, the buttons that open them, and the eyedropper over a picture.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import Gallery 1.0
import "../parts"

Page {
    id: root

    property string activity: ""

    // What the host of the second picker has agreed to.
    property color agreed: UiColors.getColor(UiColors.HoverGreen)

    readonly property int columnWidth: Math.floor((contentWidth - 48 - 48) / 2)

    function nameOf(color) {
        const alpha = Math.round(color.a * 100)
        return "#" + color.toString().slice(-6).toUpperCase() + (alpha < 100 ? qsTr(" at %1 %").arg(alpha) : "")
    }

    title: qsTr("Colour")
    summary: qsTr("A picker offers the palettes of all providers. The second palette is this application's own: it can be edited, and is kept from one run to the next.")

    footer: StatusLine {
        objectName: "colourStatus"
        text: root.activity
    }

    Card {
        title: qsTr("Colour picker")
        summary: qsTr("The first one keeps what is chosen. The second one is bindable: it asks, and its host makes every colour a light one.")

        Grid {
            columnSpacing: 48
            columns: root.columnWidth < 313 ? 1 : 2
            rowSpacing: 40

            Item {
                width: root.columnWidth
                height: ownPicker.height

                UiColorPicker {
                    id: ownPicker

                    objectName: "ownPicker"

                    onColorChanged: root.activity = qsTr("The picker has %1%2").arg(root.nameOf(color)).arg(hasCustomColor ? qsTr(", a colour of no palette") : "")

                    Component.onCompleted: {
                        updateColor(UiColors.getColor(UiColors.DarkerBlueGrey))
                        root.activity = qsTr("Choose a colour: from a palette, by mixing, by its numbers, or from this window.")
                    }
                }
            }

            Item {
                width: root.columnWidth
                height: hostPicker.height

                UiColorPicker {
                    id: hostPicker

                    bindable: true
                    color: root.agreed
                    mode: UiColorPicker.Mixer
                    objectName: "hostPicker"
                    usesAlpha: false

                    onUpdateRequested: {
                        root.agreed = Qt.hsla(Math.max(0, newValue.hslHue), newValue.hslSaturation, Math.max(0.6, newValue.hslLightness), 1)
                        root.activity = qsTr("The host was asked for %1 and wrote %2").arg(root.nameOf(newValue)).arg(root.nameOf(root.agreed))
                    }
                }
            }
        }
    }

    Card {
        title: qsTr("Eyedropper")
        summary: qsTr("Press the button, then the picture. Escape leaves everything as it was.")

        Row {
            spacing: 16

            UiPushButton {
                down: dropper.colorPickActive
                objectName: "dropperButton"
                text: dropper.colorPickActive ? qsTr("Press the picture") : qsTr("Pick a colour")
                width: 152

                onClicked: dropper.pickColor()
            }

            Rectangle {
                width: 56
                height: 32
                border.color: UiColors.getColor(UiColors.Black, 0.2)
                border.width: 1
                color: dropper.color
            }

            UiText {
                width: 80
                height: 32
                text: root.nameOf(dropper.color)
            }

            UiPushButton {
                enabled: dropper.hasCustomColor
                objectName: "keepButton"
                style: Ui.SecondaryPushButtonStyle
                text: qsTr("Add to my colours")

                onClicked: dropper.writablePalettes[0].insertColor(dropper.color)
            }
        }

        Row {
            spacing: 16

            Repeater {
                model: Pictures.wall.slice(0, 3)

                UiThumbnail {
                    width: Math.floor((root.contentWidth - 48 - 32) / 3)
                    height: Math.round(width * 2 / 3)
                    objectName: "dropperPicture" + index
                    source: modelData
                }
            }
        }

        UiColorPickerBase {
            id: dropper

            color: UiColors.getColor(UiColors.BlueGrey)
            objectName: "dropper"

            onColorPickActiveChanged: root.activity = colorPickActive ? qsTr("Picking: the circle shows the colour under the pointer.")
                                                                      : qsTr("The eyedropper has %1").arg(root.nameOf(color))
        }
    }

    Card {
        title: qsTr("Colour button")
        summary: qsTr("The picker in a popup, for forms and tool bars.")

        Row {
            id: buttons

            readonly property int cell: Math.min(136, Math.floor((parent.width - 3 * spacing) / 4))

            width: parent.width
            spacing: 24

            Column {
                width: buttons.cell
                spacing: 8

                UiColorButton {
                    color: UiColors.getColor(UiColors.ButtonPressBlue, 0.7)
                    objectName: "colourButton"

                    onUpdateRequested: root.activity = qsTr("The button has %1").arg(root.nameOf(newValue))
                }

                UiText {
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: qsTr("Any colour")
                }
            }

            Column {
                width: buttons.cell
                spacing: 8

                UiColorButton {
                    color: "transparent"
                    palette: ["transparent", "#000000", "#ffffff"]
                }

                UiText {
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: qsTr("Or no colour")
                }
            }

            Column {
                width: buttons.cell
                spacing: 8

                UiColorButton {
                    indeterminate: true

                    onUpdateRequested: indeterminate = false
                }

                UiText {
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: qsTr("Several colours")
                }
            }

            Column {
                width: buttons.cell
                spacing: 8

                UiColorButton {
                    color: UiColors.getColor(UiColors.WarningRed)
                    enabled: false
                }

                UiText {
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    font: UiFonts.getFont(UiFonts.Regular, 12)
                    text: qsTr("Disabled")
                }
            }
        }
    }
}
