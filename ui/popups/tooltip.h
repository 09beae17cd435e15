#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>
#include <QtQml/QQmlParserStatus>

#include <memory>

namespace ta::ui {

class TooltipPrivate;

/*!
    Gives the item that it is declared in a tooltip.

    Once the scene is built it looks for the nearest TooltipAgent among its item and that item's
    parents, and stays with it for good, wherever the item moves later. Without an agent it does
    nothing; with debug output of "tamber.ui" it says so.

    QML: \c UiTooltip.
*/
class TAMBERUI_EXPORT Tooltip
    : public QObject
    , public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

public:
    explicit Tooltip(QObject *parent = nullptr);
    ~Tooltip() override;

    /// What the tooltip says. Read when it is shown; with an empty text, the default, it never is.
    QString text() const;
    void setText(const QString &text);

Q_SIGNALS:
    void textChanged();

protected:
    void classBegin() override;
    void componentComplete() override;

private Q_SLOTS:
    void findAgent();

private:
    friend class TooltipPrivate;
    const std::unique_ptr<TooltipPrivate> d;
};

} // namespace ta::ui
