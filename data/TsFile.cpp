#include <data/TsFile.h>

#include <data/TemporaryFileKeeper_p.h>

#include <QDir>
#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace korvel::Data::VenueDatabase {

namespace {

/// False for names that would lead out of the folder they are put into.
bool IsPlainFileName(const QString& name)
{
    if (name.contains(QLatin1Char('/')) || name.contains(QChar::Null))
        return false;
    if (QDir::separator() == QLatin1Char('\\')
        && (name.contains(QLatin1Char('\\')) || name.contains(QLatin1Char(':'))))
        return false;
    return name != "."_L1 && name != ".."_L1;
}

bool StandsDirectlyInTempFolder(const QString& path)
{
    const QFileInfo file(path);
    return !path.isEmpty() && file.exists() && QDir(file.absolutePath()) == QDir(QDir::tempPath());
}

} // namespace

TsFile::TsFile(TsFile* other)
    : m_id(other->m_id)
    , m_fileName(other->m_fileName)
    , m_fileData(other->m_fileData)
    , m_tsVersion(other->m_tsVersion)
    , m_uploadDate(other->m_uploadDate)
{
}

qint64 TsFile::GetId() const
{
    return m_id;
}

QString TsFile::GetFileName() const
{
    return m_fileName;
}

QByteArray TsFile::GetFileData() const
{
    return m_fileData;
}

QString TsFile::GetTsVersion() const
{
    return m_tsVersion;
}

QString TsFile::GetUploadDate() const
{
    return m_uploadDate;
}

qint64 TsFile::Size() const
{
    return m_elementCount;
}

void TsFile::SetId(qint64 id)
{
    m_id = id;
}

void TsFile::SetFileName(QString& fileName)
{
    m_fileName = fileName;
}

void TsFile::SetFileData(QByteArray& fileData)
{
    m_fileData = fileData;
}

void TsFile::SetTsVersion(QString& version)
{
    m_tsVersion = version;
}

void TsFile::SetUploadDate(QString& uploadDate)
{
    m_uploadDate = uploadDate;
}

QVariant TsFile::GetDataAt(qint64 index) const
{
    switch (index) {
    case 0:
        return m_id;
    case 1:
        return m_fileName;
    case 2:
        return m_fileData;
    case 3:
        return m_tsVersion;
    case 4:
        return m_uploadDate;
    default:
        return {};
    }
}

QString TsFile::GetLabelAt(qint64 index)
{
    switch (index) {
    case 0:
        return u"ID"_s;
    case 1:
        return u"FileName"_s;
    case 2:
        return u"FileData"_s;
    case 3:
        return u"TSVersion"_s;
    case 4:
        return u"UploadDate"_s;
    default:
        return {};
    }
}

bool TsFile::CopyToTempFolder()
{
    // The copies of this record hold guarded pointers: theirs become null as well.
    delete m_temporaryFile.data();

    // Without a temporary folder Qt's default template would point to the root folder.
    if (!IsPlainFileName(m_fileName) || QDir::tempPath().isEmpty())
        return false;

    auto file = std::make_unique<QTemporaryFile>();
    // Qt replaces the last run of six X of a template. A name that holds such a run itself is appended by
    // renaming, so that it stays as it is.
    const bool renames = m_fileName.contains("XXXXXX"_L1);
    if (!renames)
        file->setFileTemplate(file->fileTemplate() + QLatin1Char('-') + m_fileName);
    if (!file->open())
        return false;
    // Small data sits in Qt's buffer until the flush: only that tells whether the disk took it.
    if (file->write(m_fileData) != m_fileData.size() || !file->flush())
        return false;
    // Renaming closes the file, so it comes last.
    if (renames && !file->rename(file->fileName() + QLatin1Char('-') + m_fileName))
        return false;
    if (!StandsDirectlyInTempFolder(file->fileName()))
        return false;
    // Keeps the file and its name, and gives the buffer back: 16 KB for each file that stays for the host.
    file->close();

    m_temporaryFile = file.get();
    TemporaryFileKeeper::Instance().Keep(file.release());
    return true;
}

QString TsFile::GetTempPath() const
{
    return m_temporaryFile ? m_temporaryFile->fileName() : QString();
}

} // namespace korvel::Data::VenueDatabase
