#include "drophandler.h"

#include "foundation/assign.h"

namespace ta::ui {

class DropHandlerPrivate
{
public:
    explicit DropHandlerPrivate(DropHandler *q) : q(q) {}

    DropHandler *const q;
    bool enabled = true;
};

DropHandler::DropHandler(QObject *parent)
    : QObject(parent), d(std::make_unique<DropHandlerPrivate>(this))
{
}

DropHandler::~DropHandler() = default;

bool DropHandler::isEnabled() const
{
    return d->enabled;
}

void DropHandler::setEnabled(bool enabled)
{
    if (assign(d->enabled, enabled))
        Q_EMIT enabledChanged();
}

} // namespace ta::ui
