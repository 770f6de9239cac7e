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
    Line line{goal,
              goal.limitWithoutZone == 0 ? QString()
                                         : (run.HasZone() ? QStringLiteral("set") : QStringLiteral("unset")),
              {},
              {},
              {},
              0};
    const bool isFactor = goal.unit == QLatin1String("x faster");
    line.value = run.Counter(goal.benchmark, goal.counter).value_or(0);
    if (isFactor)
        line.value = 1 / line.value;
    line.figure = WithUnit(Formatted(line.value), goal.unit);
    switch (goal.judgement) {
    case Judgement::AtMost:
        line.limit = QStringLiteral("at most ") + WithUnit(Formatted(limit), goal.unit);
        line.verdict = line.value <= limit ? QStringLiteral("met") : QStringLiteral("MISSED");
        break;
    case Judgement::TimesFaster:
        line.limit = QStringLiteral("at least ") + WithUnit(Formatted(limit), goal.unit);
        line.verdict = line.value >= limit ? QStringLiteral("met") : QStringLiteral("MISSED");
        break;
    case Judgement::Note:
        line.limit = QStringLiteral("-");
        line.verdict = QStringLiteral("noted");
        break;
    }
    return line;
}

/// The lines of one goal: one for each run that measured it, one that says why where none did.
QList<Line> LinesOf(const Goal& goal, const QList<Results>& runs)
{
    QList<Line> lines;
    QString reason = QStringLiteral("not run");
    for (const Results& run : runs) {
        if (!run.HasZone() && goal.limitWithoutZone == 0)
            continue;
        if (run.Counter(goal.benchmark, goal.counter))
            lines.append(Judge(goal, run));
        else if (!run.Error(goal.benchmark).isEmpty())
            reason = run.Error(goal.benchmark);
    }
    if (lines.isEmpty())
        lines.append({goal, {}, QStringLiteral("-"), reason, QStringLiteral("skipped"), 0});
    return lines;
}

void Print(const QList<Line>& lines)
{
    QList<QStringList> rows{{QStringLiteral("#"), QStringLiteral("What"), QStringLiteral("TZ"),
                             QStringLiteral("Goal"), QStringLiteral("Figure"), QStringLiteral("Verdict")}};
    for (const Line& line : lines)
        rows.append({line.goal.number, line.goal.what, line.zone, line.limit, line.figure, line.verdict});

    QList<qsizetype> widths(rows.constFirst().size(), 0);
    for (const QStringList& row : rows) {
        for (qsizetype column = 0; column < row.size(); ++column)
            widths[column] = qMax(widths.at(column), row.at(column).size());
    }
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
        rows.append(QJsonObject{{QStringLiteral("number"), line.goal.number},
                                {QStringLiteral("what"), line.goal.what},
                                {QStringLiteral("zone"), line.zone},
                                {QStringLiteral("goal"), line.limit},
                                {QStringLiteral("figure"), line.value},
                                {QStringLiteral("unit"), line.goal.unit},
                                {QStringLiteral("verdict"), line.verdict}});
    }
    QJsonArray contexts;
    for (const Results& run : runs)
        contexts.append(run.Context());
    return {{QStringLiteral("rows"), rows}, {QStringLiteral("runs"), contexts}};
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
        if (run.Counter(QStringLiteral("SearchPhases/1000"), QStringLiteral("figure"))
            && !DrawSearchChart(run).save(arguments.at(2))) {
            QTextStream(stderr) << "cannot write " << arguments.at(2) << '\n';
            return 1;
        }
    }
    return 0;
}
