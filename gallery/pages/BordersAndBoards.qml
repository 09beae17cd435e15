// Frames, and what shows through what is translucent.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    readonly property int columns: contentWidth < 720 ? 2 : 3
    readonly property color outline: UiColors.getColor(UiColors.Black, 0.12)

    title: qsTr("Borders and boards")
    summary: qsTr("A border runs along the inside of an item. A checker board lies behind what is translucent.")

    Card {
        id: workshop

        title: qsTr("Border")
        summary: qsTr("The dashes begin at the top-left corner and run clockwise.")

        Row {
            id: choices

            readonly property int cell: Math.floor((workshop.bodyWidth - 4 * spacing) / 5)

            spacing: 16

            Choice {
                id: style

                width: choices.cell
                boxName: "borderStyle"
                caption: qsTr("Style")
                currentIndex: 1
                model: [qsTr("Solid"), qsTr("Dashed")]
            }

            Choice {
                id: borderWidth

                width: choices.cell
                boxName: "borderWidth"
                caption: qsTr("Width")
                currentIndex: 1
                model: ["1", "2", "4", "8", "16"]
            }

            Choice {
                id: dash

                width: choices.cell
                boxName: "borderDash"
                caption: qsTr("Dash")
                currentIndex: 2
                model: ["2", "4", "8", "16", "32"]
            }

            Choice {
                id: gap

                width: choices.cell
                boxName: "borderGap"
                caption: qsTr("Gap")
                currentIndex: 1
                model: ["2", "4", "8", "16", "32"]
            }

            Choice {
                id: color

                readonly property string name: ["DarkGrey80", "ButtonNormalBlue", "SelectionGreen", "WarningRed"][currentIndex]

                width: choices.cell
                boxName: "borderColor"
                caption: qsTr("Colour")
                currentIndex: 1
                model: [qsTr("Grey"), qsTr("Blue"), qsTr("Green"), qsTr("Red")]
            }
        }

        Item {
            width: parent.width
            height: 112

            UiBorder {
                anchors.fill: parent
                borderWidth: Number(borderWidth.currentText)
                color: UiColors.getColor(UiColors[color.name])
                dashWidth: Number(dash.currentText)
                gapWidth: Number(gap.currentText)
                style: style.currentIndex === 0 ? UiBorder.Solid : UiBorder.Dashed
            }

            UiText {
                anchors.centerIn: parent
                color: UiColors.getColor(UiColors.MediumGrey45)
                text: qsTr("%1 \u00d7 %2").arg(parent.width).arg(parent.height)
            }
        }
    }

    Card {
        id: borders

        title: qsTr("Strokes")

        Grid {
            id: strokes

            readonly property int cell: Math.floor((borders.bodyWidth - (columns - 1) * columnSpacing) / columns)

            columnSpacing: 24
            columns: root.columns
            rowSpacing: 16

            Repeater {
                model: [
                    { caption: qsTr("As it comes: 2 wide, 8 on, 4 off"), width: 2, dash: 8, gap: 4 },
                    { caption: qsTr("Dots: 2 wide, 2 on, 2 off"), width: 2, dash: 2, gap: 2 },
                    { caption: qsTr("Long: 1 wide, 24 on, 8 off"), width: 1, dash: 24, gap: 8 },
                    { caption: qsTr("Heavy: 6 wide, 18 on, 6 off"), width: 6, dash: 18, gap: 6 }
                ]

                Sample {
                    width: strokes.cell
                    caption: modelData.caption

                    UiBorder {
                        anchors.fill: parent
                        borderWidth: modelData.width
                        color: UiColors.getColor(UiColors.DarkGrey80)
                        dashWidth: modelData.dash
                        gapWidth: modelData.gap
                    }
                }
            }

            Sample {
                width: strokes.cell
                caption: qsTr("Solid: 1 wide")

                UiBorder {
                    anchors.fill: parent
                    borderWidth: 1
                    color: UiColors.getColor(UiColors.DarkGrey80)
                    style: UiBorder.Solid
                }
            }

            Sample {
                width: strokes.cell
                caption: qsTr("Solid: three inside each other")

                Repeater {
                    model: ["ButtonNormalBlue", "White", "BlueGrey"]

                    UiBorder {
                        anchors.fill: parent
                        anchors.margins: index * 2
                        color: UiColors.getColor(UiColors[modelData])
                        style: UiBorder.Solid
                    }
                }
            }
        }
    }

    Card {
        id: boards

        title: qsTr("Checker boards")
        summary: qsTr("The squares start at the item's own corner and measure the same at every size, scale and angle.")

        Grid {
            id: squares

            readonly property int cell: Math.floor((boards.bodyWidth - (columns - 1) * columnSpacing) / columns)

            columnSpacing: 24
            columns: root.columns
            rowSpacing: 16

            Sample {
                width: squares.cell
                caption: qsTr("As it comes: squares of 12")

                UiCheckerBoard {
                    anchors.fill: parent
                }

                UiBorder {
                    anchors.fill: parent
                    borderWidth: 1
                    color: root.outline
                    style: UiBorder.Solid
                }
            }

            Sample {
                width: squares.cell
                caption: qsTr("Squares of 4")

                UiCheckerBoard {
                    anchors.fill: parent
                    tileSize: 4
                }

                UiBorder {
                    anchors.fill: parent
                    borderWidth: 1
                    color: root.outline
                    style: UiBorder.Solid
                }
            }

            Sample {
                width: squares.cell
                caption: qsTr("Squares of 32 in colours of its own")

                UiCheckerBoard {
                    anchors.fill: parent
                    primaryColor: UiColors.getColor(UiColors.LightBlueGrey)
                    secondaryColor: UiColors.getColor(UiColors.BlueGrey)
                    tileSize: 32
                }
            }

            Sample {
                width: squares.cell
                caption: qsTr("Behind a colour that fades")

                UiCheckerBoard {
                    anchors.fill: parent
                    tileSize: 8
                }

                Rectangle {
                    anchors.fill: parent

                    gradient: Gradient {
                        orientation: Gradient.Horizontal

                        GradientStop {
                            color: UiColors.getColor(UiColors.ButtonNormalBlue, 0)
                            position: 0
                        }

                        GradientStop {
                            color: UiColors.getColor(UiColors.ButtonNormalBlue)
                            position: 1
                        }
                    }
                }

                UiBorder {
                    anchors.fill: parent
                    borderWidth: 1
                    color: root.outline
                    style: UiBorder.Solid
                }
            }

            Sample {
                width: squares.cell
                caption: qsTr("Turned by 12\u00b0")

                UiCheckerBoard {
                    anchors.centerIn: parent
                    width: parent.width - 40
                    height: 44
                    primaryColor: UiColors.getColor(UiColors.LightBlueGrey)
                    rotation: 12
                    secondaryColor: UiColors.getColor(UiColors.BlueGrey)
                }
            }

            Sample {
                width: squares.cell
                caption: qsTr("Scaled by 0.5, by 1 and by 1.5")

                Row {
                    anchors.centerIn: parent

                    Repeater {
                        model: [0.5, 1, 1.5]

                        Item {
                            width: 48 * modelData + 16
                            height: 96

                            UiCheckerBoard {
                                anchors.centerIn: parent
                                width: 48
                                height: 48
                                primaryColor: UiColors.getColor(UiColors.LightBlueGrey)
                                scale: modelData
                                secondaryColor: UiColors.getColor(UiColors.BlueGrey)
                            }
                        }
                    }
                }
            }
        }
    }
}
