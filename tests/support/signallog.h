#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <functional>
#include <initializer_list>

namespace ta::test {

/*!
    Signals of several objects in one ordered list.

    \code
    SignalLog log;
    log.watch(anchor, { "aboutToShow", "popupVisibleChanged" });
    anchor->show();
    QCOMPARE(log.take(), QStringList({ "aboutToShow", "popupVisibleChanged" }));
    \endcode
*/
class SignalLog : public QObject
{
public:
    /// Logs the signals called \a names of \a sender, each as \a prefix followed by its name. With
    /// no names given: all the signals that its class and the bases up to QQuickItem declare.
    void watch(QObject *sender, const QStringList &names = {}, const QString &prefix = {});

    const QStringList &entries() const { return m_entries; }
    /// The list so far; it is empty afterwards.
    QStringList take();
    int count(const QString &entry) const { return m_entries.count(entry); }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QStringList m_watched;
    QStringList m_entries;
};

/// Calls \a what when \a sender emits the signal called \a signal: the \a time th time, where 0
/// stands for every time.
void on(QObject *sender, const QString &signal, const std::function<void()> &what, int time = 0);

/// The names of signals as a list that a log's entries compare with.
QStringList names(std::initializer_list<const char *> list);

} // namespace ta::test
