#include "comparison.h"

#include "stage.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSaveFile>
#include <QtCore/QSysInfo>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>

namespace bench {

namespace {

constexpr const char *kValue = "value";

#ifdef NDEBUG
constexpr bool kOptimised = true;
#else
constexpr bool kOptimised = false;
#endif

// Google Benchmark repeats, shuffles and filters; what it reports is only collected here.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration)
                m_values[run.run_name.function_name].append(run.counters.at(kValue));
        }
    }

    QVector<double> values(const std::string &name) const
    {
        const auto entry = m_values.find(name);
        return entry == m_values.end() ? QVector<double>() : entry->second;
    }

private:
    std::map<std::string, QVector<double>> m_values;
};

std::string sideName(const Row &row, const char *side)
{
    return std::string(row.what) + '/' + side;
}

void addSide(const std::string &name, const Measure &measure, Stage &stage)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [&measure, &stage](benchmark::State &state) {
                                     for (auto _ : state) {
                                         Q_UNUSED(_)
                                         state.counters[kValue] = measure(stage);
                                         state.SetIterationTime(0);
                                     }
                                 })
        ->Iterations(1) // a measurement counts its own objects or frames
        ->UseManualTime();
}

QString number(double value)
{
    return QString::number(value, 'f', value < 100 ? 2 : 0);
}

QJsonArray toJson(const QVector<double> &values)
{
    QJsonArray array;
    for (double value : values)
        array.append(value);
    return array;
}

} // namespace

double median(QVector<double> values)
{
    Q_ASSERT(!values.isEmpty());
    std::sort(values.begin(), values.end());
    const int middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double Result::ratio() const
{
    return median(ours) / median(theirs);
}

Results compare(const Rows &rows, Stage &stage)
{
    for (const Row &row : rows) {
        addSide(sideName(row, "ours"), row.ours, stage);
        addSide(sideName(row, "theirs"), row.theirs, stage);
    }
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    Results results;
    for (const Row &row : rows) {
        const Result result = { row, collector.values(sideName(row, "ours")),
                                collector.values(sideName(row, "theirs")) };
        if (!result.ours.isEmpty() && !result.theirs.isEmpty())
            results.append(result);
    }
    return results;
}

QString table(const Results &results, const Stage &stage)
{
    QVector<QStringList> lines = { QStringLiteral("what|ours|theirs|ratio|goal|").split(u'|') };
    for (const Result &result : results) {
        const QString unit = u' ' + QString::fromUtf8(result.row.unit);
        lines.append({ QString::fromUtf8(result.row.what), number(median(result.ours)) + unit,
                       number(median(result.theirs)) + unit, number(result.ratio()),
                       number(result.row.goal),
                       result.isMet() ? QStringLiteral("met") : QStringLiteral("missed") });
    }

    QString text = QStringLiteral("TamberUi " TAMBERUI_VERSION " beside Qt %1, medians of %2 "
                                  "repetitions, %3%4\n\n")
                       .arg(QLatin1String(qVersion()))
                       .arg(results.isEmpty() ? 0 : results.first().ours.size())
                       .arg(stage.renderer(),
                            kOptimised ? QString() : QStringLiteral(", NOT OPTIMISED"));
    for (const QStringList &line : qAsConst(lines)) {
        QString padded;
        for (int column = 0; column < line.size(); ++column) {
            int width = 0;
            for (const QStringList &other : qAsConst(lines))
                width = qMax(width, other[column].size());
            const bool isText = column == 0 || column == line.size() - 1;
            padded += isText ? line[column].leftJustified(width)
                             : line[column].rightJustified(width);
            padded += QLatin1String("  ");
        }
        text += padded.trimmed() + u'\n';
    }
    return text;
}

bool writeJson(const QString &path, const Results &results, const Stage &stage)
{
    QJsonArray rows;
    for (const Result &result : results) {
        rows.append(QJsonObject {
            { QStringLiteral("what"), QString::fromUtf8(result.row.what) },
            { QStringLiteral("unit"), QString::fromUtf8(result.row.unit) },
            { QStringLiteral("ours"), median(result.ours) },
            { QStringLiteral("theirs"), median(result.theirs) },
            { QStringLiteral("ratio"), result.ratio() },
            { QStringLiteral("goal"), result.row.goal },
            { QStringLiteral("met"), result.isMet() },
            { QStringLiteral("oursRepetitions"), toJson(result.ours) },
            { QStringLiteral("theirsRepetitions"), toJson(result.theirs) },
        });
    }
    const QJsonObject document {
        { QStringLiteral("version"), QStringLiteral(TAMBERUI_VERSION) },
        { QStringLiteral("qt"), QLatin1String(qVersion()) },
        { QStringLiteral("optimised"), kOptimised },
        { QStringLiteral("system"), QSysInfo::prettyProductName() },
        { QStringLiteral("architecture"), QSysInfo::currentCpuArchitecture() },
        { QStringLiteral("renderer"), stage.renderer() },
        { QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate) },
        { QStringLiteral("rows"), rows },
    };

    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(document).toJson()) > 0
           && file.commit();
}

} // namespace bench
