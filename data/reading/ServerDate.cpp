#include <data/reading/ServerDate_p.h>

#include <QByteArrayView>
#include <QCalendar>
#include <QStringView>
#include <QTime>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

// Qt's parser takes several microseconds for a text; with a large reply that was most of the reading time. So
// texts that are well-formed and valid are read here; Qt's parser decides about all others.

constexpr QByteArrayView c_dateShape = "0000-00-00";
constexpr QByteArrayView c_dateTimeShape = "0000-00-00T00:00:00+00:00";
/// Where the digits of a date-time end and its literal "+00:00" begins.
constexpr qsizetype c_dateTimeDigits = 19;

char16_t Unit(char character)
{
    return static_cast<uchar>(character);
}

char16_t Unit(QChar character)
{
    return character.unicode();
}

/// True when \p text has a digit wherever \p shape has one, up to \p digits, and the same character
/// elsewhere.
template <typename View> bool HasShape(View text, QByteArrayView shape, qsizetype digits)
{
    if (text.size() != shape.size())
        return false;
    for (qsizetype index = 0; index < shape.size(); ++index) {
        const char16_t character = Unit(text[index]);
        const bool isDigitPlace = index < digits && shape[index] == '0';
        if (isDigitPlace ? character < u'0' || character > u'9' : character != Unit(shape[index]))
            return false;
    }
    return true;
}

/// The number in \p count digits from \p from on.
template <typename View> int Number(View text, qsizetype from, qsizetype count)
{
    int number = 0;
    for (qsizetype index = from; index < from + count; ++index)
        number = number * 10 + (Unit(text[index]) - u'0');
    return number;
}

template <typename View> QDate DateOf(View text)
{
    return {Number(text, 0, 4), Number(text, 5, 2), Number(text, 8, 2)};
}

/// The date in \p text where it is plainly well-formed and valid.
template <typename View> QDate PlainDate(View text)
{
    return HasShape(text, c_dateShape, c_dateShape.size()) ? DateOf(text) : QDate();
}

template <typename View> QDateTime PlainDateTime(View text)
{
    if (!HasShape(text, c_dateTimeShape, c_dateTimeDigits))
        return {};
    const QTime time(Number(text, 11, 2), Number(text, 14, 2), Number(text, 17, 2));
    // A date-time without a valid time would be one at midnight. With Qt 6.4 a time in the hour that the
    // local time zone skips is not valid either; later Qt moves it, here and in its parser.
    return time.isValid() ? QDateTime(DateOf(text), time) : QDateTime();
}

} // namespace

QDate ReadServerDate(const QString& text)
{
    const QDate date = PlainDate(QStringView(text));
    return date.isValid() ? date : QDate::fromString(text, u"yyyy-MM-dd"_s, QCalendar());
}

QDate ReadServerDate(QUtf8StringView text)
{
    const QDate date = PlainDate(text);
    return date.isValid() ? date : ReadServerDate(text.toString());
}

QDateTime ReadServerDateTime(const QString& text)
{
    const QDateTime dateTime = PlainDateTime(QStringView(text));
    return dateTime.isValid() ? dateTime
                              : QDateTime::fromString(text, u"yyyy-MM-ddThh:mm:ss+00:00"_s, QCalendar());
}

QDateTime ReadServerDateTime(QUtf8StringView text)
{
    const QDateTime dateTime = PlainDateTime(text);
    return dateTime.isValid() ? dateTime : ReadServerDateTime(text.toString());
}

} // namespace korvel::Data::VenueDatabase
