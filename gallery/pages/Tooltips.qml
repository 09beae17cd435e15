// What the pointer learns where it rests.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    readonly property int half: Math.floor((contentWidth - 16) / 2)

    title: qsTr("Tooltips")
    summary: qsTr("Let the pointer rest for half a second. Any movement and any press takes the tooltip away.")

    footer: UiTooltipAgent {
        width: parent.width
        height: 56
        objectName: "footerAgent"

        Rectangle {
            anchors.fill: parent
            color: UiColors.getColor(UiColors.White)
        }

        UiHorizontalSeparator {
            width: parent.width
            color: UiColors.getColor(UiColors.ProgressbarBGGrey)
        }

        TooltipSample {
            x: 40
            width: 160
            anchors.verticalCenter: parent.verticalCenter
            objectName: "bottomTip"
            text: qsTr("Bottom edge")
            tip: qsTr("Stands above the pointer, because there is no room below")
        }

        TooltipSample {
            anchors.right: parent.right
            anchors.rightMargin: 40
            anchors.verticalCenter: parent.verticalCenter
            width: 160
            objectName: "bottomRightTip"
            text: qsTr("Bottom right")
            tip: qsTr("Stands above the pointer, and ends before the edge of the window")
        }
    }

    UiTooltipAgent {
        width: parent.width
        height: cards.height

        Column {
            id: cards

            width: parent.width
            spacing: 16

            Row {
                spacing: 16

                Card {
                    width: root.half
                    title: qsTr("Tools")
                    summary: qsTr("The usual place: buttons without a text. A disabled one has no tooltip.")

                    Row {
                        spacing: 8

                        Repeater {
                            model: [
                                { icon: "add", text: qsTr("Add"), tip: qsTr("Add an entry") },
                                { icon: "edit", text: qsTr("Edit"), tip: qsTr("Edit the entry") },
                                { icon: "save", text: qsTr("Save"), tip: qsTr("Save all changes") },
                                { icon: "refresh", text: qsTr("Refresh"), tip: qsTr("Look for changes of others") },
                                { icon: "delete", text: qsTr("Delete"), tip: qsTr("Delete the entry") }
                            ]

                            UiToolButton {
                                enabled: index < 4
                                iconName: modelData.icon
                                objectName: "toolTip" + index
                                style: Ui.IconOnly
                                text: modelData.text

                                UiTooltip {
                                    text: modelData.tip
                                }
                            }
                        }
                    }
                }

                Card {
                    width: root.half
                    title: qsTr("Long texts")
                    summary: qsTr("They break into lines at 700 pixels and end after twenty of them.")

                    Row {
                        spacing: 8

                        Repeater {
                            model: [
                                { text: qsTr("Short"), count: 1 },
                                { text: qsTr("Long"), count: 5 },
                                { text: qsTr("Endless"), count: 60 }
                            ]

                            TooltipSample {
                                width: Math.floor((root.half - 64) / 3)
                                objectName: "longTip" + index
                                text: modelData.text
                                tip: qsTr("Everyone who can open the schedule sees this item as soon as it is published. ").repeat(modelData.count).trim()
                            }
                        }
                    }
                }
            }

            Card {
                title: qsTr("Items in items")
                summary: qsTr("The innermost item counts, and of several beside each other the one on top.")

                Row {
                    spacing: 16

                    TooltipSample {
                        width: Math.floor((root.contentWidth - 64) / 2)
                        height: 120
                        text: qsTr("Outer")
                        tip: qsTr("The outer item")

                        TooltipSample {
                            anchors.right: parent.right
                            anchors.rightMargin: 16
                            y: 16
                            width: Math.floor(parent.width / 2)
                            height: 88
                            text: qsTr("Inner")
                            tip: qsTr("The inner item")
                        }
                    }

                    Item {
                        width: Math.floor((root.contentWidth - 64) / 2)
                        height: 120

                        TooltipSample {
                            width: Math.floor(parent.width * 0.6)
                            height: 80
                            text: qsTr("Below")
                            tip: qsTr("The item below")
                        }

                        TooltipSample {
                            x: Math.floor(parent.width * 0.4)
                            y: 40
                            width: Math.floor(parent.width * 0.6)
                            height: 80
                            text: qsTr("On top")
                            tip: qsTr("The item on top")
                        }
                    }
                }
            }

            Card {
                title: qsTr("A thousand of them")
                summary: qsTr("Each of the patches has a tooltip of its own. The search for the right one takes no time to speak of.")

                Grid {
                    id: patches

                    // Whole pixels, and together as wide as the card.
                    function edge(column) {
                        return Math.round(column * (root.contentWidth - 48) / columns)
                    }

                    columns: 50

                    Repeater {
                        model: 1000

                        Rectangle {
                            width: patches.edge(index % 50 + 1) - patches.edge(index % 50)
                            height: patches.edge(1)
                            border.color: UiColors.getColor(UiColors.White)
                            border.width: 1
                            color: Qt.hsla((index % 50) / 50, 0.35, 0.45 + 0.4 * Math.floor(index / 50) / 20, 1)

                            UiTooltip {
                                text: qsTr("%1, row %2, column %3").arg(color).arg(Math.floor(index / 50) + 1).arg(index % 50 + 1)
                            }
                        }
                    }
                }
            }

            Card {
                title: qsTr("A look of one's own")
                summary: qsTr("The agent takes any component; this one is dark and points nowhere.")

                UiTooltipAgent {
                    width: parent.width
                    height: 32

                    tooltipDelegate: Component {
                        Rectangle {
                            id: dark

                            readonly property bool shown: UiTooltipAgent.tooltipVisible
                            readonly property string words: UiTooltipAgent.tooltipText

                            width: message.width + 24
                            height: 32
                            color: UiColors.getColor(UiColors.DarkGrey80)
                            opacity: shown ? 0.95 : 0
                            radius: 4

                            transform: Translate {
                                x: 12
                                y: 16
                            }

                            Behavior on opacity {
                                NumberAnimation {
                                    duration: 80
                                }
                            }

                            UiText {
                                id: message

                                anchors.centerIn: parent
                                color: UiColors.getColor(UiColors.White)
                                text: dark.words
                            }
                        }
                    }

                    TooltipSample {
                        width: 200
                        text: qsTr("Dark")
                        tip: qsTr("White on dark grey")
                    }
                }
            }
        }
    }
}
