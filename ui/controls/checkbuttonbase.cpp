#include "checkbuttonbase.h"

#include "foundation/assign.h"

#include <QtCore/QPointer>

namespace ta::ui {

class CheckButtonBasePrivate
{
public:
    explicit CheckButtonBasePrivate(CheckButtonBase *q) : q(q) {}

    CheckButtonBase *const q;
    bool bindable = false;
    bool readOnly = false;
    Qt::CheckState checkState = Qt::Unchecked;
};

CheckButtonBase::CheckButtonBase(QQuickItem *parent)
    : ButtonBase(parent), d(std::make_unique<CheckButtonBasePrivate>(this))
{
    connect(this, &ButtonBase::clicked, this, &CheckButtonBase::handleClick);
}

CheckButtonBase::~CheckButtonBase() = default;

bool CheckButtonBase::isBindable() const
{
    return d->bindable;
}

void CheckButtonBase::setBindable(bool bindable)
{
    if (assign(d->bindable, bindable))
        Q_EMIT bindableChanged();
}

bool CheckButtonBase::isReadOnly() const
{
    return d->readOnly;
}

void CheckButtonBase::setReadOnly(bool readOnly)
{
    if (!assign(d->readOnly, readOnly))
        return;
    const QPointer<CheckButtonBase> guard(this);
    setInteractive(!readOnly);
    if (guard)
        Q_EMIT readOnlyChanged();
}

bool CheckButtonBase::isChecked() const
{
    return d->checkState == Qt::Checked;
}

void CheckButtonBase::setChecked(bool checked)
{
    setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

Qt::CheckState CheckButtonBase::checkState() const
{
    return d->checkState;
}

void CheckButtonBase::setCheckState(Qt::CheckState state)
{
    const bool wasChecked = isChecked();
    if (!assign(d->checkState, state))
        return;
    const bool checkedChanges = wasChecked != isChecked(); // a handler may change the state again
    const QPointer<CheckButtonBase> guard(this);
    Q_EMIT checkStateChanged();
    if (guard && checkedChanges)
        Q_EMIT checkedChanged();
}

void CheckButtonBase::handleClick()
{
    if (!d->readOnly && !d->bindable)
        setChecked(!isChecked());
}

} // namespace ta::ui
