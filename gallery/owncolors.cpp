#include "owncolors.h"

#include <TamberUi/ColorSwatch>
#include <TamberUi/Palette>

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

using namespace ta::ui;

namespace {

constexpr int kMostColors = 56; // four rows of a picker
const QString kKey = QStringLiteral("palette/colors");

QStringList firstColors()
{
    return { QStringLiteral("#457381"), QStringLiteral("#70a9b8"), QStringLiteral("#98be9c"),
             QStringLiteral("#ecd284"), QStringLiteral("#a56061") };
}

// Shows the user's colours and hands every edit on to them.
class OwnSwatch : public ColorSwatch
{
public:
    OwnSwatch(OwnColors *own, QObject *parent) : ColorSwatch(own->colors(), parent), m_own(own)
    {
        connect(own, &OwnColors::changed, this, [this] { setColors(m_own->colors()); });
    }

    bool insertColor(const QColor &color, int index) override
    {
        QList<QColor> list = colors();
        if (!m_own || list.count() >= kMostColors)
            return false;
        list.insert(index < 0 || index > list.count() ? list.count() : index, color);
        m_own->setColors(list);
        return true;
    }

    bool setColor(const QColor &color, int index) override
    {
        QList<QColor> list = colors();
        if (!m_own || index < 0 || index >= list.count())
            return false;
        list[index] = color;
        m_own->setColors(list);
        return true;
    }

    bool removeColor(int index) override
    {
        QList<QColor> list = colors();
        if (!m_own || index < 0 || index >= list.count())
            return false;
        list.removeAt(index);
        m_own->setColors(list);
        return true;
    }

private:
    const QPointer<OwnColors> m_own;
};

class OwnPalette : public Palette
{
public:
    explicit OwnPalette(OwnColors *own) { insertSwatch(new OwnSwatch(own, this), -1); }

    QString name() const override
    {
        return QCoreApplication::translate("OwnPalette", "My colours");
    }
    int sortInfo() const override { return 2; } // after the default palette
    bool isReadOnly() const override { return false; }
};

} // namespace

OwnColors::OwnColors(std::unique_ptr<QSettings> settings, QObject *parent)
    : QObject(parent), m_settings(std::move(settings))
{
    const QStringList names = m_settings ? m_settings->value(kKey, firstColors()).toStringList()
                                         : firstColors();
    for (const QString &name : names) {
        // The file may have been edited by hand.
        if (QColor::isValidColor(name) && m_colors.count() < kMostColors)
            m_colors.append(QColor(name));
    }
}

OwnColors::~OwnColors() = default;

void OwnColors::setColors(const QList<QColor> &colors)
{
    if (m_colors == colors)
        return;
    m_colors = colors;
    if (m_settings) {
        QStringList names;
        for (const QColor &color : colors)
            names.append(color.name(QColor::HexArgb));
        m_settings->setValue(kKey, names);
    }
    Q_EMIT changed();
}

OwnPaletteProvider::OwnPaletteProvider(OwnColors *colors) : m_colors(colors) {}

OwnPaletteProvider::~OwnPaletteProvider() = default;

Palette *OwnPaletteProvider::createPalette() const
{
    return m_colors ? new OwnPalette(m_colors) : nullptr;
}
