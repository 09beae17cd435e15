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
    void defaults();
    void colors_data();
    void colors();
    void update_data();
    void update();
    void completion();
    void ownColors_data();
    void ownColors();
    void paletteOrder();
    void customColor();
    void providersComeAndGo();
    void defaultProvider();
    void paletteDestroyed();
    void handlersThatDestroy();
};

namespace {

const QString kPicker = QStringLiteral("UiColorPickerBase { objectName: 'picker' }");
const QStringList kColorSignals { QStringLiteral("colorChanged"),
                                  QStringLiteral("hasCustomColorChanged"),
                                  QStringLiteral("transparentChanged"),
                                  QStringLiteral("updateRequested") };

QList<int> keys(QObject *picker, const char *property)
{
    const QQmlListReference list(picker, property);
    QList<int> result;
    for (int i = 0; i < list.count(); ++i)
        result.append(qobject_cast<Palette *>(list.at(i))->sortInfo());
    return result;
}

} // namespace

void tst_ColorPicker::defaults()
{
    const ColorPickerBase picker;
    QCOMPARE(picker.mode(), ColorPickerBase::Swatches);
    QCOMPARE(int(ColorPickerBase::Mixer), 0);
    QCOMPARE(picker.color(), QColor(Qt::black));
    QVERIFY(!picker.isTransparent() && !picker.usesTransparent() && !picker.colorPickActive());
    QVERIFY(!picker.isBindable() && !picker.isIndeterminate());
    QVERIFY(picker.hasCustomColor()); // it has no palettes yet
}

void tst_ColorPicker::colors_data()
{
    QTest::addColumn<QColor>("before");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QStringList>("told");
    const QColor opaque(10, 20, 30);
    const auto alpha = [&](double value) {
        QColor color = opaque;
        color.setAlphaF(value);
        return color;
    };
    const QStringList changed = names({ "colorChanged", "hasCustomColorChanged" });
    const QStringList turned = changed + names({ "transparentChanged" });
    QTest::newRow("another") << opaque << QColor(Qt::red) << changed;
    QTest::newRow("the same") << opaque << opaque << QStringList();
    QTest::newRow("the same in HSV") << QColor(Qt::red) << QColor(Qt::red).toHsv() << QStringList();
    QTest::newRow("translucent") << opaque << alpha(0.0101) << changed;
    QTest::newRow("becomes transparent") << opaque << alpha(0.005) << turned;
    QTest::newRow("stays transparent") << alpha(0.005) << alpha(0) << changed;
    QTest::newRow("becomes visible") << alpha(0) << alpha(0.5) << turned;
    QTest::newRow("no colour") << opaque << QColor() << changed;
    QTest::newRow("no colour after none") << QColor() << QColor() << QStringList();
}

void tst_ColorPicker::colors()
{
    QFETCH(QColor, before);
    QFETCH(QColor, color);
    ColorPickerBase picker;
    picker.setColor(before);
    SignalLog log;
    log.watch(&picker, kColorSignals);
    picker.setColor(color);
    QTEST(log.take(), "told");
    QCOMPARE(picker.color(), color.toRgb());
    QVERIFY(!picker.color().isValid() || picker.color().spec() == QColor::Rgb);
}

void tst_ColorPicker::update_data()
{
    QTest::addColumn<bool>("bindable");
    QTest::newRow("keeps it") << false;
    QTest::newRow("asks for it") << true;
}

void tst_ColorPicker::update()
{
    QFETCH(bool, bindable);
    ColorPickerBase picker;
    picker.setBindable(bindable);
    QSignalSpy requests(&picker, &ColorPickerBase::updateRequested);
    for (const QColor &color : { QColor(Qt::red).toHsl(), QColor(), QColor(Qt::black) }) {
        const QColor before = picker.color();
        QVERIFY(QMetaObject::invokeMethod(&picker, "updateColor", Q_ARG(QColor, color)));
        QCOMPARE(picker.color(), bindable ? before : color.toRgb());
        QCOMPARE(requests.count(), bindable ? 1 : 0);
        if (bindable)
            QCOMPARE(requests.takeFirst().first().value<QColor>(), color.toRgb());
    }
}

