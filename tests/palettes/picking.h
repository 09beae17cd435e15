#pragma once

#include "support/scene.h"

#include <TamberUi/ColorPickerBase>
#include <TamberUi/ColorPickerCanvas>

#include <QtGui/QGuiApplication>

namespace ta::test {

inline const QColor kLeft(0x31, 0x7A, 0xB9);
inline const QColor kRight(0xE7, 0x42, 0x11);

/// The eyedropper that runs in \a window, or null.
inline ta::ui::ColorPickerCanvas *canvasOf(const QQuickWindow *window)
{
    const QList<QQuickItem *> items = window->contentItem()->childItems();
    for (QQuickItem *item : items) {
        if (auto *canvas = qobject_cast<ta::ui::ColorPickerCanvas *>(item))
            return canvas;
    }
    return nullptr;
}

/// Whether the cursor is that of an eyedropper.
inline bool isPicking()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::CrossCursor;
}

/// The colour that \a canvas has told last.
inline std::shared_ptr<QColor> seenBy(ta::ui::ColorPickerCanvas *canvas)
{
    const auto seen = std::make_shared<QColor>();
    QObject::connect(canvas, &ta::ui::ColorPickerCanvas::previewColorChanged, canvas,
                     [seen](const QColor &color) { *seen = color; });
    return seen;
}

/// A window of 400 x 300 with a picker in it; its halves are kLeft and kRight, under an area that
/// counts presses, as it does Escape. \a more lies above it.
class PickScene : public Scene
{
public:
    explicit PickScene(const QString &more = {})
        : Scene(QStringLiteral(
                    "property int presses: 0\n"
                    "Rectangle { objectName: 'left'; width: 200; height: 300; color: '#317ab9' }\n"
                    "Rectangle { x: 200; width: 200; height: 300; color: '#e74211' }\n"
                    "MouseArea { anchors.fill: parent; hoverEnabled: true; onPressed: ++presses }\n"
                    "Shortcut { sequence: 'Esc'; onActivated: ++presses }\n"
                    "UiColorPickerBase { objectName: 'picker' }\n")
                    + more,
                QSize(400, 300))
    {
        waitForFrame();
    }

    ta::ui::ColorPickerBase *picker() const { return find<ta::ui::ColorPickerBase>("picker"); }
    int presses() const { return root()->property("presses").toInt(); }

    /// Begins a pick and lets it take its snapshot. Null where a handler has ended it.
    ta::ui::ColorPickerCanvas *pick()
    {
        picker()->pickColor();
        QCoreApplication::processEvents();
        return window() ? canvasOf(window()) : nullptr;
    }
};

} // namespace ta::test
