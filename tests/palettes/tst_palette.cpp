#include "palettes.h"

#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/GlobalDefaultPalette>
#include <TamberUi/GlobalDefaultPaletteProvider>

#include "palettes/palettelayout_p.h"

using namespace ta::ui;
using namespace ta::test;

class tst_Palette : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void defaultPalette();
    void refusals();
    void edits();
    void placesOfSwatches();
    void signalOrder();
    void swatchesGo();
    void handlersThatDestroy();
    void providers();
    void layout();
    void layoutAtTheEdges();
};

namespace {

const QStringList kSignals = names({ "swatchesChanged", "colorsChanged" });

} // namespace

void tst_Palette::defaultPalette()
{
    const GlobalDefaultPaletteProvider provider;
    const std::unique_ptr<Palette> palette(provider.createPalette());
    QList<int> counts;
    uint sum = 0; // of all the values, each weighed with its place
    int place = 0;
    const QList<ColorSwatch *> swatches = palette->swatches();
    for (const ColorSwatch *swatch : swatches) {
        counts.append(swatch->colors().count());
        const QList<QColor> colors = swatch->colors();
        for (const QColor &color : colors) {
            QVERIFY(palette->containsColor(color));
            sum += uint(++place) * (color.rgb() & RGB_MASK);
        }
    }
    QCOMPARE(counts, QList<int>({ 6, 8, 8, 6, 4, 10 }));
    QCOMPARE(sum, 1208226860u);
    QCOMPARE(palette->sortInfo(), 1);
    QVERIFY(palette->property("readOnly").toBool());
}

void tst_Palette::refusals()
{
    const QColor red(Qt::red);
    GlobalDefaultPalette fixed;
    EditablePalette editable;
    auto *plain = new ColorSwatch({ red }, &editable);
    editable.insertSwatch(plain, 0);
    const QString noSwatch = QStringLiteral("No swatch with index %1 in this palette");
    SignalLog log;
    log.watch(&fixed, names({ "colorsChanged" }));
    log.watch(&editable, names({ "colorsChanged" }));
    const QVector<QPair<std::function<bool()>, QString>> rows {
        { [&] { return fixed.insertColor(red); },
          QStringLiteral("Cannot add color to read-only palette") },
        { [&] { return fixed.setColor(red, 0, 77); },
          QStringLiteral("Cannot set color in read-only palette") },
        { [&] { return fixed.removeColor(0); },
          QStringLiteral("Cannot remove color from read-only palette") },
        { [&] { return editable.insertColor(red); },
          QStringLiteral("Cannot insert colors into this color swatch") },
        { [&] { return editable.setColor(red, 0); },
          QStringLiteral("Cannot modify colors in this color swatch") },
        { [&] { return editable.removeColor(0); },
          QStringLiteral("Cannot remove colors from this color swatch") },
        { [&] { return editable.setColor(red, 0, 1); }, noSwatch.arg(1) },
        { [&] { return editable.removeColor(0, -1); }, noSwatch.arg(-1) },
    };
    for (const auto &row : rows) {
        expectWarning(QLatin1Char('^') + row.second + QLatin1Char('$'));
        QVERIFY2(!row.first(), qPrintable(row.second));
    }
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(plain->colors(), QList<QColor> { red });
}

void tst_Palette::edits()
{
    EditablePalette palette;
    auto *first = palette.add(colorList({ "red", "lime" }));
    auto *second = palette.add({});
    const QColor blue = QColor::fromHsv(240, 255, 255);
    QVERIFY(QMetaObject::invokeMethod(&palette, "insertColor", Q_ARG(QColor, blue)));
    QVERIFY(palette.insertColor(blue, -1, 1));
    QVERIFY(palette.setColor(blue, 0));
    QCOMPARE(first->colors(), colorList({ "blue", "lime", "blue" })); // in the RGB spec
    QCOMPARE(second->colors(), colorList({ "blue" }));
    QVERIFY(palette.removeColor(1));
    QVERIFY(!palette.removeColor(7)); // the swatch has the last word
    QCOMPARE(first->colors(), colorList({ "blue", "blue" }));
}

// Indexes count without the swatch that moves; what is no place means the end.
void tst_Palette::placesOfSwatches()
{
    const struct
    {
        int which; // 3 is new
        int index;
        const char *order;
    } rows[] = {
        { 2, 0, "201" }, { 0, 1, "102" }, { 0, 3, "120" }, { 1, -1, "021" }, { 3, 2, "0132" },
    };
    for (const auto &row : rows) {
        EditablePalette palette;
        QList<ColorSwatch *> all;
        for (int i = 0; i < 3; ++i)
            all.append(palette.add({ QColor(i, 0, 0) }));
        all.append(new EditableSwatch(&palette));
        SignalLog log;
        log.watch(&palette, kSignals);
        palette.insertSwatch(all.at(row.which), row.index);
        QString order;
        const QList<ColorSwatch *> swatches = palette.swatches();
        for (ColorSwatch *swatch : swatches)
            order += QString::number(all.indexOf(swatch));
        QCOMPARE(order, QLatin1String(row.order));
        QCOMPARE(log.take(), names({ "swatchesChanged" }));
        // One that moved is still connected just once.
        static_cast<EditableSwatch *>(all.at(row.which))->setColors(colorList({ "red" }));
        QCOMPARE(log.take(), names({ "colorsChanged" }));
    }
}

