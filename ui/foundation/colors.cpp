#include "colors.h"

#include "logging.h"

#include <QtCore/QtMath>

namespace ta::ui {

namespace {

// Indexed by Colors::Color.
constexpr QRgb kColors[] = {
    0xFFFFFFFF, // White
    0xFFF6F6F6, // HeaderGrey4
    0xFFF9F9F9, // TimeTableHover
    0xFFF1F0F2, // DeviceColumnGrey6
    0xFFDDDDDD, // DisabledLightGrey13
    0xFFD6D5D3, // SeparatorLineGrey17
    0xFFCCCCCC, // ControlGrey20
    0xFFC7C7C7, // DarkerControlGrey22
    0xFFBBBBBB, // MediumLightGrey27
    0xFFAAAAAE, // MediumGrey33
    0xFF606060, // MediumGrey45
    0xFF555555, // MediumDarkGrey67
    0xFF444444, // DialogHeaderText
    0xFF333333, // DarkGrey80
    0xFF000000, // Black
    0xFFECD284, // WarningYellow
    0xFFA56061, // WarningRed
    0xFF98BE9C, // SelectionGreen
    0xFF82A488, // DarkerSelectionGreen
    0xFF90AA92, // InactiveSelectionGreen
    0xFFBAD6BD, // HoverGreen
    0xFF9DC4A1, // DarkerHoverGreen
    0xFF70A9B8, // ButtonNormalBlue
    0xFF6AB7CC, // ButtonHoverBlue
    0xFF40A1BB, // ButtonPressBlue
    0xFF55C1DE, // LinkPressBlue
    0xFFA3C5CC, // BlueGrey
    0xFFA4B0BB, // LightBlueGrey
    0xFF8394A3, // DarkBlueGrey
    0xFF8BC7D8, // FocusColor
    0xFF457381, // DarkerBlueGrey
    0xFFEBEBEB, // DialogPreviewGrey
    0xFFE9EAED, // FacebookBG
    0xFFC4CDE0, // FacebookBorder
    0xFFECEBED, // EmptyImageBox
    0xFFE1E0E2, // EmptyImageBoxPress
    0xFFE4E4E4, // ProgressbarBGGrey
    0xFFA497C5, // InvisibleContentOverlay
    0xFF65A1BB, // VideoButtonColor
    0xFFBC7EA0, // TimeScheduleDiagramScheduledColor
    0xFF61C0B7, // TimeScheduleDiagramNowActiveColor
    0xFF839E9B, // TimeScheduleDiagramInactiveColor
    0xFFD7D7D7, // PublishToggleInactive
    0xFF70A9B8, // PublishToggleScheduled
    0xFF90C695, // PublishToggleVisible
};
static_assert(std::size(kColors) == Colors::PublishToggleVisible + 1, "a value for each name");

} // namespace

Colors::Colors(QObject *parent) : QObject(parent) {}

Colors::~Colors() = default;

QColor Colors::getColor(Color id, float alpha) const
{
    if (id < 0 || id >= int(std::size(kColors))) {
        qCWarning(lcUi, "There is no colour %d", int(id));
        return QColor();
    }
    QColor color(kColors[id]);
    color.setAlphaF(qIsNaN(alpha) ? 1.0 : qBound(0.0, qreal(alpha), 1.0));
    return color;
}

QColor Colors::getColor(Color id) const
{
    return getColor(id, 1.0f);
}

} // namespace ta::ui
