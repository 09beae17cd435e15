#include "toolbuttonbase.h"

#include "foundation/assign.h"

#include <QtGui/QCursor>

namespace ta::ui {

class ToolButtonBasePrivate
{
public:
    explicit ToolButtonBasePrivate(ToolButtonBase *q) : q(q) {}

    ToolButtonBase *const q;
    Ui::ToolButtonStyle style = Ui::IconAndText;
};

ToolButtonBase::ToolButtonBase(QQuickItem *parent)
    : ButtonBase(parent), d(std::make_unique<ToolButtonBasePrivate>(this))
{
    setCursor(Qt::PointingHandCursor);
}

ToolButtonBase::~ToolButtonBase() = default;

Ui::ToolButtonStyle ToolButtonBase::style() const
{
    return d->style;
}

void ToolButtonBase::setStyle(Ui::ToolButtonStyle style)
{
    if (assign(d->style, style))
        Q_EMIT styleChanged();
}

} // namespace ta::ui
