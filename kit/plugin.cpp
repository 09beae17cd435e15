#include "plugin.h"

#include "captions.h"

#include <TamberUi/AbstractMenuItem>
#include <TamberUi/Border>
#include <TamberUi/CheckerBoard>
#include <TamberUi/ColorSwatch>
#include <TamberUi/Colors>
#include <TamberUi/ContextMenu>
#include <TamberUi/DefaultSlider>
#include <TamberUi/Dialog>
#include <TamberUi/DialogButton>
#include <TamberUi/DragHandle>
#include <TamberUi/DragZone>
#include <TamberUi/DropHandler>
#include <TamberUi/DropZone>
#include <TamberUi/FileDropHandler>
#include <TamberUi/Fonts>
#include <TamberUi/GlobalDefaultPalette>
#include <TamberUi/Icon>
#include <TamberUi/ImageDropHandler>
#include <TamberUi/JsonMimeData>
#include <TamberUi/Loader>
#include <TamberUi/Logging>
#include <TamberUi/MenuItem>
#include <TamberUi/MenuSeparator>
#include <TamberUi/MimeData>
#include <TamberUi/MimeDropHandler>
#include <TamberUi/Module>
#include <TamberUi/Palette>
#include <TamberUi/Thumbnail>
#include <TamberUi/Tooltip>
#include <TamberUi/TooltipAgent>
#include <TamberUi/Ui>
#include <TamberUi/VerticalScrollView>
#include <TamberUi/VideoDropHandler>

#include <QtCore/QCoreApplication>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtQml/qqml.h>
#include <QtQuick/QQuickItem>

using namespace ta::ui;

namespace {

// The fonts of the design ask for a family of its own name; Lato stands in for it, unless the host
// has installed that family.
void provideFontFamily()
{
    const QString family = QStringLiteral("Ta_Lato");
    const QString standIn = QStringLiteral("Lato");
    const QStringList families = QFontDatabase().families();
    if (families.contains(family))
        return;
    if (!families.contains(standIn))
        qCWarning(lcUi, "The font family Lato is not installed; texts use a fallback");
    QFont::insertSubstitution(family, standIn);
}

// The captions of dialog buttons are translations of ids that every host has to bring along; one
// that brings none shows words all the same.
void provideCaptions()
{
    QCoreApplication::installTranslator(new Captions(QLocale(), QCoreApplication::instance()));
}

// Each engine has an instance of its own, which it owns.
template <typename Names>
QObject *createNames(QQmlEngine *, QJSEngine *)
{
    return new Names;
}

void registerPublic(const char *uri)
{
    constexpr int major = 1;
    constexpr int minor = 0;
    const QString baseOnly = QStringLiteral("It is only what its kinds have in common");

    qmlRegisterRevision<QQuickItem, 11>(uri, major, minor);
    qmlRegisterSingletonType<Colors>(uri, major, minor, "UiColors", createNames<Colors>);
    qmlRegisterSingletonType<Fonts>(uri, major, minor, "UiFonts", createNames<Fonts>);
    qmlRegisterUncreatableType<Ui>(uri, major, minor, "Ui",
                                   QStringLiteral("Ui only has enumerations"));
    qmlRegisterUncreatableType<AbstractMenuItem>(uri, major, minor, "UiAbstractMenuItem", baseOnly);
    qmlRegisterType<Border>(uri, major, minor, "UiBorder");
    qmlRegisterType<CheckerBoard>(uri, major, minor, "UiCheckerBoard");
    qmlRegisterUncreatableType<ColorSwatch>(uri, major, minor, "UiColorSwatch",
                                            QStringLiteral("Swatches belong to a palette"));
    qmlRegisterType<ContextMenu>(uri, major, minor, "UiContextMenu");
    qmlRegisterType<DefaultSlider>(uri, major, minor, "UiDefaultSlider");
    qmlRegisterType<Dialog>(uri, major, minor, "UiDialog");
    qmlRegisterType<DialogButton>(uri, major, minor, "UiDialogButton");
    qmlRegisterType<DragHandle>(uri, major, minor, "UiDragHandle");
    qmlRegisterType<DragZone>(uri, major, minor, "UiDragZone");
    qmlRegisterUncreatableType<DropHandler>(uri, major, minor, "UiDropHandler", baseOnly);
    qmlRegisterType<DropZone>(uri, major, minor, "UiDropZone");
    qmlRegisterType<FileDropHandler>(uri, major, minor, "UiFileDropHandler");
    qmlRegisterType<GlobalDefaultPalette>(uri, major, minor, "UiGlobalDefaultPalette");
    qmlRegisterType<Icon>(uri, major, minor, "UiIcon");
    qmlRegisterType<ImageDropHandler>(uri, major, minor, "UiImageDropHandler");
    qmlRegisterType<JsonMimeData>(uri, major, minor, "UiJsonMimeData");
    qmlRegisterType<Loader>(uri, major, minor, "UiLoader");
    qmlRegisterType<MenuItem>(uri, major, minor, "UiMenuItem");
    qmlRegisterType<MenuSeparator>(uri, major, minor, "UiMenuSeparator");
    qmlRegisterUncreatableType<MimeData>(uri, major, minor, "UiMimeData", baseOnly);
    qmlRegisterType<MimeDropHandler>(uri, major, minor, "UiMimeDropHandler");
    qmlRegisterUncreatableType<Palette>(uri, major, minor, "UiPalette",
                                        QStringLiteral("Palettes come from their providers"));
    qmlRegisterType<Thumbnail>(uri, major, minor, "UiThumbnail");
    qmlRegisterType<Tooltip>(uri, major, minor, "UiTooltip");
    qmlRegisterType<TooltipAgent>(uri, major, minor, "UiTooltipAgent");
    qmlRegisterType<VerticalScrollView>(uri, major, minor, "UiVerticalScrollView");
    qmlRegisterType<VideoDropHandler>(uri, major, minor, "UiVideoDropHandler");

    for (const char *control : {
             "UiCalendar",   "UiCheckBox",    "UiColorButton",  "UiColorPicker",
             "UiComboBox",   "UiDateField",   "UiGroup",        "UiHorizontalSeparator",
             "UiInfoTip",    "UiLineEdit",    "UiListDelegate", "UiLoadIndicator",
             "UiMessageBox", "UiProgressBar", "UiPushButton",   "UiSlider",
             "UiSpinBox",    "UiSplitter",    "UiText",         "UiToolButton",
         }) {
        const QUrl url(QLatin1String("qrc:/tamber/Ui/") + QLatin1String(control)
                       + QLatin1String(".qml"));
        qmlRegisterType(url, uri, major, minor, control);
    }
}

} // namespace

// QML lets registerTypes() add to the module that is being imported and to no other.
TamberUiKitPlugin::TamberUiKitPlugin(QObject *parent) : QQmlExtensionPlugin(parent)
{
    register_private();
}

TamberUiKitPlugin::~TamberUiKitPlugin() = default;

void TamberUiKitPlugin::registerTypes(const char *uri)
{
    Q_ASSERT(qstrcmp(uri, "tamber.Ui") == 0);
    registerPublic(uri);
}

// Runs on the GUI thread, where fonts and translators belong; the types are registered on the
// thread that loads QML.
void TamberUiKitPlugin::initializeEngine(QQmlEngine *, const char *)
{
    static const bool provided = (provideFontFamily(), provideCaptions(), true);
    Q_UNUSED(provided)
}
