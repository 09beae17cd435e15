#include "tooltip.h"

#include "foundation/assign.h"
#include "foundation/logging.h"
#include "tooltipagent.h"

namespace ta::ui {

class TooltipPrivate
{
public:
    QString text;
};

Tooltip::Tooltip(QObject *parent) : QObject(parent), d(std::make_unique<TooltipPrivate>()) {}

Tooltip::~Tooltip() = default;

QString Tooltip::text() const
{
    return d->text;
}

void Tooltip::setText(const QString &text)
{
    if (assign(d->text, text))
        Q_EMIT textChanged();
}

void Tooltip::classBegin() {}

// Only when the whole scene is built do all items have their parents.
void Tooltip::componentComplete()
{
    QMetaObject::invokeMethod(this, "findAgent", Qt::QueuedConnection);
}

void Tooltip::findAgent()
{
    for (auto *item = qobject_cast<QQuickItem *>(parent()); item; item = item->parentItem()) {
        if (auto *agent = qobject_cast<TooltipAgent *>(item)) {
            agent->addTooltip(this);
            return;
        }
    }
    qCDebug(lcUi, "No TooltipAgent found in parent hierarchy - tooltip will not function");
}

} // namespace ta::ui
