#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using korvel::Data::VenueDatabase::Venue;

namespace {

using TextGetter = QString (Venue::*)() const;
using TextSetter = void (Venue::*)(const QString&);

/// Marks every text of the context "QObject", so that a test sees which texts were translated.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int number) const override
    {
        if (qstrcmp(context, "QObject") != 0 || (disambiguation && *disambiguation) || number != -1)
            return {};
        return u"<"_s + QString::fromLatin1(source) + u">"_s;
    }
    bool isEmpty() const override
    {
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(TextGetter)
Q_DECLARE_METATYPE(TextSetter)

class tst_Venue : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void DefaultVenueIsEmpty()
    {
        const Venue venue;
        QCOMPARE(venue.GetId(), -1);
        QCOMPARE(venue.GetEditor(), -1);
        QVERIFY(venue.GetUploadDate().isNull());
        QVERIFY(venue.GetEditDate().isNull());
        QCOMPARE(venue.GetUploadDateAsString(), QString());
        QCOMPARE(venue.GetEditDateAsString(), QString());
        QVERIFY(venue.GetAddress().isEmpty());
    }

    void TextIsKeptAndTouchesNoOther_data()
    {
        const Rows<TextGetter, TextSetter> row("getter", "setter");
        for (const TextField& field : c_textFields)
            row(field.name, field.getter, field.setter);
    }
    void TextIsKeptAndTouchesNoOther()
    {
        const auto [getter, setter] = Fetch<TextGetter, TextSetter>();
        const QString text = u"<b>Gro\u00dfer Saal</b>\n\u0416 "_s;
        Venue venue;
        QCOMPARE((venue.*getter)(), QString());
        (venue.*setter)(text);
        QCOMPARE((venue.*getter)(), text);
        for (const TextField& other : c_textFields)
            if (other.getter != getter)
                QCOMPARE((venue.*other.getter)(), QString());
        QCOMPARE(venue.GetId(), -1);
        QCOMPARE(venue.GetEditor(), -1);
    }

    void DatesAndIdsOfSixtyFourBitsAreKept()
    {
        Venue venue = FilledVenue(std::numeric_limits<qint64>::max());
        venue.SetEditor(std::numeric_limits<qint64>::min());
        QCOMPARE(venue.GetId(), std::numeric_limits<qint64>::max());
        QCOMPARE(venue.GetEditor(), std::numeric_limits<qint64>::min());
        QCOMPARE(venue.GetUploadDate(), QDate(2023, 2, 1));
        QCOMPARE(venue.GetEditDate().date(), QDate(2024, 3, 1));
        QCOMPARE(venue.GetEditDate().time(), QTime(10, 20, 30));
    }

    void DateTextsHaveTheSystemsShortFormat()
    {
        const Venue venue = FilledVenue();
        QCOMPARE(venue.GetUploadDateAsString(),
                 QLocale::system().toString(QDate(2023, 2, 1), QLocale::ShortFormat));
        QCOMPARE(venue.GetEditDateAsString(),
                 QLocale::system().toString(QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30)),
                                            QLocale::ShortFormat));
        // Guards the comparison above against two empty texts.
        QVERIFY(venue.GetUploadDateAsString().contains(u"2023"_s));
        QVERIFY(venue.GetEditDateAsString().contains(u"10:20"_s));
    }

    void AddressPartsLiveInTheAddress()
    {
        const QGeoAddress address = FilledVenue().GetAddress();
        QCOMPARE(address.street(), u"Main St 5"_s);
        QCOMPARE(address.postalCode(), u"10115"_s);
        QCOMPARE(address.city(), u"Berlin"_s);
        QCOMPARE(address.countryCode(), u"DE"_s);
        QCOMPARE(address.country(), u"Germany"_s);
        QCOMPARE(FilledVenue().GetAddressText(), u"Main St 5<br/>10115 Berlin<br/>Germany"_s);
    }

    void SetAddressReplacesTheWholeAddress()
    {
        QGeoAddress address;
        address.setCity(u"Paris"_s);
        Venue venue = FilledVenue();
        venue.SetAddress(address);
        QCOMPARE(venue.GetAddress(), address);
        QCOMPARE(venue.GetCity(), u"Paris"_s);
        QCOMPARE(venue.GetCountry(), QString());
    }

    void CountryCodeDoesNotSetTheCountry()
    {
        Venue venue;
        venue.SetCountryCode(u"DE"_s);
        QCOMPARE(venue.GetCountry(), QString());
        venue.SetCountry(u"Germany"_s);
        QCOMPARE(venue.GetCountry(), u"Germany"_s);
        QCOMPARE(venue.GetAddress().countryCode(), u"DE"_s);
    }

    void ColumnHoldsItsValue_data()
    {
        const Rows<bool, qint64, QVariant> row("minimized", "index", "value");
        const QVariant editDate = QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30));

        row("minimised 0: id", true, 0, qint64(4711));
        row("minimised 1: complex name", true, 1, u"complex"_s);
        row("minimised 2: room name", true, 2, u"room"_s);
        row("minimised 3: city", true, 3, u"Berlin"_s);
        row("minimised 4: country name", true, 4, u"Germany"_s);
        row("minimised 5: edit date", true, 5, editDate);
        row("minimised 6: none", true, 6, {});
        row("minimised 9: none", true, 9, {});
        row("minimised -1: none", true, -1, {});
        row("minimised, no 32 bit number: none", true, (1LL << 32), {});

        row("full 0: id", false, 0, qint64(4711));
        row("full 1: complex name", false, 1, u"complex"_s);
        row("full 2: room name", false, 2, u"room"_s);
        row("full 3: general comment", false, 3, u"general"_s);
        row("full 4: address text", false, 4, u"Main St 5<br/>10115 Berlin<br/>Germany"_s);
        row("full 5: location comment", false, 5, u"location"_s);
        row("full 6: dock street address", false, 6, u"dock street"_s);
        row("full 7: dock comment", false, 7, u"dock comment"_s);
        row("full 8: upload date", false, 8, QDate(2023, 2, 1));
        row("full 9: edit date", false, 9, editDate);
        row("full 10: none", false, 10, {});
        row("full 11: none", false, 11, {});
        row("full -1: none", false, -1, {});
        row("full, no 32 bit number: none", false, (1LL << 32), {});
    }
    void ColumnHoldsItsValue()
    {
        const auto [minimized, index, value] = Fetch<bool, qint64, QVariant>();
        Venue venue = FilledVenue();
        venue.SetMinimizedElementCount(minimized);
        const QVariant found = venue.GetDataAt(index);
        QCOMPARE(found.metaType(), value.metaType());
        QCOMPARE(found, value);
    }

    void FullColumnSetIsTheDefaultAndComesBack()
    {
        Venue venue = FilledVenue();
        QCOMPARE(venue.GetDataAt(5), QVariant(u"location"_s));
        venue.SetMinimizedElementCount(true);
        QCOMPARE(venue.GetDataAt(5).metaType(), QMetaType::fromType<QDateTime>());
        venue.SetMinimizedElementCount(false);
        QCOMPARE(venue.GetDataAt(5), QVariant(u"location"_s));
    }

    void NullDatesAreHandedOutAsDates()
    {
        Venue venue;
        QCOMPARE(venue.GetDataAt(8).metaType(), QMetaType::fromType<QDate>());
        QCOMPARE(venue.GetDataAt(9).metaType(), QMetaType::fromType<QDateTime>());
    }

    void LabelOfColumn_data()
    {
        const Rows<bool, qint64, QString> row("minimized", "index", "label");
        const QStringList minimizedLabels
            = u"ID|Complex name|Venue/room name|City|Country|Editing date (UTC)"_s.split(u'|');
        const QStringList fullLabels
            = u"ID|Complex name|Venue/room name|General comment|Address|Location comment|Address|Comment|"
              "Clearance of house grid (m)|Comment|Upload date|Editor|Editing date (UTC)"_s.split(u'|');
        for (qsizetype index = -1; index <= 14; ++index) {
            row("minimised " + QByteArray::number(index), true, index, minimizedLabels.value(index));
            row("full " + QByteArray::number(index), false, index, fullLabels.value(index));
        }
        row("minimised, no 32 bit number", true, (1LL << 32), {});
        row("full, no 32 bit number", false, (1LL << 32), {});
    }
    void LabelOfColumn()
    {
        const auto [minimized, index] = Fetch<bool, qint64>();
        QTEST(Venue::GetLabelAt(index, minimized), "label");
    }

    void EveryLabelIsTranslatedInTheContextQObject()
    {
        MarkingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        for (const bool minimized : {true, false}) {
            for (qint64 index = 0; index < (minimized ? 6 : 13); ++index) {
                const QString label = Venue::GetLabelAt(index, minimized);
                QVERIFY2(label.startsWith(u'<') && label.endsWith(u'>'), qPrintable(label));
            }
            QCOMPARE(Venue::GetLabelAt(13, minimized), QString());
        }
    }

    void SizesAreTheConstants()
    {
        QCOMPARE(Venue::Size(true), 6);
        QCOMPARE(Venue::Size(false), 11);
        // By reference, as std::minmax() takes them: the constants need a definition, not only a value.
        QCOMPARE(std::min(Venue::c_elementCount, Venue::c_elementCountMinimized), 6);
        QCOMPARE(std::max(Venue::c_elementCount, Venue::c_elementCountMinimized), 11);
    }

    void CopyKeepsEverythingAndIsIndependent_data()
    {
        const Rows<bool> row("minimized");
        row("minimised", true);
        row("full", false);
    }
    void CopyKeepsEverythingAndIsIndependent()
    {
        QFETCH(bool, minimized);
        Venue source = FilledVenue();
        source.SetMinimizedElementCount(minimized);
        Venue copy(source);
        Venue assigned;
        assigned.SetMinimizedElementCount(!minimized);
        assigned = source;

        source.SetId(1);
        source.SetComplexName(u"changed"_s);
        source.SetCity(u"changed"_s);
        source.SetMinimizedElementCount(!minimized);

        for (Venue* const venue : {&copy, &assigned}) {
            QCOMPARE(venue->GetDataAt(3), QVariant(minimized ? u"Berlin"_s : u"general"_s));
            // The full set of both shows every field but the ones compared by name.
            venue->SetMinimizedElementCount(false);
            for (qint64 index = 0; index < 10; ++index)
                QCOMPARE(venue->GetDataAt(index), FilledVenue().GetDataAt(index));
            QCOMPARE(venue->GetEditor(), 42);
            QCOMPARE(venue->GetClearingOfHouseGrid(), u"12.5"_s);
            QCOMPARE(venue->GetRiggingComment(), u"rigging"_s);
            QCOMPARE(venue->GetAddress(), FilledVenue().GetAddress());
        }
    }

private:
    struct TextField
    {
        const char* name;
        TextGetter getter;
        TextSetter setter;
    };
    static constexpr TextField c_textFields[] = {
        {"complex name", &Venue::GetComplexName, &Venue::SetComplexName},
        {"room name", &Venue::GetVenueRoomName, &Venue::SetVenueRoomName},
        {"general comment", &Venue::GetGeneralComment, &Venue::SetGeneralComment},
        {"city", &Venue::GetCity, &Venue::SetCity},
        {"country", &Venue::GetCountry, &Venue::SetCountry},
        {"location comment", &Venue::GetLocationComment, &Venue::SetLocationComment},
        {"dock street address", &Venue::GetLoadDockStreetAddress, &Venue::SetLoadDockStreetAddress},
        {"dock comment", &Venue::GetLoadDockComment, &Venue::SetLoadDockComment},
        {"clearance", &Venue::GetClearingOfHouseGrid, &Venue::SetClearingOfHouseGrid},
        {"rigging comment", &Venue::GetRiggingComment, &Venue::SetRiggingComment},
    };
};

QTEST_GUILESS_MAIN(tst_Venue)
#include "tst_Venue.moc"
