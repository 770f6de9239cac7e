#include <tests/support/Files.h>
#include <tests/support/StrictTest.h>

#include <ui/VenueDbDialog.h>

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace korvel::Test;

namespace {

/// A piece of code in a document, or a source's text that a document may show.
struct Code
{
    QString place;
    QString text;
};

QString SourcePath(const QString& path)
{
    return QStringLiteral(VDB_SOURCE_DIR "/") + path;
}

QString ReadText(const QString& path)
{
    return QString::fromUtf8(ContentOf(path));
}

/// The files of \p folder below the source folder that \p filters match, relative to the source folder.
QStringList Files(const QString& folder, const QStringList& filters, bool isRecursive = false)
{
    QStringList files;
    QDirIterator entries(SourcePath(folder), filters, QDir::Files,
                         isRecursive ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    while (entries.hasNext())
        files.append(QDir(SourcePath(QString())).relativeFilePath(entries.next()));
    files.sort();
    return files;
}

QStringList Documents()
{
    return Files(QString(), {u"*.md"_s}) + Files(u"docs"_s, {u"*.md"_s});
}

QStringList PublicHeaders()
{
    QStringList headers;
    for (const QString& folder : {u"data"_s, u"ui"_s})
        headers.append(Files(folder, {u"*.h"_s}));
    headers.removeIf([](const QString& header) { return header.endsWith(u"_p.h"_s); });
    return headers;
}

/// \p text without the blanks that all of its lines begin with.
QString WithoutIndent(const QString& text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    qsizetype indent = text.size();
    for (const QString& line : lines)
        if (!line.isEmpty())
            indent = qMin(indent, line.size() - QStringView(line).trimmed().size());
    QStringList moved;
    for (const QString& line : lines)
        moved.append(line.mid(indent));
    return moved.join(QLatin1Char('\n'));
}

/// The code between each pair of lines "//! [name]" or "#! [name]" of the file \p path.
QList<Code> NamedSnippets(const QString& path)
{
    static const QRegularExpression snippet(
        uR"(^ *(?://|#)! \[(.+)\]\n((?s:.*?))(?:^ *(?://|#)! \[(.+)\]$|\z))"_s,
        QRegularExpression::MultilineOption);
    QList<Code> snippets;
    const QString text = ReadText(SourcePath(path));
    for (const QRegularExpressionMatch& match : snippet.globalMatch(text)) {
        const QString name = match.captured(1);
        if (match.captured(3) != name)
            qFatal("%s: [%s] ends as [%s]", qPrintable(path), qPrintable(name),
                   qPrintable(match.captured(3)));
        snippets.append({path + u" ["_s + name + QLatin1Char(']'), WithoutIndent(match.captured(2))});
    }
    return snippets;
}

QList<Code> AllSnippets()
{
    QList<Code> snippets;
    for (const QString& path : Files(u"tests/host_guide"_s, {u"*"_s}, true))
        if (!path.endsWith(u"tst_Documents.cpp"_s))
            snippets.append(NamedSnippets(path));
    return snippets;
}

/// Every text that a test compiles: snippets, and the files of the complete program.
QList<Code> CompiledTexts()
{
    QList<Code> texts = AllSnippets();
    for (const QString& path : Files(u"tests/host_guide/planner"_s, {u"*"_s}))
        texts.append({path, ReadText(SourcePath(path))});
    return texts;
}

/// The fenced blocks of C++ and CMake in the Markdown file \p path.
QList<Code> CodeOfDocument(const QString& path)
{
    static const QRegularExpression block(uR"(^```(?:cpp|cmake)\n((?s:.*?))^```$)"_s,
                                          QRegularExpression::MultilineOption);
    QList<Code> blocks;
    const QString text = ReadText(SourcePath(path));
    for (const QRegularExpressionMatch& match : block.globalMatch(text)) {
        const qsizetype line = text.left(match.capturedStart()).count(QLatin1Char('\n')) + 1;
        blocks.append({u"%1:%2"_s.arg(path).arg(line), WithoutIndent(match.captured(1))});
    }
    return blocks;
}

/// The examples in the comments of the header \p path.
QList<Code> CodeOfHeader(const QString& path)
{
    static const QRegularExpression example(uR"(^ */// @code.*\n((?s:.*?))^ */// @endcode$)"_s,
                                            QRegularExpression::MultilineOption);
    static const QRegularExpression start(u"^ */// ?"_s, QRegularExpression::MultilineOption);
    QList<Code> blocks;
    const QString text = ReadText(SourcePath(path));
    for (const QRegularExpressionMatch& match : example.globalMatch(text))
        blocks.append({path, WithoutIndent(match.captured(1).remove(start))});
    return blocks;
}

QList<Code> CodeOf(const QString& path)
{
    return path.endsWith(u".h"_s) ? CodeOfHeader(path) : CodeOfDocument(path);
}

/// Markdown without its fenced blocks, in which nothing is a link.
QString Prose(const QString& path)
{
    static const QRegularExpression block(u"^```(?s:.*?)^```$"_s, QRegularExpression::MultilineOption);
    return ReadText(path).remove(block);
}

/// The anchors that a page of this Markdown has on the web: its headings in lower case, blanks as hyphens.
QSet<QString> Anchors(const QString& path)
{
    static const QRegularExpression heading(u"^#+ (.+)$"_s, QRegularExpression::MultilineOption);
    static const QRegularExpression dropped(u"[^\\w\\- ]"_s, QRegularExpression::UseUnicodePropertiesOption);
    QSet<QString> anchors;
    const QString prose = Prose(path);
    for (const QRegularExpressionMatch& match : heading.globalMatch(prose)) {
        QString anchor = match.captured(1).toLower();
        anchor.remove(dropped);
        anchors.insert(anchor.replace(QLatin1Char(' '), QLatin1Char('-')));
    }
    return anchors;
}

} // namespace

/// The documents against what they describe.
class tst_Documents : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryPieceOfCodeIsCompiledSomewhere_data()
    {
        QTest::addColumn<QString>("path");
        for (const QString& path : Documents() + PublicHeaders())
            if (!CodeOf(path).isEmpty())
                QTest::newRow(qPrintable(path)) << path;
    }
    void EveryPieceOfCodeIsCompiledSomewhere()
    {
        QFETCH(QString, path);
        const QList<Code> compiled = CompiledTexts();
        for (const Code& shown : CodeOf(path)) {
            const bool isCompiled = std::any_of(compiled.begin(), compiled.end(), [&shown](const Code& code) {
                return code.text == shown.text;
            });
            QVERIFY2(isCompiled, qPrintable(shown.place + u" is the text of no source:\n"_s + shown.text));
        }
    }

