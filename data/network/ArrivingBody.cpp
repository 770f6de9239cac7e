#include <data/network/ArrivingBody_p.h>

#include <data/network/RequestTracer_p.h>

#include <QNetworkReply>

#include <utility>

namespace korvel::Data::VenueDatabase {

ArrivingBody::ArrivingBody(QNetworkReply* reply)
    : m_reply(reply)
{
    if (reply)
        connect(reply, &QNetworkReply::readyRead, this, &ArrivingBody::OnReadyRead);
}

QByteArray ArrivingBody::Take()
{
    OnReadyRead();
    return std::exchange(m_body, {});
}

void ArrivingBody::OnReadyRead()
{
    if (!m_reply)
        return;
    const QByteArray piece = m_reply->readAll();
    RequestTracer::NoteTaken(*m_reply, piece.size());
    m_body.append(piece);
}

} // namespace korvel::Data::VenueDatabase

#include "moc_ArrivingBody_p.cpp"
