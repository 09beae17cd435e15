#pragma once

#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <memory>

namespace ta::test {

/*!
    A shown window with items made from a piece of QML, and the engine they live in.

    The window's content measures 800 x 600 unless told otherwise. The piece is the body of an Item
    that fills the window; QtQuick, the private module and, where the test program has asked for it
    with useKit(), the kit are imported. Where the QML is wrong or the window is not shown, the test
    program ends at once.
*/
class Scene
{
public:
    explicit Scene(const QString &body, const QSize &size = QSize(800, 600));
    ~Scene();

    /// From now on, scenes import the kit as well.
    static void useKit();

    QQmlEngine &engine() { return m_engine; }
    QQuickWindow *window() const { return m_window.get(); }
    QQuickItem *root() const { return m_root; }

    /// The object called \a objectName, among the root's QObject descendants and all the items of
    /// the window; null if there is none or it is no T.
    template <typename T = QQuickItem>
    T *find(const char *objectName) const
    {
        return qobject_cast<T *>(findObject(QLatin1String(objectName)));
    }

    /// Makes an object of \a qml (a whole document without imports), owned by the caller.
    std::unique_ptr<QObject> create(const QString &qml);

    /// Destroys the window with all that is in it.
    void destroyWindow();

    /// Waits until a frame that was asked for now is on the screen.
    bool waitForFrame();

private:
    QObject *findObject(const QString &objectName) const;
    static QString imports();

    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    QPointer<QQuickItem> m_root;
};

} // namespace ta::test
