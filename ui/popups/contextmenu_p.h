#pragma once

#include "contextmenu.h"

#include "foundation/objectlist.h"
#include "foundation/sharedcomponent.h"

#include <QtCore/QPointer>

namespace ta::ui {

class ContextMenuPrivate
{
public:
    explicit ContextMenuPrivate(ContextMenu *q) : q(q) {}

    void tellItemsChanged();
    void rankItems();
    bool hasVisibleItems() const;

    void setTarget(QQuickItem *item);
    void parentAsTarget();

    bool open(const QPointF &screenPosition);
    QPointer<QQuickItem> createMenuItem(const QPoint &position);
    void leave();

    bool rightPress(QMouseEvent *event);
    bool rightRelease(QMouseEvent *event);
    bool containsScreenPosition(const QPointF &screenPosition) const;

    // Written on the GUI thread when a menu opens for the first time. It knows the component of
    // each engine for as long as a menu keeps it.
    static SharedComponent m_sharedItemComponent;

    ContextMenu *const q;
    ComponentReference itemComponent;
    Qt::MouseButtons savedAcceptedButtons = Qt::NoButton;
    QPointer<QQuickItem> target;
    QPointer<QQuickItem> menuItem; // owned by the menu while it is open, and while it fades out
    bool menuVisible = false;
    bool enabled = true;
    bool refused = false; // the last right press: nothing was visible
    bool onStack = false;
    ContextMenu::ItemStyle itemStyle = ContextMenu::IconAndText;
    ObjectList<AbstractMenuItem> items;
    ObjectList<AbstractMenuItem> rankedCache;
    int openings = 0;
    int itemLevel = 1; // when the items were made, see destroyLater()
    int creations = 0; // of items, that are under way
    const QEvent *passedOn = nullptr; // only compared, see eventFilter()
    QMetaObject::Connection itemConnection;
    QMetaObject::Connection windowConnection;
};

} // namespace ta::ui
