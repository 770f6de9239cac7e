#include <fuzz/FuzzTargets.h>

#include <data/ConnectorJsonRest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::Picture;

namespace {

constexpr qint64 c_venueId = 7;

/// Answers every picture download with the URL that was asked for.
class EchoConnector : public ConnectorJsonRest
{
public:
    QByteArray GetPictureBinaryData(const QString& url) override
    {
        ++m_downloads;
        return url.toUtf8();
    }
    qsizetype TakeDownloads()
    {
        return std::exchange(m_downloads, 0);
    }

private:
    qsizetype m_downloads = 0;
};

} // namespace

void FuzzPictureReply(const QByteArray& input)
{
    // One for the process: its translator is never deleted.
    auto& connector = Kept<EchoConnector>();
    const QJsonArray included = QJsonDocument::fromJson(input).object().value("included"_L1).toArray();
    qsizetype files = 0;
    for (const QJsonValue resource : included)
        files += resource.toObject().value("type"_L1) == "file"_L1 ? 1 : 0;

    const QList<Picture> pictures = connector.ProcessPictureEntriesReply(included, c_venueId);
    Require(pictures.size() == files, "one picture per file");
    Require(connector.TakeDownloads() == files, "one download per file");
    for (const Picture& picture : pictures) {
        Require(picture.GetId() == c_venueId || picture.GetId() == -1,
                "a picture has the venue's id or none");
        Require(picture.GetPictureDataMedium().isEmpty() && picture.GetPictureDataLarge().isEmpty(),
                "the bytes are kept as the small ones");
        Require(!picture.GetPictureDataSmall().contains('\\'), "backslashes are removed before a download");
        Require(picture.GetPictureUrlSmall().isEmpty()
                    || picture.GetPictureDataSmall() == picture.GetPictureUrlSmall().remove(u'\\').toUtf8(),
                "the smallest rendition is downloaded");
    }
}

} // namespace korvel::Fuzz
