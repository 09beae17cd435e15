#include "support/testcase.h"

#include "palettes/palettelayout_p.h"

using namespace ta::ui;
using namespace ta::test;

class tst_PaletteLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widths();
};

// Patches of 22 x 22, a gap of 5 after each swatch that is not at the beginning of a row, and below
// each row.
void tst_PaletteLayout::widths()
{
    const struct
    {
        qreal width;
        QVector<int> swatches;
        QVector<QPoint> places;
    } rows[] = {
        { 71, { 2, 1 }, { { 0, 0 }, { 22, 0 }, { 49, 0 } } },
        { 70.9, { 2, 1 }, { { 0, 0 }, { 22, 0 }, { 0, 27 } } },
        { 44, { 3, 1 }, { { 0, 0 }, { 22, 0 }, { 0, 27 }, { 0, 54 } } },
        { 100, { 0, 0, 1, 0, 1 }, { { 0, 0 }, { 32, 0 } } },
        { 0, { 2 }, { { 0, 27 }, { 0, 54 } } },
        { qQNaN(), { 2 }, { { 0, 0 }, { 22, 0 } } },
    };
    for (const auto &row : rows) {
        PaletteLayout layout(row.width);
        QVector<QPoint> places;
        for (int count : row.swatches) {
            for (int i = 0; i < count; ++i)
                places.append(layout.place(QSizeF(22, 22)));
            layout.endSwatch();
        }
        QCOMPARE(places, row.places);
        QCOMPARE(layout.height(), row.places.last().y() + 22.0);
    }
}

TAMBER_TEST_MAIN(tst_PaletteLayout)
#include "tst_palettelayout.moc"
