// A dialog that tells the user something, or asks.
//
// text: what it says; it wraps at a width that is good to read.
// icon: Ui.MessageBoxOkIcon, Ui.MessageBoxWarningIcon, Ui.MessageBoxErrorIcon or (the default)
//     Ui.MessageBoxNoIcon.
// buttons: UiDialogButtons by role; a single one with the role OkRole where none are listed.
// label, result, flags, show(), accept(), reject(), accepted(result), rejected(), ...: see UiDialog.
// Keys: Return and Enter answer with the first primary button, Escape rejects.
import QtQuick 2.15
import tamber.Ui 1.0

UiDialog {
    id: root

    property string text: ""
    property int icon: Ui.MessageBoxNoIcon

    property UiDialogButton okButton: UiDialogButton {
        role: UiDialogButton.OkRole
    }

    Component.onCompleted: if (buttons.length === 0) buttons = [okButton]

    contentDelegate: Component {
        Item {
            property UiDialog dialog

            implicitWidth: Math.max(320, message.x + message.width + 15)
            implicitHeight: Math.max(picture.visible ? 32 : 0, message.height) + 48

            Accessible.role: Accessible.AlertMessage
            Accessible.name: root.text

            UiIcon {
                id: picture

                x: 13 // the glyph begins where the title does
                y: 24
                iconName: root.icon === Ui.MessageBoxOkIcon ? "ok"
                        : root.icon === Ui.MessageBoxWarningIcon ? "warning"
                        : root.icon === Ui.MessageBoxErrorIcon ? "error"
                        : ""
                iconSize: UiIcon.Icon_32x32
                visible: iconName !== ""
            }

            UiText {
                id: message

                x: picture.visible ? 60 : 15
                y: 24 + Math.max(0, Math.floor(((picture.visible ? 32 : 0) - height) / 2))
                width: Math.min(Math.ceil(implicitWidth), 400)
                lineHeight: 1.2
                text: root.text
                wrapMode: Text.Wrap

                Accessible.ignored: true
            }
        }
    }
}
