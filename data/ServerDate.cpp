#include <data/ServerDate_p.h>

#include <QCalendar>
#include <QStringView>
#include <QTime>

namespace korvel::Data::VenueDatabase {

namespace {

// Qt's parser takes several microseconds for a text; with a large reply that was most of the reading time. So
// texts that are well-formed and valid are read here; Qt's parser decides about all others.

constexpr QStringView c_dateShape = u"0000-00-00";
constexpr QStringView c_dateTimeShape = u"0000-00-00T00:00:00+00:00";
/// Where the digits of a date-time end and its literal "+00:00" begins.
constexpr qsizetype c_dateTimeDigits = 19;

bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/// True when \p text has a digit wherever \p shape has one, up to \p digits, and the same character
/// elsewhere.
bool HasShape(QStringView text, QStringView shape, qsizetype digits)
{
    if (text.size() != shape.size())
        return false;
    for (qsizetype index = 0; index < shape.size(); ++index) {
        const bool isDigitPlace = index < digits && IsDigit(shape.at(index));
        if (isDigitPlace ? !IsDigit(text.at(index)) : text.at(index) != shape.at(index))
            return false;
    }
    return true;
}

int Number(QStringView digits)
{
    int number = 0;
    for (const QChar digit : digits)
        number = number * 10 + (digit.unicode() - u'0');
    return number;
}

QDate DateOf(QStringView text)
{
    return {Number(text.mid(0, 4)), Number(text.mid(5, 2)), Number(text.mid(8, 2))};
}

} // namespace

QDate ReadServerDate(const QString& text)
{
    if (HasShape(text, c_dateShape, c_dateShape.size())) {
        const QDate date = DateOf(text);
        if (date.isValid())
            return date;
    }
    return QDate::fromString(text, QStringLiteral("yyyy-MM-dd"), QCalendar());
}

QDateTime ReadServerDateTime(const QString& text)
{
    if (HasShape(text, c_dateTimeShape, c_dateTimeDigits)) {
        const QStringView view(text);
        const QTime time(Number(view.mid(11, 2)), Number(view.mid(14, 2)), Number(view.mid(17, 2)));
        // A date-time without a valid time would be one at midnight.
        const QDateTime dateTime = time.isValid() ? QDateTime(DateOf(view), time) : QDateTime();
        // A time in the hour that the local time zone skips is not valid.
        if (dateTime.isValid())
            return dateTime;
    }
    return QDateTime::fromString(text, QStringLiteral("yyyy-MM-ddThh:mm:ss+00:00"), QCalendar());
}

} // namespace korvel::Data::VenueDatabase
