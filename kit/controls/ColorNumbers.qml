// The components of the colour of a UiColorPicker as numbers. Part of the kit's own controls.
//
// Keys: Up and Down change a number by one.
import QtQuick 2.15
import tamber.Ui 1.0

Row {
    id: root

    property Item picker

    readonly property int shown: picker.usesAlpha ? 4 : 3

    function pick(component, number) {
        const color = picker.color
        const known = !picker.indeterminate
        const values = [known ? color.r : 0, known ? color.g : 0, known ? color.b : 0, known ? color.a : 1]
        values[component] = number / (component === 3 ? 100 : 255)
        picker.choose(Qt.rgba(values[0], values[1], values[2], 1), values[3])
    }

    spacing: 8

    Repeater {
        model: [
            { label: qsTr("R"), name: qsTr("Red") },
            { label: qsTr("G"), name: qsTr("Green") },
            { label: qsTr("B"), name: qsTr("Blue") },
            { label: qsTr("%"), name: qsTr("Opacity in percent") }
        ]

        Item {
            id: entry

            readonly property int component: index
            readonly property int limit: component === 3 ? 100 : 255
            readonly property int value: {
                const color = root.picker.color
                return Math.round([color.r, color.g, color.b, color.a][component] * limit)
            }

            function enter(number) {
                if (!isNaN(number) && (number !== value || root.picker.indeterminate))
                    root.pick(component, Math.max(0, Math.min(limit, number)))
            }

            width: Math.floor((root.width - (root.shown - 1) * root.spacing) / root.shown)
            height: 32
            visible: component < root.shown

            UiText {
                id: label

                width: 18
                height: parent.height
                color: UiColors.getColor(root.enabled ? UiColors.MediumGrey45 : UiColors.MediumGrey33)
                text: modelData.label

                Accessible.ignored: true
            }

            UiLineEdit {
                anchors.left: label.right
                anchors.right: parent.right
                accessibleName: modelData.name
                bindable: true
                inputMethodHints: Qt.ImhDigitsOnly
                maximumLength: 3
                objectName: ["redField", "greenField", "blueField", "opacityField"][entry.component]
                text: root.picker.indeterminate ? "" : entry.value
                validator: IntValidator {
                    bottom: 0
                    top: entry.limit
                }

                Keys.onDownPressed: entry.enter(entry.value - 1)
                Keys.onUpPressed: entry.enter(entry.value + 1)

                onUpdateRequested: entry.enter(parseInt(newValue, 10))
            }
        }
    }
}
