#include "pushbuttonbase.h"

#include "foundation/assign.h"

#include <QtGui/QCursor>

namespace ta::ui {

class PushButtonBasePrivate
{
public:
    explicit PushButtonBasePrivate(PushButtonBase *q) : q(q) {}

    PushButtonBase *const q;
    QString text;
    Ui::PushButtonStyle style = Ui::PrimaryPushButtonStyle;
};

PushButtonBase::PushButtonBase(QQuickItem *parent)
    : ButtonBase(parent), d(std::make_unique<PushButtonBasePrivate>(this))
{
    setCursor(Qt::PointingHandCursor);
    setActiveFocusOnPress(true);
}

PushButtonBase::~PushButtonBase() = default;

QString PushButtonBase::text() const
{
    return d->text;
}

void PushButtonBase::setText(const QString &text)
{
    if (assign(d->text, text))
        Q_EMIT textChanged();
}

Ui::PushButtonStyle PushButtonBase::style() const
{
    return d->style;
}

void PushButtonBase::setStyle(Ui::PushButtonStyle style)
{
    if (assign(d->style, style))
        Q_EMIT styleChanged();
}

} // namespace ta::ui
