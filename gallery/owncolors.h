#pragma once

#include <TamberUi/PaletteProvider>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QColor>

#include <memory>

class QSettings;

/// The user's own colours. All pickers show the same ones, and change them.
class OwnColors : public QObject
{
    Q_OBJECT

public:
    /// Reads the colours from \a settings and writes every change there. With none, the colours are
    /// those of a first start, and forgotten at the end.
    explicit OwnColors(std::unique_ptr<QSettings> settings, QObject *parent = nullptr);
    ~OwnColors() override;

    QList<QColor> colors() const { return m_colors; }
    void setColors(const QList<QColor> &colors);

Q_SIGNALS:
    void changed();

private:
    const std::unique_ptr<QSettings> m_settings;
    QList<QColor> m_colors;
};

/// Gives each picker a palette of the user's own colours.
class OwnPaletteProvider : public ta::ui::PaletteProvider
{
public:
    explicit OwnPaletteProvider(OwnColors *colors);
    ~OwnPaletteProvider() override;

    ta::ui::Palette *createPalette() const override;

private:
    const QPointer<OwnColors> m_colors;
};
