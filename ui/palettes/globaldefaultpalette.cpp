#include "globaldefaultpalette.h"

#include "colorswatch.h"

namespace ta::ui {

namespace {

constexpr int kMostColors = 10; // of one swatch
constexpr const char *kSwatches[][kMostColors] = {
    { "#FFFFFF", "#E3E6E8", "#C1C7CC", "#7F7F7F", "#444444", "#000000" },
    { "#EEA3A3", "#EE4F4F", "#D32E2E", "#B43129", "#A2251E", "#D6BFD2", "#B37285", "#9C434E" },
    { "#CBB3E1", "#896BBA", "#525F94", "#BDE2EC", "#6DA7C5", "#56B8E7", "#2B65AC", "#335262" },
    { "#BDECE2", "#53D5C1", "#34A398", "#D1E9D8", "#52D87D", "#53B97E" },
    { "#E0EAD5", "#AFD169", "#97B96D", "#5B9555" },
    { "#FCF9D8", "#FAF14B", "#F4D552", "#F7A74F", "#FA8630", "#965735", "#7D4638", "#E8E7DD",
      "#C1B282", "#9D7F6C" },
};

} // namespace

GlobalDefaultPalette::GlobalDefaultPalette(QObject *parent) : Palette(parent)
{
    for (const auto &names : kSwatches) {
        QList<QColor> colors;
        for (const char *name : names) {
            if (name)
                colors.append(QColor(QLatin1String(name)));
        }
        insertSwatch(new ColorSwatch(colors, this), -1);
    }
}

GlobalDefaultPalette::~GlobalDefaultPalette() = default;

int GlobalDefaultPalette::sortInfo() const
{
    return 1;
}

} // namespace ta::ui
