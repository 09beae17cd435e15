#include "palettes/palettes.h"

#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/ColorPickerBase>

#include <QtQml/QQmlListReference>

using namespace ta::ui;
using namespace ta::test;

class tst_ColorPicker : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void colors();
    void completion();
    void ownColors();
    void paletteOrder();
    void customColor();
    void providersComeAndGo();
    void defaultProvider();
    void paletteDestroyed();
    void handlersThatDestroy();
};

namespace {

const QStringList kSignals = names(
    { "colorChanged", "hasCustomColorChanged", "transparentChanged", "updateRequested" });

// Pickers as QML makes them.
class Pickers : public Scene
{
public:
    Pickers() : Scene(QString()) {}

    std::unique_ptr<ColorPickerBase> make(const QString &properties = {})
    {
        auto object = create(QStringLiteral("UiColorPickerBase { %1 }").arg(properties));
        return std::unique_ptr<ColorPickerBase>(qobject_cast<ColorPickerBase *>(object.release()));
    }
};

QList<int> keys(ColorPickerBase *picker, const char *property = "palettes")
{
    const QQmlListReference list(picker, property);
    QList<int> result;
    for (int i = 0; i < list.count(); ++i)
        result.append(qobject_cast<Palette *>(list.at(i))->sortInfo());
    return result;
}

} // namespace

// What the user chooses is kept, or asked for.
void tst_ColorPicker::colors()
{
    const QColor opaque(10, 20, 30);
    const auto alpha = [&](double value) {
        QColor color = opaque;
        color.setAlphaF(value);
        return color;
    };
    const QStringList changed = names({ "colorChanged", "hasCustomColorChanged" });
    const QStringList turned = changed + names({ "transparentChanged" });
    const struct
    {
        QColor before;
        QColor color;
        QStringList told = {};
    } rows[] = {
        { opaque, Qt::red, changed },
        { opaque, opaque },
        { Qt::red, QColor(Qt::red).toHsv() },
        { opaque, alpha(0.0101), changed }, // not transparent yet
        { opaque, alpha(0.005), turned },
        { alpha(0), alpha(0.5), turned },
        { opaque, QColor(), changed },
    };
    for (const auto &row : rows) {
        for (bool asks : { false, true }) {
            ColorPickerBase picker;
            picker.setColor(row.before);
            picker.setBindable(asks);
            SignalLog log;
            log.watch(&picker, kSignals);
            QSignalSpy requests(&picker, &ColorPickerBase::updateRequested);
            picker.updateColor(row.color);
            QCOMPARE(log.take(), asks ? names({ "updateRequested" }) : row.told);
            QCOMPARE(picker.color(), asks ? row.before : row.color.toRgb());
            if (asks)
                QCOMPARE(requests.first().first().value<QColor>(), row.color.toRgb());
        }
    }
}

void tst_ColorPicker::completion()
{
    Pickers pickers;
    const auto picker = pickers.make(QStringLiteral(
        "property var log: [mode === UiColorPickerBase.Swatches, '' + color, transparent]\n"
        "onPalettesChanged: log.push('palettes'); onHasCustomColorChanged: log.push('custom')\n"
        "Component.onCompleted: log.push('completed')"));
    QCOMPARE(picker->property("log").toStringList(),
             names({ "true", "#000000", "false", "palettes", "custom", "completed" }));
    QCOMPARE(keys(picker.get()), QList<int> { 1 });
    QCOMPARE(keys(picker.get(), "writablePalettes"), QList<int>());
}

void tst_ColorPicker::ownColors()
{
    const struct
    {
        const char *property;
        int told;
    } rows[] = {
        { "var palette: ['red', '#123456', '#03ffffff']", 0 },
        { "var palette: ['#01ffffff', '#02000000']", 2 },
        { "var palette: ['', 'no colour', 7, null, undefined, [], {}, 'transparent']", 1 },
        { "string palette: 'transparent'", 0 },
    };
    Pickers pickers;
    for (const auto &row : rows) {
        const auto picker = pickers.make(
            QStringLiteral("property %1; property int told: 0; onUsesTransparentChanged: ++told")
                .arg(QLatin1String(row.property)));
        QCOMPARE(picker->property("told").toInt(), row.told);
        QCOMPARE(picker->usesTransparent(), row.told > 0);
    }
}

