#include <bench/report/Goals.h>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

namespace {

constexpr QLatin1String c_figure("figure");

QString Thousands(int count)
{
    return QString::number(count / 1000) + u",000"_s;
}

QString Mix(int venuesPerUser)
{
    return venuesPerUser == 1 ? u"a user each"_s : u"a user in ten"_s;
}

/// The row \p number for both kinds of users and replies of all sizes: body to venues against \p reference.
void AddBodyGoals(QList<Goal>& goals, const QString& number, const QString& reference,
                  const QString& benchmark, double limit, double limitWithoutZone)
{
    for (const int count : {1000, 10000, 100000}) {
        for (const int venuesPerUser : {10, 1}) {
            goals.append(
                {number,
                 u"body to venues / %1, %2, %3"_s.arg(reference, Thousands(count), Mix(venuesPerUser)),
                 u"%1/%2/%3"_s.arg(benchmark).arg(count).arg(venuesPerUser),
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
            goals.append({u"1"_s,
                          u"records / JSON parse, %1 venues, %2"_s.arg(Thousands(count), Mix(venuesPerUser)),
                          u"ReadRecords/%1/%2"_s.arg(count).arg(venuesPerUser),
                          c_figure,
                          Judgement::AtMost,
                          1.1,
                          1.4,
                          {}});
        }
    }
    for (const int venuesPerUser : {10, 1}) {
        goals.append({u"2"_s,
                      u"body to venues, time per venue, 100,000 / 1,000, %1"_s.arg(Mix(venuesPerUser)),
                      u"ReadBodyGrowth/%1"_s.arg(venuesPerUser),
                      c_figure,
                      Judgement::AtMost,
                      1.3,
                      1.3,
                      {}});
    }
    for (const int venuesPerUser : {10, 1}) {
        goals.append({u"3"_s,
                      u"body to venues / jsona on Node, 10,000, %1"_s.arg(Mix(venuesPerUser)),
                      u"ReadBodyAgainstJsona/10000/%1"_s.arg(venuesPerUser),
                      c_figure,
                      Judgement::AtMost,
                      0.35,
                      0.55,
                      {}});
    }
    AddBodyGoals(goals, u"3a"_s, u"JSON parse"_s, u"ReadBodyAgainstParser"_s, 0.5, 0.8);
    AddBodyGoals(goals, u"3b"_s, u"bare simdjson program"_s, u"ReadBodyAgainstBareReader"_s, 1.5, 2.2);
    goals.append({u"3c"_s,
                  u"peak memory of a search beyond what stays, per byte of body, 100,000"_s,
                  u"SearchMemory/100000"_s,
                  c_figure,
                  Judgement::AtMost,
                  1.6,
                  0,
                  {}});
    for (const int count : {10000, 100000}) {
        goals.append({u"3d"_s,
                      u"longest stall of a search / the same with QJsonDocument, %1"_s.arg(Thousands(count)),
                      u"SearchStall/%1"_s.arg(count),
                      c_figure,
                      Judgement::AtMost,
                      0.5,
                      0.5,
                      {}});
    }
}

void AddTableGoals(QList<Goal>& goals)
{
    goals.append({u"4"_s, u"reset + sort by date against the literal, 10,000"_s, u"SortTable/10000/5"_s,
                  c_figure, Judgement::TimesFaster, 6, 15, u"x faster"_s});
    goals.append({u"4"_s, u"the same, 100,000"_s, u"SortTable/100000/5"_s, c_figure, Judgement::Note, 0, -1,
                  u"x faster"_s});
    goals.append({u"5"_s,
                  u"reset + sort by date / std::stable_sort of ready dates, 100,000"_s,
                  u"SortTableAgainstDates/100000"_s,
                  c_figure,
                  Judgement::AtMost,
                  4,
                  4,
                  {}});
    goals.append({u"5"_s,
                  u"the same / std::stable_sort of plain numbers"_s,
                  u"SortTableAgainstNumbers/100000"_s,
                  c_figure,
                  Judgement::Note,
                  0,
                  -1,
                  {}});
    for (const int count : {10000, 100000}) {
        goals.append({u"6"_s, u"sort by a text column against the literal, %1"_s.arg(Thousands(count)),
                      u"SortTable/%1/1"_s.arg(count), c_figure, Judgement::TimesFaster, 6, 6, u"x faster"_s});
    }
    goals.append({u"6"_s, u"sort by the id, a hidden column, 10,000"_s, u"SortTable/10000/0"_s, c_figure,
                  Judgement::Note, 0, -1, u"x faster"_s});
    for (const int countries : {0, 60}) {
        goals.append({u"7"_s,
                      u"country list / reading the reply, 100,000 venues, %1 countries"_s.arg(
                          countries == 0 ? 12 : countries),
                      u"CountryList/100000/%1"_s.arg(countries),
                      c_figure,
                      Judgement::AtMost,
                      0.15,
                      0.15,
                      {}});
    }
}

void AddNetworkGoals(QList<Goal>& goals)
{
    goals.append({u"8"_s,
                  u"20 pictures of 40 KB / plain loop, same manager"_s,
                  u"FetchPictures"_s,
                  c_figure,
                  Judgement::AtMost,
                  1.05,
                  0,
                  {}});
    goals.append({u"8"_s,
                  u"the same, with their list, which the loop does not read"_s,
                  u"FetchPicturesAndList"_s,
                  c_figure,
                  Judgement::Note,
                  0,
                  0,
                  {}});
    goals.append({u"8"_s,
                  u"the same / libcurl, one connection"_s,
                  u"FetchPicturesAgainstCurl"_s,
                  c_figure,
                  Judgement::Note,
                  0,
                  0,
                  {}});
    goals.append({u"9"_s,
                  u"TLS connections of 200 queries"_s,
                  u"Connections"_s,
                  c_figure,
                  Judgement::AtMost,
                  1,
                  0,
                  {}});
    goals.append({u"10"_s, u"memory per venue with 416 bytes of text, 100,000"_s, u"RecordMemory/100000/10"_s,
                  c_figure, Judgement::AtMost, 1100, 0, u"bytes"_s});
    goals.append({u"11"_s, u"heap growth per fetched picture"_s, u"PictureMemory"_s, c_figure,
                  Judgement::AtMost, 1024, 0, u"bytes"_s});
}

void AddPictureGoals(QList<Goal>& goals)
{
    goals.append({u"12"_s,
                  u"first step to a picture / decode + scale alone"_s,
                  u"FirstPictureSteps"_s,
                  c_figure,
                  Judgement::AtMost,
                  1.1,
                  0,
                  {}});
    goals.append({u"12"_s,
                  u"step back to a picture already seen / the same"_s,
                  u"RepeatedPictureSteps"_s,
                  c_figure,
                  Judgement::AtMost,
                  0.1,
                  0,
                  {}});
    const QStringList actions{u"repaint"_s, u"zoom step"_s, u"pan step"_s};
    for (int action = 0; action < actions.size(); ++action) {
        const QString& name = actions.at(action);
        const QString equipped = u"PaintViewer/%1/0"_s.arg(action);
        const QString bare = u"PaintViewer/%1/1"_s.arg(action);
        goals.append({u"13"_s, u"viewer, 24 megapixels, %1"_s.arg(name), equipped, u"waitMs"_s,
                      Judgement::AtMost, 8, 0, u"ms"_s});
        goals.append({u"13"_s,
                      u"viewer, %1 / graphics view with the same on it"_s.arg(name),
                      equipped,
                      c_figure,
                      Judgement::AtMost,
                      1.1,
                      0,
                      {}});
        goals.append(
            {u"13"_s, u"the same / bare graphics view"_s, bare, c_figure, Judgement::Note, 0, 0, {}});
    }
    goals.append({u"14"_s, u"dialog constructed"_s, u"FirstShow"_s, u"constructedMs"_s, Judgement::Note, 0, 0,
                  u"ms"_s});
    goals.append({u"14"_s, u"dialog shown for the first time"_s, u"FirstShow"_s, u"shownMs"_s,
                  Judgement::Note, 0, 0, u"ms"_s});
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
