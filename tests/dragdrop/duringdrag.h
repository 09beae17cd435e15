#pragma once

#include <TamberUi/DragZone>

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtGui/QDrag>

#include <functional>

namespace ta::test {

/*!
    Runs steps one after the other inside the drag loop of a zone. After the last one the drag must
    end: where it does not, it is cancelled, and isThrough() tells.
*/
class DuringDrag : public QObject
{
public:
    using Steps = QVector<std::function<void()>>;

    DuringDrag(QPointer<ui::DragZone> zone, Steps steps)
        : m_zone(std::move(zone)), m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, &DuringDrag::step);
        m_timer.start(0);
    }

    bool isThrough() const { return m_done == m_steps.count() && !m_stuck; }

private:
    void step()
    {
        if (m_done == 0 && !(m_zone && m_zone->findChild<QDrag *>()))
            return;
        if (m_done < m_steps.count()) {
            m_steps.at(m_done++)();
        } else if (m_rests.isValid() && m_rests.hasExpired(3000)) {
            m_timer.stop();
            m_stuck = true;
            QDrag::cancel();
        } else if (!m_rests.isValid()) {
            m_rests.start();
        }
    }

    QTimer m_timer;
    QElapsedTimer m_rests;
    QPointer<ui::DragZone> m_zone;
    Steps m_steps;
    int m_done = 0;
    bool m_stuck = false;
};

} // namespace ta::test
