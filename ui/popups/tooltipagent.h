#pragma once

#include "tooltipagentattached.h"

#include "../foundation/export.h"

#include <QtQml/QQmlComponent>
#include <QtQuick/QQuickItem>

#include <memory>

namespace ta::ui {

class Tooltip;
class TooltipAgentPrivate;

/*!
    Shows the tooltips of the items inside it.

    It watches the pointer in its window, from the moment it exists, and takes no event away from
    anybody. Once the pointer has rested for 500 ms over an enabled, visible item that has a Tooltip
    with a text, that text is shown; any movement and any press hides it. An item does not lie under
    the pointer where it is clipped away or an open popup covers it. Of several items that do, the
    innermost one counts; where none contains the other it is the one drawn last, and of several
    tooltips of one item the last.

    The agent makes one item from \l tooltipDelegate when the first tooltip is shown, puts it into
    the window at the pointer, above popups and dialogs and below menus, and uses it for all later
    ones. The delegate shows and hides itself: its root reads \c UiTooltipAgent.tooltipVisible and
    \c UiTooltipAgent.tooltipText.

    QML: \c UiTooltipAgent.
*/
class TAMBERUI_EXPORT TooltipAgent : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(bool tooltipVisible READ tooltipVisible NOTIFY tooltipVisibleChanged)
    Q_PROPERTY(QString tooltipText READ tooltipText NOTIFY tooltipTextChanged)
    Q_PROPERTY(QQmlComponent *tooltipDelegate READ tooltipDelegate WRITE setTooltipDelegate NOTIFY
                   tooltipDelegateChanged)
    Q_PROPERTY(QQuickItem *tooltipItem READ tooltipItem NOTIFY tooltipItemChanged)

public:
    explicit TooltipAgent(QQuickItem *parent = nullptr);
    ~TooltipAgent() override;

    static TooltipAgentAttached *qmlAttachedProperties(QObject *object);

    bool tooltipVisible() const;

    /// The text that is shown, or was shown last: it stays while the delegate fades out.
    QString tooltipText() const;

    /// The component of the tooltip item; not owned. An agent that QML creates has one that looks
    /// like the design's. A new one hides what is shown and makes a new item. Null, or one that is
    /// no item or cannot be created: no tooltip is shown.
    QQmlComponent *tooltipDelegate() const;
    void setTooltipDelegate(QQmlComponent *component);

    /// The tooltip item; null before the first tooltip is shown.
    QQuickItem *tooltipItem() const;

    /// Makes \a tooltip one of this agent's until it is removed or destroyed. Tooltips in QML do so
    /// themselves.
    void addTooltip(Tooltip *tooltip);
    /// Also cuts every connection from \a tooltip to the agent. Null is ignored.
    void removeTooltip(QObject *tooltip);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void tooltipVisibleChanged();
    void tooltipTextChanged();
    void tooltipDelegateChanged();
    void tooltipItemChanged();

protected:
    void classBegin() override;

private Q_SLOTS:
    void showTooltip();
    void tooltipDestroyed(QObject *tooltip);

private:
    friend class TooltipAgentPrivate;
    const std::unique_ptr<TooltipAgentPrivate> d;
};

} // namespace ta::ui

QML_DECLARE_TYPEINFO(ta::ui::TooltipAgent, QML_HAS_ATTACHED_PROPERTIES)
