#include "trace.h"

#include <TamberUi/ButtonBase>
#include <TamberUi/ContextMenu>
#include <TamberUi/DragZone>
#include <TamberUi/DropZone>
#include <TamberUi/LineEditBase>
#include <TamberUi/MenuItem>
#include <TamberUi/PopupAnchor>
#include <TamberUi/SliderBase>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <cstdio>

using namespace ta::ui;

namespace {

void tell(const QString &line)
{
    std::fputs(qUtf8Printable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

QString nearestName(const QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        if (!item->objectName().isEmpty())
            return item->objectName();
    }
    return QStringLiteral("-");
}

// The menu entry that an item shows; null for other items.
AbstractMenuItem *entryOf(const QQuickItem *item)
{
    return qvariant_cast<AbstractMenuItem *>(item->property("menuItem"));
}

QString nameOf(const QQuickItem *item)
{
    if (!item->objectName().isEmpty())
        return item->objectName();
    const AbstractMenuItem *entry = entryOf(item);
    return entry ? entry->objectName() : QString();
}

} // namespace

Trace::Trace(QObject *parent) : QObject(parent) {}

Trace::~Trace() = default;

void Trace::watch(QQuickWindow *window)
{
    m_window = window;
    connect(window, &QWindow::xChanged, this, &Trace::scan);
    connect(window, &QWindow::yChanged, this, &Trace::scan);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &Trace::tellFocus);

    // Both are emitted on the render thread where there is one. What a frame shows is settled while
    // the GUI thread waits; by the time the frame is on the screen a newer page may have come.
    connect(
        window, &QQuickWindow::afterSynchronizing, this, [this] { m_renderedPage = m_page; },
        Qt::DirectConnection);
    connect(
        window, &QQuickWindow::frameSwapped, this,
        [this] {
            QMetaObject::invokeMethod(
                this, [this, page = m_renderedPage] { frameShown(page); }, Qt::QueuedConnection);
        },
        Qt::DirectConnection);
}

void Trace::setPage(const QString &name)
{
    m_page = name;
    m_readyPage.clear();
    if (m_window)
        m_window->update();
}

void Trace::frameShown(const QString &page)
{
    if (page == m_page && m_readyPage != page) {
        m_readyPage = page;
        tell(QLatin1String("ready ") + page);
    }
    if (!m_readyPage.isEmpty())
        scan();
}

void Trace::scan()
{
    if (!m_window || m_readyPage.isEmpty())
        return;
    QMap<QString, QRect> places;
    QQuickItem *content = m_window->contentItem();
    collect(content, QRectF(QPointF(), content->size()), places);

    for (auto it = m_places.cbegin(); it != m_places.cend(); ++it) {
        if (!places.contains(it.key()))
            tell(QLatin1String("gone ") + it.key());
    }
    for (auto it = places.cbegin(); it != places.cend(); ++it) {
        const QRect place = it.value();
        if (m_places.contains(it.key()) && m_places.value(it.key()) == place)
            continue;
        tell(QStringLiteral("item %1 %2 %3 %4 %5")
                 .arg(it.key())
                 .arg(place.x())
                 .arg(place.y())
                 .arg(place.width())
                 .arg(place.height()));
    }
    m_places = places;
}

void Trace::collect(QQuickItem *item, QRectF clip, QMap<QString, QRect> &places)
{
    // What is about to fade in may not be in its place before its first frame.
    if (!item->isVisible() || item->opacity() < 0.5)
        return;
    const QRectF place = item->mapRectToScene(item->boundingRect());
    const QString name = nameOf(item);
    // Popup anchors have no size.
    const bool seen = place.isEmpty() ? clip.contains(place.topLeft()) : clip.intersects(place);
    if (!name.isEmpty() && seen && !places.contains(name)) {
        const QRect rounded = place.toRect();
        places.insert(name, QRect(m_window->mapToGlobal(rounded.topLeft()), rounded.size()));
        follow(item);
    }
    if (item->clip())
        clip = clip.intersected(place);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        collect(child, clip, places);
}

