#include "captions.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

Captions::Captions(const QLocale &locale, QObject *parent) : QTranslator(parent)
{
    const QString name = QStringLiteral("tamber_ui");
    const QString folder = QStringLiteral(":/tamber/Ui/translations");
    // "C" and languages without a catalogue of ours leave the first one empty.
    m_user.load(locale, name, QStringLiteral("_"), folder);
    m_english.load(name + QLatin1String("_en"), folder);
}

Captions::~Captions() = default;

QString Captions::translate(const char *context, const char *sourceText, const char *disambiguation,
                            int n) const
{
    if (context && *context) // an id has none
        return QString();
    // Translators are installed on the thread of the application. Asking them from another one
    // could lock up with that.
    const QCoreApplication *application = QCoreApplication::instance();
    const bool mayAsk = application && QThread::currentThread() == application->thread();
    if (mayAsk && m_asking)
        return QString();
    QString text = m_user.translate(context, sourceText, disambiguation, n);
    if (text.isNull())
        text = m_english.translate(context, sourceText, disambiguation, n);
    if (text.isNull() || !mayAsk)
        return text;
    // Qt asks the translator that was installed last first, so the host's may come after this one.
    m_asking = true;
    const QString others = qtTrId(sourceText, n);
    m_asking = false;
    return others == QLatin1String(sourceText) ? text : others;
}

bool Captions::isEmpty() const
{
    return m_user.isEmpty() && m_english.isEmpty();
}
