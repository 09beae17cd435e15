// Fields that are typed in.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0
import "../parts"

Page {
    id: root

    property string activity: ""
    property string stored: "TAMBER"
    property double tempo: 120

    readonly property int columns: contentWidth < 720 ? 2 : 3
    readonly property int fieldWidth: Math.floor((contentWidth - 48 - 24 * (columns - 1)) / columns)

    title: qsTr("Text and numbers")
    summary: qsTr("What is typed belongs to the field until the focus leaves it. Tab selects all of it, a press puts the cursor.")

    // The fields below have told their first texts by now.
    Component.onCompleted: activity = qsTr("Type something. Return, Tab and a press elsewhere commit it, Escape goes back.")

    footer: StatusLine {
        text: root.activity
    }

    Card {
        title: qsTr("Line edit")
        summary: qsTr("The frame turns red where a validator does not accept what is there.")

        Grid {
            columnSpacing: 24
            columns: root.columns
            rowSpacing: 20

            Labelled {
                text: qsTr("Name")

                UiLineEdit {
                    width: root.fieldWidth
                    objectName: "nameEdit"
                    placeHolderText: qsTr("Your name")

                    onTextChanged: root.activity = qsTr("The name is \"%1\"").arg(text)
                }
            }

            Labelled {
                text: qsTr("Title")

                UiLineEdit {
                    width: root.fieldWidth
                    objectName: "titleEdit"
                    text: qsTr("A title that is too long for its field is shown from its beginning")

                    onTextChanged: root.activity = qsTr("The title is \"%1\"").arg(text)
                }
            }

            Labelled {
                text: qsTr("Port, 1024 to 65535")

                UiLineEdit {
                    width: root.fieldWidth
                    objectName: "portEdit"
                    text: "80"
                    validator: IntValidator {
                        bottom: 1024
                        top: 65535
                    }

                    onTextChanged: root.activity = acceptableInput ? qsTr("The port is %1").arg(text)
                                                                   : qsTr("%1 is no port").arg(text)
                }
            }

            Labelled {
                text: qsTr("Kept by the host, in capitals")

                UiLineEdit {
                    width: root.fieldWidth
                    bindable: true
                    objectName: "capitalsEdit"
                    text: root.stored

                    onUpdateRequested: {
                        root.stored = newValue.toUpperCase()
                        root.activity = qsTr("The host was asked for \"%1\" and wrote \"%2\"").arg(newValue).arg(root.stored)
                    }
                }
            }

            Labelled {
                text: qsTr("Read-only")

                UiLineEdit {
                    width: root.fieldWidth
                    objectName: "readOnlyEdit"
                    readOnly: true
                    text: "tamber.Ui 1.0"
                }
            }

            Labelled {
                text: qsTr("Password")

                UiLineEdit {
                    width: root.fieldWidth
                    echoMode: TextInput.Password
                    objectName: "passwordEdit"
                    text: "secret"
                }
            }

            Labelled {
                text: qsTr("Disabled")

                UiLineEdit {
                    width: root.fieldWidth
                    enabled: false
                    text: qsTr("Not now")
                }
            }

            Labelled {
                text: qsTr("Disabled, empty")

                UiLineEdit {
                    width: root.fieldWidth
                    enabled: false
                    placeHolderText: qsTr("Nothing to be typed")
                }
            }

            Labelled {
                text: qsTr("Marked by the host")

                UiLineEdit {
                    width: root.fieldWidth
                    error: text === "admin"
                    objectName: "takenEdit"
                    text: "admin"
                }
            }
        }
    }

    Card {
        title: qsTr("Spin box")
        summary: qsTr("Arrows, keys and, with the focus, the wheel step by one unit of the last decimal, Page Up and Page Down by ten.")

        Grid {
            columnSpacing: 24
            columns: root.columns
            rowSpacing: 20

            Labelled {
                text: qsTr("Copies, 1 to 99")

                UiSpinBox {
                    width: root.fieldWidth
                    maximumValue: 99
                    minimumValue: 1
                    objectName: "copiesSpin"
                    value: 2

                    onValueChanged: root.activity = qsTr("%1 copies").arg(value)
                }
            }

            Labelled {
                text: qsTr("Gain, -60 to 12")

                UiSpinBox {
                    width: root.fieldWidth
                    decimals: 1
                    maximumValue: 12
                    minimumValue: -60
                    objectName: "gainSpin"
                    unit: qsTr("dB")
                    value: -6.5

                    onValueChanged: root.activity = qsTr("The gain is %1 dB").arg(displayString)
                }
            }

            Labelled {
                text: qsTr("Kept by the host, in fives")

                UiSpinBox {
                    width: root.fieldWidth
                    bindable: true
                    maximumValue: 300
                    minimumValue: 20
                    objectName: "tempoSpin"
                    unit: qsTr("bpm")
                    value: root.tempo

                    onUpdateRequested: {
                        const up = newValue > root.tempo
                        root.tempo = up ? Math.ceil(newValue / 5) * 5 : Math.floor(newValue / 5) * 5
                        root.activity = qsTr("The host was asked for %1 and wrote %2").arg(newValue).arg(root.tempo)
                    }
                }
            }

            Labelled {
                text: qsTr("Ten decimals")

                UiSpinBox {
                    width: root.fieldWidth
                    decimals: 10
                    objectName: "fineSpin"
                    value: Math.PI
                }
            }

            Labelled {
                text: qsTr("Marked by the host")

                UiSpinBox {
                    width: root.fieldWidth
                    error: value > 100
                    objectName: "loadSpin"
                    unit: qsTr("%")
                    value: 104
                }
            }

            Labelled {
                text: qsTr("Disabled")

                UiSpinBox {
                    width: root.fieldWidth
                    enabled: false
                    unit: qsTr("px")
                    value: 640
                }
            }
        }
    }

    Card {
        title: qsTr("What a text means")
        summary: qsTr("Numbers are read as your language writes them (%1 here), or else as programs do.").arg(Qt.locale().name)

        UiSpinBoxExPrivate {
            id: reader

            decimals: 4
        }

        Flow {
            width: parent.width
            spacing: 24

            UiLineEdit {
                id: sample

                width: root.fieldWidth
                error: isNaN(reader.parseNumber(typedText))
                objectName: "sampleEdit"
                text: "1234.5678"
            }

            UiText {
                width: Math.min(implicitWidth, parent.width)
                height: Math.max(sample.height, implicitHeight)
                text: sample.error ? qsTr("no number")
                                   : qsTr("%1, one step up %2, one step down %3").arg(shown(number)).arg(shown(reader.stepUp(number))).arg(shown(reader.stepDown(number)))
                wrapMode: Text.Wrap

                readonly property double number: reader.parseNumber(sample.typedText)

                function shown(value) {
                    return Number(value).toLocaleString(Qt.locale(), "f", reader.decimals)
                }
            }
        }
    }
}
