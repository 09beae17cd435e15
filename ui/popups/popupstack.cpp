#include "popupstack.h"

#include "foundation/logging.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace ta::ui {

QStack<QPointer<QObject>> PopupStack::m_popups;

namespace {

// Popups may close while the application object is being destroyed, so it may be gone.

void removeFilter(QObject *popup)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->removeEventFilter(popup);
}

void installFilter(QObject *popup)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(popup);
}

} // namespace

void PopupStack::push(QObject *popup)
{
    if (!popup) {
        qCWarning(lcUi, "Cannot open a null popup");
        return;
    }
    if (!m_popups.isEmpty())
        removeFilter(m_popups.top());
    installFilter(popup);
    m_popups.push(popup);
}

void PopupStack::pop(QObject *popup)
{
    if (m_popups.isEmpty())
        return;
    if (m_popups.top() != popup) {
        const auto entry = std::find(m_popups.begin(), m_popups.end(), popup);
        if (entry != m_popups.end())
            m_popups.erase(entry);
        return;
    }
    removeFilter(m_popups.pop());
    while (!m_popups.isEmpty() && !m_popups.top())
        m_popups.pop();
    if (!m_popups.isEmpty())
        installFilter(m_popups.top());
}

QObject *PopupStack::top()
{
    return m_popups.isEmpty() ? nullptr : m_popups.top().data();
}

} // namespace ta::ui