void tst_ColorPicker::completion()
{
    Scene scene(QStringLiteral(
        "UiColorPickerBase { objectName: 'picker'; property var log: []\n"
        "property string names: { const all = []; for (let i = 0; i < palettes.length; ++i)\n"
        "all.push(palettes[i].name + palettes[i].readOnly); return all.join() }\n"
        "onPalettesChanged: log.push('palettes'); onHasCustomColorChanged: log.push('custom')\n"
        "Component.onCompleted: log.push('completed') }"));
    QVERIFY(scene.isValid());
    auto *picker = scene.find<ColorPickerBase>("picker");
    QCOMPARE(picker->property("log").toStringList(), names({ "palettes", "custom", "completed" }));
    QCOMPARE(picker->property("names").toString(), QStringLiteral("true"));
    QCOMPARE(keys(picker, "palettes"), QList<int> { 1 });
    QCOMPARE(keys(picker, "writablePalettes"), QList<int>());
    const QQmlListReference list(picker, "palettes");
    QVERIFY(!list.canAppend() && !list.canClear());
    QCOMPARE(list.at(0)->parent(), picker);
    QVERIFY(!list.at(1) && !list.at(-1));

    SignalLog log;
    log.watch(picker, { QStringLiteral("modeChanged"), QStringLiteral("bindableChanged"),
                        QStringLiteral("indeterminateChanged") });
    for (const char *property : { "mode", "bindable", "indeterminate" }) {
        const QVariant other = qstrcmp(property, "mode") == 0 ? QVariant(0) : QVariant(true);
        picker->setProperty(property, other);
        picker->setProperty(property, other);
        QCOMPARE(log.take(), QStringList { QLatin1String(property) + QLatin1String("Changed") });
    }
}

void tst_ColorPicker::ownColors_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<int>("told");
    QTest::newRow("none") << QString() << 0;
    QTest::newRow("opaque") << QStringLiteral("property var palette: ['red', '#123456']") << 0;
    QTest::newRow("transparent") << QStringLiteral("property var palette: ['red', 'transparent']")
                                 << 1;
    QTest::newRow("twice") << QStringLiteral("property var palette: ['#01ffffff', '#02000000']")
                           << 2;
    QTest::newRow("not quite") << QStringLiteral("property var palette: ['#03ffffff']") << 0;
    QTest::newRow("values") << QStringLiteral("property var palette: [Qt.rgba(1, 0, 0, 0)]") << 1;
    QTest::newRow("rubbish") << QStringLiteral(
        "property var palette: ['', 'no colour', 7, null, undefined, [], {}, 'transparent']")
                             << 1;
    QTest::newRow("no list") << QStringLiteral("property string palette: 'transparent'") << 0;
    QTest::newRow("an object") << QStringLiteral("property QtObject palette: null") << 0;
}

void tst_ColorPicker::ownColors()
{
    QFETCH(QString, property);
    QFETCH(int, told);
    Scene scene(QStringLiteral("UiColorPickerBase { objectName: 'picker'; property int told: 0\n"
                               "onUsesTransparentChanged: ++told\n%1 }")
                    .arg(property));
    QVERIFY(scene.isValid());
    const auto *picker = scene.find<ColorPickerBase>("picker");
    QCOMPARE(picker->property("told").toInt(), told);
    QCOMPARE(picker->usesTransparent(), told > 0);
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
    Scene scene(kPicker);
    QVERIFY(scene.isValid());
    auto *picker = scene.find<ColorPickerBase>("picker");
    QCOMPARE(keys(picker, "palettes"), QList<int>({ -3, 1, 1, 7, 7 }));
    QCOMPARE(keys(picker, "writablePalettes"), QList<int>({ 1, 7, 7 }));
    const QQmlListReference list(picker, "writablePalettes");
    QCOMPARE(list.at(1), made.at(0));
    QCOMPARE(list.at(2), made.at(3));
    for (const Palette *palette : qAsConst(made))
        QCOMPARE(palette->parent(), picker);
}

