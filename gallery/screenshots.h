#pragma once

#include <QtCore/QString>

class QQmlEngine;
class QQuickWindow;

/// Pictures of every page, in a folder that is made where it is missing: NAME.png, or NAME@2x.png
/// where a logical pixel is two. Waits for the window to show. False, with a message, on failure.
bool takeScreenshots(QQuickWindow *window, const QString &folder);

/// Contact sheets of all icons, in the same way: icons-SIZE-LOOK.png for each size and for the
/// looks light, dark, disabled and highlighted.
bool takeContactSheets(QQmlEngine *engine, const QString &folder);
