#include <demo/host/Theme.h>

#include <support/MessageGuard.h>

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QIcon>
#include <QRegularExpression>
#include <QTest>

#include <cmath>

using korvel::Demo::Theme;

namespace {

/// Relative luminance of a colour as the web's accessibility guidelines define it.
double Luminance(const QColor& colour)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    // A list: of two values std::minmax() would return references to what is gone.
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

/// The reference host's style sheet: complete, readable, and every file it names is there.
class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }
    void cleanup()
    {
        QVERIFY(korvel::Test::NoWindowIsLeft());
    }

    void TextIsReadableOnItsGround_data();
    void TextIsReadableOnItsGround();
    void EveryStyleClassOfTheModuleHasARule();
    void NoNameOfAColourIsLeftInTheSheet();
    void EveryPictureOfTheSheetCanBeLoaded();
    void FoldingIconsAreWhereTheModuleLooks_data();
    void FoldingIconsAreWhereTheModuleLooks();
};

void tst_Theme::TextIsReadableOnItsGround_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ground");
    const struct
    {
        const char* text;
        QStringList grounds;
    } pairs[] = {
        {"text",
         QStringLiteral("window surface surface-alt raised raised-hover raised-pressed row-hover")
             .split(QLatin1Char(' '))},
        {"text-muted", QStringLiteral("window surface raised-off plan-paper").split(QLatin1Char(' '))},
        {"accent-text", QStringLiteral("accent accent-hover accent-pressed").split(QLatin1Char(' '))},
        {"selection-text", {QStringLiteral("selection")}},
        {"caption-text", {QStringLiteral("caption-bar")}},
        {"tooltip-text", {QStringLiteral("tooltip")}},
        {"plan-text", QStringLiteral("plan-paper plan-stage plan-seats plan-floor").split(QLatin1Char(' '))},
        {"plan-text-muted", {QStringLiteral("plan-paper")}},
    };
    for (const auto& pair : pairs) {
        for (const QString& ground : pair.grounds)
            QTest::addRow("%s on %s", pair.text, qPrintable(ground))
                << QString::fromLatin1(pair.text) << ground;
    }
}

void tst_Theme::TextIsReadableOnItsGround()
{
    QFETCH(QString, text);
    QFETCH(QString, ground);
    for (const bool dayMode : {true, false}) {
        const Theme theme(dayMode);
        const double contrast = Contrast(theme.Colour(text), theme.Colour(ground));
        QVERIFY2(contrast >= 4.5,
                 qPrintable(QStringLiteral("%1 : 1 in day mode %2").arg(contrast).arg(dayMode)));
    }
}

void tst_Theme::EveryStyleClassOfTheModuleHasARule()
{
    const QString sheet = Theme(true).StyleSheet();
    static const QRegularExpression styleClass(QStringLiteral(
        "\"((?:dialog|widget|label|button|frame|lineEdit|textEdit|comboBox|line|tableView|splitter|"
        "scrollArea)Korvel[A-Za-z]+)\""));
    QSet<QString> used;
    QDirIterator sources(QStringLiteral(VDB_SOURCE_DIR "/ui"), {QStringLiteral("*.cpp")}, QDir::Files);
    while (sources.hasNext()) {
        QFile source(sources.next());
        QVERIFY(source.open(QIODevice::ReadOnly));
        for (const auto& match : styleClass.globalMatch(QString::fromUtf8(source.readAll())))
            used.insert(match.captured(1));
    }
    QVERIFY2(used.size() >= 10, "the module's sources name its style classes");
    for (const QString& name : std::as_const(used)) {
        QVERIFY2(sheet.contains(QStringLiteral("[customStyle=\"%1\"]").arg(name)), qPrintable(name));
        // A plain widget can carry a button's class: a rule for the bare class would catch it.
        QVERIFY2(!sheet.contains(
                     QRegularExpression(QStringLiteral("(^|[\\s,*>])\\[customStyle=\"%1\"").arg(name))),
                 qPrintable(name));
    }
}

void tst_Theme::NoNameOfAColourIsLeftInTheSheet()
{
    for (const bool dayMode : {true, false})
        QVERIFY(!Theme(dayMode).StyleSheet().contains(QLatin1Char('@')));
    QVERIFY(Theme(true).StyleSheet() != Theme(false).StyleSheet());
}

void tst_Theme::EveryPictureOfTheSheetCanBeLoaded()
{
    static const QRegularExpression reference(QStringLiteral("url\\(\"([^\"]+)\"\\)"));
    int pictures = 0;
    for (const bool dayMode : {true, false}) {
        for (const auto& match : reference.globalMatch(Theme(dayMode).StyleSheet())) {
            QVERIFY2(!QPixmap(match.captured(1)).isNull(), qPrintable(match.captured(1)));
            ++pictures;
        }
    }
    QVERIFY(pictures > 10);
}

void tst_Theme::FoldingIconsAreWhereTheModuleLooks_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"korvelFoldingWidgetOpen", "korvelFoldingWidgetOpen_day",
                             "korvelFoldingWidgetClosed", "korvelFoldingWidgetClosed_day"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_Theme::FoldingIconsAreWhereTheModuleLooks()
{
    QFETCH(QString, name);
    const QImage icon = QPixmap(QStringLiteral(":/Resources/%1.svg").arg(name)).toImage();
    QCOMPARE(icon.size(), QSize(16, 16));
    // The day icons stand on a light bar, the others on a dark one.
    const Theme theme(name.endsWith(QStringLiteral("_day")));
    double strongest = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const QColor pixel = icon.pixelColor(x, y);
            if (pixel.alpha() > 200)
                strongest = std::max(strongest, Contrast(pixel, theme.Colour(QStringLiteral("caption-bar"))));
        }
    }
    QVERIFY2(strongest >= 4.5, qPrintable(QString::number(strongest)));
}

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
