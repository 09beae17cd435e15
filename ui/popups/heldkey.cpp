#include "heldkey_p.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace ta::ui {

HeldKeyFilter::HeldKeyFilter(int key) : QObject(QCoreApplication::instance()), m_key(key)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void HeldKeyFilter::swallowRest(int key)
{
    if (QCoreApplication::instance())
        new HeldKeyFilter(key); // its parent is the application; it ends itself before
}

void HeldKeyFilter::end()
{
    QCoreApplication::instance()->removeEventFilter(this);
    deleteLater();
}

bool HeldKeyFilter::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isRest = key->key() == m_key
                            && (key->isAutoRepeat() || event->type() == QEvent::KeyRelease);
        if (!key->isAutoRepeat())
            end();
        return isRest;
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
