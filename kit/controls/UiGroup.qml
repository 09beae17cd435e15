// Things that belong together, below a title that folds them away.
//
// title: the title.
// collapsed: whether only the title is there; a click on the title changes it. False by default.
// collapsible: whether the title does so; without it, it has no arrow. True by default.
// spacing: between the children, which lie below each other; 12 by default.
// contentWidth: what the children may be as wide as.
// toggled(): the user has changed collapsed.
// Keys: Return, Enter and Space on the title fold and unfold; Left folds, Right unfolds.
import QtQuick 2.15
import tamber.Ui 1.0
import tamber.Ui.Private 1.0

Item {
    id: root

    property string title: ""
    property bool collapsed: false
    property bool collapsible: true
    property alias spacing: column.spacing

    default property alias content: column.data

    readonly property int indent: collapsible ? 29 : 0 // where the title begins
    readonly property int contentWidth: width - indent
    readonly property bool unfolded: !collapsed || !collapsible

    signal toggled()

    function setCollapsed(value) {
        if (!collapsible || collapsed === value)
            return
        collapsed = value
        toggled()
    }

    implicitWidth: 240
    implicitHeight: header.height + body.height

    Accessible.role: Accessible.Grouping
    Accessible.name: title

    UiButtonBase {
        id: header

        width: root.width
        height: 32
        activeFocusOnTab: root.collapsible
        enabled: root.collapsible

        Accessible.role: Accessible.Button
        Accessible.name: root.title
        Accessible.focusable: root.collapsible
        Accessible.ignored: !root.collapsible
        Accessible.onPressAction: if (enabled) root.setCollapsed(!root.collapsed)

        Keys.onPressed: {
            event.accepted = event.key === Qt.Key_Left || event.key === Qt.Key_Right
            if (event.accepted)
                root.setCollapsed(event.key === Qt.Key_Left)
        }

        onClicked: root.setCollapsed(!root.collapsed)

        Rectangle {
            anchors.fill: parent
            color: UiColors.getColor(header.pressed ? UiColors.SelectionGreen : UiColors.HoverGreen,
                                     header.pressed || header.hovered ? 1 : 0)
            radius: 3
        }

        Image {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            opacity: root.enabled ? 1 : 0.4
            rotation: root.unfolded ? 0 : -90
            source: "qrc:/ui/images/collapse-arrow.svg"
            sourceSize.width: 13
            sourceSize.height: 13
            visible: root.collapsible

            Behavior on rotation {
                NumberAnimation {
                    duration: 120
                }
            }
        }

        UiText {
            x: root.indent
            width: parent.width - x
            height: parent.height
            color: UiColors.getColor(root.enabled ? UiColors.DarkGrey80 : UiColors.MediumGrey33)
            elide: Text.ElideRight
            font: UiFonts.getFont(UiFonts.SemiBold, 14)
            text: root.title

            Accessible.ignored: true
        }

        FocusFrame {}
    }

    // What is folded away is out of reach of the keys as well.
    Item {
        id: body

        readonly property int contentHeight: column.height + 16

        y: header.height
        width: root.width
        height: root.unfolded ? contentHeight : 0
        clip: height < contentHeight // focus frames reach beyond the children
        visible: height > 0

        Behavior on height {
            enabled: root.visible

            NumberAnimation {
                duration: 120
                easing.type: Easing.OutQuad
            }
        }

        Column {
            id: column

            x: root.indent
            y: 8
            width: root.contentWidth
            enabled: root.unfolded
            spacing: 12
        }
    }
}
