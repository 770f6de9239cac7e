#include <fuzz/AnsweringCache.h>
#include <fuzz/FuzzTargets.h>

#include <data/ConnectorJsonRest.h>
#include <ui/TsFileOpener.h>

#include <QCoreApplication>
#include <QEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::ConnectorJsonRest;
using Data::VenueDatabase::TsFile;
using Ui::VenueDatabase::TsFileOpener;

namespace {

constexpr qint64 c_venueId = 7;

/// A connector whose requests are answered at once and without the network.
class OfflineConnector : public ConnectorJsonRest
{
public:
    OfflineConnector()
    {
        auto* manager = findChild<QNetworkAccessManager*>();
        manager->setCache(m_cache = new AnsweringCache(manager));
    }
    AnsweringCache& Cache()
    {
        return *m_cache;
    }

private:
    AnsweringCache* m_cache = nullptr;
};

} // namespace

void FuzzModelFileReply(const QByteArray& input)
{
    // One for the process: its translator is never deleted.
    auto& connector = Kept<OfflineConnector>();
    connector.Cache().SetDocument(input);
    const QJsonArray included = QJsonDocument::fromJson(input).object().value("included"_L1).toArray();
    qsizetype expected = 0;
    for (const QJsonValue resource : included)
        expected += resource.toObject().value("type"_L1) == "file"_L1 ? 1 : 0;

    QList<TsFile> files = connector.GetTSFileEntries(c_venueId);
    Require(files.size() == expected, "one model file per file");
    for (const TsFile& file : std::as_const(files)) {
        Require(file.GetId() == c_venueId || file.GetId() == -1, "a model file has the venue's id or none");
        const QByteArray data = file.GetFileData();
        Require(data.isEmpty() || data == AnsweringCache::FileBytes() || data == input,
                "the bytes are those that the server sent");
        for (qint64 column = -1; column <= file.Size(); ++column)
            (void)file.GetDataAt(column);
    }
    TsFileOpener opener;
    opener.UpdateUi(&files);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Require(connector.findChildren<QNetworkReply*>().isEmpty(), "no reply is left");
}

} // namespace korvel::Fuzz
