#include "support/signallog.h"

#include <QtCore/QMetaMethod>
#include <QtQuick/QQuickItem>

namespace ta::test {

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
        // The slots of this class are numbered by hand, behind those of QObject.
        QMetaObject::connect(sender, index, this,
                             QObject::staticMetaObject.methodCount() + m_watched.count(),
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

QStringList names(std::initializer_list<const char *> list)
{
    QStringList names;
    for (const char *name : list)
        names.append(QLatin1String(name));
    return names;
}

} // namespace ta::test
