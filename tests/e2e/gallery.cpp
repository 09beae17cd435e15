#include "gallery.h"

#include <QtCore/QDeadlineTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QStyleHints>
#include <QtTest/QtTest>

namespace ta::test {

namespace {

constexpr int kPatience = 60000; // ms that the gallery may be silent, on a slow machine
constexpr int kLongest = 5 * kPatience; // whatever it says
constexpr int kThickestFrame = 60; // of a window manager, left and top added up

void input(const QStringList &arguments)
{
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
}

QStringList moveTo(const QPoint &position)
{
    return { QStringLiteral("mousemove"), QString::number(position.x()),
             QString::number(position.y()) };
}

} // namespace

Gallery::Gallery(const QStringList &arguments)
    : Gallery(QStringLiteral(TAMBERUI_GALLERY), arguments)
{
}

Gallery::Gallery(const QString &program, const QStringList &arguments)
{
    // What the graphics driver keeps cannot be told from leaks of ours once it is unloaded.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, QStringList { QStringLiteral("--trace") } + arguments);
}

Gallery::~Gallery()
{
    m_process.kill();
    m_process.waitForFinished();
}

QStringList Gallery::pages()
{
    QProcess process;
    process.start(QStringLiteral(TAMBERUI_GALLERY), { QStringLiteral("--list") });
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool Gallery::says(const QString &line, const std::function<void()> &meanwhile)
{
    const bool found = waitFor([&] {
        if (meanwhile)
            meanwhile();
        return hasSaid(line);
    });
    if (!found)
        qWarning("The gallery never said \"%s\"; it said: %s", qPrintable(line),
                 qPrintable(m_lines.mid(m_position).join(QLatin1String(", "))));
    return found;
}

bool Gallery::focuses(const char *name)
{
    return waitFor([&] {
        read();
        return m_focus == QLatin1String(name);
    });
}

int Gallery::count(const QString &line)
{
    read();
    return m_lines.count(line);
}

QRect Gallery::area(const QString &name)
{
    const bool rests = waitFor([&] {
        const QRect before = m_places.value(name);
        QTest::qWait(100);
        read();
        return m_places.contains(name) && m_places.value(name) == before;
    });
    if (!rests)
        qWarning("There is no item \"%s\" to be seen", qPrintable(name));
    return m_places.value(name);
}

bool Gallery::paints(const QString &name)
{
    const QPoint point = place(name);
    return waitFor([&] {
        const QPixmap pixel = QGuiApplication::primaryScreen()->grabWindow(0, point.x(), point.y(),
                                                                           1, 1);
        return pixel.toImage().pixelColor(0, 0) != QColor(Qt::white);
    });
}

void Gallery::move(const QString &name)
{
    input(moveTo(place(name)));
}

void Gallery::click(const QString &name, Button button)
{
    clickAt(place(name), button);
}

void Gallery::clickAt(const QPoint &position, Button button)
{
    // Not so soon after the last one that the two are a double click.
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    if (m_lastClick.isValid() && !m_lastClick.hasExpired(interval))
        QTest::qWait(interval - int(m_lastClick.elapsed()) + 1);
    input(moveTo(position) + QStringList { QStringLiteral("click"), QString::number(button) });
    m_lastClick.start(); // only now: the tool may have been slow
}

void Gallery::key(const char *name)
{
    input({ QStringLiteral("key"), QString::fromLatin1(name) });
}

void Gallery::type(const char *text)
{
    input({ QStringLiteral("type"), QString::fromLatin1(text) });
}

void Gallery::resize(const QSize &size, const QString &moved)
{
    const QRect before = m_places.value(moved);
    input({ QStringLiteral("getactivewindow"), QStringLiteral("windowsize"),
            QString::number(size.width()), QString::number(size.height()) });
    const bool followed = waitFor([&] {
        read();
        return m_places.value(moved) != before;
    });
    if (!followed)
        qWarning("The item \"%s\" has not followed the window's size", qPrintable(moved));
}

bool Gallery::arrange(const QRect &geometry, const QString &corner)
{
    input({ QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--onlyvisible"),
            QStringLiteral("--all"), QStringLiteral("--pid"),
            QString::number(m_process.processId()), QStringLiteral("--class"), QStringLiteral("."),
            QStringLiteral("windowsize"), QString::number(geometry.width()),
            QString::number(geometry.height()), QStringLiteral("windowmove"),
            QString::number(geometry.x()), QString::number(geometry.y()) });
    const auto isThere = [&] {
        const QRect place = area(corner);
        const QPoint frame = place.topLeft() - geometry.topLeft();
        return place.height() == geometry.height() && frame.manhattanLength() < kThickestFrame;
    };
    return waitFor(isThere);
}

bool Gallery::drag(const QString &name)
{
    const QPoint start = place(name);
    input(moveTo(start) + QStringList { QStringLiteral("mousedown"), QStringLiteral("1") });
    for (int distance = 10; distance <= 40; distance += 10)
        input(moveTo(start + QPoint(distance, 0)));
    return says(QLatin1String("drag begins ") + name);
}

void Gallery::drag(const QPoint &begin, const QPoint &end)
{
    input(moveTo(begin) + QStringList { QStringLiteral("mousedown"), QStringLiteral("1") }
          + moveTo((begin + end) / 2) + moveTo(end)
          + QStringList { QStringLiteral("mouseup"), QStringLiteral("1") });
}

void Gallery::wheel(const QString &name, int steps)
{
    const char *const button = steps > 0 ? "4" : "5"; // as X counts the ways to turn it
    input(moveTo(place(name))
          + QStringList { QStringLiteral("click"), QStringLiteral("--repeat"),
                          QString::number(qAbs(steps)), QString::fromLatin1(button) });
}

bool Gallery::dragTo(const QPoint &position, const QString &line)
{
    return dragUntil(line, [&] { return position; });
}

bool Gallery::dragOver(const QString &name)
{
    return dragUntil(QLatin1String("drag over ") + name, [&] { return place(name); });
}

bool Gallery::dragUntil(const QString &line, const std::function<QPoint()> &position)
{
    int step = 0;
    return says(line, [&] { input(moveTo(position() + QPoint(++step % 2, 0))); });
}

void Gallery::release()
{
    input({ QStringLiteral("mouseup"), QStringLiteral("1") });
}

void Gallery::keyDown(const char *name)
{
    input({ QStringLiteral("keydown"), QString::fromLatin1(name) });
}

void Gallery::keyUp(const char *name)
{
    input({ QStringLiteral("keyup"), QString::fromLatin1(name) });
}

bool Gallery::closes()
{
    QProcess list;
    list.start(QStringLiteral("wmctrl"), { QStringLiteral("-l"), QStringLiteral("-p") });
    list.waitForFinished();
    const QString windows = QString::fromUtf8(list.readAllStandardOutput());
    for (const QString &line : windows.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList columns = line.simplified().split(QLatin1Char(' '));
        if (columns.value(2).toLongLong() == m_process.processId()) // window, desktop, process
            QProcess::execute(QStringLiteral("wmctrl"),
                              { QStringLiteral("-i"), QStringLiteral("-c"), columns.first() });
    }
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(kPatience))
        qWarning("The gallery does not close; windows: %s", qPrintable(windows));
    else if (m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0)
        qWarning("The gallery ended with %d", m_process.exitCode());
    else
        return true;
    return false;
}

// As long as the gallery says something it gets on, however slowly, up to a limit.
bool Gallery::waitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(kLongest);
    QElapsedTimer silence;
    silence.start();
    int lines = m_lines.count();
    while (!condition()) {
        if (m_lines.count() != lines) {
            lines = m_lines.count();
            silence.restart();
        }
        if (silence.hasExpired(kPatience) || deadline.hasExpired())
            return false;
        QTest::qWait(10);
    }
    return true;
}

bool Gallery::hasSaid(const QString &line)
{
    read();
    const int index = m_lines.indexOf(line, m_position);
    if (index < 0)
        return false;
    m_position = index + 1;
    return true;
}

void Gallery::read()
{
    m_process.waitForReadyRead(1);
    while (m_process.canReadLine()) {
        const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
        m_lines.append(line);
        const QStringList words = line.split(QLatin1Char(' '));
        if (words.first() == QLatin1String("item") && words.count() == 6)
            m_places.insert(words.at(1), QRect(words.at(2).toInt(), words.at(3).toInt(),
                                               words.at(4).toInt(), words.at(5).toInt()));
        else if (words.first() == QLatin1String("gone"))
            m_places.remove(words.last());
        else if (words.first() == QLatin1String("focus"))
            m_focus = words.last();
    }
}

} // namespace ta::test
