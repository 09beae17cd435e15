/*
    Draws the icon atlases from the glyphs' sources.

        tamberui-iconatlas draw  SOURCES OUTPUT
            draws the atlases and writes the tables
        tamberui-iconatlas check SOURCES OUTPUT
            asks whether they are what the sources draw
        tamberui-iconatlas sheet SOURCES SIZE PICTURE [NAME...]
            draws glyphs for judging, all or some
*/

#include "atlas.h"
#include "contactsheet.h"

#include <QtGui/QGuiApplication>

#include <cstdio>

namespace {

int finish(const QString &error)
{
    if (error.isEmpty())
        return 0;
    std::fprintf(stderr, "%s\n", qPrintable(error));
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the sheet has text; no display is needed
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const QString command = arguments.value(1);
    const QDir sources(arguments.value(2));

    if (arguments.count() == 4
        && (command == QLatin1String("draw") || command == QLatin1String("check"))) {
        const auto process = command == QLatin1String("draw") ? drawAtlases : checkAtlases;
        for (int size : kAtlasSizes) {
            const QString error = process(sources, QDir(arguments.at(3)), size);
            if (!error.isEmpty())
                return finish(error);
        }
        return 0;
    }
    if (arguments.count() >= 5 && command == QLatin1String("sheet")) {
        const int size = arguments.at(3).toInt();
        const QStringList names = arguments.mid(5);
        return finish(drawContactSheet(sources, size,
                                       names.isEmpty() ? glyphNames(sources, size) : names,
                                       arguments.at(4)));
    }
    std::fputs("usage: tamberui-iconatlas draw|check SOURCES OUTPUT\n"
               "       tamberui-iconatlas sheet SOURCES SIZE PICTURE [NAME...]\n",
               stderr);
    return 2;
}
