#pragma once

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QSize>
#include <QString>
#include <QStringList>

namespace korvel::Test {

struct NamedBytes
{
    QByteArray name;
    QByteArray bytes;
};

/// Bodies that are no JSON object, many of them made of the JSON object \p good.
QList<NamedBytes> BrokenDocuments(const QByteArray& good);

struct NamedText
{
    QByteArray name;
    QString text;
    QByteArray json; ///< the same as it stands between quotation marks in a document
};

/// Texts that must be shown as they are.
QList<NamedText> HostileTexts();

/// Texts of a megabyte, each of which takes Qt long in another way to lay out; without json.
QList<NamedText> HugeTexts();

struct UndecodablePicture
{
    QByteArray name;
    QByteArray bytes;
    QStringList warnings; ///< what Qt's decoders have to say about them, each time they are decoded
    bool isTooLarge = false; ///< it is a picture, but none that Qt may decode
};

/// Bytes that are called a picture and are none that can be shown.
QList<UndecodablePicture> UndecodablePictures();

/// A picture of noise as PNG: nothing of it can be left out without notice.
QByteArray NoisePicture(const QSize& size);
/// A black PNG of any size, which takes next to no bytes.
QByteArray BlankPng(const QSize& size);

struct HostileUrl
{
    QByteArray name;
    QString url;
    bool isFetched = false; ///< the bytes come, from /pictures/odd.png
};

/// Addresses of pictures; \p host is one that can be reached, \p file the path of a local picture that must
/// not be read.
QList<HostileUrl> HostileUrls(const QString& host, const QString& file);

} // namespace korvel::Test

Q_DECLARE_METATYPE(korvel::Test::HostileUrl)
Q_DECLARE_METATYPE(korvel::Test::UndecodablePicture)
