#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QPointF>
#include <QPolygonF>
#include <QString>

#include <optional>

namespace korvel::Demo {

/// A point of the roof that carries a load.
struct RiggingPoint
{
    QPointF position;
    double load = 0; ///< safe load in kilograms, 0 where the file does not tell
};

/// The plan of a hall. All positions in metres, x to the right and y down the plan.
struct VenueModel
{
    QString name;
    QPolygonF outline; ///< open polygon: the last corner is joined to the first, here and in the others
    QPolygonF stage;
    QList<QPolygonF> seats; ///< blocks of seats, may be empty
    QList<RiggingPoint> riggingPoints; ///< may be empty
};

/// Reads the model files that the venues of the demo offer; docs/MODEL-FORMAT.md describes them.
///
/// A file comes from a server and may hold anything: whatever does not follow the format is refused as a
/// whole with one message, and no file makes the reader use more memory than a few times its largest size.
class VenueModelFile
{
    Q_DECLARE_TR_FUNCTIONS(korvel::Demo::VenueModelFile)

public:
    /// Reads the file \p path. On failure nothing is returned, and \p error, where given, receives a message
    /// for the user: what is wrong, with the number of the line where it is.
    static std::optional<VenueModel> Read(const QString& path, QString* error = nullptr);
    /// The same for the content of a file.
    static std::optional<VenueModel> Parse(const QByteArray& content, QString* error = nullptr);

    static constexpr qint64 c_maximumSize = qint64{4} * 1024 * 1024; ///< largest file in bytes
    static constexpr int c_maximumPoints = 20000; ///< corners and rigging points of one file together
    static constexpr double c_maximumPosition = 10000.0; ///< largest distance from the origin along an axis
    static constexpr double c_maximumLoad = 1.0e6; ///< largest load of a point in kilograms
};

} // namespace korvel::Demo