    void EverySnippetIsShown()
    {
        QSet<QString> shown;
        for (const QString& path : Documents() + PublicHeaders())
            for (const Code& code : CodeOf(path))
                shown.insert(code.text);
        const QList<Code> snippets = AllSnippets();
        QVERIFY(snippets.size() > 20);
        for (const Code& snippet : snippets)
            QVERIFY2(shown.contains(snippet.text), qPrintable(snippet.place + u" is shown nowhere"_s));
    }

    void EveryLinkLeadsSomewhere_data()
    {
        QTest::addColumn<QString>("path");
        for (const QString& path : Documents())
            QTest::newRow(qPrintable(path)) << path;
    }
    void EveryLinkLeadsSomewhere()
    {
        QFETCH(QString, path);
        static const QRegularExpression link(u"\\]\\(([^)\\s]+)\\)"_s);
        const QString file = SourcePath(path);
        const QString prose = Prose(file);
        for (const QRegularExpressionMatch& match : link.globalMatch(prose)) {
            const QString target = match.captured(1);
            if (target.startsWith(u"https://"_s))
                continue;
            const QString targetPath = target.section(QLatin1Char('#'), 0, 0);
            const QString targetFile
                = targetPath.isEmpty() ? file : QFileInfo(file).dir().absoluteFilePath(targetPath);
            QVERIFY2(QFileInfo::exists(targetFile), qPrintable(target + u" does not exist"_s));
            const QString anchor = target.section(QLatin1Char('#'), 1);
            if (!anchor.isEmpty())
                QVERIFY2(Anchors(targetFile).contains(anchor), qPrintable(target + u": no such heading"_s));
        }
    }

    void EveryGuideIsReachedFromTheReadme()
    {
        const QString readme = ReadText(SourcePath(u"README.md"_s));
        for (const QString& path : Documents())
            if (path != u"README.md"_s)
                QVERIFY2(readme.contains(u"]("_s + path), qPrintable(path));
    }

    void PicturesAreSmall()
    {
        constexpr qint64 c_limit = 3'000'000;
        qint64 size = 0;
        for (const QString& path : Files(u"docs/images"_s, {u"*"_s}))
            size += QFileInfo(SourcePath(path)).size();
        QVERIFY2(size < c_limit, qPrintable(u"%1 bytes"_s.arg(size)));
    }

    void TheGuideNamesEveryStyleValue()
    {
        const korvel::Ui::VenueDatabase::VenueDbDialog dialog;
        QSet<QString> used{dialog.property("customStyle").toString()};
        for (const QObject* child : dialog.findChildren<QObject*>()) {
            const QVariant value = child->property("customStyle");
            if (value.isValid())
                used.insert(value.toString());
        }

        static const QRegularExpression row(u"^\\| `([a-zA-Z]+Korvel\\w+)` \\|"_s,
                                            QRegularExpression::MultilineOption);
        QSet<QString> named;
        const QString guide = ReadText(SourcePath(u"docs/HOST-GUIDE.md"_s));
        for (const QRegularExpressionMatch& match : row.globalMatch(guide))
            named.insert(match.captured(1));
        QCOMPARE(named, used);
    }

    void TheGuideNamesEveryFoldingIcon()
    {
        static const QRegularExpression icon(u"korvelFoldingWidget\\w+\\.svg"_s);
        const auto iconsIn = [](const QString& path) {
            QSet<QString> icons;
            const QString text = ReadText(SourcePath(path));
            for (const QRegularExpressionMatch& match : icon.globalMatch(text))
                icons.insert(match.captured());
            return icons;
        };
        const QSet<QString> wanted = iconsIn(u"ui/VenueDetailsWidget.cpp"_s);
        QCOMPARE(wanted.size(), 4);
        QCOMPARE(iconsIn(u"docs/HOST-GUIDE.md"_s), wanted);
    }

    void EveryWidgetHeaderHasAnExample()
    {
        const QStringList without{u"data/Picture.h"_s, u"data/User.h"_s, u"data/VenueDatabaseExport.h"_s};
        for (const QString& path : PublicHeaders())
            QVERIFY2(CodeOfHeader(path).isEmpty() == without.contains(path), qPrintable(path));
    }
};

QTEST_MAIN(tst_Documents)
#include "tst_Documents.moc"
