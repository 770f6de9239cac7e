#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/Files.h>
#include <tests/support/Records.h>
#include <tests/support/StrictTest.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionComboBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTranslator>
#include <QXmlStreamReader>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

const QString c_styleValue = u"labelKorvelCaptionSmall"_s;

/// One text of a translation file.
struct Text
{
    QString context;
    QString source;
    QString translation;
    /// What the file says of its state: "unfinished", "vanished", "obsolete".
    QString type;
};

QString TsPath(const QString& language)
{
    return QStringLiteral(VDB_SOURCE_DIR "/translations/kvvenuedatabase_%1.ts").arg(language);
}

QList<Text> TextsOf(const QString& language)
{
    QXmlStreamReader xml(ContentOf(TsPath(language)));
    QList<Text> texts;
    QString context;
    Text text;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "name"_L1) {
            context = xml.readElementText();
        } else if (xml.name() == "source"_L1) {
            text = {context, xml.readElementText(), {}, {}};
        } else if (xml.name() == "translation"_L1) {
            text.type = xml.attributes().value("type"_L1).toString();
            text.translation = xml.readElementText();
            texts.append(text);
        }
    }
    return xml.hasError() ? QList<Text>() : texts;
}

QStringList Placeholders(const QString& text)
{
    static const QRegularExpression pattern(u"%(\\d+|n)"_s);
    QStringList found;
    for (const QRegularExpressionMatch& match : pattern.globalMatch(text))
        found.append(match.captured());
    found.sort();
    return found;
}

