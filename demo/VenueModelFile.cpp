#include <demo/VenueModelFile.h>

#include <QFile>
#include <QStringDecoder>

#include <cmath>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

constexpr int c_shownLength = 24;

/// A piece of the file for a message: short, and without characters that do not print.
QString Shown(QStringView text)
{
    QString shown;
    for (const QChar character : text.left(c_shownLength))
        shown += character.isPrint() || character.isSurrogate() ? character
                                                                : QChar(QChar::ReplacementCharacter);
    return text.size() > c_shownLength ? shown + QChar(0x2026) : shown;
}

QList<QStringView> Words(QStringView text)
{
    QList<QStringView> words;
    for (const QStringView word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        words.append(word);
    return words;
}

/// Reads one file line by line; the first failure is kept in the member error.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(korvel::Demo::VenueModelFile)

public:
    bool ReadText(const QString& text);

    VenueModel model;
    QString error;

private:
    bool Fail(const QString& reason);
    bool ReadFirstLine(QStringView line);
    bool ReadLine(QStringView line);
    bool ReadName(QStringView value);
    bool ReadUnit(QStringView value);
    bool ReadPolygon(QStringView keyword, QStringView value, QPolygonF* polygon);
    bool ReadSeats(QStringView keyword, QStringView value);
    bool ReadRigging(QStringView value);
    bool ReadPosition(QStringView word, QPointF* position);
    bool ReadNumber(QStringView word, double* number);
    bool IsComplete();

    int m_line = 0;
    int m_points = 0;
    bool m_hasUnit = false;
};

bool Reader::Fail(const QString& reason)
{
    error = m_line > 0 ? tr("Line %1: %2").arg(QString::number(m_line), reason) : reason;
    return false;
}

bool Reader::ReadText(const QString& text)
{
    for (QStringView line : QStringView(text).split(QLatin1Char('\n'))) {
        ++m_line;
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (!(m_line == 1 ? ReadFirstLine(line) : ReadLine(line)))
            return false;
    }
    m_line = 0;
    return IsComplete();
}

bool Reader::ReadFirstLine(QStringView line)
{
    const QList<QStringView> words = Words(line);
    if (words.size() != 2 || words[0] != "tessra-venue"_L1)
        return Fail(tr("this is not a venue model; such a file begins with \"tessra-venue 1\"."));
    if (words[1] != "1"_L1)
        return Fail(
            tr("the file has format version \"%1\", only version 1 can be read.").arg(Shown(words[1])));
    return true;
}

bool Reader::ReadLine(QStringView line)
{
    line = line.trimmed();
    if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
        return true;
    const qsizetype blank = line.indexOf(QLatin1Char(' '));
    const QStringView keyword = blank < 0 ? line : line.left(blank);
    const QStringView value = blank < 0 ? QStringView() : line.mid(blank + 1).trimmed();
    if (keyword == "name"_L1)
        return ReadName(value);
    if (keyword == "unit"_L1)
        return ReadUnit(value);
    if (keyword == "outline"_L1)
        return ReadPolygon(keyword, value, &model.outline);
    if (keyword == "stage"_L1)
        return ReadPolygon(keyword, value, &model.stage);
    if (keyword == "seats"_L1)
        return ReadSeats(keyword, value);
    if (keyword == "rigging"_L1)
        return ReadRigging(value);
    if (keyword.startsWith("x-"_L1))
        return true;
    // A misspelt keyword that was skipped would silently lose a part of the hall.
    return Fail(tr("the word \"%1\" is not known.").arg(Shown(keyword)));
}

bool Reader::ReadName(QStringView value)
{
    if (!model.name.isEmpty())
        return Fail(tr("\"%1\" may stand only once.").arg(u"name"_s));
    if (value.isEmpty())
        return Fail(tr("the name is missing."));
    model.name = value.toString();
    return true;
}

bool Reader::ReadUnit(QStringView value)
{
    if (m_hasUnit)
        return Fail(tr("\"%1\" may stand only once.").arg(u"unit"_s));
    if (value != "m"_L1)
        return Fail(tr("the unit \"%1\" is not known, only \"m\" is.").arg(Shown(value)));
    m_hasUnit = true;
    return true;
}

