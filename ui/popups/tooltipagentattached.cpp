#include "tooltipagentattached.h"

#include "tooltipagent.h"

namespace ta::ui {

TooltipAgentAttached::TooltipAgentAttached(QObject *parent) : QObject(parent) {}

bool TooltipAgentAttached::tooltipVisible() const
{
    return m_agent && m_agent->tooltipVisible();
}

QString TooltipAgentAttached::tooltipText() const
{
    return m_agent ? m_agent->tooltipText() : QString();
}

TooltipAgent *TooltipAgentAttached::agent() const
{
    return m_agent;
}

void TooltipAgentAttached::setAgent(TooltipAgent *agent)
{
    if (m_agent == agent)
        return;
    if (m_agent)
        m_agent->disconnect(this);
    m_agent = agent;
    if (!agent)
        return;
    connect(agent, &TooltipAgent::tooltipVisibleChanged, this,
            &TooltipAgentAttached::tooltipVisibleChanged);
    connect(agent, &TooltipAgent::tooltipTextChanged, this,
            &TooltipAgentAttached::tooltipTextChanged);
}

} // namespace ta::ui
