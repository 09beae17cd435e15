#include "scenepoint_p.h"

#include <QtQml/QQmlListProperty>
#include <QtQuick/QQuickItem>

namespace ta::ui {

namespace {

// Items have no getter for their list of transformations, and asking QML for it costs more than
// what it would save. So the function that counts the list is asked for once, as QQmlListReference
// does for every list (the class of its elements makes no difference), and used for all items.
using List = QQmlListProperty<QObject>;

List::CountFunction transformationCounter()
{
    const QMetaObject &type = QQuickItem::staticMetaObject;
    QQuickItem any;
    List list;
    void *arguments[] = { &list, nullptr };
    QMetaObject::metacall(&any, QMetaObject::ReadProperty, type.indexOfProperty("transform"),
                          arguments);
    return list.count;
}

bool isPlain(QQuickItem *item)
{
    static const List::CountFunction count = transformationCounter();
    List list;
    list.object = item;
    return count && count(&list) == 0 && item->scale() == 1 && item->rotation() == 0;
}

} // namespace

QPointF ScenePoint::in(QQuickItem *item)
{
    const QQuickItem *parent = item->parentItem();
    if (!parent || !isPlain(item))
        return item->mapFromScene(m_point);
    if (parent != m_parent) {
        m_parent = parent;
        m_pointInParent = parent->mapFromScene(m_point);
    }
    return m_pointInParent - item->position();
}

} // namespace ta::ui
