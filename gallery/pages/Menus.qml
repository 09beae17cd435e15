// What a right click opens.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property string activity: qsTr("Right-click one of the grey areas. Escape or a press elsewhere closes the menu.")

    readonly property int halfWidth: Math.floor((contentWidth - 16) / 2)

    function report(what, where) {
        activity = where ? qsTr("%1: %2").arg(where).arg(what) : what
    }

    objectName: "page"
    title: qsTr("Menus")
    summary: qsTr("A right click asks the screen which entries fit, and shows those that are visible then.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("One menu, many things")
        summary: qsTr("The same menu for every file and for the shelf. What cannot be done is greyed out or left out.")

        Rectangle {
            id: shelf

            property FileTile file: null
            property string cutName: ""

            width: parent.width
            height: 120
            color: UiColors.getColor(UiColors.HeaderGrey4)
            objectName: "shelf"
            radius: 3

            Row {
                x: 16
                y: 16
                spacing: 16

                Repeater {
                    model: [
                        { name: qsTr("Floor plans"), iconName: "folder", locked: false },
                        { name: qsTr("Entrance"), iconName: "image-element", locked: false },
                        { name: qsTr("Welcome film"), iconName: "video-element", locked: false },
                        { name: qsTr("House rules"), iconName: "text-element", locked: true }
                    ]

                    FileTile {
                        width: Math.min(144, Math.floor((shelf.width - 5 * 16) / 4))
                        active: fileMenu.menuVisible && shelf.file === this
                        iconName: modelData.iconName
                        locked: modelData.locked
                        name: modelData.name
                        objectName: "file" + index
                    }
                }
            }

            UiContextMenu {
                id: fileMenu

                objectName: "fileMenu"

                onContextMenuRequested: {
                    let under = item
                    while (under && !(under instanceof FileTile) && under !== shelf)
                        under = under.parent
                    shelf.file = under instanceof FileTile ? under : null
                }

                UiMenuItem {
                    iconName: "open"
                    objectName: "entryOpen"
                    text: qsTr("Open")
                    visible: shelf.file

                    onTriggered: root.report(text, shelf.file.name)
                }

                UiMenuItem {
                    enabled: shelf.file && !shelf.file.locked
                    iconName: "rename"
                    objectName: "entryRename"
                    text: qsTr("Rename\u2026")
                    visible: shelf.file

                    onTriggered: root.report(text, shelf.file.name)
                }

                UiMenuItem {
                    enabled: shelf.file && !shelf.file.locked
                    iconName: "cut"
                    objectName: "entryCut"
                    text: qsTr("Cut")
                    visible: shelf.file

                    onTriggered: {
                        shelf.cutName = shelf.file.name
                        root.report(text, shelf.file.name)
                    }
                }

                UiMenuItem {
                    iconName: "folder"
                    objectName: "entryNewFolder"
                    text: qsTr("New folder")
                    visible: !shelf.file

                    onTriggered: root.report(text, qsTr("Shelf"))
                }

                UiMenuItem {
                    enabled: shelf.cutName !== ""
                    iconName: "paste"
                    objectName: "entryPaste"
                    text: enabled ? qsTr("Paste \u201c%1\u201d").arg(shelf.cutName) : qsTr("Paste")
                    visible: !shelf.file

                    onTriggered: root.report(text, qsTr("Shelf"))
                }

                UiMenuSeparator {
                    objectName: "entrySeparator"
                    rank: [1]
                    visible: shelf.file
                }

                UiMenuItem {
                    enabled: shelf.file && !shelf.file.locked
                    iconName: "trash-can"
                    objectName: "entryDelete"
                    rank: [1]
                    text: qsTr("Delete")
                    visible: shelf.file

                    onTriggered: root.report(text, shelf.file.name)
                }
            }
        }
    }

    Row {
        spacing: 16

        Card {
            width: root.halfWidth
            title: qsTr("Entries from several sources")
            summary: qsTr("The menu sorts by rank. Equals stay as they were declared.")

            Column {
                width: parent.width

                Repeater {
                    id: declared

                    model: [
                        { text: qsTr("Properties"), rank: [9], source: qsTr("Page") },
                        { text: qsTr("Undo"), rank: [0], source: qsTr("Editor") },
                        { text: qsTr("Save"), rank: [2], source: qsTr("Page") },
                        { text: qsTr("Redo"), rank: [0, 1], source: qsTr("Editor") },
                        { text: qsTr("Translate"), rank: [0, 0, 5], source: qsTr("Plug-in") }
                    ]

                    Item {
                        width: parent.width
                        height: 24

                        UiText {
                            height: parent.height
                            text: modelData.text
                        }

                        UiText {
                            x: Math.round(parent.width * 0.4)
                            height: parent.height
                            color: UiColors.getColor(UiColors.MediumGrey45)
                            text: modelData.source
                        }

                        UiText {
                            anchors.right: parent.right
                            height: parent.height
                            color: UiColors.getColor(UiColors.MediumGrey45)
                            text: "[" + modelData.rank.join(", ") + "]"
                        }
                    }
                }
            }

            UiCheckBox {
                id: plugIn

                checked: true
                objectName: "plugInCheckBox"
                text: qsTr("The plug-in is installed")

                onCheckedChanged: checked ? rankedMenu.addItem(translate) : rankedMenu.removeItem(translate)
            }

            MenuTarget {
                width: parent.width
                height: 108
                active: rankedMenu.menuVisible
                objectName: "rankedTarget"
                text: qsTr("Right-click here")

                UiContextMenu {
                    id: rankedMenu

                    objectName: "rankedMenu"

                    Component.onCompleted: addItem(translate)

                    UiMenuItem {
                        iconName: "settings"
                        rank: [9]
                        text: qsTr("Properties")

                        onTriggered: root.report(text)
                    }

                    UiMenuItem {
                        iconName: "undo"
                        text: qsTr("Undo")

                        onTriggered: root.report(text)
                    }

                    UiMenuItem {
                        iconName: "save"
                        rank: [2]
                        text: qsTr("Save")

                        onTriggered: root.report(text)
                    }

                    UiMenuItem {
                        iconName: "redo"
                        rank: [0, 1]
                        text: qsTr("Redo")

                        onTriggered: root.report(text)
                    }

                    UiMenuSeparator {
                        rank: [1]
                    }

                    UiMenuSeparator {
                        rank: [8]
                    }
                }

                UiMenuItem {
                    id: translate

                    iconName: "exchange"
                    objectName: "entryTranslate"
                    rank: [0, 0, 5]
                    text: qsTr("Translate")

                    onTriggered: root.report(text)
                }
            }
        }

        Column {
            spacing: 16

            Card {
                width: root.halfWidth
                title: qsTr("Styles")
                summary: qsTr("With icons, or texts only.")

                Row {
                    spacing: 16

                    Repeater {
                        model: [
                            { text: qsTr("Icons and texts"), style: UiContextMenu.IconAndText },
                            { text: qsTr("Only texts"), style: UiContextMenu.OnlyText }
                        ]

                        MenuTarget {
                            width: Math.floor((root.halfWidth - 64) / 2)
                            active: styleMenu.menuVisible
                            objectName: "styleTarget" + index
                            text: modelData.text

                            UiContextMenu {
                                id: styleMenu

                                itemStyle: modelData.style

                                UiMenuItem {
                                    iconName: "align-left"
                                    text: qsTr("Left")

                                    onTriggered: root.report(text, qsTr("Align"))
                                }

                                UiMenuItem {
                                    iconName: "align-center"
                                    text: qsTr("Centre")

                                    onTriggered: root.report(text, qsTr("Align"))
                                }

                                UiMenuItem {
                                    iconName: "align-right"
                                    text: qsTr("Right")

                                    onTriggered: root.report(text, qsTr("Align"))
                                }

                                UiMenuSeparator {}

                                UiMenuItem {
                                    enabled: false
                                    iconName: "uppercase"
                                    text: qsTr("Capital letters")
                                }
                            }
                        }
                    }
                }
            }

            Card {
                width: root.halfWidth
                title: qsTr("Corners of the window")
                summary: qsTr("It opens to the left or upwards where the window ends.")

                Item {
                    width: parent.width
                    height: 72
                    objectName: "corners"

                    Grid {
                        columns: 2
                        columnSpacing: 16
                        rowSpacing: 8

                        Repeater {
                            model: [
                                { text: qsTr("Top left"), name: "topLeftCorner", x: 0, y: 0 },
                                { text: qsTr("Top right"), name: "topRightCorner", x: 1, y: 0 },
                                { text: qsTr("Bottom left"), name: "bottomLeftCorner", x: 0, y: 1 },
                                { text: qsTr("Bottom right"), name: "bottomRightCorner", x: 1, y: 1 }
                            ]

                            UiPushButton {
                                width: Math.floor((root.halfWidth - 64) / 2)
                                objectName: modelData.name
                                style: Ui.SecondaryPushButtonStyle
                                text: modelData.text

                                onClicked: {
                                    const window = root.Window.contentItem
                                    // A menu that opens upwards does not open to the left as well.
                                    const right = window.width - (modelData.y ? 120 : 8)
                                    cornerMenu.showAt(window, Qt.point(modelData.x ? right : 8,
                                                                       modelData.y ? window.height - 8 : 8))
                                }
                            }
                        }
                    }

                    UiContextMenu {
                        id: cornerMenu

                        objectName: "cornerMenu"

                        UiMenuItem {
                            iconName: "valign-top"
                            text: qsTr("Top")

                            onTriggered: root.report(text, qsTr("Align"))
                        }

                        UiMenuItem {
                            iconName: "valign-center"
                            objectName: "entryMiddle"
                            text: qsTr("Middle")

                            onTriggered: root.report(text, qsTr("Align"))
                        }

                        UiMenuItem {
                            iconName: "valign-bottom"
                            text: qsTr("Bottom")

                            onTriggered: root.report(text, qsTr("Align"))
                        }
                    }
                }
            }
        }
    }
}
