// All glyphs of the icon sets, to be found by name and seen in every state.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0
import "../parts"

Page {
    id: root

    readonly property var sizes: [UiIcon.Icon_16x16, UiIcon.Icon_24x24, UiIcon.Icon_32x32]
    readonly property int size: sizes[sizeBox.currentIndex]
    readonly property var names: probe.iconNamesForSize(size).filter(
        name => name !== "" && name.includes(search.text.trim().toLowerCase()))

    title: qsTr("Icons")
    summary: qsTr("Three sizes, each drawn twice: once for ordinary screens and once for screens of twice the density.")

    UiIcon {
        id: probe

        visible: false
    }

    Card {
        title: qsTr("All glyphs")
        summary: qsTr("%1 shown, at a pixel ratio of %2. Move the window to another screen and they change.").arg(root.names.length).arg(Screen.devicePixelRatio)

        Flow {
            width: parent.width
            spacing: 24

            SearchField {
                id: search

                width: 240
                objectName: "iconSearch"
                placeholder: qsTr("Search by name")
            }

            UiComboBox {
                id: sizeBox

                width: 112
                currentIndex: 1
                model: ["16 \u00d7 16", "24 \u00d7 24", "32 \u00d7 32"]
                objectName: "iconSize"
            }

            UiSlider {
                id: disabledSlider

                width: 176
                text: qsTr("Disabled")
                value: 0
                valueText: value.toFixed(2)
            }

            UiSlider {
                id: highlightSlider

                width: 176
                text: qsTr("Highlight")
                value: 0
                valueText: value.toFixed(2)
            }
        }

        UiHorizontalSeparator {
            width: parent.width
        }

        Grid {
            readonly property int cell: Math.floor(parent.width / columns)

            columns: Math.max(1, Math.floor(parent.width / 130)) // room for the longest name

            Repeater {
                model: root.names

                Glyph {
                    width: parent.cell
                    disabled: disabledSlider.value
                    highlight: highlightSlider.value
                    name: modelData
                    size: root.size
                }
            }
        }

        UiText {
            text: qsTr("No glyph of this size has such a name.")
            visible: root.names.length === 0
        }
    }
}
