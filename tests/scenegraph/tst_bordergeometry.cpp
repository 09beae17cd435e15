#include "support/testcase.h"

#include "scenegraph/bordergeometry_p.h"

using namespace ta::ui;

class tst_BorderGeometry : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void solid();
    void dashed();
    void distances();
};

// The fraction of a width stays in a solid border.
void tst_BorderGeometry::solid()
{
    const SolidBorderVertices vertices = solidBorderVertices(QSizeF(100.5, 50), 2.5f);
    const QPointF expected[] = { { 0, 0 },     { 100.5, 0 }, { 100.5, 50 }, { 0, 50 },
                                 { 2.5, 2.5 }, { 98, 2.5 },  { 98, 47.5 },  { 2.5, 47.5 } };
    for (size_t i = 0; i < vertices.size(); ++i)
        QCOMPARE(QPointF(vertices[i].x, vertices[i].y), expected[i]);
}

void tst_BorderGeometry::dashed()
{
    const struct
    {
        QSizeF size;
        float borderWidth;
        DashedBorderVertices vertices;
    } rows[] = {
        // clang-format off
        // The width loses its fraction, the size keeps it.
        { { 30.25, 20.5 }, 3.75f, { {
            { 0, 0, 3 }, { 3, 0, 3 }, { 27.25f, 0, 30.25f }, { 30.25f, 0, 30.25f },
            { 30.25f, 3, 30.25f }, { 30.25f, 17.5f, 47.75f }, { 30.25f, 20.5f, 47.75f },
            { 27.25f, 20.5f, 47.75f }, { 3, 20.5f, 75 }, { 0, 20.5f, 75 },
            { 0, 17.5f, 75 }, { 0, 3, 0 },
            { 3, 3, 3 }, { 27.25f, 3, 30.25f }, { 27.25f, 17.5f, 47.75f }, { 3, 17.5f, 75 },
            { 0, 3, 92.5f }, { 3, 3, 92.5f } } } },
        // Smaller than two widths: the inner vertices change sides and nothing is clamped.
        { { 5, 4 }, 4, { {
            { 0, 0, 4 }, { 4, 0, 4 }, { 1, 0, 5 }, { 5, 0, 5 },
            { 5, 4, 5 }, { 5, 0, 5 }, { 5, 4, 5 },
            { 1, 4, 5 }, { 4, 4, 6 }, { 0, 4, 6 },
            { 0, 0, 6 }, { 0, 4, 0 },
            { 4, 4, 4 }, { 1, 4, 5 }, { 1, 0, 5 }, { 4, 0, 6 },
            { 0, 4, 6 }, { 4, 4, 6 } } } },
        // clang-format on
    };
    for (const auto &row : rows) {
        const DashedBorderVertices found = dashedBorderVertices(row.size, row.borderWidth);
        for (size_t i = 0; i < found.size(); ++i) {
            QCOMPARE(found[i].x, row.vertices[i].x);
            QCOMPARE(found[i].y, row.vertices[i].y);
            QCOMPARE(found[i].distance, row.vertices[i].distance);
        }
    }
}

// Once around is the outline less three corners, each of which counts once and not twice.
void tst_BorderGeometry::distances()
{
    const BorderDistances along = borderDistances(QSizeF(1e6 + 0.25, 1e6), 3);
    QCOMPARE(along.right, 1e6 + 0.25);
    QCOMPARE(along.end, 4e6 + 0.5 - 9); // floats would be out by quarters here
}

TAMBER_TEST_MAIN(tst_BorderGeometry)
#include "tst_bordergeometry.moc"
