#include <fuzz/FuzzTargets.h>

#include <data/TsFile.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::TsFile;

namespace {

/// A tree of folders with the temporary folder at its bottom, so that names that lead upwards still stay in
/// sight, and the current folder beside it.
class Playground
{
public:
    Playground()
    {
        const QDir root(m_root.path());
        root.mkpath(u"1/2/3/4/temp/inner"_s);
        root.mkpath(u"1/2/3/4/current"_s);
        // A record's temporary folder is what a host has in TMPDIR.
        qputenv("TMPDIR", QFile::encodeName(TempFolder()));
        QDir::setCurrent(root.filePath(u"1/2/3/4/current"_s));
    }
    QString TempFolder() const
    {
        return m_root.filePath(u"1/2/3/4/temp"_s);
    }
    /// The paths of all files in the tree, as bytes: names need not be text.
    QStringList Files() const
    {
        QStringList files;
        QDirIterator iterator(m_root.path(), QDir::Files | QDir::Hidden | QDir::System,
                              QDirIterator::Subdirectories);
        while (iterator.hasNext())
            files.append(iterator.next());
        return files;
    }

private:
    QTemporaryDir m_root;
};

/// Text that a JSON document can hold: any UTF-16, lone surrogates too.
QString Name(const QByteArray& bytes, bool isUtf16)
{
    if (!isUtf16)
        return QString::fromUtf8(bytes);
    QString name(bytes.size() / 2, QChar());
    for (qsizetype index = 0; index < name.size(); ++index) {
        const auto high = static_cast<uchar>(bytes.at(2 * index));
        const auto low = static_cast<uchar>(bytes.at(2 * index + 1));
        name[index] = QChar(static_cast<char16_t>((high << 8) | low));
    }
    return name;
}

} // namespace

void FuzzFileName(const QByteArray& input)
{
    static const Playground playground;
    const auto flags = static_cast<uchar>(input.isEmpty() ? 0 : input.at(0));
    QString name = Name(input.mid(1), (flags & 1) != 0);
    // Sizes on both sides of the buffer of QFile.
    QByteArray data((flags >> 1) * 300, 'x');

    TsFile file;
    file.SetFileName(name);
    file.SetFileData(data);
    const bool isCopied = file.CopyToTempFolder();
    const QStringList files = playground.Files();
    if (isCopied) {
        const QString path = file.GetTempPath();
        Require(files == QStringList{path}, "success creates the one file that is named");
        Require(path.startsWith(playground.TempFolder() + QLatin1Char('/'))
                    && !path.mid(playground.TempFolder().size() + 1).contains(QLatin1Char('/')),
                "the file is directly in the temporary folder");
        // Half of a surrogate pair has no bytes; Qt writes a replacement.
        const QString ending = QFile::decodeName(QFile::encodeName(QLatin1Char('-') + name));
        Require(path.endsWith(ending), "the name stays as it is");
        QFile written(path);
        Require(written.open(QIODevice::ReadOnly) && written.readAll() == data, "every byte is written");
    } else {
        Require(file.GetTempPath().isEmpty(), "failure names no file");
        Require(files.isEmpty(), "failure leaves nothing behind");
    }

    QString forbidden = u"/"_s;
    file.SetFileName(forbidden);
    Require(!file.CopyToTempFolder(), "a separator is refused");
    Require(playground.Files().isEmpty(), "the next call removes the file");
}

} // namespace korvel::Fuzz
