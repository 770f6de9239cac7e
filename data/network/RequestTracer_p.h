#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <initializer_list>

class QNetworkReply;
class QUrl;

namespace korvel::Data::VenueDatabase {

/// Tells VdbTrace() of one request: a line when it was sent, a line when it ended or was dropped before.
///
/// Lives as a child of the reply, which it only listens to: neither the request nor its reply, its body or
/// its owner changes.
class RequestTracer : public QObject
{
    Q_OBJECT

public:
    /// Follows \p reply, to be called right after it was asked for; \p what and \p url say what that was.
    /// Does nothing while VdbTrace() is off. User info and the values of the query stay out of the lines, but
    /// for the query items named in \p openItems.
    static void Follow(QLatin1String what, const QUrl& url, QNetworkReply* reply,
                       std::initializer_list<QLatin1String> openItems = {});

    /// One more line about \p reply, if it is followed: it came, but \p why it is of no use.
    static void NoteUnusable(const QNetworkReply& reply, const QString& why);

    /// Tells that \p size bytes were taken out of the body of \p reply, if it is followed.
    static void NoteTaken(const QNetworkReply& reply, qint64 size);

    ~RequestTracer() override;

private Q_SLOTS:
    void OnFinished();

private:
    RequestTracer(const QString& title, const QString& address, QNetworkReply* reply);

    QNetworkReply* m_reply = nullptr;
    QString m_title; ///< number and kind, the same in both lines
    QString m_address;
    QElapsedTimer m_elapsed;
    qint64 m_takenSize = 0;
    bool m_hasEnded = false;
};

} // namespace korvel::Data::VenueDatabase
