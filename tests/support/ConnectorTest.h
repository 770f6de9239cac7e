#pragma once

#include <tests/support/ServerTest.h>

#include <data/ConnectorJsonRest.h>

#include <QNetworkReply>

namespace korvel::Test {

/// The base of the programs that ask with the real connector: each test has one of its own.
class ConnectorTest : public ServerTest
{
    Q_OBJECT

protected:
    std::unique_ptr<Data::VenueDatabase::ConnectorJsonRest> m_connector;

    /// The replies that the connector has not let go yet.
    qsizetype ReplyCount() const;

protected Q_SLOTS:
    void init();
    void cleanup();
};

} // namespace korvel::Test
