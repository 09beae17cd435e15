#include "pages.h"

#include <QtCore/QUrl>

namespace pages {

namespace {

struct Page
{
    const char *name;
    const char *title;
    const char *file; // in the folder pages
};

// A new page is a line here and a file there.
constexpr Page kPages[] = {
    { "colours-and-fonts", "Colours and fonts", "ColoursAndFonts.qml" },
    { "buttons", "Buttons", "Buttons.qml" },
    { "sliders", "Sliders", "Sliders.qml" },
    { "split-views", "Split views", "SplitViews.qml" },
    { "text-and-numbers", "Text and numbers", "TextAndNumbers.qml" },
    { "dates", "Dates", "Dates.qml" },
    { "colour", "Colour", "Colour.qml" },
    { "popups", "Popups", "Popups.qml" },
    { "dialogs", "Dialogs", "Dialogs.qml" },
    { "menus", "Menus", "Menus.qml" },
    { "tooltips", "Tooltips", "Tooltips.qml" },
    { "loading", "Loading", "Loading.qml" },
    { "drag-and-drop", "Drag and drop", "DragAndDrop.qml" },
    { "lists-and-scrolling", "Lists and scrolling", "ListsAndScrolling.qml" },
    { "icons", "Icons", "Icons.qml" },
    { "borders-and-boards", "Borders and boards", "BordersAndBoards.qml" },
    { "thumbnails", "Thumbnails", "Thumbnails.qml" },
};

} // namespace

QStringList names()
{
    QStringList names;
    for (const Page &page : kPages)
        names.append(QLatin1String(page.name));
    return names;
}

QVariantList model()
{
    QVariantList model;
    for (const Page &page : kPages) {
        model.append(QVariantMap {
            { QStringLiteral("name"), QLatin1String(page.name) },
            { QStringLiteral("title"), QLatin1String(page.title) },
            { QStringLiteral("source"),
              QUrl(QLatin1String("qrc:/gallery/pages/") + QLatin1String(page.file)) },
        });
    }
    return model;
}

} // namespace pages
