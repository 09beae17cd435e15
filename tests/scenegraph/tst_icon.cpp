// variants: threaded scale2 x11
#include "support/colors.h"
#include "support/scene.h"
#include "support/signallog.h"
#include "support/testcase.h"

#include "scenegraph/iconatlas_p.h"
#include "scenegraph/iconmaterial_p.h"

#include <TamberUi/Icon>

using namespace ta::ui;
using namespace ta::test;

// What arrives on the screen.
class tst_Icon : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Scene::useKit(); }
    void setters();
    void compare();
    void drawsItsGlyph();
    void stretchedGlyph();
    void disabledAndHighlighted();
};

namespace {

const QSize kWindow(200, 100);

// On a white ground, at the window's corner.
QString scene(const QString &properties)
{
    return QStringLiteral("Rectangle { anchors.fill: parent }") + properties;
}

QImage cell(int size, double ratio, const char *name)
{
    const IconAtlas &atlas = getAtlas(size, ratio);
    const QImage image = QImage::fromData(atlas.data, atlas.dataSize, "png");
    const int pitch = atlas.cellSize + 2;
    for (int i = 0; i < atlas.entryCount; ++i) {
        if (qstrcmp(atlas.entries[i].name, name) == 0)
            return image.copy(atlas.entries[i].column * pitch, atlas.entries[i].row * pitch,
                              atlas.cellSize, atlas.cellSize);
    }
    return {};
}

// What the shader makes of a texel on a white ground.
QColor shaded(const QColor &texel, double disabled, double highlight, const QColor &highlightColor)
{
    const auto mix = [](double a, double b, double t) { return a + (b - a) * t; };
    const double luma = 0.2126 * texel.redF() + 0.7152 * texel.greenF() + 0.0722 * texel.blueF();
    const double t = qBound(0.0, (luma - 0.85) / 0.05, 1.0);
    const double alpha = texel.alphaF() * mix(1, 1 - t * t * (3 - 2 * t), highlight);
    const double grey = mix(0.6, 1, luma);
    const auto channel = [&](double base, double tint) {
        return mix(1, mix(mix(base, grey, disabled), tint, highlight), alpha);
    };
    return QColor::fromRgbF(channel(texel.redF(), highlightColor.redF()),
                            channel(texel.greenF(), highlightColor.greenF()),
                            channel(texel.blueF(), highlightColor.blueF()));
}

// Whether the corner of the grabbed window shows the glyph, shaded.
bool shows(QQuickWindow *window, const QImage &glyph, double disabled = 0, double highlight = 0,
           const QColor &color = Qt::white)
{
    const QImage grabbed = window->grabWindow();
    for (int y = 0; y < glyph.height(); ++y) {
        for (int x = 0; x < glyph.width(); ++x) {
            const QColor expected = shaded(glyph.pixelColor(x, y), disabled, highlight, color);
            if (!isNear(grabbed.pixelColor(x, y), expected, 3)) {
                qInfo() << "at" << x << y << grabbed.pixelColor(x, y) << "instead of" << expected;
                return false;
            }
        }
    }
    return true;
}

bool isBlank(const QImage &image, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!isNear(image.pixelColor(x, y), Qt::white))
                return false;
        }
    }
    return true;
}

} // namespace

void tst_Icon::setters()
{
    Icon icon;
    SignalLog log;
    log.watch(&icon);
    log.watch(&icon, { QStringLiteral("implicitWidthChanged") });
    icon.setIconSize(Icon::Icon_32x32);
    QCOMPARE(log.take(), names({ "implicitWidthChanged", "iconSizeChanged" }));
    QCOMPARE(icon.implicitHeight(), 32.0);

    const QPair<double, double> rows[] = { { 2, 1 }, { -1, 0 }, { qInf(), 1 }, { qQNaN(), 0 } };
    for (const auto &row : rows) {
        icon.setDisabled(row.first);
        icon.setHighlight(row.first);
        QCOMPARE(icon.disabled(), row.second);
        QCOMPARE(icon.highlight(), row.second);
    }
}

void tst_Icon::compare()
{
    const IconState base;
    IconState other;
    QCOMPARE(base.compare(&other), 0);
    other.texture = reinterpret_cast<QSGTexture *>(16);
    QCOMPARE(base.compare(&other), 1); // the lower pointer comes last
    other.highlightColor = QColor(255, 255, 254);
    QCOMPARE(base.compare(&other), 1);
    other.disabled = 0.5f;
    QCOMPARE(base.compare(&other), -1);
    other.highlight = 0.5f;
    other.disabled = -1;
    QCOMPARE(base.compare(&other), -1);
}

// At the item's corner, whatever the item's size; each change is in the next frame.
void tst_Icon::drawsItsGlyph()
{
    const struct
    {
        int size;
        const char *name;
        QSizeF itemSize;
    } rows[] = {
        { 16, "close", { 90, 90 } },
        { 24, "add", { -5, 3 } },
        { 32, "wifi-config", { 24, 24 } },
    };
    Scene shown(scene(QStringLiteral("UiIcon { objectName: 'icon' }")), kWindow);
    auto *icon = shown.find<Icon>("icon");
    const double ratio = shown.window()->effectiveDevicePixelRatio();
    for (const auto &row : rows) {
        icon->setIconSize(Icon::IconSize(row.size));
        icon->setIconName(QLatin1String(row.name));
        icon->setSize(row.itemSize);
        QVERIFY2(shows(shown.window(), cell(row.size, ratio, row.name)), row.name);
        QVERIFY(isBlank(shown.window()->grabWindow(), QRect(int(row.size * ratio), 0, 40, 40)));
    }
    for (const char *name : { "", "no such glyph" }) {
        icon->setIconName(QLatin1String(name));
        QVERIFY(isBlank(shown.window()->grabWindow(), QRect(0, 0, 40, 40)));
    }
}

void tst_Icon::stretchedGlyph()
{
    expectWarning(QStringLiteral("Unsupported atlas size 48"));
    Scene shown(scene(QStringLiteral("UiIcon { iconSize: UiIcon.Icon_48x48; iconName: 'stop' }")),
                kWindow);
    const QImage grabbed = shown.window()->grabWindow();
    const QImage glyph = cell(24, 1, "stop");
    const double ratio = grabbed.devicePixelRatio();
    QVERIFY(isNear(grabbed.pixelColor(int(24 * ratio), int(24 * ratio)),
                   shaded(glyph.pixelColor(12, 12), 0, 0, Qt::white), 3));
    QVERIFY(isBlank(grabbed, QRect(int(48 * ratio), 0, 20, 20)));
}

void tst_Icon::disabledAndHighlighted()
{
    const struct
    {
        double disabled;
        double highlight;
        QColor color;
    } rows[] = {
        { 0.5, 0, Qt::white },
        { 0, 1, QColor(0x98, 0xBE, 0x9C) },
        { 1, 0.5, QColor(Qt::red) },
    };
    Scene shown(scene(QStringLiteral("UiIcon { objectName: 'icon'; iconName: 'add-content' }")),
                kWindow);
    auto *icon = shown.find<Icon>("icon");
    const QImage glyph = cell(24, shown.window()->effectiveDevicePixelRatio(), "add-content");
    for (const auto &row : rows) {
        icon->setDisabled(row.disabled);
        icon->setHighlight(row.highlight);
        icon->setHighlightColor(row.color);
        QVERIFY(shows(shown.window(), glyph, row.disabled, row.highlight, row.color));
    }
}

TAMBER_TEST_MAIN(tst_Icon)
#include "tst_icon.moc"