bool Reader::ReadPolygon(QStringView keyword, QStringView value, QPolygonF* polygon)
{
    if (!polygon->isEmpty())
        return Fail(tr("\"%1\" may stand only once.").arg(keyword));
    // The rest of the line is read word by word: the limit on points stops it long before the words fill
    // memory.
    while (!value.isEmpty()) {
        const qsizetype blank = value.indexOf(QLatin1Char(' '));
        const QStringView word = blank < 0 ? value : value.left(blank);
        value = blank < 0 ? QStringView() : value.mid(blank + 1).trimmed();
        QPointF corner;
        if (!ReadPosition(word, &corner))
            return false;
        polygon->append(corner);
    }
    if (polygon->size() < 3)
        return Fail(tr("\"%1\" needs at least three corners.").arg(keyword));
    return true;
}

bool Reader::ReadSeats(QStringView keyword, QStringView value)
{
    QPolygonF block;
    if (!ReadPolygon(keyword, value, &block))
        return false;
    model.seats.append(block);
    return true;
}

bool Reader::ReadRigging(QStringView value)
{
    const QList<QStringView> words = Words(value);
    RiggingPoint point;
    if (words.isEmpty() || words.size() > 2)
        return Fail(tr("a rigging point is a position and a load, for example \"2.5,-3 500\"."));
    if (!ReadPosition(words[0], &point.position))
        return false;
    if (words.size() == 2) {
        if (!ReadNumber(words[1], &point.load))
            return false;
        if (point.load < 0 || point.load > VenueModelFile::c_maximumLoad)
            return Fail(tr("the load \"%1\" is out of range.").arg(Shown(words[1])));
    }
    model.riggingPoints.append(point);
    return true;
}

bool Reader::ReadPosition(QStringView word, QPointF* position)
{
    if (++m_points > VenueModelFile::c_maximumPoints)
        return Fail(tr("the file has more than %1 points.").arg(VenueModelFile::c_maximumPoints));
    const qsizetype comma = word.indexOf(QLatin1Char(','));
    if (comma < 0)
        return Fail(tr("\"%1\" is not a position like \"2.5,-3\".").arg(Shown(word)));
    double x = 0;
    double y = 0;
    if (!ReadNumber(word.left(comma), &x) || !ReadNumber(word.mid(comma + 1), &y))
        return false;
    if (std::abs(x) > VenueModelFile::c_maximumPosition || std::abs(y) > VenueModelFile::c_maximumPosition)
        return Fail(tr("the position \"%1\" is too far out.").arg(Shown(word)));
    *position = QPointF(x, y);
    return true;
}

bool Reader::ReadNumber(QStringView word, double* number)
{
    bool isNumber = false;
    *number = word.toDouble(&isNumber);
    // Qt reads "nan" and "inf" as numbers, too.
    if (!isNumber || !std::isfinite(*number))
        return Fail(tr("\"%1\" is not a number.").arg(Shown(word)));
    return true;
}

bool Reader::IsComplete()
{
    const auto missing = [this](const QString& keyword) {
        return Fail(tr("The line \"%1\" is missing in the file.").arg(keyword));
    };
    if (model.name.isEmpty())
        return missing(u"name"_s);
    if (!m_hasUnit)
        return missing(u"unit"_s);
    if (model.outline.isEmpty())
        return missing(u"outline"_s);
    return model.stage.isEmpty() ? missing(u"stage"_s) : true;
}

std::nullopt_t Refuse(QString* error, const QString& reason)
{
    if (error)
        *error = reason;
    return std::nullopt;
}

} // namespace

std::optional<VenueModel> VenueModelFile::Read(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Refuse(error, tr("The file cannot be opened: %1").arg(file.errorString()));
    const QByteArray content = file.read(c_maximumSize + 1);
    if (file.error() != QFileDevice::NoError)
        return Refuse(error, tr("The file cannot be read: %1").arg(file.errorString()));
    return Parse(content, error);
}

std::optional<VenueModel> VenueModelFile::Parse(const QByteArray& content, QString* error)
{
    if (content.isEmpty())
        return Refuse(error, tr("The file is empty."));
    if (content.size() > c_maximumSize)
        return Refuse(error, tr("The file is larger than %1 MB.").arg(c_maximumSize / 1024 / 1024));
    // Stateless: a character that the end of the file cuts off is an error, not the start of more to come.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(content);
    if (decoder.hasError() || text.contains(QChar(QChar::Null)))
        return Refuse(error, tr("The file is not a text in UTF-8."));
    Reader reader;
    if (!reader.ReadText(text))
        return Refuse(error, reader.error);
    return reader.model;
}

} // namespace korvel::Demo
