#include "createobject.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

namespace ta::ui {

QObject *createObject(QQmlComponent *component, const std::function<void(QObject *)> &prepare)
{
    const QPointer<QQmlComponent> guard(component);
    // A component made in C++ has no creation context.
    QQmlContext *context = component->creationContext();
    if (!context && component->engine())
        context = component->engine()->rootContext();
    if (!context || !context->isValid())
        return nullptr;

    const QPointer<QObject> object(component->beginCreate(context));
    // completeCreate() of a component that failed to create its object crashes in Qt 5.15.
    if (!object)
        return nullptr;
    prepare(object);
    if (guard)
        component->completeCreate();
    return object;
}

} // namespace ta::ui
