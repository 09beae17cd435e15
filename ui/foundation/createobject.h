#pragma once

#include <functional>

class QObject;
class QQmlComponent;
class QQmlContext;

namespace ta::ui {

/*!
    Creates an object from \a component in \a context; by default the component's own creation
    context, or the engine's root context where it has none.

    \a prepare receives the object before its bindings are evaluated and its completion handlers
    run: the place to give it a parent item. Returns the completed object, which the caller owns, or
    null where the component creates none (it has errors, is still loading, or its engine is gone).
    What a completion handler may have destroyed is returned as null as well.
*/
QObject *createObject(QQmlComponent *component, const std::function<void(QObject *)> &prepare,
                      QQmlContext *context = nullptr);

/// Where \a component was declared; where it was made in C++, where \a user (which may be null)
/// was; else the root context of the component's engine: the context to create an object for \a
/// user in. Null where there is none of them.
QQmlContext *creationContext(const QQmlComponent *component, const QObject *user);

} // namespace ta::ui
