#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

namespace bench {

class Stage;

/// Takes one measurement and returns it in the unit of its row. It is called many times, between
/// measurements of other rows, so it warms up and cleans up by itself.
using Measure = std::function<double(Stage &)>;

/// One line of the table: this library beside what a user would pick instead. Less is better.
struct Row
{
    const char *what;
    const char *unit; ///< UTF-8
    double goal; ///< the greatest ratio of ours to theirs that is good enough
    Measure ours;
    Measure theirs;
};
using Rows = QVector<Row>;

/// Medians of the repetitions of one row.
struct Result
{
    Row row;
    QVector<double> ours; ///< one value per repetition
    QVector<double> theirs;

    double ratio() const;
    bool isMet() const { return ratio() <= row.goal; }
};
using Results = QVector<Result>;

double median(QVector<double> values);

/// Runs both sides of all rows that pass the filter on Google Benchmark's command line, their
/// repetitions shuffled among each other.
Results compare(const Rows &rows, Stage &stage);

/// A line that says what was measured where, and the table.
QString table(const Results &results, const Stage &stage);

/// The same with every single value, as JSON. Returns false where \a path cannot be written.
bool writeJson(const QString &path, const Results &results, const Stage &stage);

} // namespace bench
