#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

namespace ta::ui {

/*!
    One change of an object's state in progress, which takes several signals. Any of them may run a
    handler that destroys the object or begins another change; the turn is over then, and what began
    it must stop.

    The object counts its changes, and a turn that is begun takes the number of the last one.
*/
class Turn
{
public:
    /// \a changes lives with \a object.
    Turn(QObject *object, const int &changes)
        : m_object(object), m_changes(changes), m_number(changes)
    {
    }
    bool isOver() const { return !m_object || m_changes != m_number; }

private:
    const QPointer<QObject> m_object;
    const int &m_changes;
    const int m_number;
};

} // namespace ta::ui
