#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtCore/QRect>
#include <QtCore/QStringList>

#include <functional>

namespace ta::test {

/*!
    The gallery in a process of its own, worked with the pointer and the keys of the X server. Its
    trace tells what came of it; gallery/trace.h lists what it tells.
*/
class Gallery
{
public:
    enum Button : int { Left = 1, Middle = 2, Right = 3 }; ///< as the X server counts them

    explicit Gallery(const QStringList &arguments);
    /// Another \a program that traces itself in the same way.
    Gallery(const QString &program, const QStringList &arguments);
    ~Gallery();

    /// The names of all pages, in their order.
    static QStringList pages();

    /// Waits until the trace says \a line, counting from what was looked at last; does \a meanwhile
    /// again and again.
    bool says(const QString &line, const std::function<void()> &meanwhile = {});
    /// Whether the item \a name gets the focus, or has it.
    bool focuses(const char *name);
    /// How often the trace has said \a line so far.
    int count(const QString &line);

    /// Where the item \a name is on the screen, once it is there and has stopped moving.
    QRect area(const QString &name);
    /// The middle of it.
    QPoint place(const QString &name) { return area(name).center(); }
    /// Whether the middle of the item \a name gets another colour than white on the screen, or has
    /// it. Pictures come some time after their items.
    bool paints(const QString &name);

    /// Puts the pointer on the item's middle; click() and clickAt() also press and release there.
    void move(const QString &name);
    void click(const QString &name, Button button = Left);
    void clickAt(const QPoint &position, Button button = Left);
    /// A key or a combination under its X name, for instance "shift+Tab".
    void key(const char *name);
    /// The keys of the characters of \a text, one after the other.
    void type(const char *text);

    /// Puts the window there, and waits until the item \a corner has followed, which is in the
    /// window's top-left corner and as high as the window.
    bool arrange(const QRect &geometry, const QString &corner = QStringLiteral("navigation"));
    /// Gives the window another size, and waits until the item \a moved has followed.
    void resize(const QSize &size, const QString &moved);

    /// Holds the left button down on the item's middle, and goes on until a drag has begun.
    bool drag(const QString &name);
    /// Goes on with the drag to \a position; stays in motion there, as a hand does, until the trace
    /// says \a line.
    bool dragTo(const QPoint &position, const QString &line);
    /// The same with the middle of the drop zone \a name, wherever that moves meanwhile, until the
    /// zone takes what is dragged.
    bool dragOver(const QString &name);
    static void release();
    /// The whole of a drag from \a begin to \a end, of something that follows the pointer.
    static void drag(const QPoint &begin, const QPoint &end);
    /// Turns the wheel over the item's middle by \a steps notches; upwards is positive.
    void wheel(const QString &name, int steps);
    /// Of the keys that are held together with others, such as "shift".
    static void keyDown(const char *name);
    static void keyUp(const char *name);

    /// Asks the window manager to close the window, as a task bar does; whether the process ends by
    /// itself then, with the exit code 0.
    bool closes();

private:
    bool waitFor(const std::function<bool()> &condition);
    bool dragUntil(const QString &line, const std::function<QPoint()> &position);
    bool hasSaid(const QString &line);
    void read();

    QProcess m_process;
    QStringList m_lines;
    QHash<QString, QRect> m_places;
    QString m_focus;
    QElapsedTimer m_lastClick;
    int m_position = 0;
};

} // namespace ta::test
