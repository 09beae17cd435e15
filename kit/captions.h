#pragma once

#include <QtCore/QTranslator>

/*!
    The kit's texts for the translation ids of the library, in the user's language or in English.

    They stand in where nobody else translates an id: a catalogue that the host installs wins,
    before and after this.
*/
class Captions : public QTranslator
{
public:
    /// Loads the catalogue for \a locale, and the English one, which is complete.
    explicit Captions(const QLocale &locale, QObject *parent = nullptr);
    ~Captions() override;

    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override;
    bool isEmpty() const override;

private:
    QTranslator m_user;
    QTranslator m_english;
    mutable bool m_asking = false; // the other translators; on the application's thread only
};
