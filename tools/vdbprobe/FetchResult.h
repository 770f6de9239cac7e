#pragma once

#include <QByteArray>
#include <QNetworkReply>
#include <QString>
#include <QUrl>

namespace korvel::Tools {

/// What came back for one request.
struct FetchResult
{
    QUrl asked;
    QUrl url; ///< the last one, after redirects
    QUrl refusedRedirect; ///< where the answer sends the client, which does not go there
    bool wasInTime = false;
    int status = 0; ///< HTTP status, 0 when there is none
    QNetworkReply::NetworkError error = QNetworkReply::UnknownNetworkError;
    QString errorText; ///< safe to print
    QString contentType;
    QString retryAfter;
    QByteArray body;
    qint64 receivedBytes = 0; ///< of the body, also where it is not whole

    bool WasRedirected() const
    {
        return url != asked;
    }
    /// Whether an answer with a body came whole.
    bool HasSucceeded() const;
    /// What is wrong with a result that has not succeeded, and what the user may do.
    QString Reason(int timeout) const;
    QString Hint() const;

private:
    QString StatusHint() const;
    QString ConnectionHint() const;
};

} // namespace korvel::Tools
