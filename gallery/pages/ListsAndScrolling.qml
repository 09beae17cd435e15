// Plain content, long lists, scrolling to an item, and scrolling while something is dragged.
import QtQuick 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    readonly property int columns: contentWidth < 720 ? 1 : 2
    readonly property int cardWidth: Math.floor((contentWidth - 16 * (columns - 1)) / columns)

    title: qsTr("Lists and scrolling")
    summary: qsTr("A view scrolls whatever it is given: with the wheel, the bar, Home, End, Page Up and Page Down.")

    Grid {
        columns: root.columns
        spacing: 16

        Card {
            width: root.cardWidth
            title: qsTr("Any item")
            summary: qsTr("The bar is there while the text is longer than the view.")

            ScrollBox {
                width: parent.width
                objectName: "article"

                Item {
                    implicitHeight: articleText.implicitHeight + 32
                    objectName: "articleContent"

                    UiText {
                        id: articleText

                        x: 16
                        y: 16
                        width: parent.width - 32
                        lineHeight: 1.3
                        text: [
                            qsTr("A scroll view knows nothing about what it shows. It gives the item its own width, leaves the height to the item, and moves it up and down."),
                            qsTr("It moves by the clock: a step that comes late covers more of the way, so the speed does not depend on the frames. One notch of the wheel goes less far where there is less to see."),
                            qsTr("A second notch on the way adds to the first. Page Down starts from what is on the screen."),
                            qsTr("The steps are whole pixels, which keeps text crisp; only the last one may end between two."),
                            qsTr("Press beside the handle of the bar to go there, or drag the handle: the point that you took stays under the pointer."),
                            qsTr("When the text gets shorter while you are at its end, the view comes back to where there is something to see.")
                        ].slice(0, lengthBox.checked ? 6 : 2).join("\n\n")
                        wrapMode: Text.Wrap
                    }
                }
            }

            UiCheckBox {
                id: lengthBox

                height: 32
                checked: true
                objectName: "articleLength"
                text: qsTr("The whole text")
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("100,000 rows")
            summary: qsTr("Only the rows in view exist. Each letter begins a section.")

            ScrollBox {
                id: clips

                width: parent.width
                objectName: "clips"

                ListView {
                    id: clipList

                    readonly property var names: ["Amber", "Birch", "Cedar", "Delta", "Ember",
                        "Fjord", "Grove", "Heath", "Inlet", "Jetty", "Knoll", "Ledge", "Marsh",
                        "North", "Oasis", "Pines", "Quarry", "Ridge", "Shore", "Tarn", "Upland",
                        "Vale", "Weir", "Yard", "Zenith"]

                    cacheBuffer: 0
                    // No row is the current one: its highlight, which nobody sees, would follow at 400
                    // pixels a second wherever a jump puts the first row, for minutes.
                    currentIndex: -1
                    model: [].concat(...names.map(name => Array.from({ length: 4000 },
                        (_, number) => name + " " + String(number + 1).padStart(4, "0"))))
                    section.criteria: ViewSection.FirstCharacter
                    section.property: "modelData"

                    delegate: UiListDelegate {
                        width: clipList.width
                        text: modelData

                        UiText {
                            anchors.right: parent.right
                            anchors.rightMargin: 16
                            height: parent.height
                            color: UiColors.getColor(UiColors.MediumGrey45)
                            font: UiFonts.getFont(UiFonts.Regular, 12)
                            text: Number(index + 1).toLocaleString(Qt.locale("en"), "f", 0)
                        }
                    }

                    section.delegate: Rectangle {
                        width: clipList.width
                        height: 28
                        color: UiColors.getColor(UiColors.HeaderGrey4)

                        UiText {
                            x: 12
                            height: parent.height
                            font: UiFonts.getFont(UiFonts.SemiBold, 14)
                            text: section
                        }
                    }
                }
            }

            Row {
                spacing: 8

                UiPushButton {
                    objectName: "clipsFirst"
                    style: Ui.SecondaryPushButtonStyle
                    text: qsTr("First")

                    onClicked: clips.view.scrollTo(0)
                }

                UiPushButton {
                    style: Ui.SecondaryPushButtonStyle
                    text: qsTr("Middle")

                    onClicked: clips.view.scrollTo(0.5)
                }

                UiPushButton {
                    objectName: "clipsLast"
                    style: Ui.SecondaryPushButtonStyle
                    text: qsTr("Last")

                    onClicked: clips.view.scrollTo(1)
                }
            }
        }

        Card {
            width: root.cardWidth
            title: qsTr("To an item")
            summary: qsTr("The green row comes to the top, the middle or the bottom, or just so far that it can be seen.")

            ScrollBox {
                id: target

                width: parent.width
                objectName: "target"

                Column {
                    Repeater {
                        id: targetRows

                        model: 60

                        UiListDelegate {
                            width: parent.width
                            active: index === 29
                            objectName: active ? "targetRow" : ""
                            text: qsTr("Row %1").arg(index + 1)
                        }
                    }
                }
            }

            Flow {
                width: parent.width
                spacing: 8

                Repeater {
                    model: [
                        { text: qsTr("Contain"), mode: UiVerticalScrollView.Contain },
                        { text: qsTr("Top"), mode: UiVerticalScrollView.Top },
                        { text: qsTr("Center"), mode: UiVerticalScrollView.Center },
                        { text: qsTr("Bottom"), mode: UiVerticalScrollView.Bottom }
                    ]

                    UiPushButton {
                        objectName: "to" + modelData.text
                        style: Ui.SecondaryPushButtonStyle
                        text: modelData.text

                        onClicked: target.view.scrollTo(targetRows.itemAt(29), modelData.mode)
                    }
                }
            }
        }

        Card {
            id: dragCard

            property string message: qsTr("Nothing dropped yet.")

            width: root.cardWidth
            title: qsTr("While something is dragged")
            summary: qsTr("Hold the parcel near the upper or lower edge: the shelves scroll by themselves, faster and faster.")

            DropList {
                width: parent.width
                objectName: "shelves"

                onDropped: dragCard.message = qsTr("Dropped on shelf %1.").arg(row)
            }

            Row {
                spacing: 8

                Parcel {
                    objectName: "parcel"
                    text: qsTr("Parcel")
                }

                PopupButton {
                    id: popupButton

                    anchor.objectName: "shelvesAnchor"
                    anchor.persistent: true
                    objectName: "shelvesButton"
                    text: qsTr("In a popup")

                    popup: Component {
                        PopupPanel {
                            implicitWidth: 272

                            UiText {
                                width: parent.width
                                text: qsTr("While this popup is open, the shelves behind it stay where they are.")
                                wrapMode: Text.Wrap
                            }

                            Parcel {
                                text: qsTr("Parcel")
                            }

                            DropList {
                                width: parent.width
                                height: 200
                                objectName: "popupShelves"

                                onDropped: dragCard.message = qsTr("Dropped on shelf %1 of the popup.").arg(row)
                            }

                            UiCheckBox {
                                width: parent.width
                                checked: !popupButton.anchor.preventAutoScroll
                                text: qsTr("Let them scroll, too")

                                onCheckedChanged: popupButton.anchor.preventAutoScroll = !checked
                            }

                            UiPushButton {
                                width: parent.width
                                text: qsTr("Close")

                                onClicked: popupButton.anchor.hide()
                            }
                        }
                    }
                }

                UiText {
                    height: 32
                    color: UiColors.getColor(UiColors.MediumGrey45)
                    text: dragCard.message
                }
            }
        }
    }
}
