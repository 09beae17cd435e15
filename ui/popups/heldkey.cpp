#include "heldkey_p.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace ta::ui {

HeldKeyFilter::HeldKeyFilter(QObject *parent) : HeldKeyFilter(0, parent) {}

HeldKeyFilter::HeldKeyFilter(int key, QObject *parent) : QObject(parent), m_key(key)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void HeldKeyFilter::swallowRest(int key)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        new HeldKeyFilter(key, application); // it ends itself before
}

void HeldKeyFilter::end()
{
    QCoreApplication::instance()->removeEventFilter(this);
    deleteLater();
}

bool HeldKeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (event->type() == QEvent::KeyPress && !key->isAutoRepeat()) {
            // A window gets it first. Where it comes to an item, it may be the press that moved the
            // focus, on its way up from an item that left it to its parents.
            if (watched->isWindowType())
                end();
            return false;
        }
        if (m_key && !key->isAutoRepeat())
            end();
        return !m_key || key->key() == m_key;
    }
    case QEvent::MouseButtonPress:
    case QEvent::ApplicationStateChange:
        end();
        return false;
    default:
        return false;
    }
}

} // namespace ta::ui