// By their keys; those with the same one in the order of their providers. What is no palette is
// left out.
void tst_ColorPicker::paletteOrder()
{
    QList<Palette *> made;
    const auto provide = [&made](int key, bool readOnly) {
        return std::make_unique<Provider>([=, &made] {
            auto *palette = new EditablePalette(key);
            palette->readOnly = readOnly;
            made.append(palette);
            return palette;
        });
    };
    const auto late = provide(7, false);
    const Provider none([] { return nullptr; });
    const auto early = provide(-3, true);
    const auto sameAsDefault = provide(1, false);
    const auto sameAsLate = provide(7, false);
    Pickers pickers;
    const auto picker = pickers.make();
    QCOMPARE(keys(picker.get()), QList<int>({ -3, 1, 1, 7, 7 }));
    QCOMPARE(keys(picker.get(), "writablePalettes"), QList<int>({ 1, 7, 7 }));
    const QQmlListReference list(picker.get(), "writablePalettes");
    QCOMPARE(list.at(1), made.at(0));
    QCOMPARE(list.at(2), made.at(3));
}

void tst_ColorPicker::customColor()
{
    EditableSwatch *swatch = nullptr;
    const Provider provider([&] {
        auto *palette = new EditablePalette;
        swatch = palette->add(colorList({ "#123456" }));
        return palette;
    });
    Pickers pickers;
    const auto picker = pickers.make();
    for (const QColor &color : { QColor(0x123456), QColor(Qt::white) }) {
        picker->setColor(color);
        QVERIFY(!picker->hasCustomColor());
    }
    picker->setColor(QColor(255, 255, 255, 254));
    QVERIFY(picker->hasCustomColor());
    picker->setColor(QColor(0x654321));
    SignalLog log;
    log.watch(picker.get(), kSignals);
    swatch->setColors(colorList({ "#654321" }));
    QCOMPARE(log.take(), names({ "hasCustomColorChanged" }));
}

void tst_ColorPicker::providersComeAndGo()
{
    Pickers pickers;
    const auto before = pickers.make();
    auto provider = std::make_unique<Provider>([] { return new EditablePalette(9); });
    const auto between = pickers.make();
    // What makes a palette may be the end of providers.
    std::unique_ptr<Provider> victim;
    const Provider murderer([&] {
        victim.reset();
        return new EditablePalette(10);
    });
    victim = std::make_unique<Provider>([] { return new EditablePalette(11); });
    provider.reset();
    const auto after = pickers.make();
    QCOMPARE(keys(before.get()), QList<int> { 1 });
    QCOMPARE(keys(between.get()), QList<int>({ 1, 9 }));
    QCOMPARE(keys(after.get()), QList<int>({ 1, 10 }));
}

// One for all pickers, from the first to the last of them.
void tst_ColorPicker::defaultProvider()
{
    const auto before = Palette::providers();
    auto first = std::make_unique<ColorPickerBase>();
    const PaletteProvider *shared = Palette::providers().last();
    auto second = std::make_unique<ColorPickerBase>();
    first.reset();
    QCOMPARE(Palette::providers(), before + QList<const PaletteProvider *> { shared });
    second.reset();
    QCOMPARE(Palette::providers(), before);
}

void tst_ColorPicker::paletteDestroyed()
{
    Pickers pickers;
    const auto picker = pickers.make(QStringLiteral("color: 'white'"));
    SignalLog log;
    log.watch(picker.get(), names({ "palettesChanged", "hasCustomColorChanged" }));
    delete QQmlListReference(picker.get(), "palettes").at(0);
    QCOMPARE(log.take(), names({ "palettesChanged", "hasCustomColorChanged" }));
    QCOMPARE(keys(picker.get()), QList<int>());
}

void tst_ColorPicker::handlersThatDestroy()
{
    for (auto signal :
         { &ColorPickerBase::colorChanged, &ColorPickerBase::hasCustomColorChanged }) {
        QPointer<ColorPickerBase> picker = new ColorPickerBase;
        connect(picker, signal, this, [&picker] { delete picker; });
        picker->updateColor(Qt::transparent);
        QVERIFY(!picker);
    }
}

TAMBER_TEST_MAIN(tst_ColorPicker)
#include "tst_colorpicker.moc"
