// usage: vdbbench_report RESULTS.json CHART.png RUN.json...
// Prints one table of what the benchmark programs wrote into the RUN files, writes the same as JSON, and
// draws the chart of the search.
#include <bench/report/Goals.h>
#include <bench/report/Results.h>
#include <bench/report/SearchChart.h>

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextStream>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace korvel::Bench;

namespace {

/// One line of the table, judged.
struct Line
{
    Goal goal;
    QString zone;
    QString limit;
    QString figure;
    QString verdict;
    double value = 0;
};

QString Formatted(double value)
{
    return QString::number(value, 'f', std::abs(value) >= 100 ? 0 : (std::abs(value) >= 10 ? 1 : 2));
}

QString WithUnit(const QString& number, const QString& unit)
{
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

Line Judge(const Goal& goal, const Results& run)
{
    const double limit = goal.limitWithoutZone > 0 && !run.HasZone() ? goal.limitWithoutZone : goal.limit;
    // Both limits are stated where the zone counts, so the zone is told there too.
    Line line{goal, goal.limitWithoutZone == 0 ? QString() : (run.HasZone() ? u"set"_s : u"unset"_s),
              {},   {},
              {},   0};
    const bool isFactor = goal.unit == "x faster"_L1;
    line.value = run.Counter(goal.benchmark, goal.counter).value_or(0);
    if (isFactor)
        line.value = 1 / line.value;
    line.figure = WithUnit(Formatted(line.value), goal.unit);
    switch (goal.judgement) {
    case Judgement::AtMost:
        line.limit = u"at most "_s + WithUnit(Formatted(limit), goal.unit);
        line.verdict = line.value <= limit ? u"met"_s : u"MISSED"_s;
        break;
    case Judgement::TimesFaster:
        line.limit = u"at least "_s + WithUnit(Formatted(limit), goal.unit);
        line.verdict = line.value >= limit ? u"met"_s : u"MISSED"_s;
        break;
    case Judgement::Note:
        line.limit = u"-"_s;
        line.verdict = u"noted"_s;
        break;
    }
    return line;
}

/// The lines of one goal: one for each run that measured it, one that says why where none did.
QList<Line> LinesOf(const Goal& goal, const QList<Results>& runs)
{
    QList<Line> lines;
    QString reason = u"not run"_s;
    for (const Results& run : runs) {
        if (!run.HasZone() && goal.limitWithoutZone == 0)
            continue;
        if (run.Counter(goal.benchmark, goal.counter))
            lines.append(Judge(goal, run));
        else if (!run.Error(goal.benchmark).isEmpty())
            reason = run.Error(goal.benchmark);
    }
    if (lines.isEmpty())
        lines.append({goal, {}, u"-"_s, reason, u"skipped"_s, 0});
    return lines;
}

void Print(const QList<Line>& lines)
{
    QList<QStringList> rows{{u"#"_s, u"What"_s, u"TZ"_s, u"Goal"_s, u"Figure"_s, u"Verdict"_s}};
    for (const Line& line : lines)
        rows.append({line.goal.number, line.goal.what, line.zone, line.limit, line.figure, line.verdict});

    QList<qsizetype> widths(rows.constFirst().size(), 0);
    for (const QStringList& row : rows)
        for (qsizetype column = 0; column < row.size(); ++column)
            widths[column] = qMax(widths.at(column), row.at(column).size());
    QTextStream out(stdout);
    for (const QStringList& row : rows) {
        for (qsizetype column = 0; column < row.size(); ++column)
            out << row.at(column).leftJustified(static_cast<int>(widths.at(column) + 2));
        out << Qt::endl;
    }
}

QJsonObject ToJson(const QList<Line>& lines, const QList<Results>& runs)
{
    QJsonArray rows;
    for (const Line& line : lines) {
        rows.append(QJsonObject{{u"number"_s, line.goal.number},
                                {u"what"_s, line.goal.what},
                                {u"zone"_s, line.zone},
                                {u"goal"_s, line.limit},
                                {u"figure"_s, line.value},
                                {u"unit"_s, line.goal.unit},
                                {u"verdict"_s, line.verdict}});
    }
    QJsonArray contexts;
    for (const Results& run : runs)
        contexts.append(run.Context());
    return {{u"rows"_s, rows}, {u"runs"_s, contexts}};
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 4) {
        QTextStream(stderr) << "usage: vdbbench_report RESULTS.json CHART.png RUN.json...\n";
        return 2;
    }

    QList<Results> runs;
    for (const QString& path : arguments.sliced(3))
        runs.append(Results(path));
    QList<Line> lines;
    const QList<Goal> goals = Goals();
    for (const Goal& goal : goals)
        lines.append(LinesOf(goal, runs));
    Print(lines);

    QSaveFile file(arguments.at(1));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(ToJson(lines, runs)).toJson()) < 0
        || !file.commit()) {
        QTextStream(stderr) << "cannot write " << arguments.at(1) << '\n';
        return 1;
    }
    for (const Results& run : runs) {
        if (run.Counter(u"SearchPhases/1000"_s, u"figure"_s) && !DrawSearchChart(run).save(arguments.at(2))) {
            QTextStream(stderr) << "cannot write " << arguments.at(2) << '\n';
            return 1;
        }
    }
    return 0;
}
