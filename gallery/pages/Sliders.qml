// Everything that is dragged along a track.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property string activity: ""
    property double stop: 40

    title: qsTr("Sliders")
    summary: qsTr("The left button drags, the middle button resets. Labelled sliders take the arrow keys, Page Up and Page Down, Home, End and Delete as well.")

    // The sliders below have told their first values by now.
    Component.onCompleted: activity = qsTr("Drag a handle, or press the middle button on it.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("Slider")
        summary: qsTr("The labels are optional. Volume resets to 70 %.")

        Grid {
            columnSpacing: 48
            columns: 2
            rowSpacing: 24

            UiSlider {
                width: Math.floor((root.contentWidth - 48 - 48) / 2)
                maximumText: qsTr("Loud")
                maximumValue: 100
                minimumText: qsTr("Silent")
                objectName: "volumeSlider"
                resetValue: 70
                text: qsTr("Volume")
                value: 70
                valueText: qsTr("%1 %").arg(Math.round(value))

                onValueChanged: root.activity = qsTr("Volume is %1 %").arg(Math.round(value))
            }

            UiSlider {
                width: Math.floor((root.contentWidth - 48 - 48) / 2)
                enabled: false
                maximumText: qsTr("Loud")
                maximumValue: 100
                minimumText: qsTr("Silent")
                text: qsTr("Volume, disabled")
                value: 70
                valueText: qsTr("%1 %").arg(Math.round(value))
            }

            UiSlider {
                width: Math.floor((root.contentWidth - 48 - 48) / 2)
                fillOrigin: 0.5
                maximumValue: 12
                minimumValue: -12
                resetValue: 0
                text: qsTr("Balance")
                value: 0
                valueText: value < 0 ? qsTr("%1 left").arg((-value).toFixed(1))
                         : value > 0 ? qsTr("%1 right").arg(value.toFixed(1))
                         : qsTr("Centre")

                onValueChanged: root.activity = qsTr("Balance is at %1").arg(valueText)
            }

            UiSlider {
                width: Math.floor((root.contentWidth - 48 - 48) / 2)
                bindable: true
                maximumValue: 100
                objectName: "stepsSlider"
                stepSize: 20
                text: qsTr("Steps of 20, kept by the host")
                value: root.stop
                valueText: value

                onResetRequested: {
                    root.stop = 40
                    root.activity = qsTr("The host was asked to reset, and chose 40")
                }
                onUpdateRequested: {
                    root.stop = Math.round(newValue / 20) * 20
                    root.activity = qsTr("The host was asked for %1 and wrote %2").arg(newValue.toFixed(1)).arg(root.stop)
                }
            }
        }
    }

    Card {
        title: qsTr("Curves")
        summary: qsTr("Equal distances, unequal steps. All of these stand at 250 of 1000.")

        Repeater {
            model: [
                { name: qsTr("Linear"), type: Easing.Linear },
                { name: qsTr("Quadratic: fine at the left"), type: Easing.InQuad },
                { name: qsTr("Exponential: finer still"), type: Easing.InExpo },
                { name: qsTr("Quadratic: fine at the right"), type: Easing.OutQuad }
            ]

            UiSlider {
                width: parent.width
                easing.type: modelData.type
                maximumValue: 1000
                resetValue: 250
                text: modelData.name
                value: 250
                valueText: Math.round(value)

                onValueChanged: root.activity = qsTr("%1 is at %2").arg(modelData.name).arg(Math.round(value))
            }
        }
    }

    Card {
        title: qsTr("Default slider")
        summary: qsTr("One object that draws itself: for mixers and tables with hundreds of them.")

        StateTable {
            id: looks

            columns: [qsTr("Track alone"), qsTr("Bar from the left"), qsTr("Bar from the centre"), qsTr("Gradient")]
            rows: [qsTr("Soft edges"), qsTr("Hard edges"), qsTr("Handle at 40 %"), qsTr("Wide handle")]

            Repeater {
                model: 16

                Item {
                    width: looks.columnWidth
                    height: looks.rowHeight

                    UiDefaultSlider {
                        readonly property int column: index % 4
                        readonly property int row: Math.floor(index / 4)

                        x: -margin // the track begins where the caption does
                        anchors.verticalCenter: parent.verticalCenter
                        width: Math.min(160, parent.width - 16)
                        antialiasing: row !== 1
                        handleColor: UiColors.getColor(UiColors.DarkerBlueGrey)
                        handleOpacity: row === 2 ? 0.4 : 1
                        handleWidth: row === 3 ? 7 : 3
                        resetValue: column === 2 ? 0.5 : 0.7
                        trackBaseColor: UiColors.getColor(column === 3 ? UiColors.TimeScheduleDiagramNowActiveColor : UiColors.ControlGrey20)
                        trackHeight: column === 3 ? 6 : 2
                        trackMaximumColor: UiColors.getColor(column === 3 ? UiColors.WarningYellow : UiColors.ControlGrey20)
                        value: 0.7
                        valueBarColor: UiColors.getColor(UiColors.ButtonNormalBlue)
                        valueBarOrigin: column === 2 ? 0.5 : 0
                        valueBarVisible: column === 1 || column === 2

                        onValueChanged: root.activity = qsTr("A default slider is at %1").arg(value.toFixed(2))
                    }
                }
            }
        }
    }

    Card {
        title: qsTr("Faders")
        summary: qsTr("Sixty default sliders that share one draw call.")

        Grid {
            columns: 6
            columnSpacing: 16
            leftPadding: -3 // the margin of the sliders
            rowSpacing: 8

            Repeater {
                model: 60

                UiDefaultSlider {
                    width: Math.floor((root.contentWidth - 48 - 5 * 16) / 6)
                    antialiasing: true
                    handleColor: UiColors.getColor(UiColors.DarkerBlueGrey)
                    resetValue: 0.5
                    trackBaseColor: UiColors.getColor(UiColors.ControlGrey20)
                    value: 0.5 + 0.4 * Math.sin(index / 3)
                    valueBarColor: UiColors.getColor(index % 2 === 0 ? UiColors.ButtonNormalBlue : UiColors.TimeScheduleDiagramNowActiveColor)
                    valueBarOrigin: 0.5
                    valueBarVisible: true

                    onValueChanged: root.activity = qsTr("Fader %1 is at %2").arg(index + 1).arg(value.toFixed(2))
                }
            }
        }
    }
}
