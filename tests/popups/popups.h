#pragma once

#include "support/input.h"
#include "support/scene.h"

#include <TamberUi/ContextMenu>
#include <TamberUi/Dialog>
#include <TamberUi/PopupAnchor>
#include <TamberUi/PopupStack>
#include <TamberUi/TooltipAgent>

#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QShortcutEvent>
#include <QtTest/QtTest>

// What the tests of popups share.

namespace ta::test {

/// A scene with an object that the test is about. At its end none of its popups may be
/// open any more.
class PopupScene : public Scene
{
protected:
    using Scene::Scene;
    ~PopupScene()
    {
        destroyWindow();
        const QObject *top = ta::ui::PopupStack::top();
        if (top && qmlEngine(top) == &engine())
            qWarning("A popup is left on the stack");
    }

    template <typename T>
    T *get(const char *objectName) const
    {
        T *object = find<T>(objectName);
        if (!object)
            qFatal("The scene has no %s", objectName);
        return object;
    }
};

/// With a menu called "menu".
class MenuScene : public PopupScene
{
public:
    using PopupScene::PopupScene;

    const QPointer<ta::ui::ContextMenu> menu = get<ta::ui::ContextMenu>("menu");

    /// The visible frame; null while the menu is closed.
    QQuickItem *frame() const { return frameOf(menu); }
    static QQuickItem *frameOf(const ta::ui::ContextMenu *menu)
    {
        QQuickItem *item = menu ? menu->rootItem() : nullptr;
        return item ? item->property("popup").value<QQuickItem *>() : nullptr;
    }

    /// A right click, and the frame in which the entries of the menu, if it opens, have found their
    /// places.
    void open(const QPoint &position = QPoint(150, 150)) const
    {
        click(window(), position, Qt::RightButton);
        if (frame())
            QTRY_VERIFY(frame()->height() > 6);
    }
};

/// With a dialog called "dialog".
class DialogScene : public PopupScene
{
public:
    using PopupScene::PopupScene;

    const QPointer<ta::ui::Dialog> dialog = get<ta::ui::Dialog>("dialog");

    /// The visible box of the dialog that is shown.
    QQuickItem *box() const { return boxOf(dialog); }
    static QQuickItem *boxOf(const ta::ui::Dialog *dialog)
    {
        return dialog->rootItem()->findChild<QQuickItem *>(QStringLiteral("_ta_dialogContent"));
    }

    /// The push buttons of its default footer, hidden ones included.
    QList<QQuickItem *> pushButtons() const { return pushButtonsIn(dialog->rootItem()); }

private:
    static QList<QQuickItem *> pushButtonsIn(const QQuickItem *item)
    {
        QList<QQuickItem *> buttons;
        const auto children = item->childItems();
        for (QQuickItem *child : children) {
            if (child->inherits("ta::ui::PushButtonBase"))
                buttons.append(child);
            buttons += pushButtonsIn(child);
        }
        return buttons;
    }
};

/// With a popup anchor called "anchor".
class AnchorScene : public PopupScene
{
public:
    using PopupScene::PopupScene;

    const QPointer<ta::ui::PopupAnchor> anchor = get<ta::ui::PopupAnchor>("anchor");
};

/// A click while the event loop of the application runs, which a test does not have.
inline void clickInEventLoop(QWindow *window, const QPoint &position)
{
    QEventLoop application;
    QTimer::singleShot(0, &application, [&] {
        click(window, position);
        application.quit();
    });
    application.exec();
}

/// What the handler of a click may do: an event loop of its own that ends after \a time ms.
inline void runEventLoop(int time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// An item of 100 x 100 pixels with a tooltip.
inline QString itemWithTooltip(const QString &properties, const char *text = "tip")
{
    return QStringLiteral("Item { width: 100; height: 100; %1\nUiTooltip { text: '%2' } }\n")
        .arg(properties, QLatin1String(text));
}

/// With tooltips inside an agent called "agent", which fills the window. What is \a outside
/// of it belongs to the root.
class AgentScene : public PopupScene
{
public:
    explicit AgentScene(
        const QString &items = itemWithTooltip(QStringLiteral("objectName: 'item'")),
        const QString &outside = {})
        : PopupScene(QStringLiteral("UiTooltipAgent { objectName: 'agent'; anchors.fill: parent\n"
                                    "%1 }\n%2")
                         .arg(items, outside))
    {
    }

    /// The end of a rest there, without the wait.
    void restAt(const QPoint &position) const
    {
        move(agent->window(), position);
        endRest();
    }
    void endRest() const { QVERIFY(QMetaObject::invokeMethod(agent, "showTooltip")); }

    const QPointer<ta::ui::TooltipAgent> agent = get<ta::ui::TooltipAgent>("agent");
};

/// An event as a filter sees it. The \a detail is a key or a mouse button.
inline std::unique_ptr<QEvent> makeEvent(QEvent::Type type, int detail, const QPointF &screen)
{
    const auto button = Qt::MouseButton(detail);
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return std::make_unique<QMouseEvent>(type, screen, screen, screen, button, button,
                                             Qt::NoModifier);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return std::make_unique<QKeyEvent>(type, detail, Qt::NoModifier);
    case QEvent::Wheel:
        return std::make_unique<QWheelEvent>(screen, screen, QPoint(), QPoint(0, 120), Qt::NoButton,
                                             Qt::NoModifier, Qt::NoScrollPhase, false);
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
        return std::make_unique<QHoverEvent>(type, screen, screen);
    case QEvent::Shortcut:
        return std::make_unique<QShortcutEvent>(QKeySequence(), 0);
    case QEvent::Resize:
        return std::make_unique<QResizeEvent>(QSize(1, 1), QSize(2, 2));
    case QEvent::Close:
        return std::make_unique<QCloseEvent>();
    default:
        return std::make_unique<QEvent>(type);
    }
}

} // namespace ta::test
