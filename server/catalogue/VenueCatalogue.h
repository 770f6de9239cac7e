#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <span>

namespace korvel::Demo {

/// A user account of the venue database. In all records a null text is a member that the data leave out.
struct UserRecord
{
    QString id; ///< resource id, for example "user-3"
    qint64 entityId = 0;
    QString name;
};

/// One picture of a venue; its file is made when it is asked for.
struct PictureRecord
{
    QString id; ///< resource id, unique in the catalogue and usable as a file name
    QString view; ///< one of VenueCatalogue::Views()
    QString name;
    QString alt;
    QString created;
};

/// One model file of a venue.
struct ModelFileRecord
{
    QString id;
    QString name; ///< as shown to users
    QString file; ///< unique in the catalogue; last part of its server path
    QString created;
    QString fileVersion;
    QByteArray content; ///< null: the file is announced, but asking for it finds nothing
};

/// One venue as the server tells it.
struct VenueRecord
{
    qint64 entityId = 0;
    QString house; ///< one of VenueCatalogue::Houses(): what the pictures show; never told to clients
    QString title;
    QString venueRoomName;
    QString generalComment;
    QString addressLine1;
    QString postalCode;
    QString locality;
    QString countryCode;
    QString comment;
    QString loadingDockStreetAddress;
    QString loadInComments;
    QString clearance;
    QString riggingSpecialties;
    QString created;
    QString changed;
    QString editor; ///< resource id of a user
    QList<PictureRecord> pictures;
    QList<ModelFileRecord> modelFiles;
};

/// One text of a venue by the path under which filters and documents know it.
struct VenueText
{
    const char* path; ///< for example "title" or "address.locality"
    QString VenueRecord::* member;
};

/// All venues and users that a server knows. A value; once handed to a server it is only read.
class VenueCatalogue
{
public:
    /// The texts of a venue in the order of the documents; those of the address follow each other.
    static std::span<const VenueText> Texts();
    /// The names of the seven picture relationships of a venue.
    static const QStringList& Views();
    /// The kinds of house of which there are pictures.
    static const QStringList& Houses();

    /// Reads every venues-*.json of \p folder in the order of their names, users.json and the model files in
    /// models/. On failure the catalogue is empty and \p error says which file is wrong and why.
    static VenueCatalogue Load(const QString& folder, QString* error = nullptr);
    /// Reads the "venues" and "users" of one JSON text, without model contents.
    static VenueCatalogue FromJson(const QByteArray& json, QString* error = nullptr);

    void AddVenue(const VenueRecord& venue);
    void AddUser(const UserRecord& user);

    const QList<VenueRecord>& Venues() const
    {
        return m_venues;
    }
    const QList<UserRecord>& Users() const
    {
        return m_users;
    }

    /// Null when there is none. The pointer is valid until the catalogue is changed.
    const UserRecord* FindUser(const QString& id) const;
    /// The picture with the resource id \p id; \p venue receives its venue. Null when there is none.
    const PictureRecord* FindPicture(const QString& id, const VenueRecord** venue) const;
    /// The model file named \p file, null when there is none.
    const ModelFileRecord* FindModelFile(const QString& file) const;

private:
    struct Position
    {
        qsizetype venue = 0;
        qsizetype item = 0;
    };

    QList<VenueRecord> m_venues;
    QList<UserRecord> m_users;
    QHash<QString, qsizetype> m_userById;
    QHash<QString, Position> m_pictureById;
    QHash<QString, Position> m_modelByFile;
};

} // namespace korvel::Demo
