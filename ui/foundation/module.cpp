#include "module.h"

#include "controls/buttonbase.h"
#include "controls/calendarinfo.h"
#include "controls/checkbuttonbase.h"
#include "controls/delegatebase.h"
#include "controls/lineeditbase.h"
#include "controls/pushbuttonbase.h"
#include "controls/sliderbase.h"
#include "controls/spinboxexprivate.h"
#include "controls/toolbuttonbase.h"
#include "palettes/colorpickerbase.h"
#include "palettes/paletteitem.h"
#include "popups/popupanchor.h"

#include <QtQml/qqml.h>

namespace ta::ui {

void register_private()
{
    constexpr const char *uri = "tamber.Ui.Private";
    constexpr int major = 1;
    constexpr int minor = 0;

    // Without it, items of this module would lack the QQuickItem properties added after Qt 5.0.
    qmlRegisterRevision<QQuickItem, 11>(uri, major, minor);

    qmlRegisterType<PopupAnchor>(uri, major, minor, "UiPopupAnchor");
    qmlRegisterType<ButtonBase>(uri, major, minor, "UiButtonBase");
    qmlRegisterType<CalendarInfo>(uri, major, minor, "UiCalendarInfo");
    qmlRegisterType<CheckButtonBase>(uri, major, minor, "UiCheckButtonBase");
    qmlRegisterType<ToolButtonBase>(uri, major, minor, "UiToolButtonBase");
    qmlRegisterType<PushButtonBase>(uri, major, minor, "UiPushButtonBase");
    qmlRegisterType<SliderBase>(uri, major, minor, "UiSliderBase");
    qmlRegisterType<DelegateBase>(uri, major, minor, "UiDelegateBase");
    qmlRegisterType<ColorPickerBase>(uri, major, minor, "UiColorPickerBase");
    qmlRegisterType<PaletteItem>(uri, major, minor, "UiPaletteItem");
    qmlRegisterType<LineEditBase>(uri, major, minor, "UiLineEditBase");
    qmlRegisterType<SpinBoxExPrivate>(uri, major, minor, "UiSpinBoxExPrivate");

    // Without a name of its own: QML reads the lists of palettes even where the host has registered
    // no public types.
    qmlRegisterAnonymousType<Palette>(uri, major);
}

} // namespace ta::ui
