#include "dialogbutton.h"

#include "foundation/assign.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>

namespace ta::ui {

namespace {

struct Role
{
    const char *caption; // id of the translation; null for none
    Ui::PushButtonStyle style;
    DialogButton::DialogAction action;
};

// Indexed by DialogButton::ButtonRole.
constexpr Role kRoles[] = {
    { nullptr, Ui::SecondaryPushButtonStyle, DialogButton::NoAction }, // NoRole
    { "8032344dab7a0d5e", Ui::PrimaryPushButtonStyle, DialogButton::AcceptAction }, // OkRole
    { nullptr, Ui::PrimaryPushButtonStyle, DialogButton::AcceptAction }, // ApplyRole
    { "a30faf650f427ada", Ui::PrimaryPushButtonStyle, DialogButton::AcceptAction }, // AcceptRole
    { "18c4498018b6f1d1", Ui::PrimaryPushButtonStyle, DialogButton::AcceptAction }, // DoneRole
    { "37ae1dd525a0ce7a", Ui::SecondaryPushButtonStyle, DialogButton::RejectAction }, // CancelRole
    { "f9330eba97fc373e", Ui::SecondaryPushButtonStyle, DialogButton::NoAction }, // RevertRole
    { "28c3843d05fb11e9", Ui::PrimaryPushButtonStyle, DialogButton::RejectAction }, // CloseRole
    { "b5e16992c23938d2", Ui::PrimaryPushButtonStyle, DialogButton::BackAction }, // BackRole
    { "a67d7bccc6d4448e", Ui::PrimaryPushButtonStyle, DialogButton::ForwardAction }, // ForwardRole
};
static_assert(std::size(kRoles) == DialogButton::ForwardRole + 1, "a row for each role");

const Role &roleData(DialogButton::ButtonRole role)
{
    const bool known = role >= 0 && role < int(std::size(kRoles));
    return kRoles[known ? role : DialogButton::NoRole];
}

} // namespace

class DialogButtonPrivate
{
public:
    explicit DialogButtonPrivate(DialogButton *q) : q(q) {}

    DialogButton *const q;
    DialogButton::ButtonRole role = DialogButton::NoRole;
    QString text;
    bool visible = true;
    bool enabled = true;
    Ui::PushButtonStyle style = Ui::AutomaticPushButtonStyle;
    DialogButton::DialogAction action = DialogButton::AutomaticAction;
};

DialogButton::DialogButton(QObject *parent)
    : QObject(parent), d(std::make_unique<DialogButtonPrivate>(this))
{
}

DialogButton::~DialogButton() = default;

DialogButton::ButtonRole DialogButton::role() const
{
    return d->role;
}

void DialogButton::setRole(ButtonRole role)
{
    if (!assign(d->role, role))
        return;
    const QPointer<DialogButton> guard(this);
    Q_EMIT roleChanged();
    if (guard && d->text.isEmpty())
        Q_EMIT textChanged();
}

QString DialogButton::text() const
{
    if (!d->text.isEmpty())
        return d->text;
    const char *caption = roleData(d->role).caption;
    return caption ? qtTrId(caption) : QString();
}

void DialogButton::setText(const QString &text)
{
    if (assign(d->text, text))
        Q_EMIT textChanged();
}

bool DialogButton::isVisible() const
{
    return d->visible;
}

void DialogButton::setVisible(bool visible)
{
    if (assign(d->visible, visible))
        Q_EMIT visibleChanged();
}

bool DialogButton::isEnabled() const
{
    return d->enabled;
}

void DialogButton::setEnabled(bool enabled)
{
    if (assign(d->enabled, enabled))
        Q_EMIT enabledChanged();
}

Ui::PushButtonStyle DialogButton::style() const
{
    return d->style;
}

void DialogButton::setStyle(Ui::PushButtonStyle style)
{
    if (assign(d->style, style))
        Q_EMIT styleChanged();
}

Ui::PushButtonStyle DialogButton::effectiveStyle() const
{
    return d->style != Ui::AutomaticPushButtonStyle ? d->style : roleData(d->role).style;
}

DialogButton::DialogAction DialogButton::action() const
{
    return d->action;
}

void DialogButton::setAction(DialogAction action)
{
    if (assign(d->action, action))
        Q_EMIT actionChanged();
}

int DialogButton::styleForRole(ButtonRole role) const
{
    return roleData(role).style;
}

int DialogButton::actionForRole(ButtonRole role) const
{
    return roleData(role).action;
}

} // namespace ta::ui