void Trace::follow(QQuickItem *item)
{
    if (auto *button = qobject_cast<ButtonBase *>(item)) {
        connect(button, &ButtonBase::clicked, this, &Trace::tellClick, Qt::UniqueConnection);
    } else if (auto *edit = qobject_cast<LineEditBase *>(item)) {
        connect(edit, &LineEditBase::textChanged, this, &Trace::tellText, Qt::UniqueConnection);
    } else if (auto *anchor = qobject_cast<PopupAnchor *>(item)) {
        connect(anchor, &PopupAnchor::popupVisibleChanged, this, &Trace::tellPopup,
                Qt::UniqueConnection);
    } else if (auto *entry = qobject_cast<MenuItem *>(entryOf(item))) {
        connect(entry, &MenuItem::triggered, this, &Trace::tellTriggered, Qt::UniqueConnection);
    } else if (auto *source = qobject_cast<DragZone *>(item)) {
        connect(source, &DragZone::dragStarted, this, &Trace::tellDragBegin, Qt::UniqueConnection);
        connect(source, &DragZone::dragEnded, this, &Trace::tellDragEnd, Qt::UniqueConnection);
    } else if (auto *slider = qobject_cast<SliderBase *>(item)) {
        connect(slider, &SliderBase::valueChanged, this, &Trace::tellValue, Qt::UniqueConnection);
    } else if (auto *zone = qobject_cast<DropZone *>(item)) {
        // A row that a list scrolls under the pointer takes a drag before a frame has shown it.
        const bool isNew = connect(zone, &DropZone::dragEnter, this, &Trace::tellDragOver,
                                   Qt::UniqueConnection);
        if (isNew && zone->containsDrag())
            tell(QLatin1String("drag over ") + zone->objectName());
        connect(zone, &DropZone::dragExit, this, &Trace::tellDragOff, Qt::UniqueConnection);
        connect(zone, &DropZone::drop, this, &Trace::tellDrop, Qt::UniqueConnection);
    }
    const auto menus = item->findChildren<ContextMenu *>(QString(), Qt::FindDirectChildrenOnly);
    for (ContextMenu *menu : menus)
        connect(menu, &ContextMenu::menuVisibleChanged, this, &Trace::tellMenu,
                Qt::UniqueConnection);
}

void Trace::tellFocus()
{
    const QString focus = nearestName(m_window->activeFocusItem());
    if (focus == m_focus)
        return;
    m_focus = focus;
    tell(QLatin1String("focus ") + focus);
}

void Trace::tellPopup()
{
    const auto *anchor = qobject_cast<PopupAnchor *>(sender());
    tell(QLatin1String(anchor->isPopupVisible() ? "popup open " : "popup closed ")
         + anchor->objectName());
}

void Trace::tellMenu()
{
    const auto *menu = qobject_cast<ContextMenu *>(sender());
    tell(QLatin1String(menu->isMenuVisible() ? "menu open " : "menu closed ") + menu->objectName());
}

void Trace::tellClick()
{
    tell(QLatin1String("clicked ") + sender()->objectName());
}

void Trace::tellTriggered()
{
    tell(QLatin1String("triggered ") + sender()->objectName());
}

void Trace::tellText()
{
    const auto *edit = qobject_cast<LineEditBase *>(sender());
    tell(QLatin1String("text ") + edit->objectName() + QLatin1Char(' ') + edit->text());
}

void Trace::tellValue()
{
    const auto *slider = qobject_cast<SliderBase *>(sender());
    tell(QLatin1String("value ") + slider->objectName() + QLatin1Char(' ')
         + QString::number(slider->value()));
}

void Trace::tellDragBegin()
{
    tell(QLatin1String("drag begins ") + sender()->objectName());
}

void Trace::tellDragEnd()
{
    tell(QLatin1String("drag ends ") + sender()->objectName());
}

void Trace::tellDragOver()
{
    tell(QLatin1String("drag over ") + sender()->objectName());
}

void Trace::tellDragOff()
{
    tell(QLatin1String("drag off ") + sender()->objectName());
}

void Trace::tellDrop(const QVariant &value, Qt::KeyboardModifiers keys)
{
    const QJsonDocument document(
        value.userType() == QMetaType::QJsonObject
            ? QJsonDocument(value.toJsonObject())
            : QJsonDocument(QJsonArray::fromVariantList(value.value<QVariantList>())));
    tell(QStringLiteral("dropped %1 %2 %3")
             .arg(sender()->objectName())
             .arg(int(keys))
             .arg(QString::fromUtf8(document.toJson(QJsonDocument::Compact))));
}
