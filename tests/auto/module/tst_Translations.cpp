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

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

const QString c_styleValue = QStringLiteral("labelKorvelCaptionSmall");

/// One text of a translation file.
struct Text
{
    QString context;
    QString source;
    QString translation;
    /// What the file says besides: "unfinished", "vanished", "obsolete".
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
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            text = {context, xml.readElementText(), {}, {}};
        } else if (xml.name() == QLatin1String("translation")) {
            text.type = xml.attributes().value(QLatin1String("type")).toString();
            text.translation = xml.readElementText();
            texts.append(text);
        }
    }
    return xml.hasError() ? QList<Text>() : texts;
}

QStringList Placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%(\\d+|n)"));
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
    const bool isLoaded = translator->load(locale, QStringLiteral("kvvenuedatabase"), QStringLiteral("_"),
                                           QStringLiteral(":/kvVenueDatabase/translations"));
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
        connector.venues = {MakeVenue(7, QStringLiteral("Festspielhaus"), QStringLiteral("Germany"))};
        connector.onGetFiles = [](qint64) { return QList<TsFile>{MakeFile(QStringLiteral("stage.tessra"))}; };
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
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts.append(label->text());
        }
        for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isVisible())
                texts.append(button->text());
        }
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
    for (const QLabel* label : shown.dialog.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty() && IsCutOff(label))
            texts.append(label->text());
    }
    for (const QPushButton* button : shown.dialog.findChildren<QPushButton*>()) {
        if (button->isVisible() && !button->text().isEmpty() && button->sizeHint().width() > button->width())
            texts.append(button->text());
    }
    const QHeaderView* header = shown.table->horizontalHeader();
    for (int column = 1; column < header->count(); ++column) {
        if (header->sectionSizeHint(column) > header->sectionSize(column))
            texts.append(shown.table->model()->headerData(column, Qt::Horizontal).toString());
    }
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
            QVERIFY2(text.type.isEmpty(), qPrintable(text.source + QLatin1String(": ") + text.type));
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
        const QString copy = folder.filePath(QStringLiteral("kvvenuedatabase_%1.ts").arg(language));
        QVERIFY(QFile::copy(TsPath(language), copy));

        QJsonArray sources;
        for (const char* part : {"data", "ui"}) {
            QDirIterator files(QStringLiteral(VDB_SOURCE_DIR "/") + QString::fromLatin1(part),
                               {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                               QDirIterator::Subdirectories);
            while (files.hasNext())
                sources.append(files.next());
        }
        QVERIFY(sources.size() > 40);
        const QJsonObject project{
            {QStringLiteral("projectFile"), QStringLiteral("CMakeLists.txt")},
            {QStringLiteral("includePaths"), QJsonArray{QStringLiteral(VDB_SOURCE_DIR)}},
            {QStringLiteral("sources"), sources},
            {QStringLiteral("translations"), QJsonArray{copy}}};
        const QString projectFile = folder.filePath(QStringLiteral("project.json"));
        WriteFile(projectFile, QJsonDocument(project).toJson());

        QProcess lupdate;
        lupdate.start(QStringLiteral(VDB_LUPDATE),
                      {QStringLiteral("-project"), projectFile, QStringLiteral("-no-obsolete"),
                       QStringLiteral("-locations"), QStringLiteral("none")});
        QVERIFY(lupdate.waitForFinished());
        QCOMPARE(lupdate.exitCode(), 0);
        QCOMPARE(ContentOf(copy), ContentOf(TsPath(language)));
    }

    void ContextsAreTheFullClassNames()
    {
        QStringList contexts;
        for (const Text& text : TextsOf(QStringLiteral("de"))) {
            if (!contexts.contains(text.context))
                contexts.append(text.context);
        }
        contexts.sort();
        const QString prefix = QStringLiteral("korvel::Ui::VenueDatabase::");
        // None of the connector and the downloader: their texts are not translated.
        QCOMPARE(
            contexts,
            QStringList(
                {QStringLiteral("QObject"), prefix + QStringLiteral("FoldingIcon"),
                 prefix + QStringLiteral("PictureFullscreenDialog"),
                 prefix + QStringLiteral("PictureNavigationButton"), prefix + QStringLiteral("PictureSlider"),
                 prefix + QStringLiteral("TsFileOpener"), prefix + QStringLiteral("VenueDbCentralWidget"),
                 prefix + QStringLiteral("VenueDbDialog"), prefix + QStringLiteral("VenueDbDialogBase"),
                 prefix + QStringLiteral("VenueDetailsWidget")}));
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
        QCOMPARE(textsWithPlaceholder, 2);
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
        for (const QLabel* label : panel.findChildren<QLabel*>()) {
            if (label->property("customStyle") == c_styleValue)
                captions.append(label->text());
        }
        // The captions of slider and viewer, and the section captions, which are not translated.
        captions.sort();
        QCOMPARE(captions,
                 QStringList({QStringLiteral("-/0"), QStringLiteral("-/0"), QStringLiteral("General"),
                              QStringLiteral("Loading dock"), QStringLiteral("Rigging")}));
    }

    void EnglishIsTheSourceText()
    {
        for (const Text& text : TextsOf(QStringLiteral("en")))
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
            {QStringLiteral("Name des Komplexes:"), QStringLiteral("Suchen"), QStringLiteral("Zurücksetzen"),
             QStringLiteral("Bearbeitet am (UTC)"), QStringLiteral("Details zur Spielstätte"),
             QStringLiteral("Lichte Höhe Schnürboden (m):"), QStringLiteral("Modelldatei: "),
             QStringLiteral("In Tessra importieren"), QStringLiteral("Schließen"), QStringLiteral("Hilfe")});
        row("en", "Venue database",
            {QStringLiteral("Complex name:"), QStringLiteral("Search"), QStringLiteral("Reset"),
             QStringLiteral("Editing date (UTC)"), QStringLiteral("Venue details"),
             QStringLiteral("Clearance of house grid (m):"), QStringLiteral("File selector: "),
             QStringLiteral("Import to Tessra"), QStringLiteral("Close"), QStringLiteral("Help")});
        row("es", "Base de datos de recintos",
            {QStringLiteral("Nombre del complejo:"), QStringLiteral("Buscar"), QStringLiteral("Restablecer"),
             QStringLiteral("Editado el (UTC)"), QStringLiteral("Detalles del recinto"),
             QStringLiteral("Altura libre bajo peine (m):"), QStringLiteral("Archivo de modelo: "),
             QStringLiteral("Importar a Tessra"), QStringLiteral("Cerrar"), QStringLiteral("Ayuda")});
        row("fr", "Base de données des lieux",
            {QStringLiteral("Nom du complexe:"), QStringLiteral("Rechercher"),
             QStringLiteral("Réinitialiser"), QStringLiteral("Modifié le (UTC)"),
             QStringLiteral("Détails du lieu"), QStringLiteral("Hauteur libre sous gril (m):"),
             QStringLiteral("Fichier modèle : "), QStringLiteral("Importer dans Tessra"),
             QStringLiteral("Fermer"), QStringLiteral("Aide")});
        row("it", "Database delle sedi",
            {QStringLiteral("Nome del complesso:"), QStringLiteral("Cerca"), QStringLiteral("Reimposta"),
             QStringLiteral("Modificato il (UTC)"), QStringLiteral("Dettagli della sede"),
             QStringLiteral("Altezza libera graticcia (m):"), QStringLiteral("File del modello: "),
             QStringLiteral("Importa in Tessra"), QStringLiteral("Chiudi"), QStringLiteral("Guida")});
        row("ja", "会場データベース",
            {QStringLiteral("複合施設名:"), QStringLiteral("検索"), QStringLiteral("リセット"),
             QStringLiteral("編集日時 (UTC)"), QStringLiteral("会場の詳細"),
             QStringLiteral("すのこ下の有効高さ (m):"), QStringLiteral("モデルファイル: "),
             QStringLiteral("Tessra に読み込む"), QStringLiteral("閉じる"), QStringLiteral("ヘルプ")});
    }
    void ADialogSpeaksTheHostsLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QString, title);
        QFETCH(QStringList, texts);
        auto translator = LoadedTranslator(QLocale(language));
        QVERIFY(translator);
        const InstalledTranslator installed(std::move(translator));
        const ShownDialog shown;
        QVERIFY(shown.isShown);

        QCOMPARE(shown.dialog.windowTitle(), title);
        const QStringList visible = shown.VisibleTexts();
        for (const QString& text : texts)
            QVERIFY2(visible.contains(text), qPrintable(text));
        // What comes from the server, and the names of the countries, are as they were.
        QCOMPARE(shown.table->model()->index(0, 4).data().toString(), QStringLiteral("Germany"));
        QCOMPARE(shown.dialog.findChild<QComboBox*>()->itemText(1), QStringLiteral("Germany"));
        QVERIFY(visible.contains(QStringLiteral("General")));
        QVERIFY(visible.contains(QStringLiteral("Loading dock")));
        QVERIFY(visible.contains(QStringLiteral("Rigging")));
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
        QCOMPARE(shown.dialog.windowTitle(), QStringLiteral("[Venue database xxxxx ]"));
        QCOMPARE(shown.dialog.size(), QSize(1062, 768));
        // The columns stand under the search fields, the last one under the two buttons: its label has no
        // more room than they have. The texts that are drawn instead of a picture are cut off in English
        // already.
        QCOMPARE(CutOffTexts(shown), QStringList({QStringLiteral("[Editing date (UTC) xxxxx xx]")}));
    }

    void ALanguageThatIsNotThereLeavesTheSourceTexts()
    {
        QVERIFY(!LoadedTranslator(QLocale(QStringLiteral("fi_FI"))));
    }

    void ARegionGetsItsLanguage()
    {
        const auto translator = LoadedTranslator(QLocale(QStringLiteral("de_AT")));
        QVERIFY(translator);
        QCOMPARE(translator->translate("VenueDbDialogBase", "Help"), QStringLiteral("Hilfe"));
    }
};

QTEST_MAIN(tst_Translations)

#include "tst_Translations.moc"
