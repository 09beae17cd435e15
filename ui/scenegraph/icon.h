#pragma once

#include "../foundation/export.h"

#include <QtGui/QColor>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class IconPrivate;

/*!
    Draws a named glyph of the library's icon sets.

    The glyph measures \l iconSize logical pixels and sits at the item's top-left corner, whatever
    the item's own size. A name that the set does not hold draws nothing. On screens of more than
    1.1 device pixels to a logical one, it comes from a set that was drawn at twice the size.

    QML: \c UiIcon.
*/
class TAMBERUI_EXPORT Icon : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QString iconName READ iconName WRITE setIconName NOTIFY iconNameChanged)
    Q_PROPERTY(IconSize iconSize READ iconSize WRITE setIconSize NOTIFY iconSizeChanged)
    Q_PROPERTY(double implicitWidth READ implicitWidth NOTIFY iconSizeChanged)
    Q_PROPERTY(double implicitHeight READ implicitHeight NOTIFY iconSizeChanged)
    Q_PROPERTY(double disabled READ disabled WRITE setDisabled NOTIFY disabledChanged)
    Q_PROPERTY(double highlight READ highlight WRITE setHighlight NOTIFY highlightChanged)
    Q_PROPERTY(QColor highlightColor READ highlightColor WRITE setHighlightColor NOTIFY
                   highlightColorChanged)

public:
    /// In logical pixels. There are no glyphs of 48 pixels: those of 24 are stretched, with a
    /// warning.
    enum IconSize : int { Icon_16x16 = 16, Icon_24x24 = 24, Icon_32x32 = 32, Icon_48x48 = 48 };
    Q_ENUM(IconSize)

    explicit Icon(QQuickItem *parent = nullptr);
    ~Icon() override;

    /// The glyph; empty (nothing) by default.
    QString iconName() const;
    void setIconName(const QString &name);

    /// The set of glyphs, and the implicit size of the item; Icon_24x24 by default.
    IconSize iconSize() const;
    void setIconSize(IconSize size);

    /// From 0 (as drawn, the default) to 1 (greyed out). Values beyond are taken as the nearer end.
    double disabled() const;
    void setDisabled(double disabled);

    /// From 0 (as drawn, the default) to 1 (in the highlight colour, white parts gone). Values
    /// beyond are taken as the nearer end.
    double highlight() const;
    void setHighlight(double highlight);

    /// White by default.
    QColor highlightColor() const;
    void setHighlightColor(const QColor &color);

    /// The names of all glyphs of \a size, in the order of the set; the first is the empty name.
    Q_INVOKABLE QStringList iconNamesForSize(ta::ui::Icon::IconSize size) const;

Q_SIGNALS:
    void iconNameChanged();
    void iconSizeChanged();
    void disabledChanged();
    void highlightChanged();
    void highlightColorChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    friend class IconPrivate;
    const std::unique_ptr<IconPrivate> d;
};

} // namespace ta::ui
