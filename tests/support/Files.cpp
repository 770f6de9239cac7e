#include <tests/support/Files.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace korvel::Test {

void WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

QStringList Tree(const QString& folder)
{
    QStringList paths;
    QDirIterator iterator(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
    while (iterator.hasNext())
        paths.append(iterator.next());
    paths.sort();
    return paths;
}

TempFolder::TempFolder()
    : m_before(qgetenv("TMPDIR"))
{
    if (!QDir().mkpath(Path()))
        qFatal("%s cannot be made", qPrintable(Path()));
    Pretend(Path());
}

TempFolder::~TempFolder()
{
    m_before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before);
}

QString TempFolder::Path() const
{
    return Root() + u"/outer/tmp"_s;
}

QString TempFolder::FilePath(const QString& name) const
{
    return Path() + QLatin1Char('/') + name;
}

QString TempFolder::Root() const
{
    return QFileInfo(m_root.path()).canonicalFilePath();
}

void TempFolder::Pretend(const QString& path) const
{
    qputenv("TMPDIR", QFile::encodeName(QDir(Path()).absoluteFilePath(path)));
}

} // namespace korvel::Test
