#include "stacking_p.h"

#include <QtCore/QSet>
#include <QtQuick/QQuickItem>

namespace ta::ui {

QQuickItem *topmost(const QVector<QQuickItem *> &items)
{
    if (items.count() < 2)
        return items.value(0);

    // Marks every item and all that it lies in, then descends along the marks: what is left without
    // a marked child is one of the items.
    QSet<const QQuickItem *> marked;
    QQuickItem *top = nullptr;
    for (QQuickItem *item : items) {
        for (; item && !marked.contains(item); item = item->parentItem()) {
            marked.insert(item);
            if (!item->parentItem())
                top = item;
        }
    }
    for (;;) {
        QQuickItem *next = nullptr;
        const QList<QQuickItem *> children = top->childItems();
        for (QQuickItem *child : children) {
            if (marked.contains(child) && (!next || child->z() >= next->z()))
                next = child;
        }
        if (!next)
            return top;
        top = next;
    }
}

} // namespace ta::ui
