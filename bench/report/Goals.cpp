#include <bench/report/Goals.h>

namespace korvel::Bench {

namespace {

constexpr QLatin1String c_figure("figure");

QString Thousands(int count)
{
    return QString::number(count / 1000) + QStringLiteral(",000");
}

QString Mix(int venuesPerUser)
{
    return venuesPerUser == 1 ? QStringLiteral("a user each") : QStringLiteral("a user in ten");
}

/// The row \p number for both kinds of users and replies of all sizes: body to venues against \p reference.
void AddBodyGoals(QList<Goal>& goals, const QString& number, const QString& reference,
                  const QString& benchmark, double limit, double limitWithoutZone)
{
    for (const int count : {1000, 10000, 100000}) {
        for (const int venuesPerUser : {10, 1}) {
            goals.append({number,
                          QStringLiteral("body to venues / %1, %2, %3")
                              .arg(reference, Thousands(count), Mix(venuesPerUser)),
                          QStringLiteral("%1/%2/%3").arg(benchmark).arg(count).arg(venuesPerUser),
                          c_figure,
                          Judgement::AtMost,
                          limit,
                          limitWithoutZone,
                          {}});
        }
    }
}

void AddReplyGoals(QList<Goal>& goals)
{
    for (const int count : {1000, 10000, 100000}) {
        for (const int venuesPerUser : {10, 1}) {
            goals.append({QStringLiteral("1"),
                          QStringLiteral("records / JSON parse, %1 venues, %2")
                              .arg(Thousands(count), Mix(venuesPerUser)),
                          QStringLiteral("ReadRecords/%1/%2").arg(count).arg(venuesPerUser),
                          c_figure,
                          Judgement::AtMost,
                          1.1,
                          1.4,
                          {}});
        }
    }
    for (const int venuesPerUser : {10, 1}) {
        goals.append(
            {QStringLiteral("2"),
             QStringLiteral("body to venues, time per venue, 100,000 / 1,000, %1").arg(Mix(venuesPerUser)),
             QStringLiteral("ReadBodyGrowth/%1").arg(venuesPerUser),
             c_figure,
             Judgement::AtMost,
             1.3,
             1.3,
             {}});
    }
    for (const int venuesPerUser : {10, 1}) {
        goals.append({QStringLiteral("3"),
                      QStringLiteral("body to venues / jsona on Node, 10,000, %1").arg(Mix(venuesPerUser)),
                      QStringLiteral("ReadBodyAgainstJsona/10000/%1").arg(venuesPerUser),
                      c_figure,
                      Judgement::AtMost,
                      0.35,
                      0.55,
                      {}});
    }
    AddBodyGoals(goals, QStringLiteral("3a"), QStringLiteral("JSON parse"),
                 QStringLiteral("ReadBodyAgainstParser"), 0.5, 0.8);
    AddBodyGoals(goals, QStringLiteral("3b"), QStringLiteral("bare simdjson program"),
                 QStringLiteral("ReadBodyAgainstBareReader"), 1.5, 2.2);
    goals.append({QStringLiteral("3c"),
                  QStringLiteral("peak memory of a search beyond what stays, per byte of body, 100,000"),
                  QStringLiteral("SearchMemory/100000"),
                  c_figure,
                  Judgement::AtMost,
                  1.6,
                  0,
                  {}});
    for (const int count : {10000, 100000}) {
        goals.append({QStringLiteral("3d"),
                      QStringLiteral("longest stall of a search / the same with QJsonDocument, %1")
                          .arg(Thousands(count)),
                      QStringLiteral("SearchStall/%1").arg(count),
                      c_figure,
                      Judgement::AtMost,
                      0.5,
                      0.5,
                      {}});
    }
}

void AddTableGoals(QList<Goal>& goals)
{
    goals.append({QStringLiteral("4"), QStringLiteral("reset + sort by date against the literal, 10,000"),
                  QStringLiteral("SortTable/10000/5"), c_figure, Judgement::TimesFaster, 6, 15,
                  QStringLiteral("x faster")});
    goals.append({QStringLiteral("4"), QStringLiteral("the same, 100,000"),
                  QStringLiteral("SortTable/100000/5"), c_figure, Judgement::Note, 0, -1,
                  QStringLiteral("x faster")});
    goals.append({QStringLiteral("5"),
                  QStringLiteral("reset + sort by date / std::stable_sort of ready dates, 100,000"),
                  QStringLiteral("SortTableAgainstDates/100000"),
                  c_figure,
                  Judgement::AtMost,
                  4,
                  4,
                  {}});
    goals.append({QStringLiteral("5"),
                  QStringLiteral("the same / std::stable_sort of plain numbers"),
                  QStringLiteral("SortTableAgainstNumbers/100000"),
                  c_figure,
                  Judgement::Note,
                  0,
                  -1,
                  {}});
    for (const int count : {10000, 100000}) {
        goals.append({QStringLiteral("6"),
                      QStringLiteral("sort by a text column against the literal, %1").arg(Thousands(count)),
                      QStringLiteral("SortTable/%1/1").arg(count), c_figure, Judgement::TimesFaster, 6, 6,
                      QStringLiteral("x faster")});
    }
    goals.append({QStringLiteral("6"), QStringLiteral("sort by the id, a hidden column, 10,000"),
                  QStringLiteral("SortTable/10000/0"), c_figure, Judgement::Note, 0, -1,
                  QStringLiteral("x faster")});
    for (const int countries : {0, 60}) {
        goals.append({QStringLiteral("7"),
                      QStringLiteral("country list / reading the reply, 100,000 venues, %1 countries")
                          .arg(countries == 0 ? 12 : countries),
                      QStringLiteral("CountryList/100000/%1").arg(countries),
                      c_figure,
                      Judgement::AtMost,
                      0.15,
                      0.15,
                      {}});
    }
}

void AddNetworkGoals(QList<Goal>& goals)
{
    goals.append({QStringLiteral("8"),
                  QStringLiteral("20 pictures of 40 KB / plain loop, same manager"),
                  QStringLiteral("FetchPictures"),
                  c_figure,
                  Judgement::AtMost,
                  1.05,
                  0,
                  {}});
    goals.append({QStringLiteral("8"),
                  QStringLiteral("the same, with their list, which the loop does not read"),
                  QStringLiteral("FetchPicturesAndList"),
                  c_figure,
                  Judgement::Note,
                  0,
                  0,
                  {}});
    goals.append({QStringLiteral("8"),
                  QStringLiteral("the same / libcurl, one connection"),
                  QStringLiteral("FetchPicturesAgainstCurl"),
                  c_figure,
                  Judgement::Note,
                  0,
                  0,
                  {}});
    goals.append({QStringLiteral("9"),
                  QStringLiteral("TLS connections of 200 queries"),
                  QStringLiteral("Connections"),
                  c_figure,
                  Judgement::AtMost,
                  1,
                  0,
                  {}});
    goals.append({QStringLiteral("10"), QStringLiteral("memory per venue with 416 bytes of text, 100,000"),
                  QStringLiteral("RecordMemory/100000/10"), c_figure, Judgement::AtMost, 1100, 0,
                  QStringLiteral("bytes")});
    goals.append({QStringLiteral("11"), QStringLiteral("heap growth per fetched picture"),
                  QStringLiteral("PictureMemory"), c_figure, Judgement::AtMost, 1024, 0,
                  QStringLiteral("bytes")});
}

void AddPictureGoals(QList<Goal>& goals)
{
    goals.append({QStringLiteral("12"),
                  QStringLiteral("first step to a picture / decode + scale alone"),
                  QStringLiteral("FirstPictureSteps"),
                  c_figure,
                  Judgement::AtMost,
                  1.1,
                  0,
                  {}});
    goals.append({QStringLiteral("12"),
                  QStringLiteral("step back to a picture already seen / the same"),
                  QStringLiteral("RepeatedPictureSteps"),
                  c_figure,
                  Judgement::AtMost,
                  0.1,
                  0,
                  {}});
    const QStringList actions{QStringLiteral("repaint"), QStringLiteral("zoom step"),
                              QStringLiteral("pan step")};
    for (int action = 0; action < actions.size(); ++action) {
        const QString& name = actions.at(action);
        const QString equipped = QStringLiteral("PaintViewer/%1/0").arg(action);
        const QString bare = QStringLiteral("PaintViewer/%1/1").arg(action);
        goals.append({QStringLiteral("13"), QStringLiteral("viewer, 24 megapixels, %1").arg(name), equipped,
                      QStringLiteral("waitMs"), Judgement::AtMost, 8, 0, QStringLiteral("ms")});
        goals.append({QStringLiteral("13"),
                      QStringLiteral("viewer, %1 / graphics view with the same on it").arg(name),
                      equipped,
                      c_figure,
                      Judgement::AtMost,
                      1.1,
                      0,
                      {}});
        goals.append({QStringLiteral("13"),
                      QStringLiteral("the same / bare graphics view"),
                      bare,
                      c_figure,
                      Judgement::Note,
                      0,
                      0,
                      {}});
    }
    goals.append({QStringLiteral("14"), QStringLiteral("dialog constructed"), QStringLiteral("FirstShow"),
                  QStringLiteral("constructedMs"), Judgement::Note, 0, 0, QStringLiteral("ms")});
    goals.append({QStringLiteral("14"), QStringLiteral("dialog shown for the first time"),
                  QStringLiteral("FirstShow"), QStringLiteral("shownMs"), Judgement::Note, 0, 0,
                  QStringLiteral("ms")});
}

} // namespace

QList<Goal> Goals()
{
    QList<Goal> goals;
    AddReplyGoals(goals);
    AddTableGoals(goals);
    AddNetworkGoals(goals);
    AddPictureGoals(goals);
    return goals;
}

} // namespace korvel::Bench
