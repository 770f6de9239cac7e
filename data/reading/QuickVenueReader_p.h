#pragma once

#include <data/Venue.h>
#include <data/reading/JsonCursor_p.h>
#include <data/reading/TextPool_p.h>

#include <QByteArrayView>
#include <QHash>
#include <QList>

#include <deque>
#include <optional>
#include <vector>

namespace korvel::Data::VenueDatabase {

class CountryCodeTranslator;

/// Reads the venues of one reply straight from its bytes, in one go and without a tree of the document. For
/// VenueReader, which knows what to do with replies that this one does not read.
class QuickVenueReader
{
public:
    /// A reader of \p body that names countries by \p countries. Both must outlive it.
    QuickVenueReader(QByteArrayView body, const CountryCodeTranslator& countries);

    /// The venues in the reverse order of the reply's; nothing where QJsonDocument must judge the reply. To
    /// be called once.
    std::optional<QList<Venue>> Read();

private:
    class Value;

    void ReadVenue();
    QByteArrayView ReadEditorId();
    void ReadUser();
    JsonScalar ReadId();

    JsonCursor m_cursor;
    const CountryCodeTranslator& m_countries;
    TextPool<QByteArrayView> m_texts;
    TextPool<QByteArrayView> m_countryNames;
    /// In the order of the reply. A deque, because nobody knows beforehand how many there are.
    std::deque<Venue> m_venues;
    /// The resource id of each venue's editor.
    std::vector<QByteArrayView> m_editorIds;
    /// Entity ids of the users by their resource ids.
    QHash<QByteArrayView, qint64> m_users;
};

} // namespace korvel::Data::VenueDatabase
