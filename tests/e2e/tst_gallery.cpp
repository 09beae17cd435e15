// variants: x11
#include "support/testcase.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QRect>
#include <QtGui/QStyleHints>

using namespace ta::test;

namespace {

constexpr int kPatience = 20000; // ms for anything the gallery has to do, on a slow machine

// The gallery in a process of its own, worked with the pointer and the keys of the X server. Its
// trace tells what came of it.
class Gallery
{
public:
    explicit Gallery(const QStringList &arguments)
    {
        // What the graphics driver keeps cannot be told from leaks of ours once it is unloaded.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral(TAMBERUI_GALLERY),
                        QStringList { QStringLiteral("--trace") } + arguments);
    }

    ~Gallery()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    /// Waits until the trace says \a line, counting from what was looked at last.
    bool says(const QString &line)
    {
        const auto arrived = [&] {
            read();
            const int index = m_lines.indexOf(line, m_position);
            if (index < 0)
                return false;
            m_position = index + 1;
            return true;
        };
        const bool found = QTest::qWaitFor(arrived, kPatience);
        if (!found)
            qWarning("The gallery never said \"%s\"; it said: %s", qPrintable(line),
                     qPrintable(m_lines.mid(m_position).join(QLatin1String(", "))));
        return found;
    }

    /// Whether the item \a name gets the focus, or has it.
    bool focuses(const char *name)
    {
        return QTest::qWaitFor(
            [&] {
                read();
                return m_focus == QLatin1String(name);
            },
            kPatience);
    }

    /// How often the trace has said \a line so far.
    int count(const QString &line)
    {
        read();
        return m_lines.count(line);
    }

    /// The middle of the item \a name on the screen, once it is there and has stopped moving.
    QPoint place(const QString &name)
    {
        const bool rests = QTest::qWaitFor(
            [&] {
                const QRect before = m_places.value(name);
                QTest::qWait(100);
                read();
                return m_places.contains(name) && m_places.value(name) == before;
            },
            kPatience);
        if (!rests)
            qWarning("There is no item \"%s\" to be seen", qPrintable(name));
        return m_places.value(name).center();
    }

    void click(const QString &name)
    {
        const QPoint position = place(name);
        // Not so soon after the last one that the two are a double click.
        const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
        if (m_lastClick.isValid() && !m_lastClick.hasExpired(interval))
            QTest::qWait(interval - int(m_lastClick.elapsed()) + 1);
        input({ QStringLiteral("mousemove"), QString::number(position.x()),
                QString::number(position.y()), QStringLiteral("click"), QStringLiteral("1") });
        m_lastClick.start(); // only now: the tool may have been slow
    }

    void key(const char *name) { input({ QStringLiteral("key"), QString::fromLatin1(name) }); }

    /// Gives the window another size, and waits until the item \a moved has followed.
    void resize(const QSize &size, const QString &moved)
    {
        const QRect before = m_places.value(moved);
        input({ QStringLiteral("getactivewindow"), QStringLiteral("windowsize"),
                QString::number(size.width()), QString::number(size.height()) });
        const bool followed = QTest::qWaitFor(
            [&] {
                read();
                return m_places.value(moved) != before;
            },
            kPatience);
        if (!followed)
            qWarning("The item \"%s\" has not followed the window's size", qPrintable(moved));
    }

    bool endsWell()
    {
        return (m_process.state() == QProcess::NotRunning || m_process.waitForFinished(kPatience))
               && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

private:
    static void input(const QStringList &arguments)
    {
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
    }

    void read()
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

    QProcess m_process;
    QStringList m_lines;
    QHash<QString, QRect> m_places;
    QString m_focus;
    QElapsedTimer m_lastClick;
    int m_position = 0;
};

} // namespace

class tst_Gallery : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void popup();
    void comboBox();
    void navigation();
    void resizing();
    void closedWithOpenPopup();
};

