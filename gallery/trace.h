#pragma once

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

/*!
    Tells on the standard output what happens in a window, one event a line, for end-to-end tests
    and for debugging.

    \list
    \li \c{ready PAGE}: the page is on the screen; the items follow
    \li \c{item NAME X Y W H}: an item that can be seen, in logical pixels of the screen; again
        whenever it appears or its place changes
    \li \c{gone NAME}: the item can no longer be seen
    \li \c{focus NAME}: the active focus went to another item; \c - where it is nowhere
    \li \c{popup open NAME}, \c{popup closed NAME}: of a popup anchor
    \li \c{menu open NAME}, \c{menu closed NAME}: of a context menu
    \li \c{clicked NAME}: of a button
    \li \c{triggered NAME}: of a menu's entry, whose item goes by its name
    \li \c{text NAME TEXT}: of a line edit that holds another text
    \li \c{value NAME NUMBER}: of a slider that holds another value
    \li \c{drag begins NAME}, \c{drag ends NAME}: of a drag zone
    \li \c{drag over NAME}, \c{drag off NAME}: of a drop zone that takes what is dragged
    \li \c{dropped NAME KEYS VALUE}: the keys as a number of Qt, the value as JSON
    \endlist

    Only items with an object name are told of, and none that is fading in or clipped away; a part
    stands for the whole. Where several share a name, the first one in drawing order counts. The
    focus is told by the nearest name on the way from the item to the top.

    It must outlive the window, whose render thread reports to it.
*/
class Trace : public QObject
{
    Q_OBJECT

public:
    explicit Trace(QObject *parent = nullptr);
    ~Trace() override;

    void watch(QQuickWindow *window);

public Q_SLOTS:
    /// The page \a name takes over from now on; told as ready once a frame with it was shown.
    void setPage(const QString &name);

private Q_SLOTS:
    void scan();
    void tellFocus();
    void tellPopup();
    void tellMenu();
    void tellClick();
    void tellTriggered();
    void tellText();
    void tellValue();
    void tellDragBegin();
    void tellDragEnd();
    void tellDragOver();
    void tellDragOff();
    void tellDrop(const QVariant &value, Qt::KeyboardModifiers keys);

private:
    void frameShown(const QString &page);
    void collect(QQuickItem *item, QRectF clip, QMap<QString, QRect> &places);
    void follow(QQuickItem *item);

    QPointer<QQuickWindow> m_window;
    QString m_page;
    QString m_readyPage;
    QString m_renderedPage; // render thread; written while the GUI thread waits for it
    QString m_focus;
    QMap<QString, QRect> m_places;
};