void tst_ColorPicker::customColor()
{
    EditableSwatch *swatch = nullptr;
    const Provider provider([&] {
        auto *palette = new EditablePalette;
        swatch = palette->add(colorList({ "#123456" }));
        return palette;
    });
    Scene scene(kPicker);
    QVERIFY(scene.isValid());
    auto *picker = scene.find<ColorPickerBase>("picker");
    const struct
    {
        QColor color;
        bool custom;
    } rows[] = { { QColor(0x123456), false },
                 { QColor(Qt::white), false },
                 { QColor(0x123457), true },
                 { QColor(255, 255, 255, 254), true },
                 { QColor(), true } };
    for (const auto &row : rows) {
        picker->setColor(row.color);
        QCOMPARE(picker->hasCustomColor(), row.custom);
    }
    picker->setColor(QColor(0x654321));
    SignalLog log;
    log.watch(picker, kColorSignals);
    swatch->setColors(colorList({ "#654321" }));
    QCOMPARE(log.take(), names({ "hasCustomColorChanged" }));
    QVERIFY(!picker->hasCustomColor());
}

void tst_ColorPicker::providersComeAndGo()
{
    Scene scene(kPicker);
    QVERIFY(scene.isValid());
    auto *before = scene.find<ColorPickerBase>("picker");
    auto provider = std::make_unique<Provider>([] { return new EditablePalette(9); });
    QCOMPARE(keys(before, "palettes"), QList<int> { 1 });
    const auto between = scene.create(kPicker);
    // What makes a palette may be the end of providers, the next one included.
    std::unique_ptr<Provider> victim;
    const Provider murderer([&] {
        provider.reset();
        victim.reset();
        return new EditablePalette(10);
    });
    victim = std::make_unique<Provider>([] { return new EditablePalette(11); });
    const Provider survivor([] { return new EditablePalette(12); });
    const auto after = scene.create(kPicker);
    QCOMPARE(keys(between.get(), "palettes"), QList<int>({ 1, 9 }));
    QCOMPARE(keys(after.get(), "palettes"), QList<int>({ 1, 9, 10, 12 }));
    QVERIFY(!provider && !victim);
    QCOMPARE(keys(before, "palettes"), QList<int> { 1 });
}

// One for all pickers, whatever their engine, from the first to the last of them.
void tst_ColorPicker::defaultProvider()
{
    const int others = Palette::providers().count();
    auto first = std::make_unique<ColorPickerBase>();
    QCOMPARE(Palette::providers().count(), others + 1);
    const PaletteProvider *shared = Palette::providers().last();
    auto second = std::make_unique<ColorPickerBase>();
    first.reset();
    QVERIFY(Palette::providers().contains(shared));
    QCOMPARE(Palette::providers().count(), others + 1);
    second.reset();
    QCOMPARE(Palette::providers().count(), others);
    const ColorPickerBase third;
    QCOMPARE(Palette::providers().count(), others + 1);
}

void tst_ColorPicker::paletteDestroyed()
{
    Scene scene(kPicker);
    QVERIFY(scene.isValid());
    auto *picker = scene.find<ColorPickerBase>("picker");
    picker->setColor(Qt::white);
    QVERIFY(!picker->hasCustomColor());
    SignalLog log;
    log.watch(picker,
              { QStringLiteral("palettesChanged"), QStringLiteral("hasCustomColorChanged") });
    delete QQmlListReference(picker, "palettes").at(0);
    QCOMPARE(log.take(), names({ "palettesChanged", "hasCustomColorChanged" }));
    QCOMPARE(QQmlListReference(picker, "palettes").count(), 0);
    QVERIFY(picker->hasCustomColor());
}

void tst_ColorPicker::handlersThatDestroy()
{
    for (auto signal : { &ColorPickerBase::colorChanged, &ColorPickerBase::hasCustomColorChanged,
                         &ColorPickerBase::transparentChanged }) {
        QPointer<ColorPickerBase> picker = new ColorPickerBase;
        connect(picker, signal, this, [&picker] { delete picker; });
        picker->updateColor(Qt::transparent);
        QVERIFY(!picker);
    }
}

TAMBER_TEST_MAIN(tst_ColorPicker)
#include "tst_colorpicker.moc"
