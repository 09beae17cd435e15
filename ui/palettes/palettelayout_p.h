#pragma once

#include "../foundation/export.h"

#include <QtCore/QPoint>
#include <QtCore/QSizeF>
#include <QtCore/QtGlobal>

namespace ta::ui {

/*!
    Places patches of colour one after the other, in rows as wide as the item.

    All places are whole logical pixels. The patches of a swatch touch each other; swatches that
    share a row, and the rows, are 5 pixels apart. A swatch may wrap within itself.
*/
class TAMBERUI_PRIVATE_EXPORT PaletteLayout
{
public:
    explicit PaletteLayout(qreal width) : m_width(width) {}

    /// The place of the next patch. One that does not fit begins a row, even where the row before
    /// is empty.
    QPoint place(const QSizeF &patch);

    /// The swatch of the last patch is over.
    void endSwatch();

    /// From the top to the lower edge of the last patch; 0 where there is none.
    qreal height() const { return m_height; }

private:
    const qreal m_width;
    int m_x = 0;
    int m_y = 0;
    qreal m_height = 0;
};

} // namespace ta::ui
