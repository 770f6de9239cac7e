#include <tests/soak/SoakSample.h>

using namespace Qt::StringLiterals;

namespace korvel::Soak {

namespace {

const QByteArray& Headings()
{
    static const QByteArray headings("phase,round,heap_bytes,descriptors,replies,temp_files");
    return headings;
}

struct Growth
{
    qint64 rounds = 0;
    qint64 heap = 0;
    qint64 descriptors = 0;
    qint64 tempFiles = 0;
};

Growth GrowthOf(const QList<Sample>& phase)
{
    const Sample& first = phase.constFirst();
    const Sample& last = phase.constLast();
    return {last.round - first.round, last.heap - first.heap, last.descriptors - first.descriptors,
            last.tempFiles - first.tempFiles};
}

/// The heap that a whole phase may add, in bytes.
qint64 HeapLimit(const QString& phase, qint64 rounds)
{
    constexpr qint64 c_kilobyte = 1024;
    // The viewer's replies live as long as the viewer.
    if (phase == "downloads"_L1)
        return 16 * c_kilobyte * rounds;
    // The names of the files that the host may still read. What they were written through is gone.
    if (phase == "new imports"_L1)
        return 4 * c_kilobyte * rounds;
    if (phase == "viewer steps"_L1 || phase == "imports"_L1)
        return 512 * c_kilobyte;
    return 2048 * c_kilobyte;
}

/// The files that stay for the host, open, until the application ends.
qint64 FileCount(const QString& phase, qint64 rounds)
{
    return phase == "new imports"_L1 ? rounds : 0;
}

} // namespace

QByteArray ToCsv(const QList<Sample>& samples)
{
    QByteArray csv = Headings() + '\n';
    for (const Sample& sample : samples) {
        csv += sample.phase.toUtf8();
        for (const qint64 value :
             {sample.round, sample.heap, sample.descriptors, sample.replies, sample.tempFiles})
            csv += ',' + QByteArray::number(value);
        csv += '\n';
    }
    return csv;
}

QList<Sample> FromCsv(const QByteArray& csv)
{
    QList<QByteArray> lines = csv.trimmed().split('\n');
    if (lines.takeFirst() != Headings())
        return {};
    QList<Sample> samples;
    for (const QByteArray& line : std::as_const(lines)) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() != 6)
            return {};
        samples.append({QString::fromUtf8(cells.at(0)), cells.at(1).toLongLong(), cells.at(2).toLongLong(),
                        cells.at(3).toLongLong(), cells.at(4).toLongLong(), cells.at(5).toLongLong()});
    }
    return samples;
}

QStringList Complaints(const QList<Sample>& samples)
{
    QStringList complaints;
    for (const QList<Sample>& phase : ByPhase(samples)) {
        const QString name = phase.constFirst().phase;
        const Growth growth = GrowthOf(phase);
        if (growth.heap > HeapLimit(name, growth.rounds))
            complaints.append(u"%1: the heap grew by %2 bytes"_s.arg(name).arg(growth.heap));
        const qint64 files = FileCount(name, growth.rounds);
        // A connection of client, forwarder and server may be made anew at the moment of a sample.
        constexpr qint64 c_connection = 4;
        if (growth.descriptors > files + c_connection)
            complaints.append(u"%1: %2 descriptors more"_s.arg(name).arg(growth.descriptors));
        if (growth.tempFiles != files)
            complaints.append(u"%1: %2 temporary files more"_s.arg(name).arg(growth.tempFiles));
        for (const Sample& sample : phase) {
            if (sample.replies > 0) {
                complaints.append(u"%1: %2 replies are left after round %3"_s.arg(name)
                                      .arg(sample.replies)
                                      .arg(sample.round));
            }
        }
    }
    return complaints;
}

QStringList Summary(const QList<Sample>& samples)
{
    QStringList lines;
    for (const QList<Sample>& phase : ByPhase(samples)) {
        const Growth growth = GrowthOf(phase);
        lines.append(u"%1: %2 rounds, heap %3 bytes (%4 a round), descriptors %5, files %6"_s
                         .arg(phase.constFirst().phase, -13)
                         .arg(growth.rounds, 6)
                         .arg(growth.heap, 10)
                         .arg(double(growth.heap) / double(qMax(qint64(1), growth.rounds)), 0, 'f', 1)
                         .arg(growth.descriptors)
                         .arg(growth.tempFiles));
    }
    return lines;
}

QList<QList<Sample>> ByPhase(const QList<Sample>& samples)
{
    QList<QList<Sample>> phases;
    for (const Sample& sample : samples) {
        if (phases.isEmpty() || phases.constLast().constFirst().phase != sample.phase)
            phases.append(QList<Sample>());
        phases.last().append(sample);
    }
    return phases;
}

} // namespace korvel::Soak
