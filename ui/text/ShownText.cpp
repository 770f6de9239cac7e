#include <ui/text/ShownText_p.h>

#include <QChar>

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr char32_t c_firstOfOtherScripts = 0x0300;

// What a text may cost, in the cost of a plain letter: a third of a microsecond and more.
constexpr qint64 c_cellLimit = 4LL * 1024;
constexpr qint64 c_screenLimit = 60'000;
constexpr qint64 c_reasonLimit = 1'500'000;

/// A letter of a script whose letters Qt has to look for, to join or to break into words.
constexpr qint64 c_costOfOtherScript = 6;
constexpr qint64 c_costOfNewRun = 20;
/// Each mark is placed with regard to all others on its character: that many more of them cost another
/// letter.
constexpr qint64 c_marksPerCost = 16;

/// Adds up what the characters of a text cost, one after the other.
class LayoutCost
{
public:
    void Add(char32_t character)
    {
        if (QChar::isMark(character)) {
            m_cost += 1 + ++m_marks / c_marksPerCost;
            return;
        }
        m_marks = 0;
        if (StartsRun(character))
            m_cost += c_costOfNewRun;
        else
            m_cost += character < c_firstOfOtherScripts ? 1 : c_costOfOtherScript;
    }

    qint64 Sum() const
    {
        return m_cost;
    }

private:
    /// Qt shapes each stretch of one script and one direction by itself, and each control character.
    bool StartsRun(char32_t character)
    {
        const QChar::Category category = QChar::category(character);
        if (category == QChar::Other_Control || category == QChar::Other_Format)
            return true;
        const bool wasRightToLeft = m_isRightToLeft;
        const QChar::Script lastScript = m_script;
        switch (QChar::direction(character)) {
        case QChar::DirR:
        case QChar::DirAL:
            m_isRightToLeft = true;
            break;
        case QChar::DirL:
        case QChar::DirEN:
        case QChar::DirAN:
            m_isRightToLeft = false;
            break;
        default:
            break;
        }
        const QChar::Script script = QChar::script(character);
        if (script != QChar::Script_Common && script != QChar::Script_Inherited)
            m_script = script;
        return m_isRightToLeft != wasRightToLeft || m_script != lastScript;
    }

    qint64 m_cost = 0;
    qint64 m_marks = 0;
    QChar::Script m_script = QChar::Script_Common;
    bool m_isRightToLeft = false;
};

/// As much of \p text as costs no more than \p limit.
QString Beginning(const QString& text, qint64 limit)
{
    LayoutCost cost;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text.at(index);
        const bool isPair
            = character.isHighSurrogate() && index + 1 < text.size() && text.at(index + 1).isLowSurrogate();
        cost.Add(isPair ? QChar::surrogateToUcs4(character, text.at(index + 1)) : character.unicode());
        if (cost.Sum() > limit)
            return text.left(index) + QChar(0x2026);
        index += isPair ? 1 : 0;
    }
    return text;
}

} // namespace

QString WithinCell(const QString& text)
{
    return Beginning(text, c_cellLimit);
}

QString WithinScreen(const QString& text)
{
    return Beginning(text, c_screenLimit);
}

QString WithinReason(const QString& text)
{
    return Beginning(text, c_reasonLimit);
}

} // namespace korvel::Ui::VenueDatabase
