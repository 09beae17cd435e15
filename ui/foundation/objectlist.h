#pragma once

#include <QtCore/QPointer>
#include <QtCore/QVector>

namespace ta::ui {

/// Objects that QML lists and somebody else owns. One that is destroyed keeps its place and reads
/// as null.
template <typename Object>
using ObjectList = QVector<QPointer<Object>>;

/// The object at \a index; null out of range, and where an object was destroyed.
template <typename Object>
Object *objectAt(const ObjectList<Object> &list, int index)
{
    return index >= 0 && index < list.count() ? list.at(index).data() : nullptr;
}

/// Empties \a list; returns whether there was anything in it.
template <typename Object>
bool clearObjects(ObjectList<Object> &list)
{
    const bool hadAny = !list.isEmpty();
    list.clear();
    return hadAny;
}

} // namespace ta::ui
