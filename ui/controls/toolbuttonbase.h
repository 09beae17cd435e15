#pragma once

#include "buttonbase.h"

#include "../foundation/ui.h"

namespace ta::ui {

class ToolButtonBasePrivate;

/*!
    A button of a tool bar. It shows the pointing hand and leaves the focus where it is.

    QML: \c UiToolButtonBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT ToolButtonBase : public ButtonBase
{
    Q_OBJECT
    Q_PROPERTY(ta::ui::Ui::ToolButtonStyle style READ style WRITE setStyle NOTIFY styleChanged)

public:
    explicit ToolButtonBase(QQuickItem *parent = nullptr);
    ~ToolButtonBase() override;

    /// Only stored, for the look. Ui::IconAndText by default.
    Ui::ToolButtonStyle style() const;
    void setStyle(Ui::ToolButtonStyle style);

Q_SIGNALS:
    void styleChanged();

private:
    friend class ToolButtonBasePrivate;
    const std::unique_ptr<ToolButtonBasePrivate> d;
};

} // namespace ta::ui
