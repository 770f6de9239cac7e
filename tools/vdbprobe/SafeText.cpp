#include <tools/vdbprobe/SafeText.h>

#include <QDateTime>
#include <QNetworkProxy>
#include <QUrl>

namespace korvel::Tools {

namespace {

constexpr qsizetype c_longestText = 200;

} // namespace

QString OneLine(const QString& text)
{
    QString line = text.size() > c_longestText ? text.left(c_longestText) + QStringLiteral("...") : text;
    for (QChar& character : line) {
        if (!character.isPrint())
            character = QLatin1Char(' ');
    }
    return line.simplified();
}

QString Address(const QUrl& url)
{
    return OneLine(url.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment));
}

QString Address(const QNetworkProxy& proxy)
{
    if (proxy.type() == QNetworkProxy::NoProxy)
        return QStringLiteral("none");
    const QString address = QStringLiteral("%1:%2").arg(OneLine(proxy.hostName())).arg(proxy.port());
    return proxy.user().isEmpty() ? address : address + QStringLiteral(" (with a user name)");
}

QString DateText(const QDateTime& date)
{
    return date.toUTC().toString(Qt::ISODate);
}

} // namespace korvel::Tools
