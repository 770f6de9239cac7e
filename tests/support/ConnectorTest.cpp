#include <tests/support/ConnectorTest.h>

namespace korvel::Test {

qsizetype ConnectorTest::ReplyCount() const
{
    DeleteWhatIsDue();
    return m_connector->findChildren<QNetworkReply*>().size();
}

void ConnectorTest::init()
{
    ServerTest::init();
    m_connector = std::make_unique<Data::VenueDatabase::ConnectorJsonRest>(nullptr);
}

void ConnectorTest::cleanup()
{
    m_connector.reset();
    ServerTest::cleanup();
}

} // namespace korvel::Test
