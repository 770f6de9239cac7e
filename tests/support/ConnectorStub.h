#pragma once

#include <data/Connector_Interface.h>

#include <QObject>
#include <QStringList>

#include <functional>

namespace korvel::Test {

/// A connector without a server: answers with what the test scripts and notes every call in order.
///
/// It is a QObject, so that its death can be observed, as that of the real connector.
class ConnectorStub : public QObject, public Data::VenueDatabase::Connector_Interface
{
    Q_OBJECT

public:
    using Filters = QList<std::pair<QString, QString>>;

    using QObject::QObject;

    /// Forgets scripts, venues and calls.
    void Reset();

    /// Scripts; one that is not set answers with Ok and \ref venues, or with an empty list.
    std::function<Data::VenueDatabase::ResultStatus(const Filters&, QList<Data::VenueDatabase::Venue>&)>
        onFindVenues;
    std::function<QList<Data::VenueDatabase::Picture>(qint64)> onGetPictures;
    std::function<QList<Data::VenueDatabase::TsFile>(qint64)> onGetFiles;

    /// What a search finds, when its result is Ok, as long as onFindVenues is not set.
    QList<Data::VenueDatabase::Venue> venues;
    Data::VenueDatabase::ResultStatus result = Data::VenueDatabase::Ok;
    /// Run in every call, when it is noted and not yet answered. It may not delete this.
    std::function<void()> duringCall;

    /// The filters of every search so far.
    QList<Filters> searches;
    /// Every call so far: "find", "pictures 7", "files 7".
    QStringList calls;

    Data::VenueDatabase::ResultStatus FindVenueEntries(Filters filters,
                                                       QList<Data::VenueDatabase::Venue>& found) override;
    QList<Data::VenueDatabase::User> FindUserEntries(Filters /*filters*/) override
    {
        return {};
    }
    QList<Data::VenueDatabase::Picture> GetPictureEntries(qint64 venueId) override;
    QList<Data::VenueDatabase::TsFile> GetTSFileEntries(qint64 venueId) override;
    QByteArray GetPictureBinaryData(const QString& /*url*/) override
    {
        return {};
    }

private:
    void Note(const QString& call);
    QList<Data::VenueDatabase::Venue> GetAllVenueEntries() override
    {
        return {};
    }
    QList<Data::VenueDatabase::Venue> GetVenueEntries() override
    {
        return {};
    }
    QList<Data::VenueDatabase::User> GetAllUserEntries() override
    {
        return {};
    }
    QList<Data::VenueDatabase::User> GetUserEntries() override
    {
        return {};
    }
};

} // namespace korvel::Test
