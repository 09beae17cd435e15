#pragma once

#include "buttonbase.h"

#include "../foundation/ui.h"

namespace ta::ui {

class PushButtonBasePrivate;

/*!
    A button with a caption, for an action of a form or a dialog.

    Shows the pointing hand and takes the active focus when it is pressed.

    QML: \c UiPushButtonBase of "tamber.Ui.Private" 1.0.
*/
class TAMBERUI_EXPORT PushButtonBase : public ButtonBase
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(ta::ui::Ui::PushButtonStyle style READ style WRITE setStyle NOTIFY styleChanged)

public:
    explicit PushButtonBase(QQuickItem *parent = nullptr);
    ~PushButtonBase() override;

    /// The caption; empty by default.
    QString text() const;
    void setText(const QString &text);

    /// Only stored, for the look. Ui::PrimaryPushButtonStyle by default.
    Ui::PushButtonStyle style() const;
    void setStyle(Ui::PushButtonStyle style);

Q_SIGNALS:
    void textChanged();
    void styleChanged();

private:
    friend class PushButtonBasePrivate;
    const std::unique_ptr<PushButtonBasePrivate> d;
};

} // namespace ta::ui
