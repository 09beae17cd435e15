#include "comparison.h"
#include "rows.h"
#include "stage.h"

#include <TamberUi/Module>

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

namespace {

constexpr const char *kUsage = R"(Measures TamberUi beside what a user would pick instead.
Usage: tamberui-bench [--json FILE] [--strict] [--benchmark_...]
  --json FILE                   where the results go besides the table
                                (build/bench/results.json in the working directory)
  --strict                      exit with 1 when a goal is missed
  --benchmark_filter=REGEX      only the rows whose names match
  --benchmark_repetitions=N     instead of 21
)";

} // namespace

int main(int argc, char **argv)
{
    bench::stayOnOneProcessor();
    bench::Stage::prepare();
    QGuiApplication application(argc, argv);

    QString json = QStringLiteral("build/bench/results.json");
    bool strict = false;
    char repetitions[] = "--benchmark_repetitions=21";
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> rest = { argv[0], repetitions, interleaving };
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument == "--strict") {
            strict = true;
        } else if (argument == "--json" && i + 1 < argc) {
            json = QString::fromLocal8Bit(argv[++i]);
        } else if (argument == "--help") {
            std::fputs(kUsage, stdout);
            return 0;
        } else {
            rest.push_back(argv[i]);
        }
    }
    int restCount = int(rest.size());
    benchmark::Initialize(&restCount, rest.data());
    if (benchmark::ReportUnrecognizedArguments(restCount, rest.data()))
        return 2;

    ta::ui::register_private();
    const bench::Rows rows = bench::buttonRows() + bench::delegateRows() + bench::dialogRows()
                             + bench::dragRows() + bench::dropRows() + bench::menuRows()
                             + bench::paletteRows() + bench::popupRows() + bench::sceneGraphRows()
                             + bench::scrollingRows() + bench::sliderRows() + bench::textRows()
                             + bench::thumbnailRows() + bench::tooltipRows();
    bench::Stage stage;
    const bench::Results results = bench::compare(rows, stage);
    if (results.isEmpty()) {
        std::fputs("tamberui-bench: no row was measured\n", stderr);
        return 2;
    }

    std::fputs(qPrintable(bench::table(results, stage)), stdout);
    const QString path = QFileInfo(json).absoluteFilePath();
    if (!bench::writeJson(path, results, stage)) {
        std::fprintf(stderr, "tamberui-bench: cannot write %s\n", qPrintable(path));
        return 2;
    }
    std::printf("\nEvery repetition: %s\n", qPrintable(path));

    const bool allMet = std::all_of(results.begin(), results.end(),
                                    [](const bench::Result &result) { return result.isMet(); });
    return strict && !allMet ? 1 : 0;
}
