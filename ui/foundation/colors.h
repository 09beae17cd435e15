#pragma once

#include "export.h"

#include <QtCore/QObject>
#include <QtGui/QColor>

namespace ta::ui {

/*!
    The named colours of the design.

    QML reaches them through the singleton \c UiColors:
    \code UiColors.getColor(UiColors.HeaderGrey4, 0.5) \endcode
    Several names share a value today; each keeps an entry of its own, so that they can part later.
*/
class TAMBERUI_EXPORT Colors : public QObject
{
    Q_OBJECT

public:
    // The type is fixed, since QML may pass any number.
    enum Color : int {
        White,
        HeaderGrey4,
        TimeTableHover,
        DeviceColumnGrey6,
        DisabledLightGrey13,
        SeparatorLineGrey17,
        ControlGrey20,
        DarkerControlGrey22,
        MediumLightGrey27,
        MediumGrey33,
        MediumGrey45,
        MediumDarkGrey67,
        DialogHeaderText,
        DarkGrey80,
        Black,
        WarningYellow,
        WarningRed,
        SelectionGreen,
        DarkerSelectionGreen,
        InactiveSelectionGreen,
        HoverGreen,
        DarkerHoverGreen,
        ButtonNormalBlue,
        ButtonHoverBlue,
        ButtonPressBlue,
        LinkPressBlue,
        BlueGrey,
        LightBlueGrey,
        DarkBlueGrey,
        FocusColor,
        DarkerBlueGrey,
        DialogPreviewGrey,
        FacebookBG,
        FacebookBorder,
        EmptyImageBox,
        EmptyImageBoxPress,
        ProgressbarBGGrey,
        InvisibleContentOverlay,
        VideoButtonColor,
        TimeScheduleDiagramScheduledColor,
        TimeScheduleDiagramNowActiveColor,
        TimeScheduleDiagramInactiveColor,
        PublishToggleInactive,
        PublishToggleScheduled,
        PublishToggleVisible
    };
    Q_ENUM(Color)

    explicit Colors(QObject *parent = nullptr);
    ~Colors() override;

    /// The colour \a id with the opacity \a alpha (0 transparent to 1 opaque; values beyond are
    /// taken as the nearer end, NaN as 1). An id outside the table gives an invalid colour and a
    /// warning.
    Q_INVOKABLE QColor getColor(ta::ui::Colors::Color id, float alpha) const;
    /// The colour \a id, opaque.
    Q_INVOKABLE QColor getColor(ta::ui::Colors::Color id) const;
};

} // namespace ta::ui
