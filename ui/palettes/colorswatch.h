#pragma once

#include "../foundation/export.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtGui/QColor>

#include <memory>

namespace ta::ui {

class ColorSwatchPrivate;

/*!
    An ordered list of colours that a palette shows as one group of patches.

    It is read-only: a class that lets its colours be edited overrides the three operations, changes
    the list with setColors(), and returns true. Swatches belong to whoever made them, as a rule to
    the palette as their QObject parent.
*/
class TAMBERUI_EXPORT ColorSwatch : public QObject
{
    Q_OBJECT

public:
    /// A swatch without colours, for classes that supply them by overriding colors().
    explicit ColorSwatch(QObject *parent = nullptr);
    explicit ColorSwatch(const QList<QColor> &colors, QObject *parent = nullptr);
    ~ColorSwatch() override;

    virtual QList<QColor> colors() const;

public Q_SLOTS:
    /// Inserts \a color before the one at \a index, -1 standing for the end. Returns whether it
    /// did; this class refuses with a warning on "tamber.ui.palette".
    virtual bool insertColor(const QColor &color, int index = -1);
    /// Replaces the colour at \a index; returns and refuses as insertColor().
    virtual bool setColor(const QColor &color, int index);
    /// Removes the colour at \a index; returns and refuses as insertColor().
    virtual bool removeColor(int index);

public:
    /// Whether the swatch's own list has no colours. What an overridden colors() returns does not
    /// count, so a class that overrides it keeps the list in step by setColors().
    bool isEmpty() const;

Q_SIGNALS:
    void colorsChanged();

protected:
    /// Replaces the swatch's own list, and emits colorsChanged() where it was another one.
    void setColors(const QList<QColor> &colors);

private:
    friend class ColorSwatchPrivate;
    const std::unique_ptr<ColorSwatchPrivate> d;
};

} // namespace ta::ui
