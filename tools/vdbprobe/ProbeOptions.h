#pragma once

#include <data/network/ServerQuery_p.h>

#include <QList>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace korvel::Tools {

/// What the command line of vdbprobe asks for.
struct ProbeOptions
{
    /// What to do with a command line.
    enum class Request
    {
        Probe,
        ShowHelp,
        ShowVersion,
        Refuse ///< \a message says why
    };

    Request request = Request::Probe;
    QString message; ///< of a request other than Probe, for the user
    QString host; ///< without port
    quint16 port = 443;
    bool usesSystemProxy = true; ///< otherwise \a proxy
    QNetworkProxy proxy{QNetworkProxy::NoProxy};
    QList<QSslCertificate> authorities; ///< trusted in addition to those of the system
    int timeout = 30000; ///< of every single wait, in milliseconds
    bool isVerbose = false;

    /// Reads \p arguments, the program's name first, and the files that they name.
    static ProbeOptions FromArguments(const QStringList& arguments);

    /// The address of \p path on the server.
    QUrl Url(const QString& path, const Data::VenueDatabase::QueryPairs& query = {}) const;
};

} // namespace korvel::Tools
