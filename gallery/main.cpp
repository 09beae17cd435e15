#include "owncolors.h"
#include "pages.h"
#include "pictures.h"
#include "screenshots.h"
#include "trace.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QSettings>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

#include <cstdio>

namespace {

enum ExitCode { Success = 0, Failure = 1, WrongUsage = 2 };

struct Options
{
    QCommandLineOption page { QStringLiteral("page"), QStringLiteral("Start on the page NAME."),
                              QStringLiteral("NAME") };
    QCommandLineOption list { QStringLiteral("list"),
                              QStringLiteral("Print the names of the pages and exit.") };
    QCommandLineOption screenshots { QStringLiteral("screenshots"),
                                     QStringLiteral("Render every page into the folder DIR and "
                                                    "exit."),
                                     QStringLiteral("DIR") };
    QCommandLineOption contactSheets { QStringLiteral("contact-sheets"),
                                       QStringLiteral("Render all icons into the folder DIR and "
                                                      "exit."),
                                       QStringLiteral("DIR") };
    QCommandLineOption settings { QStringLiteral("settings"),
                                  QStringLiteral("Keep the user's own colours in FILE."),
                                  QStringLiteral("FILE") };
    QCommandLineOption trace { QStringLiteral("trace"),
                               QStringLiteral("Print what happens in the window, one event a "
                                              "line.") };
};

int complain(const QString &message, ExitCode code)
{
    std::fprintf(stderr, "tamberui-gallery: %s\n", qUtf8Printable(message));
    return code;
}

// The kit lies beside the installed program, or in the build tree that this program was built in.
void addKitPath(QQmlEngine *engine)
{
    const QDir here(QCoreApplication::applicationDirPath());
    for (const char *path : { GALLERY_INSTALLED_MODULES, GALLERY_BUILT_MODULES }) {
        const QDir modules(here.filePath(QLatin1String(path)));
        if (modules.exists(QStringLiteral("tamber/Ui/qmldir"))) {
            engine->addImportPath(modules.canonicalPath());
            return;
        }
    }
}

// Where the user's choices are kept: in the file that was asked for, or in the place for them on
// this system. What renders pictures or is tested keeps nothing unless it is asked to.
std::unique_ptr<QSettings> userSettings(const QCommandLineParser &parser, const Options &options)
{
    if (parser.isSet(options.settings))
        return std::make_unique<QSettings>(parser.value(options.settings), QSettings::IniFormat);
    if (parser.isSet(options.trace) || parser.isSet(options.screenshots)
        || parser.isSet(options.contactSheets)) {
        return nullptr;
    }
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                       QStringLiteral("tamberui"), QStringLiteral("gallery"));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationName(QStringLiteral("tamberui-gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral(GALLERY_VERSION));

    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows what TamberUi has to offer."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({ options.page, options.list, options.screenshots, options.contactSheets,
                        options.settings, options.trace });

    // What needs no screen is answered before there is one. Qt's own options are still among the
    // arguments then, so complaints have to wait.
    const QStringList names = pages::names();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    parser.parse(arguments);
    if (parser.isSet(options.list)) {
        std::puts(qUtf8Printable(names.join(QLatin1Char('\n'))));
        return Success;
    }
    if (parser.isSet(help) || parser.isSet(version)) {
        const QCoreApplication app(argc, argv);
        parser.process(app); // answers and exits
    }
    const QString page = parser.isSet(options.page) ? parser.value(options.page) : names.first();
    if (!names.contains(page)) {
        return complain(QStringLiteral("there is no page \"%1\"; the pages are: %2")
                            .arg(page, names.join(QLatin1String(", "))),
                        WrongUsage);
    }

    const QGuiApplication app(argc, argv);
    if (!parser.parse(app.arguments()))
        return complain(parser.errorText(), WrongUsage);
    if (!parser.positionalArguments().isEmpty()) {
        return complain(QStringLiteral("what is \"%1\"? There is --page")
                            .arg(parser.positionalArguments().constFirst()),
                        WrongUsage);
    }
    parser.process(app); // answers what of the help names Qt's own options, too

    int complaints = 0;
    OwnColors ownColors(userSettings(parser, options));
    const OwnPaletteProvider ownPalettes(&ownColors);
    Trace trace; // outlives the engine and with it the window
    QQmlApplicationEngine engine;
    addKitPath(&engine);
    qmlRegisterSingletonType<Pictures>("Gallery", 1, 0, "Pictures",
                                       [](QQmlEngine *, QJSEngine *) -> QObject * {
                                           return new Pictures; // the engine owns it
                                       });
    QObject::connect(&engine, &QQmlEngine::warnings, &engine,
                     [&](const QList<QQmlError> &warnings) { complaints += warnings.count(); });
    if (parser.isSet(options.contactSheets)) {
        const bool complete = takeContactSheets(&engine, parser.value(options.contactSheets));
        return complete && complaints == 0 ? Success : Failure;
    }
    engine.setInitialProperties(
        { { QStringLiteral("pages"), pages::model() }, { QStringLiteral("currentPage"), page } });
    engine.load(QUrl(QStringLiteral("qrc:/gallery/Main.qml")));
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window)
        return complain(QStringLiteral("the screen could not be loaded"), Failure);

    if (parser.isSet(options.screenshots)) {
        const bool complete = takeScreenshots(window, parser.value(options.screenshots));
        return complete && complaints == 0 ? Success : Failure;
    }
    if (parser.isSet(options.trace)) {
        trace.watch(window);
        trace.setPage(page);
        QObject::connect(window, SIGNAL(pageShown(QString)), &trace, SLOT(setPage(QString)));
    }
    return app.exec();
}
