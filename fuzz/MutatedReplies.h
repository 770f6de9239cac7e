#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

namespace korvel::Fuzz {

/// Makes venue replies that are nearly right: documents that servers could send with one to three changes,
/// from a flipped bit to a member that stands twice. The same ones for the same seed on every machine.
class MutatedReplies
{
public:
    explicit MutatedReplies(quint32 seed);

    /// The next document.
    QByteArray Next();

private:
    qsizetype Place(const QByteArray& text);
    QByteArray AnyOf(const QList<QByteArray>& pieces);
    void Mutate(QByteArray& document);
    void MutateValue(QByteArray& document);
    void RepeatPiece(QByteArray& document);

    QRandomGenerator m_random;
};

} // namespace korvel::Fuzz
