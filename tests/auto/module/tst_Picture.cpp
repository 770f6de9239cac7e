#include <data/Picture.h>

#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using korvel::Data::VenueDatabase::Picture;

namespace {

using TextGetter = QString (Picture::*)() const;
using TextSetter = void (Picture::*)(const QString&);
using BytesGetter = QByteArray (Picture::*)() const;
using BytesSetter = void (Picture::*)(const QByteArray&);

Picture FilledPicture()
{
    Picture picture;
    picture.SetId(7);
    picture.SetPictureName(u"name"_s);
    picture.SetPictureUrl(u"url"_s);
    picture.SetPictureUrlSmall(u"small url"_s);
    picture.SetPictureUrlMedium(u"medium url"_s);
    picture.SetPictureUrlLarge(u"large url"_s);
    picture.SetPictureDataSmall("small");
    picture.SetPictureDataMedium("medium");
    picture.SetPictureDataLarge("large");
    picture.SetAlternativeDescription(u"alt"_s);
    picture.SetUploadDate(u"2024-03-01"_s);
    return picture;
}

} // namespace

Q_DECLARE_METATYPE(TextGetter)
Q_DECLARE_METATYPE(TextSetter)
Q_DECLARE_METATYPE(BytesGetter)
Q_DECLARE_METATYPE(BytesSetter)

class tst_Picture : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void DefaultPictureHasNoIdAndFiveColumns()
    {
        const Picture picture;
        QCOMPARE(picture.GetId(), -1);
        QCOMPARE(picture.Size(), 5);
        QCOMPARE(picture.GetLargestPictureData(), QByteArray());
        QCOMPARE(picture.GetSmallestPictureData(), QByteArray());
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
        Picture picture;
        QCOMPARE((picture.*getter)(), QString());
        (picture.*setter)(u"<i>\u0416</i>"_s);
        QCOMPARE((picture.*getter)(), u"<i>\u0416</i>"_s);
        for (const TextField& other : c_textFields)
            if (other.getter != getter)
                QCOMPARE((picture.*other.getter)(), QString());
    }

    void BytesAreKeptAndTouchNoOther_data()
    {
        const Rows<BytesGetter, BytesSetter> row("getter", "setter");
        for (const BytesField& field : c_bytesFields)
            row(field.name, field.getter, field.setter);
    }
    void BytesAreKeptAndTouchNoOther()
    {
        const auto [getter, setter] = Fetch<BytesGetter, BytesSetter>();
        const QByteArray bytes("\xff\0\xd8", 3);
        Picture picture;
        QCOMPARE((picture.*getter)(), QByteArray());
        (picture.*setter)(bytes);
        QCOMPARE((picture.*getter)(), bytes);
        for (const BytesField& other : c_bytesFields)
            if (other.getter != getter)
                QCOMPARE((picture.*other.getter)(), QByteArray());
    }

    void BestDataAtHand_data()
    {
        const Rows<QByteArray, QByteArray, QByteArray, QByteArray, QByteArray> row("small", "medium", "large",
                                                                                   "largest", "smallest");
        const QByteArray none;
        const QByteArray s("s");
        const QByteArray m("m");
        const QByteArray l("l");
        row("none", none, none, none, none, none);
        row("small", s, none, none, s, s);
        row("medium", none, m, none, m, m);
        row("large", none, none, l, l, l);
        row("small and medium", s, m, none, m, s);
        row("small and large", s, none, l, l, s);
        row("medium and large", none, m, l, l, m);
        row("all", s, m, l, l, s);
    }
    void BestDataAtHand()
    {
        const auto [small, medium, large] = Fetch<QByteArray, QByteArray, QByteArray>();
        Picture picture;
        picture.SetPictureDataSmall(small);
        picture.SetPictureDataMedium(medium);
        picture.SetPictureDataLarge(large);
        QTEST(picture.GetLargestPictureData(), "largest");
        QTEST(picture.GetSmallestPictureData(), "smallest");
    }

    void ColumnHoldsItsValue_data()
    {
        const Rows<qint64, QVariant, QString> row("index", "value", "label");
        row("0: id", 0, qint64(7), u"ID"_s);
        row("1: name", 1, u"name"_s, u"PictureName"_s);
        row("2: small data, although there is larger", 2, QByteArray("small"), u"PictureData"_s);
        row("3: alternative description", 3, u"alt"_s, u"AlternativeDescription"_s);
        row("4: upload date as text", 4, u"2024-03-01"_s, u"UploadDate"_s);
        row("5: none", 5, {}, {});
        row("-1: none", -1, {}, {});
        row("no 32 bit number: none", (1LL << 32), {}, {});
    }
    void ColumnHoldsItsValue()
    {
        const auto [index, value] = Fetch<qint64, QVariant>();
        const QVariant found = FilledPicture().GetDataAt(index);
        QCOMPARE(found.metaType(), value.metaType());
        QCOMPARE(found, value);
        QTEST(Picture::GetLabelAt(index), "label");
    }

    void CopyKeepsEverythingAndIsIndependent()
    {
        Picture source = FilledPicture();
        const Picture copy(source);
        Picture assigned;
        assigned = source;
        source.SetId(8);
        for (const TextField& field : c_textFields)
            (source.*field.setter)(u"changed"_s);
        for (const BytesField& field : c_bytesFields)
            (source.*field.setter)("changed");

        const Picture expected = FilledPicture();
        for (const Picture& picture : {copy, assigned}) {
            QCOMPARE(picture.GetId(), 7);
            QCOMPARE(picture.Size(), 5);
            for (const TextField& field : c_textFields)
                QCOMPARE((picture.*field.getter)(), (expected.*field.getter)());
            for (const BytesField& field : c_bytesFields)
                QCOMPARE((picture.*field.getter)(), (expected.*field.getter)());
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
        {"name", &Picture::GetPictureName, &Picture::SetPictureName},
        {"url", &Picture::GetPictureUrl, &Picture::SetPictureUrl},
        {"small url", &Picture::GetPictureUrlSmall, &Picture::SetPictureUrlSmall},
        {"medium url", &Picture::GetPictureUrlMedium, &Picture::SetPictureUrlMedium},
        {"large url", &Picture::GetPictureUrlLarge, &Picture::SetPictureUrlLarge},
        {"alternative description", &Picture::GetAlternativeDescription, &Picture::SetAlternativeDescription},
        {"upload date", &Picture::GetUploadDate, &Picture::SetUploadDate},
    };
    struct BytesField
    {
        const char* name;
        BytesGetter getter;
        BytesSetter setter;
    };
    static constexpr BytesField c_bytesFields[] = {
        {"small data", &Picture::GetPictureDataSmall, &Picture::SetPictureDataSmall},
        {"medium data", &Picture::GetPictureDataMedium, &Picture::SetPictureDataMedium},
        {"large data", &Picture::GetPictureDataLarge, &Picture::SetPictureDataLarge},
    };
};

QTEST_GUILESS_MAIN(tst_Picture)
#include "tst_Picture.moc"
