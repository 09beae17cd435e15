// Every named colour and every text font of the design.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    title: qsTr("Colours and fonts")
    summary: qsTr("Two singletons hold the design: UiColors names 45 colours, UiFonts seven cuts of one family.")

    Card {
        title: qsTr("Blues")
        summary: qsTr("Actions, links and the focus.")

        Swatches {
            names: ["ButtonNormalBlue", "ButtonHoverBlue", "ButtonPressBlue", "LinkPressBlue",
                    "FocusColor", "BlueGrey", "LightBlueGrey", "DarkBlueGrey", "DarkerBlueGrey"]
        }
    }

    Card {
        title: qsTr("Greens and signals")
        summary: qsTr("What is selected, what is under the pointer, what needs attention.")

        Swatches {
            names: ["HoverGreen", "SelectionGreen", "InactiveSelectionGreen", "DarkerHoverGreen",
                    "DarkerSelectionGreen", "WarningYellow", "WarningRed"]
        }
    }

    Card {
        title: qsTr("Greys")
        summary: qsTr("From the ground of a screen to its text.")

        Swatches {
            names: ["White", "TimeTableHover", "HeaderGrey4", "DeviceColumnGrey6",
                    "DisabledLightGrey13", "SeparatorLineGrey17", "ControlGrey20",
                    "DarkerControlGrey22", "MediumLightGrey27", "MediumGrey33", "MediumGrey45",
                    "MediumDarkGrey67", "DialogHeaderText", "DarkGrey80", "Black"]
        }
    }

    Card {
        title: qsTr("Content")
        summary: qsTr("Previews, diagrams, schedules and what has no content yet.")

        Swatches {
            names: ["DialogPreviewGrey", "EmptyImageBox", "EmptyImageBoxPress",
                    "ProgressbarBGGrey", "FacebookBG", "FacebookBorder", "PublishToggleInactive",
                    "PublishToggleScheduled", "PublishToggleVisible", "VideoButtonColor",
                    "InvisibleContentOverlay", "TimeScheduleDiagramScheduledColor",
                    "TimeScheduleDiagramNowActiveColor", "TimeScheduleDiagramInactiveColor"]
        }
    }

    Card {
        title: qsTr("Fonts")
        summary: "UiFonts.getFont(UiFonts.Light, 24)"

        Column {
            width: parent.width

            Repeater {
                model: ["Light", "Regular", "SemiBold", "LightItalic", "RegularItalic",
                        "LightCapitalized", "RegularCapitalized"]

                Specimen {
                    width: parent.width
                    last: index === 6
                    name: modelData
                }
            }
        }
    }

    Card {
        title: qsTr("Sizes")

        Row {
            spacing: 48

            Repeater {
                model: [
                    { font: UiFonts.Light, size: 28, use: qsTr("Title") },
                    { font: UiFonts.Regular, size: 18, use: qsTr("Section") },
                    { font: UiFonts.Regular, size: 14, use: qsTr("Body") },
                    { font: UiFonts.Regular, size: 12, use: qsTr("Caption") }
                ]

                Item {
                    width: size.x + size.width
                    height: 32

                    UiText {
                        id: sample

                        y: 28 - baselineOffset
                        font: UiFonts.getFont(modelData.font, modelData.size)
                        text: modelData.use
                    }

                    UiText {
                        id: size

                        x: sample.width + 12
                        anchors.baseline: sample.baseline
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        font: UiFonts.getFont(UiFonts.Regular, 12)
                        text: modelData.size
                    }
                }
            }
        }
    }
}
