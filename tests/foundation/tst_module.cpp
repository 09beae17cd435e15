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
    void images_data();
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

void tst_Module::images_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("tooltip-border.png") << QSize(28, 36);
    QTest::newRow("dialog-shadow.png") << QSize(75, 75);
    QTest::newRow("dropdown-indicator.png") << QSize(10, 5);
    QTest::newRow("color-transparent.png") << QSize(22, 22);
    QTest::newRow("color-lightness-handle.png") << QSize(25, 17);
    QTest::newRow("color-lightness-handle@2x.png") << QSize(50, 34);
    QTest::newRow("color-hue-saturation-handle.png") << QSize(13, 13);
    QTest::newRow("color-hue-saturation-handle@2x.png") << QSize(26, 26);
    QTest::newRow("infotip-peak-up.png") << QSize(19, 10);
    QTest::newRow("infotip-peak-down.png") << QSize(19, 10);
    QTest::newRow("spinbox-arrow-up.png") << QSize(7, 4);
    QTest::newRow("spinbox-arrow-down.png") << QSize(7, 4);
    QTest::newRow("progressbar-overlay.png") << QSize(17, 10);
    QTest::newRow("loadindicator.png") << QSize(128, 128);
    QTest::newRow("checkmark.png") << QSize(18, 18);
}

// Each image is 8-bit RGBA of its size, stored as it is, and shows something.
void tst_Module::images()
{
    QFETCH(QSize, size);
    const QString path = QLatin1String(":/ui/images/") + QLatin1String(QTest::currentDataTag());
    QCOMPARE(QResource(path).compressionAlgorithm(), QResource::NoCompression);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray data = file.readAll();
    QVERIFY(data.startsWith("\x89PNG\r\n\x1a\n"));
    QCOMPARE(int(data.at(24)), 8); // bits per channel
    QCOMPARE(int(data.at(25)), 6); // RGBA

    const QImage image = QImage::fromData(data, "PNG").convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(image.size(), size);
    QSet<QRgb> values;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            values.insert(image.pixel(x, y));
    }
    QVERIFY(values.count() > 2);
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
    // Neighbours of every group of names: a row that is missing or doubled shifts one of them.
    QCOMPARE(colors.getColor(Colors::White).rgba(), 0xFFFFFFFF);
    QCOMPARE(colors.getColor(Colors::MediumGrey45).rgba(), 0xFF606060);
    QCOMPARE(colors.getColor(Colors::DialogHeaderText).rgba(), 0xFF444444);
    QCOMPARE(colors.getColor(Colors::WarningRed).rgba(), 0xFFA56061);
    QCOMPARE(colors.getColor(Colors::DarkerHoverGreen).rgba(), 0xFF9DC4A1);
    QCOMPARE(colors.getColor(Colors::ButtonNormalBlue).rgba(), 0xFF70A9B8);
    QCOMPARE(colors.getColor(Colors::DarkerBlueGrey).rgba(), 0xFF457381);
    QCOMPARE(colors.getColor(Colors::InvisibleContentOverlay).rgba(), 0xFFA497C5);
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
