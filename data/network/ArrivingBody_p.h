#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>

class QNetworkReply;

namespace korvel::Data::VenueDatabase {

/// The body of one reply, taken out of the reply piece by piece while it arrives. So a large body is in
/// memory once, and when its last byte has come nothing is left to copy.
class ArrivingBody : public QObject
{
    Q_OBJECT

public:
    /// Takes what \p reply receives; null, and a reply that dies, give no body.
    explicit ArrivingBody(QNetworkReply* reply);

    /// The body so far, with the rest that the reply still has. To be called once, when the reply has
    /// finished.
    QByteArray Take();

private Q_SLOTS:
    void OnReadyRead();

private:
    QPointer<QNetworkReply> m_reply;
    QByteArray m_body;
};

} // namespace korvel::Data::VenueDatabase
