#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace korvel::Test {

/// Writes a file; aborts the program when it cannot be written.
void WriteFile(const QString& path, const QByteArray& bytes = {});
/// "cannot be read" for a file that cannot.
QByteArray ContentOf(const QString& path);
/// Everything below \p folder, hidden and special files too, sorted.
QStringList Tree(const QString& folder);

/// A folder that the program takes for the system's temporary one as long as this lives. It lies two levels
/// deep in a folder of its own, so that what climbs out of it is seen.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    Q_DISABLE_COPY_MOVE(TempFolder)

    QString Path() const;
    QString FilePath(const QString& name) const;
    /// The folder above.
    QString Root() const;
    /// Lets the program take \p path for the temporary folder instead: an absolute one or one below this.
    void Pretend(const QString& path) const;

private:
    QTemporaryDir m_root;
    QByteArray m_before;
};

} // namespace korvel::Test
