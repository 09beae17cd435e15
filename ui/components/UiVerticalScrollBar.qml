// The scroll bar of a vertical scroll view, which creates it and sets scrollView.
import QtQuick 2.5
import tamber.Ui 1.0

MouseArea {
    id: scrollBar

    property UiVerticalScrollView scrollView

    anchors.right: parent.right
    anchors.rightMargin: scrollView.scrollbarOffset
    width: 12
    height: parent.height
    acceptedButtons: Qt.LeftButton
    enabled: false
    opacity: 0
    preventStealing: true

    states: State {
        name: "visible"
        when: scrollView.heightRatio < 1.0

        PropertyChanges {
            target: scrollBar
            enabled: true
            opacity: 1
        }
    }

    transitions: Transition {
        NumberAnimation {
            property: "opacity"
        }
    }

    // Of the way between the ends: scrollTo() counts from 0, where a list with a header does not begin.
    function scrollTo(part, immediate) {
        var content = scrollView.contentItem
        var origin = content && content.originY || 0
        var range = origin && content.contentHeight - scrollView.height
        scrollView.scrollTo(range > 0 ? part + origin / range : part, immediate)
    }

    // The bounds keep the point of the handle that was grabbed under the pointer.
    onPressed: {
        var position = mapToItem(handle, mouse.x, mouse.y)
        var grabbed = position.y / handle.height
        if (!handle.contains(Qt.point(position.x, position.y))) {
            grabbed = mouse.y / Math.max(1.0, height)
            scrollTo(grabbed, false)
        }
        handle.lowerBound = handle.height * grabbed
        handle.upperBound = height - handle.height * (1 - grabbed)
    }

    onPositionChanged: {
        var position = (mouse.y - handle.lowerBound) / (handle.upperBound - handle.lowerBound)
        scrollTo(position, true)
    }

    Rectangle {
        id: handle

        property int upperBound: 0
        property int lowerBound: 0

        anchors.left: scrollBar.left
        anchors.right: scrollBar.right
        y: {
            // Content that grows moves the handle, and announces no new position.
            scrollView.heightRatio
            return scrollView.normalizedScrollPosition * (scrollBar.height - height)
        }
        height: Math.max(20, scrollBar.height * scrollView.heightRatio)
        border.color: UiColors.getColor(UiColors.DisabledLightGrey13)
        border.width: 1
        color: UiColors.getColor(UiColors.HeaderGrey4)
    }
}
