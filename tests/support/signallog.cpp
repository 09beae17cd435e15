#include "support/signallog.h"

#include <QtCore/QMetaMethod>
#include <QtQuick/QQuickItem>

namespace ta::test {

namespace {

// The slots of the classes here are numbered by hand, behind those of QObject.
const int kFirstSlot = QObject::staticMetaObject.methodCount();

class Call : public QObject
{
public:
    Call(const std::function<void()> &what, int time) : m_what(what), m_time(time) {}

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        id = QObject::qt_metacall(call, id, arguments);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod)
            return id;
        const auto what = m_what; // which may destroy the sender, and this object with it
        if (++m_count == m_time || m_time == 0)
            what();
        return -1;
    }

private:
    const std::function<void()> m_what;
    const int m_time;
    int m_count = 0;
};

} // namespace

void SignalLog::watch(QObject *sender, const QStringList &names, const QString &prefix)
{
    const QMetaObject *meta = sender->metaObject();
    const int first = qobject_cast<QQuickItem *>(sender)
                          ? QQuickItem::staticMetaObject.methodCount()
                          : QObject::staticMetaObject.methodCount();
    QStringList found;
    for (int index = names.isEmpty() ? first : 0; index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        const QString name = QString::fromLatin1(method.name());
        if (method.methodType() != QMetaMethod::Signal || found.contains(name)
            || !(names.isEmpty() || names.contains(name)))
            continue;
        found.append(name);
        QMetaObject::connect(sender, index, this, kFirstSlot + m_watched.count(),
                             Qt::DirectConnection);
        m_watched.append(prefix + name);
    }
    Q_ASSERT(names.isEmpty() || found.count() == names.count());
}

QStringList SignalLog::take()
{
    QStringList entries;
    entries.swap(m_entries);
    return entries;
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    m_entries.append(m_watched.at(id));
    return -1;
}

void on(QObject *sender, const QString &signal, const std::function<void()> &what, int time)
{
    const QMetaObject *meta = sender->metaObject();
    for (int index = 0; index < meta->methodCount(); ++index) {
        const QMetaMethod method = meta->method(index);
        if (method.methodType() != QMetaMethod::Signal || QLatin1String(method.name()) != signal)
            continue;
        auto *call = new Call(what, time);
        QObject::connect(sender, &QObject::destroyed, call, [call] { delete call; });
        QMetaObject::connect(sender, index, call, kFirstSlot, Qt::DirectConnection);
        return;
    }
    qFatal("No signal %s", qPrintable(signal));
}

QStringList names(std::initializer_list<const char *> list)
{
    QStringList names;
    for (const char *name : list)
        names.append(QLatin1String(name));
    return names;
}

} // namespace ta::test
