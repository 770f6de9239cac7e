#pragma once

#include <QAbstractNetworkCache>
#include <QByteArray>
#include <QString>

namespace korvel::Fuzz {

/// A network cache that holds a fresh answer to every request, so that a network access manager never needs
/// the network: the paths that start with "/api/" as a JSON:API document, everything else as the bytes of a
/// file.
class AnsweringCache : public QAbstractNetworkCache
{
public:
    explicit AnsweringCache(QObject* parent)
        : QAbstractNetworkCache(parent)
    {
    }

    void SetDocument(const QByteArray& document)
    {
        m_document = document;
    }
    /// What every file holds.
    static QByteArray FileBytes()
    {
        return QByteArrayLiteral("model");
    }

    QNetworkCacheMetaData metaData(const QUrl& url) override;
    QIODevice* data(const QUrl& url) override;
    void updateMetaData(const QNetworkCacheMetaData& /*metaData*/) override { }
    bool remove(const QUrl& /*url*/) override
    {
        return false;
    }
    qint64 cacheSize() const override
    {
        return 0;
    }
    QIODevice* prepare(const QNetworkCacheMetaData& /*metaData*/) override
    {
        return nullptr;
    }
    void insert(QIODevice* /*device*/) override { }
    void clear() override { }

private:
    QByteArray m_document;
};

} // namespace korvel::Fuzz
