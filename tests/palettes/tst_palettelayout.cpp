#include "support/testcase.h"

#include "palettes/palettelayout_p.h"

using namespace ta::ui;
using namespace ta::test;

class tst_PaletteLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void widths();
    void sizes();
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

// Of other sizes, with fractions that each step leaves out, and widths that are none.
void tst_PaletteLayout::sizes()
{
    const struct
    {
        qreal width;
        QVector<QSizeF> patches;
        QVector<QPoint> places;
        qreal height;
    } rows[] = {
        { 30, QVector<QSizeF>(3, { 10.7, 7.9 }), { { 0, 0 }, { 10, 0 }, { 0, 12 } }, 19.9 },
        { 21.4, QVector<QSizeF>(2, { 10.7, 8 }), { { 0, 0 }, { 10, 0 } }, 8 },
        { 50, { { 20, 20 }, { 30, 8 }, { 1, 4 } }, { { 0, 0 }, { 20, 0 }, { 0, 9 } }, 13 },
        { qQNaN(), QVector<QSizeF>(2, { 22, 22 }), { { 0, 0 }, { 22, 0 } }, 22 },
    };
    for (const auto &row : rows) {
        PaletteLayout layout(row.width);
        QVector<QPoint> places;
        for (const QSizeF &patch : row.patches)
            places.append(layout.place(patch));
        QCOMPARE(places, row.places);
        QCOMPARE(layout.height(), row.height);
    }
}

TAMBER_TEST_MAIN(tst_PaletteLayout)
#include "tst_palettelayout.moc"
