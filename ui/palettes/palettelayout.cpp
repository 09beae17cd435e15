#include "palettelayout_p.h"

#include "foundation/rounding.h"

namespace ta::ui {

namespace {

constexpr int kGap = 5; // logical pixels between swatches and between rows

} // namespace

QPoint PaletteLayout::place(const QSizeF &patch)
{
    if (m_x + patch.width() > m_width) {
        m_y = truncated(m_y + patch.height() + kGap);
        m_x = 0;
    }
    const QPoint position(m_x, m_y);
    m_x = truncated(m_x + patch.width());
    m_height = m_y + patch.height();
    return position;
}

void PaletteLayout::endSwatch()
{
    if (m_x > 0)
        m_x += kGap;
}

} // namespace ta::ui
