#include "destroylater_p.h"

#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtQuick/QQuickItem>

namespace ta::ui {

int loopLevel()
{
    return qMax(1, QThread::currentThread()->loopLevel());
}

void destroyLater(QQuickItem *item, int itemLevel, int delay)
{
    QTimer::singleShot(delay, item, [item, itemLevel, delay] {
        if (loopLevel() > itemLevel)
            destroyLater(item, itemLevel, qMax(100, delay));
        else
            item->deleteLater();
    });
}

} // namespace ta::ui
