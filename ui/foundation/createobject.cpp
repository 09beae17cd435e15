#include "createobject.h"

#include <QtCore/QPointer>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>

#include <memory>

namespace ta::ui {

QObject *createObject(QQmlComponent *component, const std::function<void(QObject *)> &prepare,
                      QQmlContext *context)
{
    const QPointer<QQmlComponent> guard(component);
    if (!context)
        context = creationContext(component, nullptr);
    if (!context || !context->isValid())
        return nullptr;

    const bool ready = component->isReady();
    std::unique_ptr<QObject> created(component->beginCreate(context));
    if (!created) {
        // A creation that failed half-way has to be completed, or the component creates nothing any
        // more. One that has not begun must not be: it crashes in Qt 5.15.
        if (guard && ready && component->isError())
            component->completeCreate();
        return nullptr;
    }
    const QPointer<QObject> object(created.release());
    prepare(object);
    if (!guard)
        return object;
    component->completeCreate();
    if (guard && component->isError()) {
        created.reset(object); // a required property, for instance, has no value
        return nullptr;
    }
    return object;
}

QQmlContext *creationContext(const QQmlComponent *component, const QObject *user)
{
    QQmlContext *context = component->creationContext();
    if (!context && user)
        context = qmlContext(user);
    if (!context && component->engine())
        context = component->engine()->rootContext();
    return context;
}

} // namespace ta::ui
