#pragma once

#include "rounding.h"

#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

namespace ta::ui {

/// The point of \a window at \a screenPosition, which is rounded to whole pixels first.
inline QPoint windowPosition(const QWindow *window, const QPointF &screenPosition)
{
    return window->mapFromGlobal(rounded(screenPosition));
}

/// Whether \a item, which may be null, contains \a scenePosition.
inline bool containsScenePosition(const QQuickItem *item, const QPointF &scenePosition)
{
    return item && item->contains(item->mapFromScene(scenePosition));
}

} // namespace ta::ui
