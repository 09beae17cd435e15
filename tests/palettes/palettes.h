#pragma once

#include <TamberUi/ColorSwatch>
#include <TamberUi/Palette>
#include <TamberUi/PaletteProvider>

#include <functional>

namespace ta::test {

inline QList<QColor> colorList(std::initializer_list<const char *> names)
{
    QList<QColor> colors;
    for (const char *name : names)
        colors.append(QColor(QLatin1String(name)));
    return colors;
}

/// As a host would write it.
class EditableSwatch : public ta::ui::ColorSwatch
{
public:
    using ColorSwatch::ColorSwatch;
    using ColorSwatch::setColors;

    bool insertColor(const QColor &color, int index) override
    {
        QList<QColor> list = colors();
        list.insert(index < 0 ? list.count() : index, color);
        setColors(list);
        return true;
    }
    bool setColor(const QColor &color, int index) override
    {
        QList<QColor> list = colors();
        if (index < 0 || index >= list.count())
            return false;
        list[index] = color;
        setColors(list);
        return true;
    }
    bool removeColor(int index) override
    {
        QList<QColor> list = colors();
        if (index < 0 || index >= list.count())
            return false;
        list.removeAt(index);
        setColors(list);
        return true;
    }
};

class EditablePalette : public ta::ui::Palette
{
public:
    explicit EditablePalette(int key = 5, QObject *parent = nullptr) : Palette(parent), key(key) {}
    int sortInfo() const override { return key; }
    bool isReadOnly() const override { return readOnly; }

    EditableSwatch *add(const QList<QColor> &colors)
    {
        auto *swatch = new EditableSwatch(colors, this);
        insertSwatch(swatch, -1);
        return swatch;
    }

    const int key;
    bool readOnly = false;
};

class Provider : public ta::ui::PaletteProvider
{
public:
    explicit Provider(const std::function<ta::ui::Palette *()> &make) : m_make(make) {}
    ta::ui::Palette *createPalette() const override { return m_make(); }

private:
    std::function<ta::ui::Palette *()> m_make;
};

} // namespace ta::test