void tst_Palette::signalOrder()
{
    EditablePalette palette;
    SignalLog log;
    log.watch(&palette, kSignals);
    palette.insertSwatch(nullptr, 0);
    palette.removeSwatch(nullptr);
    EditableSwatch swatch(colorList({ "red", "lime" }));
    palette.removeSwatch(&swatch);
    palette.insertSwatch(&swatch, 0);
    QCOMPARE(log.take(), names({ "swatchesChanged", "colorsChanged" }));

    swatch.setColors(colorList({ "lime", "red", "lime" }));
    QCOMPARE(log.take(), QStringList()); // the same set
    swatch.setColors(colorList({ "lime", "blue" }));
    QCOMPARE(log.take(), names({ "colorsChanged" }));

    EditableSwatch other(colorList({ "blue" }));
    palette.insertSwatch(&other, 0);
    QCOMPARE(log.take(), names({ "swatchesChanged" }));
    palette.removeSwatch(&swatch);
    QCOMPARE(log.take(), names({ "swatchesChanged", "colorsChanged" }));
    swatch.setColors({});
    QCOMPARE(log.take(), QStringList()); // it is no part any more
    palette.removeSwatch(&other);

    // Alpha and colour spec distinguish members, though not their buckets.
    const QColor color(10, 20, 30);
    auto *both = palette.add({ QColor(10, 20, 30, 40), color });
    QVERIFY(!palette.containsColor(QColor(10, 20, 30, 41)));
    QVERIFY(!palette.containsColor(color.toHsv()));
    log.take();
    both->removeColor(0);
    QCOMPARE(log.take(), names({ "colorsChanged" }));
}

void tst_Palette::swatchesGo()
{
    auto palette = std::make_unique<EditablePalette>();
    EditableSwatch outside(colorList({ "lime" }));
    auto *inside = palette->add(colorList({ "red" }));
    palette->insertSwatch(&outside, 0);
    SignalLog log;
    log.watch(palette.get(), kSignals);
    delete inside;
    QCOMPARE(log.take(), names({ "swatchesChanged", "colorsChanged" }));
    QCOMPARE(palette->swatches(), QList<ColorSwatch *> { &outside });
    palette.reset();
    outside.setColors({}); // nobody listens any more
}

// A handler of the one signal or of the other destroys the palette, while a swatch comes, is taken
// out, or is destroyed.
void tst_Palette::handlersThatDestroy()
{
    for (auto signal : { &Palette::swatchesChanged, &Palette::colorsChanged }) {
        for (const char *way : { "insert", "remove", "destroy" }) {
            const bool insert = qstrcmp(way, "insert") == 0;
            QPointer<EditablePalette> palette = new EditablePalette;
            auto swatch = std::make_unique<EditableSwatch>(colorList({ "red" }));
            if (!insert)
                palette->insertSwatch(swatch.get(), 0);
            connect(palette, signal, this, [&palette] { delete palette; });
            if (insert)
                palette->insertSwatch(swatch.get(), 0);
            else if (qstrcmp(way, "remove") == 0)
                palette->removeSwatch(swatch.get());
            swatch.reset();
            QVERIFY(!palette);
        }
    }
}

void tst_Palette::providers()
{
    const QList<const PaletteProvider *> before = Palette::providers();
    auto first = std::make_unique<Provider>([] { return nullptr; });
    Provider second([] { return nullptr; });
    Palette::installProvider(first.get()); // once more
    first.reset();
    QCOMPARE(Palette::providers(), before + QList<const PaletteProvider *> { &second });
}

// Where each patch lies, seen from the one before it.
void tst_Palette::layout()
{
    for (int width = 22; width < 400; ++width) {
        PaletteLayout layout(width);
        QPoint last(-22, 0);
        for (int count : { 6, 8, 8, 6, 4, 10 }) {
            for (int i = 0; i < count; ++i) {
                const int gap = i == 0 && last.x() >= 0 ? 5 : 0;
                const QPoint beside = last + QPoint(22 + gap, 0);
                const bool fits = beside.x() + 22 <= width;
                last = layout.place(QSizeF(22, 22));
                QCOMPARE(last, fits ? beside : QPoint(0, beside.y() + 27));
            }
            layout.endSwatch();
        }
        QCOMPARE(layout.height(), last.y() + 22.0);
    }
}

void tst_Palette::layoutAtTheEdges()
{
    const struct
    {
        qreal width;
        QVector<int> swatches;
        QVector<QPoint> places;
    } rows[] = {
        { 70.9, { 2, 1 }, { { 0, 0 }, { 22, 0 }, { 0, 27 } } },
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
    }
}

TAMBER_TEST_MAIN(tst_Palette)
#include "tst_palette.moc"
