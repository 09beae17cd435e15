// Cards dragged between columns and windows, files from anywhere, and a log of what arrived.
import QtQuick 2.15
import Gallery 1.0
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    property var cards: [
        { id: 1, column: "ideas", title: qsTr("Harbour at dawn"), note: qsTr("Slow pan, 20 seconds"), ink: "ButtonNormalBlue" },
        { id: 2, column: "ideas", title: qsTr("Interview, part 2"), note: qsTr("Needs subtitles"), ink: "WarningYellow" },
        { id: 3, column: "ready", title: qsTr("Weather"), note: qsTr("Every hour"), ink: "SelectionGreen" },
        { id: 4, column: "ready", title: qsTr("Opening titles"), note: qsTr("Final cut"), ink: "ButtonNormalBlue" },
        { id: 5, column: "air", title: qsTr("Morning news"), note: qsTr("Until nine"), ink: "WarningRed" }
    ]
    property int lastId: 5
    property var entries: []

    readonly property int third: Math.floor((contentWidth - 80) / 3)

    function note(place, what, modifiers) {
        const keys = [[Qt.ShiftModifier, qsTr("Shift")], [Qt.ControlModifier, qsTr("Ctrl")],
                      [Qt.AltModifier, qsTr("Alt")], [Qt.MetaModifier, qsTr("Meta")]]
        const held = keys.filter(key => modifiers & key[0]).map(key => key[1]).join(" + ")
        entries = [{ place: place, what: what, keys: held }, ...entries].slice(0, 6)
    }

    function take(card, column, title, source, modifiers) {
        if (!card.title) {
            note(title, qsTr("Something that is no card"), modifiers)
            return
        }
        const own = source && cards.some(other => other.id === card.id)
        const moves = own && !(modifiers & Qt.ControlModifier)
        const arrived = Object.assign({}, card, {
            column: column,
            id: moves ? card.id : lastId + 1,
            ink: UiColors[card.ink] === undefined ? "MediumGrey33" : card.ink
        })
        if (!moves)
            ++lastId
        cards = cards.filter(other => other.id !== arrived.id).concat([arrived])
        note(title, source ? card.title : qsTr("%1, from another program").arg(card.title), modifiers)
    }

    function nameOf(url) {
        const name = url.toString().replace(/[?#].*/, "").replace(/\/+$/, "").split("/").pop()
        try {
            return decodeURIComponent(name)
        } catch (error) {
            return name // not in UTF-8
        }
    }

    function takeFiles(box, title, urls, modifiers) {
        box.urls = urls
        note(title, urls.length === 1 ? nameOf(urls[0]) : qsTr("%1 files").arg(urls.length), modifiers)
    }

    title: qsTr("Drag and drop")
    summary: qsTr("Drag cards between the columns, or to a second gallery; drop files from anywhere. Escape calls a drag off.")

    Card {
        title: qsTr("A board")
        summary: qsTr("A card travels as a JSON object of its own type. Ctrl leaves the original where it is.")

        Row {
            spacing: 16

            Repeater {
                model: [
                    { name: "ideas", title: qsTr("Ideas") },
                    { name: "ready", title: qsTr("Ready") },
                    { name: "air", title: qsTr("On air") }
                ]

                BoardColumn {
                    width: root.third
                    cards: root.cards.filter(card => card.column === modelData.name)
                    name: modelData.name
                    title: modelData.title

                    onDropped: root.take(card, modelData.name, modelData.title, source, modifiers)
                }
            }
        }
    }

    Card {
        title: qsTr("Files")
        summary: qsTr("Each box takes what it can use and refuses the rest.")

        Row {
            spacing: 16

            DropBox {
                id: files

                property var urls: []

                width: root.third
                empty: urls.length === 0
                hint: qsTr("Any files, folders and links")
                icon: "folder"
                zoneName: "files"

                box: NameList {
                    anchors.fill: parent
                    icon: "content"
                    names: files.urls.map(root.nameOf)
                }

                onDropped: root.takeFiles(files, qsTr("Files"), data, modifiers)

                UiFileDropHandler {
                }
            }

            DropBox {
                id: pictures

                property var urls: Pictures.samples.slice(0, 4).map(sample => sample.url)

                width: root.third
                empty: urls.length === 0
                hint: qsTr("Pictures")
                icon: "image-element"
                zoneName: "pictures"

                box: Grid {
                    anchors.fill: parent
                    columns: pictures.urls.length > 4 ? 3 : Math.min(2, pictures.urls.length)
                    spacing: 8

                    Repeater {
                        model: pictures.urls.slice(0, 9)

                        Item {
                            readonly property int rows: Math.ceil(Math.min(9, pictures.urls.length) / parent.columns)

                            width: Math.floor((parent.width - 8 * (parent.columns - 1)) / parent.columns)
                            height: Math.floor((parent.height - 8 * (rows - 1)) / rows)

                            UiThumbnail {
                                anchors.fill: parent
                                source: modelData
                            }

                            // Links are taken, too, but nothing is fetched for them.
                            UiIcon {
                                anchors.centerIn: parent
                                iconName: "image-element"
                                opacity: 0.5
                                visible: !modelData.toString().startsWith("file:")
                            }
                        }
                    }
                }

                onDropped: root.takeFiles(pictures, qsTr("Pictures"), data, modifiers)

                UiImageDropHandler {
                }
            }

            DropBox {
                id: videos

                property var urls: []

                width: root.third
                empty: urls.length === 0
                hint: qsTr("Videos: avi, flv, mkv, mp4, webm and mov")
                icon: "video"
                zoneName: "videos"

                box: NameList {
                    anchors.fill: parent
                    icon: "video"
                    names: videos.urls.map(root.nameOf)
                }

                onDropped: root.takeFiles(videos, qsTr("Videos"), data, modifiers)

                UiVideoDropHandler {
                }
            }
        }
    }

    Card {
        title: qsTr("What arrived")
        summary: qsTr("The latest first, with the keys that were held.")

        UiText {
            color: UiColors.getColor(UiColors.MediumGrey45)
            text: qsTr("Nothing yet.")
            visible: root.entries.length === 0
        }

        Column {
            width: parent.width
            visible: root.entries.length > 0

            Repeater {
                model: root.entries

                Item {
                    width: parent.width
                    height: 32

                    UiText {
                        width: 120
                        height: parent.height
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        text: modelData.place
                    }

                    UiText {
                        x: 120
                        width: parent.width - x - 120
                        height: parent.height
                        elide: Text.ElideRight
                        text: modelData.what
                    }

                    UiText {
                        anchors.right: parent.right
                        height: parent.height
                        color: UiColors.getColor(UiColors.MediumGrey45)
                        text: modelData.keys
                    }

                    UiHorizontalSeparator {
                        anchors.bottom: parent.bottom
                        width: parent.width
                        color: UiColors.getColor(UiColors.ProgressbarBGGrey)
                        visible: index < root.entries.length - 1
                    }
                }
            }
        }
    }
}
