#pragma once

#include <QtCore/QMimeData>
#include <QtCore/QPoint>
#include <QtCore/Qt>

class QObject;

namespace ta::test {

/*!
    A drag of data over a window, as the platform tells the window of it. Positions are in the
    window, in logical pixels. Given an item, it tells the item alone, at positions inside it.
*/
class DragOver
{
public:
    explicit DragOver(QObject *receiver) : m_receiver(receiver) {}

    /// What is dragged; empty at first.
    QMimeData &data() { return m_data; }

    /// Whether somebody wants the drag.
    bool enter(const QPoint &position);
    bool move(const QPoint &position);
    void leave();
    void drop(const QPoint &position, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

private:
    QObject *const m_receiver;
    QMimeData m_data;
};

} // namespace ta::test