void AddLanguageRows()
{
    QTest::addColumn<QString>("language");
    for (const char* language : {"de", "en", "es", "fr", "it", "ja"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

/// A translator that is in force as long as this lives.
class InstalledTranslator
{
public:
    explicit InstalledTranslator(std::unique_ptr<QTranslator> translator)
        : m_translator(std::move(translator))
    {
        QCoreApplication::installTranslator(m_translator.get());
    }
    ~InstalledTranslator()
    {
        QCoreApplication::removeTranslator(m_translator.get());
    }
    Q_DISABLE_COPY_MOVE(InstalledTranslator)

private:
    std::unique_ptr<QTranslator> m_translator;
};

/// The module's own translation, as a host loads it; null where there is none for \p locale.
std::unique_ptr<QTranslator> LoadedTranslator(const QLocale& locale)
{
    auto translator = std::make_unique<QTranslator>();
    const bool isLoaded
        = translator->load(locale, u"kvvenuedatabase"_s, u"_"_s, u":/kvVenueDatabase/translations"_s);
    return isLoaded ? std::move(translator) : nullptr;
}

/// Says every text of the module longer by half and in brackets, so that whatever is cut off shows.
class LongTranslator : public QTranslator
{
public:
    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char* context, const char* source, const char* /*disambiguation*/,
                      int /*number*/) const override
    {
        const QString text = QString::fromUtf8(source);
        const QByteArrayView name(context);
        if (text == c_styleValue || !(name == "QObject" || name.startsWith("korvel::")))
            return {};
        QString padding;
        while (padding.size() * 2 < text.size())
            padding += padding.size() % 6 == 0 ? QLatin1Char(' ') : QLatin1Char('x');
        return QLatin1Char('[') + text + padding + QLatin1Char(']');
    }
};

/// The dialog in its standard size with one venue found and shown.
struct ShownDialog
{
    ShownDialog()
    {
        connector.venues = {MakeVenue(7, u"Festspielhaus"_s, u"Germany"_s)};
        connector.onGetFiles = [](qint64) { return QList<TsFile>{MakeFile(u"stage.tessra"_s)}; };
        dialog.findChild<VenueDbCentralWidget*>()->SetConnector(&connector);
        dialog.Open(nullptr);
        table = dialog.findChild<QTableView*>();
        const auto isFound = [this] { return table->model() && table->model()->rowCount() == 1; };
        if (QTest::qWaitFor(isFound))
            table->selectRow(0);
        isShown = QTest::qWaitFor([this] { return dialog.findChild<VenueDetailsWidget*>()->isVisible(); });
        // Layouts settle in posted events.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    QStringList VisibleTexts() const
    {
        QStringList texts;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            if (label->isVisible())
                texts.append(label->text());
        for (const QPushButton* button : dialog.findChildren<QPushButton*>())
            if (button->isVisible())
                texts.append(button->text());
        for (int column = 1; table->model() && column < table->model()->columnCount(); ++column)
            texts.append(table->model()->headerData(column, Qt::Horizontal).toString());
        return texts;
    }

    ConnectorStub connector;
    VenueDbDialog dialog{nullptr};
    QTableView* table = nullptr;
    bool isShown = false;
};

bool IsCutOff(const QLabel* label)
{
    // What a label asks for is what its text needs, frame, margin and indent included.
    if (label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    return label->sizeHint().width() > label->width() || label->sizeHint().height() > label->height();
}

/// The texts of \p shown that do not fit where they stand.
QStringList CutOffTexts(const ShownDialog& shown)
{
    QStringList texts;
    for (const QLabel* label : shown.dialog.findChildren<QLabel*>())
        if (label->isVisible() && !label->text().isEmpty() && IsCutOff(label))
            texts.append(label->text());
    for (const QPushButton* button : shown.dialog.findChildren<QPushButton*>())
        if (button->isVisible() && !button->text().isEmpty() && button->sizeHint().width() > button->width())
            texts.append(button->text());
    const QHeaderView* header = shown.table->horizontalHeader();
    for (int column = 1; column < header->count(); ++column)
        if (header->sectionSizeHint(column) > header->sectionSize(column))
            texts.append(shown.table->model()->headerData(column, Qt::Horizontal).toString());
    for (const QComboBox* comboBox : shown.dialog.findChildren<QComboBox*>()) {
        QStyleOptionComboBox option;
        option.initFrom(comboBox);
        const QRect edit = comboBox->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                             QStyle::SC_ComboBoxEditField, comboBox);
        if (comboBox->isVisible()
            && comboBox->fontMetrics().horizontalAdvance(comboBox->currentText()) > edit.width())
            texts.append(comboBox->currentText());
    }
    return texts;
}

} // namespace

/// The module's translations: complete, loadable by a host, and never longer than their place.
class tst_Translations : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EveryTextIsTranslated_data()
    {
        AddLanguageRows();
    }
    void EveryTextIsTranslated()
    {
        QFETCH(QString, language);
        const QList<Text> texts = TextsOf(language);
        QVERIFY(texts.size() > 50);
        for (const Text& text : texts) {
            QVERIFY2(text.type.isEmpty(), qPrintable(text.source + ": "_L1 + text.type));
            QVERIFY2(!text.translation.trimmed().isEmpty(), qPrintable(text.source));
        }
    }

    void TheFilesHoldEveryTextOfTheSources_data()
    {
        AddLanguageRows();
    }
    void TheFilesHoldEveryTextOfTheSources()
    {
        QFETCH(QString, language);
        const QTemporaryDir folder;
        QVERIFY(folder.isValid());
        const QString copy = folder.filePath(u"kvvenuedatabase_%1.ts"_s.arg(language));
        QVERIFY(QFile::copy(TsPath(language), copy));

        QJsonArray sources;
        for (const char* part : {"data", "ui"}) {
            QDirIterator files(QStringLiteral(VDB_SOURCE_DIR "/") + QString::fromLatin1(part),
                               {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext())
                sources.append(files.next());
        }
        QVERIFY(sources.size() > 40);
        const QJsonObject project{{u"projectFile"_s, u"CMakeLists.txt"_s},
                                  {u"includePaths"_s, QJsonArray{QStringLiteral(VDB_SOURCE_DIR)}},
                                  {u"sources"_s, sources},
                                  {u"translations"_s, QJsonArray{copy}}};
        const QString projectFile = folder.filePath(u"project.json"_s);
        WriteFile(projectFile, QJsonDocument(project).toJson());

        QProcess lupdate;
        lupdate.start(QStringLiteral(VDB_LUPDATE),
                      {u"-project"_s, projectFile, u"-no-obsolete"_s, u"-locations"_s, u"none"_s});
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);
        QCOMPARE(ContentOf(copy), ContentOf(TsPath(language)));
    }

    void ContextsAreTheFullClassNames()
    {
        QStringList contexts;
        for (const Text& text : TextsOf(u"de"_s))
            if (!contexts.contains(text.context))
                contexts.append(text.context);
        contexts.sort();
        const QString prefix = u"korvel::Ui::VenueDatabase::"_s;
        // None of the connector and the downloader: their texts are not translated.
        QCOMPARE(contexts,
                 QStringList({u"QObject"_s, prefix + u"FoldingIcon"_s, prefix + u"PictureFullscreenDialog"_s,
                              prefix + u"PictureNavigationButton"_s, prefix + u"PictureSlider"_s,
                              prefix + u"TsFileOpener"_s, prefix + u"VenueDbCentralWidget"_s,
                              prefix + u"VenueDbDialog"_s, prefix + u"VenueDbDialogBase"_s,
                              prefix + u"VenueDetailsWidget"_s}));
    }

    void PlaceholdersAndTrailingBlanksAreKept_data()
    {
        AddLanguageRows();
    }
    void PlaceholdersAndTrailingBlanksAreKept()
    {
        QFETCH(QString, language);
        qsizetype textsWithPlaceholder = 0;
        for (const Text& text : TextsOf(language)) {
            QCOMPARE(Placeholders(text.translation), Placeholders(text.source));
            QCOMPARE(text.translation.endsWith(QLatin1Char(' ')), text.source.endsWith(QLatin1Char(' ')));
            textsWithPlaceholder += Placeholders(text.source).size();
            // In a label with a buddy, or on a button, it would underline a letter.
            QVERIFY2(!text.translation.contains(QLatin1Char('&')), qPrintable(text.translation));
        }
        QCOMPARE(textsWithPlaceholder, 6);
    }

    void TheStyleValueStaysItself_data()
    {
        AddLanguageRows();
    }
    void TheStyleValueStaysItself()
    {
        QFETCH(QString, language);
        const QList<Text> texts = TextsOf(language);
        const auto entry = std::find_if(texts.cbegin(), texts.cend(),
                                        [](const Text& text) { return text.source == c_styleValue; });
        QVERIFY(entry != texts.cend());
        QCOMPARE(entry->translation, c_styleValue);

        auto translator = LoadedTranslator(QLocale(language));
        QVERIFY(translator);
        const InstalledTranslator installed(std::move(translator));
        const VenueDetailsWidget panel;
        QStringList captions;
        for (const QLabel* label : panel.findChildren<QLabel*>())
            if (label->property("customStyle") == c_styleValue)
                captions.append(label->text());
        // The captions of slider and viewer, and the section captions, which are not translated.
        captions.sort();
        QCOMPARE(captions, QStringList({u"-/0"_s, u"-/0"_s, u"General"_s, u"Loading dock"_s, u"Rigging"_s}));
    }

    void EnglishIsTheSourceText()
    {
        for (const Text& text : TextsOf(u"en"_s))
            QCOMPARE(text.translation, text.source);
    }

    void ADialogSpeaksTheHostsLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("texts");
        const auto row = [](const char* language, const char* title, const QStringList& texts) {
            QTest::newRow(language) << QString::fromLatin1(language) << QString::fromUtf8(title) << texts;
        };
        row("de", "Spielstättendatenbank",
            {u"Name des Komplexes:"_s, u"Suchen"_s, u"Zurücksetzen"_s, u"Bearbeitet am (UTC)"_s,
             u"Details zur Spielstätte"_s, u"Lichte Höhe Schnürboden (m):"_s, u"Modelldatei: "_s,
             u"In Tessra importieren"_s, u"Schließen"_s, u"Hilfe"_s});
        row("en", "Venue database",
            {u"Complex name:"_s, u"Search"_s, u"Reset"_s, u"Editing date (UTC)"_s, u"Venue details"_s,
             u"Clearance of house grid (m):"_s, u"File selector: "_s, u"Import to Tessra"_s, u"Close"_s,
             u"Help"_s});
        row("es", "Base de datos de recintos",
            {u"Nombre del complejo:"_s, u"Buscar"_s, u"Restablecer"_s, u"Editado el (UTC)"_s,
             u"Detalles del recinto"_s, u"Altura libre bajo peine (m):"_s, u"Archivo de modelo: "_s,
             u"Importar a Tessra"_s, u"Cerrar"_s, u"Ayuda"_s});
        row("fr", "Base de données des lieux",
            {u"Nom du complexe:"_s, u"Rechercher"_s, u"Réinitialiser"_s, u"Modifié le (UTC)"_s,
             u"Détails du lieu"_s, u"Hauteur libre sous gril (m):"_s, u"Fichier modèle : "_s,
             u"Importer dans Tessra"_s, u"Fermer"_s, u"Aide"_s});
        row("it", "Database delle sedi",
            {u"Nome del complesso:"_s, u"Cerca"_s, u"Reimposta"_s, u"Modificato il (UTC)"_s,
             u"Dettagli della sede"_s, u"Altezza libera graticcia (m):"_s, u"File del modello: "_s,
             u"Importa in Tessra"_s, u"Chiudi"_s, u"Guida"_s});
        row("ja", "会場データベース",
            {u"複合施設名:"_s, u"検索"_s, u"リセット"_s, u"編集日時 (UTC)"_s, u"会場の詳細"_s,
             u"すのこ下の有効高さ (m):"_s, u"モデルファイル: "_s, u"Tessra に読み込む"_s, u"閉じる"_s,
             u"ヘルプ"_s});
    }
    void ADialogSpeaksTheHostsLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QStringList, texts);
        auto translator = LoadedTranslator(QLocale(language));
        QVERIFY(translator);
        const InstalledTranslator installed(std::move(translator));
        const ShownDialog shown;
        QVERIFY(shown.isShown);

        QTEST(shown.dialog.windowTitle(), "title");
        const QStringList visible = shown.VisibleTexts();
        for (const QString& text : texts)
            QVERIFY2(visible.contains(text), qPrintable(text));
        // What comes from the server, and the names of the countries, are as they were.
        QCOMPARE(shown.table->model()->index(0, 4).data().toString(), u"Germany"_s);
        QCOMPARE(shown.dialog.findChild<QComboBox*>()->itemText(1), u"Germany"_s);
        QVERIFY(visible.contains(u"General"_s));
        QVERIFY(visible.contains(u"Loading dock"_s));
        QVERIFY(visible.contains(u"Rigging"_s));
    }

    void NothingIsCutOffInAnyLanguage_data()
    {
        AddLanguageRows();
    }
    void NothingIsCutOffInAnyLanguage()
    {
        QFETCH(QString, language);
        auto translator = LoadedTranslator(QLocale(language));
        QVERIFY(translator);
        const InstalledTranslator installed(std::move(translator));
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QCOMPARE(shown.dialog.size(), QSize(1062, 768));
        QCOMPARE(CutOffTexts(shown), QStringList());
    }

    void NothingIsCutOffInTextsLongerByHalf()
    {
        const InstalledTranslator installed(std::make_unique<LongTranslator>());
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QCOMPARE(shown.dialog.windowTitle(), u"[Venue database xxxxx ]"_s);
        QCOMPARE(shown.dialog.size(), QSize(1062, 768));
        // The columns stand under the search fields, the last one under the two buttons: its label has no
        // more room than they have. The texts that are drawn instead of a picture are cut off in English
        // already.
        QCOMPARE(CutOffTexts(shown), QStringList({u"[Editing date (UTC) xxxxx xx]"_s}));
    }

    void ALanguageThatIsNotThereLeavesTheSourceTexts()
    {
        QVERIFY(!LoadedTranslator(QLocale(u"fi_FI"_s)));
    }

    void ARegionGetsItsLanguage()
    {
        const auto translator = LoadedTranslator(QLocale(u"de_AT"_s));
        QVERIFY(translator);
        QCOMPARE(translator->translate("korvel::Ui::VenueDatabase::VenueDbDialogBase", "Help"), u"Hilfe"_s);
    }
};

QTEST_MAIN(tst_Translations)
#include "tst_Translations.moc"
