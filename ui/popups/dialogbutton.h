#pragma once

#include "../foundation/export.h"
#include "../foundation/ui.h"

#include <QtCore/QObject>

#include <memory>

namespace ta::ui {

class DialogButtonPrivate;

/*!
    One button of a Dialog: what it is for, what it says and what a click on it does.

    It is no item: the dialog's footer draws a push button for it. A caption, a style and an action
    that are left open come from the role.

    Return and Enter in a dialog do what a click on its first primary button does, by the
    effectiveStyle alone: that button may be hidden or disabled.

    QML: \c UiDialogButton.
*/
class TAMBERUI_EXPORT DialogButton : public QObject
{
    Q_OBJECT

    Q_PROPERTY(ButtonRole role READ role WRITE setRole NOTIFY roleChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(ta::ui::Ui::PushButtonStyle style READ style WRITE setStyle NOTIFY styleChanged)
    Q_PROPERTY(ta::ui::Ui::PushButtonStyle effectiveStyle READ effectiveStyle NOTIFY styleChanged)
    Q_PROPERTY(DialogAction action READ action WRITE setAction NOTIFY actionChanged)

public:
    /// What the button is for.
    enum ButtonRole : int {
        NoRole = 0,
        OkRole = 1,
        ApplyRole = 2,
        AcceptRole = 3,
        DoneRole = 4,
        CancelRole = 5,
        RevertRole = 6,
        CloseRole = 7,
        BackRole = 8,
        ForwardRole = 9
    };
    Q_ENUM(ButtonRole)

    /// What a click does: one of the dialog's slots, or (NoAction) nothing but clicked().
    enum DialogAction : int {
        NoAction = 0,
        AutomaticAction = 1, ///< the one of the role
        AcceptAction = 2,
        RejectAction = 3,
        BackAction = 4,
        ForwardAction = 5
    };
    Q_ENUM(DialogAction)

    explicit DialogButton(QObject *parent = nullptr);
    ~DialogButton() override;

    /// NoRole by default. A value outside the enumeration counts as NoRole wherever the role
    /// decides.
    ButtonRole role() const;
    /// Emits textChanged(), too, where the caption comes from the role.
    void setRole(ButtonRole role);

    /// The caption: the text that was set or, where that is empty (the default), the translation of
    /// the role's caption. NoRole and ApplyRole have none.
    QString text() const;
    void setText(const QString &text);

    /// Whether the footer shows the button; true by default.
    bool isVisible() const;
    void setVisible(bool visible);

    /// Whether the button reacts; true by default.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// AutomaticPushButtonStyle by default: the one of the role.
    Ui::PushButtonStyle style() const;
    void setStyle(Ui::PushButtonStyle style);

    /// The style, with the one of the role in place of AutomaticPushButtonStyle. It changes with
    /// the role, too; roleChanged() tells that.
    Ui::PushButtonStyle effectiveStyle() const;

    /// AutomaticAction by default: the one of the role.
    DialogAction action() const;
    void setAction(DialogAction action);

    /// A Ui::PushButtonStyle and a DialogAction, never the automatic ones.
    Q_INVOKABLE int styleForRole(ta::ui::DialogButton::ButtonRole role) const;
    Q_INVOKABLE int actionForRole(ta::ui::DialogButton::ButtonRole role) const;

Q_SIGNALS:
    void roleChanged();
    void textChanged();
    void visibleChanged();
    void enabledChanged();
    void styleChanged();
    void actionChanged();
    /// From the dialog's footer, where the action is none of accept, reject, back and forward.
    void clicked();

private:
    friend class DialogButtonPrivate;
    const std::unique_ptr<DialogButtonPrivate> d;
};

} // namespace ta::ui
