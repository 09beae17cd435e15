// A field that shows one of several values and drops down a list of them.
//
// model: a list of strings, a number, or a model whose role textRole holds the texts.
// textRole: the role; empty (the default) for lists and numbers.
// currentIndex: the row of the value, -1 for none. A choice writes it.
// currentText, count: the text of that row; the number of rows.
// placeholder: what the field says while there is no value.
// popupVisible: whether the list is open. show(), hide(): open and close it.
// activated(index): the user chose a row, be it the one that was chosen before.
// Keys: Space, Return, Enter, F4 and Alt+Down open the list; Up, Down, Home, End, Page Up, Page Down
//     and letters move in it; Return, Enter and Space choose; Escape closes. While the list is
//     closed, the keys that move change the value, and so does the wheel while the field has the
//     focus.
import QtQuick 2.15
import QtQml.Models 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

UiButtonBase {
    id: root

    property var model
    property string textRole: ""
    property int currentIndex: -1
    property string placeholder: ""

    readonly property string currentText: changes >= 0 && count > 0 ? textAt(currentIndex) : ""
    readonly property alias count: rows.count
    readonly property alias popupVisible: anchor.popupVisible

    // The row that the keys or the pointer have reached in the open list.
    property int highlightedIndex: -1
    property string typed: ""
    property double typedAt: 0
    property int wheelTurn: 0
    property int changes: 0 // of the texts, while their number stays

    signal activated(int index)

    function show() {
        if (count === 0)
            return
        forceActiveFocus() // the keys are handled here, not in the list
        highlightedIndex = currentIndex
        anchor.show()
    }

    function hide() {
        anchor.hide()
    }

    function textAt(index) {
        if (index < 0 || index >= count)
            return ""
        const row = rows.items.get(index).model
        const text = textRole !== "" ? row[textRole] : row.modelData
        return text === undefined ? "" : String(text)
    }

    function choose(index) {
        anchor.hide()
        if (index < 0 || index >= count)
            return
        currentIndex = index
        activated(index)
    }

    function moveTo(index) {
        const target = Math.max(0, Math.min(count - 1, index))
        if (count === 0)
            return
        if (popupVisible) {
            highlightedIndex = target
            if (anchor.popupItem)
                anchor.popupItem.reveal(target)
        } else if (target !== currentIndex) {
            choose(target)
        }
    }

    // The next row that begins with what was typed within the last second. One letter again and
    // again walks through the rows that begin with it.
    function typeAhead(letters) {
        if (count === 0)
            return
        const now = Date.now()
        typed = (now - typedAt < 1000 ? typed : "") + letters.toLocaleLowerCase()
        typedAt = now
        const repeated = typed.split("").every(letter => letter === typed[0])
        const wanted = repeated ? typed[0] : typed
        const from = popupVisible ? highlightedIndex : currentIndex
        for (let step = repeated ? 1 : 0; step <= count; ++step) {
            const index = (Math.max(from, -1) + step + count) % count
            if (textAt(index).toLocaleLowerCase().startsWith(wanted)) {
                moveTo(index)
                return
            }
        }
    }

    // Returns whether the key was one of the field's.
    function handleKey(event) {
        const page = 8
        const from = popupVisible ? highlightedIndex : currentIndex
        switch (event.key) {
        case Qt.Key_Space:
        case Qt.Key_Return:
        case Qt.Key_Enter:
            if (!event.isAutoRepeat) {
                if (popupVisible)
                    choose(highlightedIndex)
                else
                    show()
            }
            return true
        case Qt.Key_F4:
            if (event.modifiers & Qt.AltModifier) // closes the window
                return false
            if (popupVisible)
                hide()
            else
                show()
            return true
        case Qt.Key_Down:
            if (event.modifiers & Qt.AltModifier)
                show()
            else
                moveTo(from + 1)
            return true
        case Qt.Key_Up:
            if (event.modifiers & Qt.AltModifier)
                hide()
            else
                moveTo(from - 1)
            return true
        case Qt.Key_Home:
            moveTo(0)
            return true
        case Qt.Key_End:
            moveTo(count - 1)
            return true
        case Qt.Key_PageDown:
            moveTo(from + page)
            return true
        case Qt.Key_PageUp:
            moveTo(from - page)
            return true
        }
        // Escape, Backspace and the like have a text, too.
        if (!/^[^\x00-\x20\x7f]/.test(event.text) || event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
            return false
        typeAhead(event.text)
        return true
    }

    activeFocusOnPress: true
    down: popupVisible
    implicitWidth: 200
    implicitHeight: 32

    Accessible.role: Accessible.ComboBox
    Accessible.name: currentText === "" ? placeholder : currentText
    Accessible.focusable: true
    Accessible.onPressAction: if (enabled) popupVisible ? hide() : show()

    Keys.onPressed: event.accepted = handleKey(event)
    // The press did it all: the button's own click on release would open the list again.
    Keys.onReleased: event.accepted = event.key === Qt.Key_Space || event.key === Qt.Key_Return
                     || event.key === Qt.Key_Enter

    onClicked: popupVisible ? hide() : show()
    onEnabledChanged: if (!enabled) hide()
    onVisibleChanged: if (!visible) hide()
    onModelChanged: ++changes

    DelegateModel {
        id: rows

        delegate: Item {}
        model: root.model

        items.onChanged: ++root.changes
    }

    Connections {
        function onDataChanged() {
            ++root.changes
        }

        // Lists and numbers have no such signal.
        target: root.model && root.model.dataChanged ? root.model : null
    }

    DropDownGround {}

    UiText {
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: indicator.left
        anchors.rightMargin: 8
        height: parent.height
        color: UiColors.getColor(!root.enabled ? UiColors.MediumGrey33
                                : root.currentText === "" ? UiColors.MediumGrey45
                                : UiColors.DarkGrey80)
        elide: Text.ElideRight
        text: root.currentText === "" ? root.placeholder : root.currentText

        Accessible.ignored: true
    }

    Image {
        id: indicator

        x: root.width - width - 12
        y: Math.floor((root.height - height) / 2)
        opacity: root.enabled ? 1 : 0.4
        source: "qrc:/ui/images/dropdown-indicator.png"
    }

    FocusFrame {}

    WheelHandler {
        enabled: root.activeFocus && !root.popupVisible
        onWheel: {
            root.wheelTurn += event.angleDelta.y
            const notches = Math.trunc(root.wheelTurn / 120)
            root.wheelTurn -= notches * 120
            if (notches !== 0)
                root.moveTo(root.currentIndex - notches)
        }
    }

    UiPopupAnchor {
        id: anchor

        y: root.height
        autoLayout: true
        objectName: root.objectName === "" ? "" : root.objectName + "Popup"
        triggerItem: root

        Component {
            ComboBoxList {
                comboBox: root
            }
        }
    }
}