void tst_Gallery::popup()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));

    // Open, cycle with Tab and Backtab, close with Escape: the focus returns.
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    QVERIFY(gallery.focuses("menuFirst"));
    for (const char *next : { "menuSecond", "menuThird", "menuFirst" }) {
        gallery.key("Tab");
        QVERIFY(gallery.focuses(next));
    }
    gallery.key("shift+Tab");
    QVERIFY(gallery.focuses("menuThird"));
    gallery.key("Escape");
    QVERIFY(gallery.says(QStringLiteral("popup closed menuAnchor")));
    QVERIFY(gallery.focuses("openMenuButton"));

    // An outside press closes it and still reaches what it hit.
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.click(QStringLiteral("outsideButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed menuAnchor")));
    QVERIFY(gallery.says(QStringLiteral("clicked outsideButton")));

    // A press on the button that opens it closes it, and no more.
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.place(QStringLiteral("menuThird"));
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed menuAnchor")));
    const int openings = gallery.count(QStringLiteral("popup open menuAnchor"));
    gallery.click(QStringLiteral("outsideButton"));
    QVERIFY(gallery.says(QStringLiteral("clicked outsideButton")));
    QCOMPARE(gallery.count(QStringLiteral("popup open menuAnchor")), openings);

    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.click(QStringLiteral("menuSecond"));
    QVERIFY(gallery.says(QStringLiteral("clicked menuSecond")));
    gallery.key("alt+F4");
    QVERIFY(gallery.endsWell());
}

void tst_Gallery::comboBox()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));
    gallery.click(QStringLiteral("sizeCombo"));
    QVERIFY(gallery.says(QStringLiteral("popup open sizeComboPopup")));
    gallery.click(QStringLiteral("sizeComboItem2"));
    QVERIFY(gallery.says(QStringLiteral("popup closed sizeComboPopup")));
    gallery.key("space");
    QVERIFY(gallery.says(QStringLiteral("popup open sizeComboPopup")));
    gallery.key("Down");
    gallery.key("Return");
    QVERIFY(gallery.says(QStringLiteral("popup closed sizeComboPopup")));
    gallery.key("alt+F4");
    QVERIFY(gallery.endsWell());
}

void tst_Gallery::navigation()
{
    Gallery gallery({});
    QVERIFY(gallery.says(QStringLiteral("ready colours-and-fonts")));
    for (const char *page : { "buttons", "sliders", "popups", "icons", "borders-and-boards",
                              "thumbnails", "colours-and-fonts" }) {
        gallery.click(QStringLiteral("nav-") + QLatin1String(page));
        QVERIFY(gallery.says(QStringLiteral("ready ") + QLatin1String(page)));
    }
    gallery.key("alt+F4");
    QVERIFY(gallery.endsWell());
}

void tst_Gallery::resizing()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.resize(QSize(1000, 700), QStringLiteral("persistentButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed menuAnchor")));

    // Not even a persistent popup outlives a change of its window's size.
    gallery.click(QStringLiteral("persistentButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open persistentAnchor")));
    gallery.key("Escape");
    gallery.click(QStringLiteral("outsideButton"));
    QVERIFY(gallery.says(QStringLiteral("clicked outsideButton")));
    QCOMPARE(gallery.count(QStringLiteral("popup closed persistentAnchor")), 0);
    gallery.resize(QSize(1100, 750), QStringLiteral("topRightButton"));
    QVERIFY(gallery.says(QStringLiteral("popup closed persistentAnchor")));
    gallery.key("alt+F4");
    QVERIFY(gallery.endsWell());
}

void tst_Gallery::closedWithOpenPopup()
{
    Gallery gallery({ QStringLiteral("--page"), QStringLiteral("popups") });
    QVERIFY(gallery.says(QStringLiteral("ready popups")));
    gallery.click(QStringLiteral("openMenuButton"));
    QVERIFY(gallery.says(QStringLiteral("popup open menuAnchor")));
    gallery.key("alt+F4");
    QVERIFY(gallery.endsWell());
}

TAMBER_TEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
