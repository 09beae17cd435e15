#pragma once

#include "export.h"

#include <QtCore/QObject>

namespace ta::ui {

/// Carries the enumerations that several controls share. It has no state; QML reaches the values
/// through the type name, for instance \c Ui.SecondaryPushButtonStyle.
class TAMBERUI_EXPORT Ui : public QObject
{
    Q_OBJECT

public:
    /// What a tool button shows.
    enum ToolButtonStyle : int { IconAndText = 0, IconOnly = 1 };
    Q_ENUM(ToolButtonStyle)

    /// How much weight a push button has. \c AutomaticPushButtonStyle leaves the choice to the
    /// place where the button is used.
    enum PushButtonStyle : int {
        AutomaticPushButtonStyle = 0,
        PrimaryPushButtonStyle = 1,
        SecondaryPushButtonStyle = 2
    };
    Q_ENUM(PushButtonStyle)

    /// The icon of a message box.
    enum MessageBoxIcon : int {
        MessageBoxNoIcon = 0,
        MessageBoxOkIcon = 1,
        MessageBoxWarningIcon = 2,
        MessageBoxErrorIcon = 3
    };
    Q_ENUM(MessageBoxIcon)

    using QObject::QObject;
    ~Ui() override;
};

} // namespace ta::ui
