// Popups at every edge, menus, forms, lists and hints.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    // The anchor at the page's edges that was opened last.
    property Item lastAnchor: null

    readonly property int columns: contentWidth < 720 ? 1 : 2
    readonly property int cardWidth: Math.floor((contentWidth - 16 * (columns - 1)) / columns)

    title: qsTr("Popups")
    summary: qsTr("They stay above everything and inside the window. Escape or a press outside closes them.")

    footer: Rectangle {
        width: parent.width
        height: 56
        color: UiColors.getColor(UiColors.White)

        UiHorizontalSeparator {
            width: parent.width
            color: UiColors.getColor(UiColors.ProgressbarBGGrey)
        }

        DistancesButton {
            x: 40
            anchors.verticalCenter: parent.verticalCenter
            objectName: "bottomLeftButton"
            text: qsTr("Bottom left")

            onOpened: root.lastAnchor = anchor
        }

        Row {
            anchors.centerIn: parent
            spacing: 16

            DistancesButton {
                objectName: "bottomButton"
                text: qsTr("Bottom edge")

                onOpened: root.lastAnchor = anchor
            }

            UiComboBox {
                width: 168
                model: [qsTr("Opens upwards"), qsTr("Where the room is"), qsTr("There it goes"),
                        qsTr("And flips"), qsTr("Above its field")]
                currentIndex: 0
                objectName: "bottomCombo"
            }
        }

        DistancesButton {
            anchors.right: parent.right
            anchors.rightMargin: 40
            anchors.verticalCenter: parent.verticalCenter
            objectName: "bottomRightButton"
            text: qsTr("Bottom right")

            onOpened: root.lastAnchor = anchor
        }
    }

    // As wide as the page, so that the last one meets the edge in any window.
    Item {
        width: root.width - 80
        height: 32

        DistancesButton {
            objectName: "topLeftButton"
            text: qsTr("Top left")

            onOpened: root.lastAnchor = anchor
        }

        DistancesButton {
            anchors.horizontalCenter: parent.horizontalCenter
            objectName: "topButton"
            text: qsTr("Top edge")

            onOpened: root.lastAnchor = anchor
        }

        DistancesButton {
            anchors.right: parent.right
            objectName: "topRightButton"
            text: qsTr("Top right")

            onOpened: root.lastAnchor = anchor
        }
    }

    Grid {
        columns: root.columns
        spacing: 16

        Card {
            width: root.cardWidth
            title: qsTr("Menu")
            summary: qsTr("Tab stays inside; the focus comes back when it closes.")

            Row {
                spacing: 16

                PopupButton {
                    id: openMenuButton

                    anchor.objectName: "menuAnchor"
                    objectName: "openMenuButton"
                    text: qsTr("Open menu")

                    popup: Component {
                        PopupPanel {
                            implicitWidth: 200
                            firstFocus: menuFirst

                            UiPushButton {
                                id: menuFirst

                                width: parent.width
                                objectName: "menuFirst"
                                text: qsTr("Publish now")
                            }

                            UiPushButton {
                                width: parent.width
                                objectName: "menuSecond"
                                style: Ui.SecondaryPushButtonStyle
                                text: qsTr("Schedule")
                            }

                            UiPushButton {
                                width: parent.width
                                objectName: "menuThird"
                                style: Ui.SecondaryPushButtonStyle
                                text: qsTr("Discard")
                            }
                        }
                    }
                }

                UiPushButton {
                    property int clicks: 0

                    objectName: "outsideButton"
                    style: Ui.SecondaryPushButtonStyle
                    text: qsTr("Outside: %1 clicks").arg(clicks)

                    onClicked: ++clicks
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("Persistent")
            summary: qsTr("Presses outside and keys leave it alone; only its button closes it.")

            PopupButton {
                anchor.objectName: "persistentAnchor"
                anchor.persistent: true
                objectName: "persistentButton"
                text: anchor.popupVisible ? qsTr("Put away") : qsTr("Pin a note")

                popup: Component {
                    PopupPanel {
                        implicitWidth: 280

                        UiText {
                            width: parent.width
                            lineHeight: 1.2
                            text: qsTr("Go on working with the page. This note stays until you put it away.")
                            wrapMode: Text.Wrap
                        }
                    }
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("Combo boxes")
            summary: qsTr("Letters and the wheel find a row, in the long one, too.")

            Row {
                spacing: 16

                UiComboBox {
                    width: Math.floor((root.cardWidth - 80) / 3)
                    model: [qsTr("Small"), qsTr("Medium"), qsTr("Large"), qsTr("Full size")]
                    currentIndex: 1
                    objectName: "sizeCombo"
                }

                UiComboBox {
                    width: Math.floor((root.cardWidth - 80) / 3)
                    model: Array.from({ length: 60 }, (_, row) => qsTr("Channel %1").arg(row + 1))
                    objectName: "longCombo"
                    placeholder: qsTr("Choose")
                }

                UiComboBox {
                    width: Math.floor((root.cardWidth - 80) / 3)
                    model: [qsTr("Locked")]
                    currentIndex: 0
                    enabled: false
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("Form")
            summary: qsTr("A combo box inside a popup opens a popup of its own.")

            PopupButton {
                anchor.objectName: "formAnchor"
                objectName: "formButton"
                text: qsTr("Open form")

                popup: Component {
                    PopupPanel {
                        implicitWidth: 272
                        firstFocus: formCombo

                        UiText {
                            text: qsTr("Repeat")
                        }

                        UiComboBox {
                            id: formCombo

                            width: parent.width
                            model: [qsTr("Never"), qsTr("Every day"), qsTr("Every week"), qsTr("Every month")]
                            currentIndex: 2
                            objectName: "formCombo"
                        }

                        UiCheckBox {
                            width: parent.width
                            checked: true
                            objectName: "formCheckBox"
                            text: qsTr("Remind me an hour before")
                        }

                        UiPushButton {
                            width: parent.width
                            objectName: "formButtonDone"
                            text: qsTr("Done")
                        }
                    }
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("Long popup")
            summary: qsTr("Taller than the window, so it is cut to the room there is.")

            PopupButton {
                anchor.objectName: "longAnchor"
                objectName: "longButton"
                text: qsTr("Open a long list")

                popup: Component {
                    LongList {}
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("Info tips")
            summary: qsTr("A hint that points at what it explains.")

            Item {
                width: parent.width
                height: 32

                InfoButton {
                    x: -8
                    objectName: "infoButton"
                    text: qsTr("Visibility")
                    tip: qsTr("Everyone who can open the schedule sees this item.")
                }

                InfoButton {
                    anchors.right: parent.right
                    anchors.rightMargin: -8
                    objectName: "infoButtonRight"
                    text: qsTr("Sharing")
                    tip: qsTr("Only the people you invite can change the item. Others see it as soon as it is published.")
                }
            }
        }
    }

    Card {
        title: qsTr("Distances of the popups above and below")

        Row {
            Repeater {
                model: [
                    { text: qsTr("Top"), property: "distanceTop" },
                    { text: qsTr("Bottom"), property: "distanceBottom" },
                    { text: qsTr("Left"), property: "distanceLeft" },
                    { text: qsTr("Right"), property: "distanceRight" }
                ]

                Item {
                    width: Math.floor((root.contentWidth - 48) / 4)
                    height: 24

                    UiText {
                        width: 56
                        height: parent.height
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        font: UiFonts.getFont(UiFonts.Regular, 12)
                        text: modelData.text
                    }

                    UiText {
                        x: 56
                        height: parent.height
                        font: UiFonts.getFont(UiFonts.Light, 18)
                        text: root.lastAnchor ? root.lastAnchor[modelData.property] : "\u2013"
                    }
                }
            }
        }
    }
}
