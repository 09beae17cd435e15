#pragma once

#include "export.h"

#include <QtCore/QObject>
#include <QtGui/QFont>

#include <memory>

namespace ta::ui {

class FontsPrivate;

/*!
    The text fonts of the design: seven variants of the family "Ta_Lato".

    QML reaches them through the singleton \c UiFonts:
    \code UiFonts.getFont(UiFonts.Light, 18) \endcode
    The family itself comes from the host (the kit serves it with Lato); without it Qt substitutes
    another one.
*/
class TAMBERUI_EXPORT Fonts : public QObject
{
    Q_OBJECT

public:
    // The type is fixed, since QML may pass any number.
    enum Font : int {
        Light,
        Regular,
        RegularCapitalized,
        LightItalic,
        LightCapitalized,
        RegularItalic,
        SemiBold
    };
    Q_ENUM(Font)

    explicit Fonts(QObject *parent = nullptr);
    ~Fonts() override;

    /// The variant \a type at \a pixelSize logical pixels (above 0). A type outside the enumeration
    /// gives the plain font of the family at that size.
    Q_INVOKABLE QFont getFont(ta::ui::Fonts::Font type, int pixelSize) const;

private:
    friend class FontsPrivate;
    const std::unique_ptr<FontsPrivate> d;
};

} // namespace ta::ui
