#pragma once

#include <QtCore/QPointer>
#include <QtCore/QSharedPointer>
#include <QtCore/QVector>
#include <QtCore/QWeakPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

namespace ta::ui {

/// A compiled-in component and the engine that it is good for.
struct CompiledComponent
{
    CompiledComponent(QQmlEngine *engine, const QUrl &url) : engine(engine), component(engine, url)
    {
    }

    const QPointer<QQmlEngine> engine; // the component's own pointer would dangle
    QQmlComponent component;
};

/// What a user of a shared component keeps: while one is kept, the component lives.
using ComponentReference = QSharedPointer<CompiledComponent>;

/*!
    A compiled-in QML component that all its users in the process share: compiled when the first of
    them needs it, gone with the last. Users of different engines share one for each engine.

    It only refers to the component weakly and is meant to be a static object. GUI thread only.
*/
class SharedComponent
{
public:
    /// \a url is a "qrc:" URL and lives as long as the object.
    explicit SharedComponent(const char *url) : m_url(url) {}

    /// The component for \a user, which \a reference keeps alive from now on. Null where \a user
    /// belongs to no engine and keeps no component, or the engine of the one it keeps is gone. The
    /// component may have errors: the caller asks it, as with any other.
    QQmlComponent *get(ComponentReference &reference, const QObject *user);

private:
    const char *const m_url;
    // One for each engine that has users; those of dead components go with the next compilation.
    QVector<QWeakPointer<CompiledComponent>> m_compiled;
};

} // namespace ta::ui
