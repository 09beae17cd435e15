#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QStack>

namespace ta::ui {

/*!
    The open popups of the process, the one opened last on top.

    The stack sees to it that the top popup, and no other, is an event filter on the application
    object. Its \c eventFilter() is then called for every event of every object before the receiver
    gets it. A popup pushes itself once its root item exists and pops itself when it closes; one
    that may open above a dialog sets the dynamic property \c _ta_isPopup of its root item to true.

    GUI thread only.
*/
class TAMBERUI_EXPORT PopupStack
{
public:
    PopupStack() = delete;

    /// Makes \a popup the top. An object that is on the stack already gets a second entry; null is
    /// ignored with a warning.
    static void push(QObject *popup);
    /// Takes \a popup off the stack, wherever it is. Null stands for a popup that was destroyed
    /// while it was open. An object that is not on the stack changes nothing.
    static void pop(QObject *popup);
    /// The top popup; null when no popup is open, or the top one was destroyed without a pop.
    static QObject *top();

private:
    friend class TooltipAgentPrivate; // asks all of them for what they cover

    // Written on the GUI thread only. A destroyed popup leaves an entry that reads as null, which
    // goes when a pop brings it to the top.
    static QStack<QPointer<QObject>> m_popups;
};

} // namespace ta::ui
