#include "sharedcomponent.h"

#include <QtCore/QUrl>
#include <QtQml/qqml.h>

#include <algorithm>

namespace ta::ui {

QQmlComponent *SharedComponent::get(ComponentReference &reference, const QObject *user)
{
    if (reference)
        return reference->engine ? &reference->component : nullptr;
    QQmlEngine *engine = qmlEngine(user);
    if (!engine)
        return nullptr;

    for (const auto &weak : qAsConst(m_compiled)) {
        const ComponentReference compiled = weak.toStrongRef();
        if (compiled && compiled->engine == engine)
            reference = compiled;
    }
    if (!reference) {
        m_compiled.erase(std::remove_if(m_compiled.begin(), m_compiled.end(),
                                        [](const auto &weak) { return weak.isNull(); }),
                         m_compiled.end());
        reference = ComponentReference::create(engine, QUrl(QLatin1String(m_url)));
        m_compiled.append(reference);
    }
    return &reference->component;
}

} // namespace ta::ui
