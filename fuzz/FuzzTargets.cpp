#include <fuzz/FuzzTargets.h>

#include <QLoggingCategory>
#include <QNetworkProxy>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

namespace {

QList<std::function<void()>>& Releases()
{
    static QList<std::function<void()>> releases;
    return releases;
}

} // namespace

const QList<Target>& Targets()
{
    static const QList<Target> targets{
        {"FileName", FuzzFileName},         {"ModelFileReply", FuzzModelFileReply},
        {"PictureBytes", FuzzPictureBytes}, {"PictureReply", FuzzPictureReply},
        {"ServerText", FuzzServerText},     {"VenueReply", FuzzVenueReply},
    };
    return targets;
}

void PrepareApplication()
{
    // Nobody listens there: whatever is not answered without the network fails at once.
    constexpr quint16 c_closedPort = 1;
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, c_closedPort));
    QLoggingCategory::setFilterRules(u"vdb=false\n*.warning=false\n*.info=false"_s);
}

void Require(bool isKept, const char* promise)
{
    if (isKept)
        return;
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
}

void ReleaseLater(const std::function<void()>& release)
{
    Releases().append(release);
}

void ReleaseKept()
{
    while (!Releases().isEmpty())
        Releases().takeLast()();
}

QList<QByteArray> Fields(const QByteArray& input)
{
    return input.split('\xff');
}

} // namespace korvel::Fuzz
