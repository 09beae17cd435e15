#include "abstractmenuitem.h"

#include "foundation/assign.h"

#include <QtQml/QQmlComponent>

namespace ta::ui {

class AbstractMenuItemPrivate
{
public:
    // One list that all entries share until they get a rank of their own.
    static QList<int> defaultRank()
    {
        static const QList<int> rank = { 0 };
        return rank;
    }

    bool visible = true;
    QList<int> rank = defaultRank();
};

AbstractMenuItem::AbstractMenuItem(QObject *parent)
    : QObject(parent), d(std::make_unique<AbstractMenuItemPrivate>())
{
}

AbstractMenuItem::~AbstractMenuItem() = default;

bool AbstractMenuItem::isVisible() const
{
    return d->visible;
}

void AbstractMenuItem::setVisible(bool visible)
{
    if (assign(d->visible, visible))
        Q_EMIT visibleChanged();
}

QList<int> AbstractMenuItem::rank() const
{
    return d->rank;
}

void AbstractMenuItem::setRank(const QList<int> &rank)
{
    assign(d->rank, rank);
}

} // namespace ta::ui
