// The window: the pages' names on the left, the chosen page beside them.
//
// pages: objects with name, title and source.
// currentPage: the name of the page that is shown.
import QtQuick 2.15
import QtQuick.Window 2.15
import tamber.Ui 1.0
import "parts"

Window {
    id: root

    property var pages: []
    property string currentPage: ""

    signal pageShown(string name)

    width: 1180
    height: 800
    minimumWidth: 900
    minimumHeight: 640
    color: UiColors.getColor(UiColors.HeaderGrey4)
    title: qsTr("TamberUi Gallery")
    visible: true

    Navigation {
        id: navigation

        height: parent.height
        currentPage: root.currentPage
        objectName: "navigation"
        pages: root.pages

        onChosen: root.currentPage = name
    }

    Loader {
        anchors.left: navigation.right
        anchors.right: parent.right
        height: parent.height
        source: root.pages.find(page => page.name === root.currentPage).source

        onLoaded: root.pageShown(root.currentPage)
    }
}
