#include <data/TextPool_p.h>

#include <QHash>
#include <QtMath>

namespace korvel::Data::VenueDatabase {

namespace {

constexpr qsizetype c_fewestTexts = 1000;
constexpr qsizetype c_mostTexts = 65535;

} // namespace

TextPool::TextPool(qsizetype venueCount)
    : m_slots(qNextPowerOfTwo(static_cast<quint32>(qBound(c_fewestTexts, venueCount, c_mostTexts))))
{
}

QString TextPool::Shared(const QString& text)
{
    // Empty texts need no memory, and an empty one must not become a null one, which equals it.
    if (text.isEmpty())
        return text;
    QString& slot = m_slots[qHash(text) & (m_slots.size() - 1)];
    if (slot != text)
        slot = text;
    return slot;
}

} // namespace korvel::Data::VenueDatabase
