#pragma once

#include <functional>

class QObject;
class QQmlComponent;
class QQmlContext;

namespace ta::ui {

/*!
    Creates an object from \a component in the component's own creation context.

    A component made in C++ has none: it is created in \a fallback then, and without that (or
    where it belongs to another engine) in the root context of its engine.

    \a prepare receives the object before its bindings are evaluated and its completion handlers
    run: the place to give it a parent item. Returns the completed object, which the caller owns, or
    null where the component creates none (it has errors, is still loading, or its engine is gone).
    What a completion handler may have destroyed is returned as null as well.
*/
QObject *createObject(QQmlComponent *component, const std::function<void(QObject *)> &prepare,
                      QQmlContext *fallback = nullptr);

} // namespace ta::ui
