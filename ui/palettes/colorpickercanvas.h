#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class ColorPickerCanvasPrivate;

/*!
    An eyedropper: from its construction until it has reported, all mouse, key and wheel input of
    the application goes to it, the cursor is a cross, and a small circle beside the pointer shows
    the colour below it.

    The colours come from a snapshot of the window, taken when the event loop is reached and again a
    second after the last change of a size; the circle is not in it. A left press picks, Escape and
    the close of a window abort. The pick also ends as aborted where the window is hidden or goes
    away; a canvas that is destroyed gives the input back and reports nothing.

    The window needs QML in it for the circle; the pick works without.
*/
class TAMBERUI_EXPORT ColorPickerCanvas : public QQuickItem
{
    Q_OBJECT

public:
    /// Starts to pick from \a window. Without one nothing starts.
    explicit ColorPickerCanvas(QQuickWindow *window);
    ~ColorPickerCanvas() override;

    /// Takes another snapshot in a second, counted from the last call.
    void scheduleRenderUpdate();

    /// Ends the pick without a report; what is over already stays as it is.
    void stop();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The user picked \a color, which is opaque. The pick is over.
    void colorPicked(const QColor &color);
    /// The pick is over without a colour.
    void aborted();
    /// The pointer is over \a color, or outside of the snapshot, where it is transparent.
    void previewColorChanged(const QColor &color);

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private Q_SLOTS:
    void updateRender();

private:
    friend class ColorPickerCanvasPrivate;
    const std::unique_ptr<ColorPickerCanvasPrivate> d;
};

} // namespace ta::ui
