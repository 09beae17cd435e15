#include "pacedupdate_p.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QTimerEvent>
#include <QtCore/QVector>
#include <QtQuick/QQuickItem>

#include <utility>

namespace ta::ui {

namespace {

constexpr int kInterval = 33; // ms; two frames of 60 Hz

class PacedUpdates : public QObject
{
public:
    using QObject::QObject;

    void add(QQuickItem *item)
    {
        const bool isSeen = item->window() && item->isVisible();
        if (isSeen && m_interval.isActive()) {
            m_waiting.append(item);
        } else {
            item->update();
            if (isSeen)
                m_interval.start(kInterval, this);
        }
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        if (m_waiting.isEmpty())
            m_interval.stop();
        for (const QPointer<QQuickItem> &item : std::exchange(m_waiting, {})) {
            if (item)
                item->update();
        }
    }

private:
    QBasicTimer m_interval; // active for that long after an update
    QVector<QPointer<QQuickItem>> m_waiting;
};

} // namespace

void updatePaced(QQuickItem *item)
{
    static QPointer<PacedUpdates> s_updates; // goes with the application
    if (!s_updates)
        s_updates = new PacedUpdates(QCoreApplication::instance());
    s_updates->add(item);
}

} // namespace ta::ui
