#include "support/scene.h"
#include "support/testcase.h"

#include <TamberUi/Colors>
#include <TamberUi/Fonts>
#include <TamberUi/Logging>
#include <TamberUi/Module>
#include <TamberUi/Ui>

#include <QtCore/QFile>
#include <QtCore/QMetaEnum>
#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QImage>
#include <QtQml/QQmlComponent>

using namespace ta::ui;

class tst_Module : public ta::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void privateModule();
    void loggingLevels();
    void bundles();
    void images();
    void vectorImage();
    void colors();
    void colorsFromQml();
    void fonts();
};

// The types are there from version 1.0 on and in no later one, however often they are registered.
void tst_Module::privateModule()
{
    register_private();
    register_private();
    QQmlEngine engine;
    const auto create = [&](const QByteArray &version, const QByteArray &type, bool isItem) {
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15; import tamber.Ui.Private " + version + "; " + type
                              + (isItem ? " { activeFocusOnTab: true }" : " {}"),
                          QUrl());
        return std::unique_ptr<QObject>(component.isReady() ? component.create() : nullptr);
    };
    const struct
    {
        const char *name;
        const char *cppName;
        bool isItem = true;
    } types[] = {
        { "UiPopupAnchor", "ta::ui::PopupAnchor" },
        { "UiButtonBase", "ta::ui::ButtonBase" },
        { "UiCalendarInfo", "ta::ui::CalendarInfo", false },
        { "UiCheckButtonBase", "ta::ui::CheckButtonBase" },
        { "UiToolButtonBase", "ta::ui::ToolButtonBase" },
        { "UiPushButtonBase", "ta::ui::PushButtonBase" },
        { "UiSliderBase", "ta::ui::SliderBase" },
        { "UiDelegateBase", "ta::ui::DelegateBase" },
        { "UiColorPickerBase", "ta::ui::ColorPickerBase" },
        { "UiPaletteItem", "ta::ui::PaletteItem" },
        { "UiLineEditBase", "ta::ui::LineEditBase" },
        { "UiSpinBoxExPrivate", "ta::ui::SpinBoxExPrivate", false },
    };
    for (const auto &type : types) {
        const auto object = create("1.0", type.name, type.isItem);
        QVERIFY2(object, type.name);
        QVERIFY(object->inherits(type.cppName));
        QVERIFY(!create("1.1", type.name, type.isItem));
    }
}

void tst_Module::loggingLevels()
{
    QCOMPARE(lcUi().categoryName(), "tamber.ui");
    QVERIFY(lcUi().isWarningEnabled() && !lcUi().isInfoEnabled() && !lcUi().isDebugEnabled());
    QCOMPARE(lcPalette().categoryName(), "tamber.ui.palette");
    QVERIFY(lcPalette().isInfoEnabled() && !lcPalette().isDebugEnabled());
    QLoggingCategory::setFilterRules(QStringLiteral("tamber.ui.debug=true"));
    QVERIFY(lcUi().isDebugEnabled());
    QLoggingCategory::setFilterRules({});
}

// A host may call the bundles' functions although they run when the library is loaded.
void tst_Module::bundles()
{
    extern int qInitResources_lib_ui_components();
    extern int qInitResources_lib_ui_images();
    extern int qInitResources_lib_ui_shaders();
    QCOMPARE(qInitResources_lib_ui_components(), 1);
    QCOMPARE(qInitResources_lib_ui_images(), 1);
    QCOMPARE(qInitResources_lib_ui_shaders(), 1);
    QVERIFY(QFile::exists(QStringLiteral(":/ui/images/checkmark.png")));
}

// Each image is 8-bit RGBA of its size, stored as it is, and shows something.
void tst_Module::images()
{
    const struct
    {
        const char *name;
        QSize size;
    } rows[] = {
        { "tooltip-border", { 28, 36 } },
        { "dialog-shadow", { 75, 75 } },
        { "dropdown-indicator", { 10, 5 } },
        { "color-transparent", { 22, 22 } },
        { "color-lightness-handle", { 25, 17 } },
        { "color-lightness-handle@2x", { 50, 34 } },
        { "color-hue-saturation-handle", { 13, 13 } },
        { "color-hue-saturation-handle@2x", { 26, 26 } },
        { "infotip-peak-up", { 19, 10 } },
        { "infotip-peak-down", { 19, 10 } },
        { "spinbox-arrow-up", { 7, 4 } },
        { "spinbox-arrow-down", { 7, 4 } },
        { "progressbar-overlay", { 17, 10 } },
        { "loadindicator", { 128, 128 } },
        { "checkmark", { 18, 18 } },
    };
    for (const auto &row : rows) {
        const QString path = QStringLiteral(":/ui/images/%1.png").arg(QLatin1String(row.name));
        QVERIFY2(QResource(path).compressionAlgorithm() == QResource::NoCompression, row.name);
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), row.name);
        const QByteArray data = file.readAll();
        QVERIFY2(data.startsWith("\x89PNG\r\n\x1a\n"), row.name);
        QCOMPARE(int(data.at(24)), 8); // bits per channel
        QCOMPARE(int(data.at(25)), 6); // RGBA
        const QImage image = QImage::fromData(data, "PNG").convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(image.size(), row.size);
        QSet<QRgb> values;
        for (int i = 0; i < image.width() * image.height(); ++i)
            values.insert(image.pixel(i % image.width(), i / image.width()));
        QVERIFY2(values.count() > 2, row.name);
    }
}

