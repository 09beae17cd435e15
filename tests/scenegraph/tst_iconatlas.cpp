#include "support/testcase.h"

#include "scenegraph/iconatlas_p.h"
#include "scenegraph/icongeometry_p.h"
#include "scenegraph/iconimages_p.h"

#include <TamberUi/Icon>

#include <QtGui/QImage>

#include <limits>

using namespace ta::ui;

// The tables and the pictures of the icon sets, without a window.
class tst_IconAtlas : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void records();
    void pictures_data();
    void pictures();
    void choice();
    void names();
    void sharedGeometry();
    void imagesStayWithIcons();
};

namespace {

QImage picture(const IconAtlas &atlas)
{
    return QImage::fromData(atlas.data, atlas.dataSize, "png");
}

QImage glyph(const IconAtlas &atlas, const QImage &image, int entry)
{
    const int pitch = atlas.cellSize + 2;
    return image.copy(atlas.entries[entry].column * pitch, atlas.entries[entry].row * pitch,
                      atlas.cellSize, atlas.cellSize);
}

int ink(const QImage &image)
{
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y));
    }
    return sum;
}

} // namespace

void tst_IconAtlas::records()
{
    const struct
    {
        int size;
        double ratio;
        int imageSize;
        int cell;
        int columns;
        int count;
    } rows[] = {
        { 16, 1, 256, 16, 8, 57 },    { 16, 2, 512, 32, 8, 57 }, { 24, 1, 512, 24, 12, 129 },
        { 24, 2, 1024, 48, 12, 129 }, { 32, 1, 256, 32, 7, 47 }, { 32, 2, 512, 64, 7, 47 },
    };
    for (const auto &row : rows) {
        const IconAtlas &atlas = getAtlas(row.size, row.ratio);
        QCOMPARE(atlas.cellSize, row.cell);
        QCOMPARE(atlas.entryCount, row.count);
        QCOMPARE(picture(atlas).size(), QSize(row.imageSize, row.imageSize));
        QCOMPARE(atlas.cellFraction, float(atlas.cellSize) / float(row.imageSize));
        QVERIFY(qAbs(atlas.gapFraction - 2.0f / float(row.imageSize)) <= 0.0000006f);
        const IconAtlasEntry &last = atlas.entries[row.count - 1];
        QCOMPARE(last.column, (row.count - 1) % row.columns);
        QCOMPARE(last.row, (row.count - 1) / row.columns);
    }
}

void tst_IconAtlas::pictures_data()
{
    QTest::addColumn<int>("size");
    for (int size : { 16, 24, 32 })
        QTest::addRow("%d", size) << size;
}

// The first cell is empty, every other one is inked, and nothing lies between or beyond the cells.
// The two drawings of a glyph have the same shape, and no two glyphs look alike.
void tst_IconAtlas::pictures()
{
    QFETCH(int, size);
    const IconAtlas &once = getAtlas(size, 1);
    const IconAtlas &twice = getAtlas(size, 2);
    const QImage onceImage = picture(once);
    const QImage twiceImage = picture(twice);
    int inkOfCells[2] = { 0, 0 };
    QHash<QByteArray, QByteArray> looks;
    for (int i = 0; i < once.entryCount; ++i) {
        const QImage small = glyph(once, onceImage, i);
        const QImage large = glyph(twice, twiceImage, i);
        inkOfCells[0] += ink(small);
        inkOfCells[1] += ink(large);
        if (i == 0) {
            QCOMPARE(ink(small) + ink(large), 0);
            continue;
        }
        const QByteArray name = once.entries[i].name;
        QCOMPARE(QByteArray(twice.entries[i].name), name);
        QVERIFY2(ink(small) > 255 * 8, name);

        const QImage halved = large.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                                  .scaled(small.size(), Qt::IgnoreAspectRatio,
                                          Qt::SmoothTransformation);
        int difference = 0;
        for (int y = 0; y < small.height(); ++y) {
            for (int x = 0; x < small.width(); ++x)
                difference += qAbs(qAlpha(small.pixel(x, y)) - qAlpha(halved.pixel(x, y)));
        }
        QVERIFY2(difference <= ink(small) / 4, name);

        const QByteArray bits(reinterpret_cast<const char *>(small.constBits()),
                              int(small.sizeInBytes()));
        QVERIFY2(!looks.contains(bits),
                 QByteArray(name + " looks like " + looks.value(bits)).constData());
        looks.insert(bits, name);
    }
    QCOMPARE(ink(onceImage), inkOfCells[0]);
    QCOMPARE(ink(twiceImage), inkOfCells[1]);
}

void tst_IconAtlas::choice()
{
    QCOMPARE(&getAtlas(16, 1.1), &iconAtlas_16());
    QCOMPARE(&getAtlas(16, 1.25), &iconAtlas_16_2x());
    QCOMPARE(&getAtlas(32, 3), &iconAtlas_32_2x());
    QCOMPARE(&getAtlas(24, 0.5), &iconAtlas_24());
    for (int size : { 48, std::numeric_limits<int>::max() }) {
        expectWarning(QStringLiteral("^Unsupported atlas size %1$").arg(size));
        QCOMPARE(&getAtlas(size, 2), &iconAtlas_24());
    }
}

void tst_IconAtlas::names()
{
    const Icon icon;
    const QStringList names = icon.iconNamesForSize(Icon::Icon_16x16);
    QCOMPARE(names.count(), 57);
    QCOMPARE(names.mid(0, 2), QStringList({ QString(), QStringLiteral("access-none") }));
    QCOMPARE(icon.iconNamesForSize(Icon::Icon_24x24).last(), QStringLiteral("width"));
}

void tst_IconAtlas::sharedGeometry()
{
    QSharedPointer<IconGeometry> first = IconGeometry::get(16, 1, QStringLiteral("close"));
    QCOMPARE(IconGeometry::get(16, 1.1, QStringLiteral("close")), first);
    QVERIFY(IconGeometry::get(16, 2, QStringLiteral("close")) != first);
    const QWeakPointer<IconGeometry> weak = first;
    first.clear();
    QVERIFY(!weak.toStrongRef());
}

void tst_IconAtlas::imagesStayWithIcons()
{
    const auto key = [] { return iconAtlasImage(iconAtlas_16()).cacheKey(); };
    auto icon = std::make_unique<Icon>();
    const qint64 first = key();
    icon = std::make_unique<Icon>(); // before the other one goes
    QCOMPARE(key(), first);
    icon.reset();
    QVERIFY(key() != first);
}

TAMBER_TEST_MAIN(tst_IconAtlas)
#include "tst_iconatlas.moc"
