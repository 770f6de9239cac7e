#include <tools/vdbprobe/SafeText.h>

#include <QDateTime>
#include <QNetworkProxy>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace korvel::Tools {

namespace {

constexpr qsizetype c_longestText = 200;

} // namespace

QString OneLine(const QString& text)
{
    QString line = text.size() > c_longestText ? text.left(c_longestText) + u"..."_s : text;
    for (QChar& character : line)
        if (!character.isPrint())
            character = QLatin1Char(' ');
    return line.simplified();
}

QString Address(const QUrl& url)
{
    return OneLine(url.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment));
}

QString Address(const QNetworkProxy& proxy)
{
    if (proxy.type() == QNetworkProxy::NoProxy)
        return u"none"_s;
    const QString address = u"%1:%2"_s.arg(OneLine(proxy.hostName())).arg(proxy.port());
    return proxy.user().isEmpty() ? address : address + u" (with a user name)"_s;
}

QString DateText(const QDateTime& date)
{
    return date.toUTC().toString(Qt::ISODate);
}

} // namespace korvel::Tools
