#pragma once

#include "../foundation/export.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

namespace ta::ui {

class TooltipAgent;

/*!
    What a tooltip's delegate shows, attached to the root of the delegate by the agent that created
    it. Anywhere else there is no agent: nothing is visible, and the text is empty.

    QML: \c UiTooltipAgent.tooltipVisible and \c UiTooltipAgent.tooltipText.
*/
class TAMBERUI_EXPORT TooltipAgentAttached : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool tooltipVisible READ tooltipVisible NOTIFY tooltipVisibleChanged)
    Q_PROPERTY(QString tooltipText READ tooltipText NOTIFY tooltipTextChanged)
    Q_PROPERTY(ta::ui::TooltipAgent *agent READ agent CONSTANT)

public:
    explicit TooltipAgentAttached(QObject *parent = nullptr);

    bool tooltipVisible() const;

    QString tooltipText() const;

    /// The agent that created the delegate, or null; not owned. It is known before any binding of
    /// the delegate reads it.
    TooltipAgent *agent() const;
    void setAgent(TooltipAgent *agent);

Q_SIGNALS:
    void tooltipVisibleChanged();
    void tooltipTextChanged();

private:
    QPointer<TooltipAgent> m_agent;
};

} // namespace ta::ui
