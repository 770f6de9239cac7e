#pragma once

#include <data/VenueDatabaseExport.h>

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <QTemporaryFile>
#include <QVariant>

namespace korvel::Data::VenueDatabase {

/// One model file of a venue for the host application, with its bytes and the means to put them on disk.
///
/// A value: copies share the temporary file of their source and see it vanish together. The bytes are handed
/// on as the server sent them, unchecked.
///
/// @code{.cpp}
/// if (file.CopyToTempFolder())
///     ImportModel(file.GetTempPath());
/// @endcode
class KVVENUEDATABASE_API TsFile
{
public:
    /// An empty file: id -1, no texts, no bytes, no temporary file.
    TsFile() = default;
    /// Copies everything from \p other, which must not be null, but starts without a temporary file.
    explicit TsFile(TsFile* other);
    /// Copies memberwise; the copy shares the temporary file.
    TsFile(const TsFile& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    TsFile(TsFile&& other) noexcept = default;
    /// Assigns memberwise; the temporary file is shared with \p other, and the one held before stays on disk.
    TsFile& operator=(const TsFile& other) = default;
    /// Moves memberwise; \p other can only be assigned to or destroyed afterwards.
    TsFile& operator=(TsFile&& other) noexcept = default;
    /// Leaves the temporary file alone: the host may still be reading it.
    ~TsFile() = default;

    /// Entity id; the connector stores the id of the venue here. -1 means none.
    qint64 GetId() const;
    /// Name as the server gives it; may hold anything, path separators included.
    QString GetFileName() const;
    /// The contents; empty when the download failed.
    QByteArray GetFileData() const;
    /// Version of the host application that wrote the file.
    QString GetTsVersion() const;
    /// As delivered by the server, not parsed.
    QString GetUploadDate() const;
    /// Number of columns, 5.
    qint64 Size() const;

    /// See GetId().
    void SetId(qint64 id);
    /// See GetFileName(). Does not change \p fileName.
    void SetFileName(QString& fileName);
    /// See GetFileData(). Does not change \p fileData; a temporary file keeps the bytes that it has.
    void SetFileData(QByteArray& fileData);
    /// See GetTsVersion(). Does not change \p version.
    void SetTsVersion(QString& version);
    /// Stores the text as it is. Does not change \p uploadDate.
    void SetUploadDate(QString& uploadDate);

    /// 0 id, 1 file name, 2 file data, 3 version, 4 upload date; otherwise an invalid variant.
    QVariant GetDataAt(qint64 index) const;
    /// The untranslated name of column \p index; empty where there is none.
    static QString GetLabelAt(qint64 index);

    /// User-interface thread only. Writes the bytes into a new file "<application name>.<six random
    /// characters>-<file name>" directly in QDir::tempPath(), after removing the temporary file that this
    /// record and its copies had before.
    ///
    /// True when every byte is on disk and GetTempPath() names the file. Otherwise false and nothing stays
    /// behind: no temporary folder, no space, or a file name that is not a plain one (a path separator, NUL,
    /// "." or ".."). The file is removed by the next call or when the application ends.
    bool CopyToTempFolder();
    /// Full path of the temporary file; empty while there is none.
    QString GetTempPath() const;

private:
    qint64 m_elementCount = 5;
    qint64 m_id = -1;
    QString m_fileName;
    QByteArray m_fileData;
    QString m_tsVersion;
    QString m_uploadDate;
    QPointer<QTemporaryFile> m_temporaryFile;
};

} // namespace korvel::Data::VenueDatabase