void tst_Module::vectorImage()
{
    QFile file(QStringLiteral(":/ui/images/collapse-arrow.svg"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name(), QStringLiteral("svg"));
    QCOMPARE(reader.attributes().value(QLatin1String("viewBox")), QStringLiteral("0 0 13 13"));
    while (!reader.atEnd())
        reader.readNext();
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
}

void tst_Module::colors()
{
    const Colors colors;
    QCOMPARE(QMetaEnum::fromType<Colors::Color>().keyCount(), 45);
    uint sum = 0; // of all the values, each weighed with its place
    for (int id = 0; id < 45; ++id) {
        const QColor color = colors.getColor(Colors::Color(id));
        QCOMPARE(color.alpha(), 255);
        sum += uint(id + 1) * (color.rgb() & RGB_MASK);
    }
    QCOMPARE(sum, 1908679665u);
    QCOMPARE(colors.getColor(Colors::MediumGrey45).rgba(), 0xFF606060);
    QCOMPARE(colors.getColor(Colors::WarningRed).rgba(), 0xFFA56061);
    QCOMPARE(colors.getColor(Colors::PublishToggleVisible).rgba(), 0xFF90C695);

    QCOMPARE(colors.getColor(Colors::White, 0.5f).alphaF(),
             QColor::fromRgbF(0, 0, 0, 0.5).alphaF());
    QCOMPARE(colors.getColor(Colors::Black, 7.0f).alpha(), 255);
    QCOMPARE(colors.getColor(Colors::Black, -1.0f).alpha(), 0);
    QCOMPARE(colors.getColor(Colors::Black, float(qQNaN())).alpha(), 255);

    expectWarning(QStringLiteral("no colour 45"));
    expectWarning(QStringLiteral("no colour -1"));
    QVERIFY(!colors.getColor(Colors::Color(45)).isValid());
    QVERIFY(!colors.getColor(Colors::Color(-1), 0.5f).isValid());
}

void tst_Module::colorsFromQml()
{
    qmlRegisterSingletonType<Colors>("tests.Names", 1, 0, "Colours",
                                     [](QQmlEngine *, QJSEngine *) -> QObject * {
                                         return new Colors;
                                     });
    qmlRegisterSingletonType<Fonts>("tests.Names", 1, 0, "Fonts",
                                    [](QQmlEngine *, QJSEngine *) -> QObject * {
                                        return new Fonts;
                                    });
    qmlRegisterUncreatableType<Ui>("tests.Names", 1, 0, "Ui", QString());
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick 2.15; import tests.Names 1.0; QtObject {"
                      " property color half: Colours.getColor(Colours.HeaderGrey4, 0.5);"
                      " property font title: Fonts.getFont(Fonts.SemiBold, 18);"
                      " property int icon: Ui.MessageBoxErrorIcon + Ui.SecondaryPushButtonStyle"
                      " + Ui.IconOnly }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("half").value<QColor>().rgba(), 0x80F6F6F6);
    QCOMPARE(object->property("title").value<QFont>().weight(), int(QFont::DemiBold));
    QCOMPARE(object->property("title").value<QFont>().pixelSize(), 18);
    QCOMPARE(object->property("icon").toInt(), 3 + 2 + 1);
}

void tst_Module::fonts()
{
    const Fonts fonts;
    const struct
    {
        Fonts::Font font;
        int weight;
        QFont::Style style;
        QFont::Capitalization capitalization;
        qreal spacing;
    } rows[] = {
        { Fonts::Light, QFont::Light, QFont::StyleNormal, QFont::MixedCase, 0 },
        { Fonts::Regular, QFont::Normal, QFont::StyleNormal, QFont::MixedCase, 0 },
        { Fonts::RegularCapitalized, QFont::Normal, QFont::StyleNormal, QFont::AllUppercase, 106 },
        { Fonts::LightItalic, QFont::Light, QFont::StyleItalic, QFont::MixedCase, 0 },
        { Fonts::LightCapitalized, QFont::Light, QFont::StyleNormal, QFont::AllUppercase, 0 },
        { Fonts::RegularItalic, QFont::Normal, QFont::StyleItalic, QFont::MixedCase, 0 },
        { Fonts::SemiBold, QFont::DemiBold, QFont::StyleNormal, QFont::MixedCase, 0 },
        { Fonts::Font(7), QFont::Normal, QFont::StyleNormal, QFont::MixedCase, 0 },
        { Fonts::Font(-1), QFont::Normal, QFont::StyleNormal, QFont::MixedCase, 0 },
    };
    for (const auto &row : rows) {
        const QFont font = fonts.getFont(row.font, 12);
        QCOMPARE(font.family(), QStringLiteral("Ta_Lato"));
        QCOMPARE(font.pixelSize(), 12);
        QCOMPARE(font.weight(), row.weight);
        QCOMPARE(font.style(), row.style);
        QCOMPARE(font.capitalization(), row.capitalization);
        QCOMPARE(font.letterSpacing(), row.spacing);
        if (row.spacing > 0)
            QCOMPARE(font.letterSpacingType(), QFont::PercentageSpacing);
        QCOMPARE(fonts.getFont(row.font, 14).pixelSize(), 14);
    }
}

TAMBER_TEST_MAIN(tst_Module)
#include "tst_module.moc"
