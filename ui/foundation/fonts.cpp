#include "fonts.h"

#include <QtCore/QVector>

namespace ta::ui {

namespace {

QFont plainFont()
{
    return QFont(QStringLiteral("Ta_Lato"));
}

} // namespace

class FontsPrivate
{
public:
    explicit FontsPrivate(Fonts *q) : q(q)
    {
        fonts.fill(plainFont(), Fonts::SemiBold + 1);

        fonts[Fonts::Light].setWeight(QFont::Light);

        fonts[Fonts::RegularCapitalized].setCapitalization(QFont::AllUppercase);
        fonts[Fonts::RegularCapitalized].setLetterSpacing(QFont::PercentageSpacing, 106);

        fonts[Fonts::LightItalic].setWeight(QFont::Light);
        fonts[Fonts::LightItalic].setStyle(QFont::StyleItalic);

        fonts[Fonts::LightCapitalized].setWeight(QFont::Light);
        fonts[Fonts::LightCapitalized].setCapitalization(QFont::AllUppercase);

        fonts[Fonts::RegularItalic].setWeight(QFont::Normal);
        fonts[Fonts::RegularItalic].setStyle(QFont::StyleItalic);

        fonts[Fonts::SemiBold].setWeight(QFont::DemiBold);
    }

    Fonts *const q;
    QVector<QFont> fonts; // indexed by Fonts::Font
};

Fonts::Fonts(QObject *parent) : QObject(parent), d(std::make_unique<FontsPrivate>(this)) {}

Fonts::~Fonts() = default;

QFont Fonts::getFont(Font type, int pixelSize) const
{
    QFont font = d->fonts.value(type, plainFont());
    font.setPixelSize(pixelSize);
    return font;
}

} // namespace ta::ui
