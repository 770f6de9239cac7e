#include <demo/MainWindow.h>
#include <demo/PlanView.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <ui/VenueDbDialog.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

namespace korvel::Demo {

namespace {

void RequireListed(const TourContext& context, QList<qint64> expected, const QString& what)
{
    QList<qint64> listed = context.ListedIds();
    std::sort(listed.begin(), listed.end());
    std::sort(expected.begin(), expected.end());
    Require(!expected.isEmpty(), QStringLiteral("the catalogue has something to find"));
    RequireEqual(listed, expected, what);
}

/// The texts of one column from top to bottom.
QStringList ColumnTexts(const TourContext& context, int column)
{
    QStringList texts;
    const QAbstractItemModel* model = context.Table()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, column).data().toString());
    return texts;
}

QComboBox* CountryChooser(const TourContext& context)
{
    return Hands::FieldBeside<QComboBox>(context.Dialog(), Texts::FieldLabel("Country"));
}

QString EmptyPlan(TourContext& context)
{
    // The window started in the other theme, so this one comes as it does for users: by a key, at run time.
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    const auto* plan = context.window->findChild<PlanView*>();
    Require(!plan->HasVenue(), QStringLiteral("the plan is empty"));
    const QColor paper = Theme(context.dayMode).Colour(QStringLiteral("plan-paper"));
    QWidget* view = context.window->findChild<PlanView*>();
    const QImage image = view->grab().toImage();
    Require(image.pixelColor(3, 3) == paper || image.pixelColor(7, 5) == paper,
            QStringLiteral("the plan has the theme's paper"));
    return QStringLiteral("Ctrl+B changed the theme, the plan says how to begin");
}

QString AllVenues(TourContext& context)
{
    auto* button = context.window->findChild<QToolButton*>(QStringLiteral("venueDatabaseButton"));
    Hands::Click(button);
    auto* dialog = context.Dialog();
    const auto everything = context.CatalogueIds([](const VenueRecord&) { return true; });
    Hands::WaitUntil(
        [&] {
            return context.ListedIds().size() == everything.size() && CountryChooser(context)->isEnabled()
                && dialog->GetStatusLabel()->text().isEmpty();
        },
        QStringLiteral("the first search ends"));
    RequireListed(context, everything, QStringLiteral("listed"));
    if (dialog->screen()->availableGeometry().height() > 800)
        RequireEqual(dialog->size(), QSize(1062, 768), QStringLiteral("size of the dialog"));
    else
        Require(dialog->isMaximized(), QStringLiteral("the dialog is maximised on a small screen"));
    const QStringList names = ColumnTexts(context, 1);
    for (const VenueRecord& venue : context.catalogue->Venues())
        Require(names.contains(venue.title), venue.title + QStringLiteral(" is listed"));
    return QStringLiteral("%1 venues, the whole catalogue").arg(everything.size());
}

QString FilteredSearch(TourContext& context)
{
    Hands::Fill(Hands::FieldBeside<QLineEdit>(context.Dialog(), Texts::FieldLabel("City")),
                QStringLiteral("paris"));
    Hands::Press(Qt::Key_Return);
    const auto inParis = context.CatalogueIds([](const VenueRecord& venue) {
        return venue.locality.contains(QStringLiteral("paris"), Qt::CaseInsensitive);
    });
    RequireListed(context, inParis, QStringLiteral("listed"));
    for (const QString& city : ColumnTexts(context, 3))
        RequireEqual(city, QStringLiteral("Paris"), QStringLiteral("city"));
    return QStringLiteral("%1 venues, all in Paris").arg(inParis.size());
}

QString CountrySearch(TourContext& context)
{
    context.ClickReset();
    QComboBox* chooser = CountryChooser(context);
    QStringList countries;
    for (int item = 0; item < chooser->count(); ++item)
        countries.append(chooser->itemText(item));
    RequireEqual(countries.value(0), QStringLiteral("--"), QStringLiteral("first entry"));
    const auto inJapan = context.CatalogueIds(
        [](const VenueRecord& venue) { return venue.countryCode == QStringLiteral("JP"); });

    Hands::Choose(chooser, [&] {
        Hands::Type(QStringLiteral("jap"));
        Hands::Settle();
        context.takePicture();
    });
    RequireEqual(chooser->currentText(), QStringLiteral("Japan"), QStringLiteral("chosen"));
    context.ClickSearch();
    RequireListed(context, inJapan, QStringLiteral("listed"));
    for (const QString& country : ColumnTexts(context, 4))
        RequireEqual(country, QStringLiteral("Japan"), QStringLiteral("country"));
    RequireEqual(chooser->currentText(), QStringLiteral("Japan"), QStringLiteral("still chosen"));
    return QStringLiteral("%1 of %2 countries chosen, %3 venues")
        .arg(chooser->currentText())
        .arg(countries.size() - 1)
        .arg(inJapan.size());
}

/// The dates that the catalogue has for the listed venues, from the newest down; a venue whose date the
/// module does not know counts as the oldest. \p isReversed: the same read from the bottom.
void RequireNewestFirst(const TourContext& context, bool isReversed)
{
    const QList<qint64> ids = context.ListedIds();
    const QStringList texts = ColumnTexts(context, 5);
    QStringList dates;
    for (qsizetype row = 0; row < ids.size(); ++row)
        dates.append(texts[row].isEmpty() ? QString() : context.Venue(ids[row]).changed.left(19));
    if (isReversed)
        std::reverse(dates.begin(), dates.end());
    for (qsizetype row = 1; row < dates.size(); ++row)
        Require(dates[row] <= dates[row - 1],
                QStringLiteral("%1 stands below %2").arg(dates[row], dates[row - 1]));
    Require(dates.constFirst() > dates.at(dates.size() / 2), QStringLiteral("the dates differ"));
}

QString DateSort(TourContext& context)
{
    context.ClickReset();
    QHeaderView* header = context.Table()->horizontalHeader();
    const auto clickDates = [header] {
        constexpr int c_dateColumn = 5;
        Hands::Click(header->viewport(),
                     QPoint(header->sectionViewportPosition(c_dateColumn) + 40, header->height() / 2));
    };
    clickDates();
    RequireNewestFirst(context, false);
    const QString newest = ColumnTexts(context, 5).constFirst();
    Hands::Settle();
    context.takePicture();
    clickDates();
    RequireNewestFirst(context, true);
    return QStringLiteral("latest first, %1 on top, and the other way round").arg(newest);
}

} // namespace

std::span<const TourStep> SearchSteps()
{
    static const TourStep steps[] = {
        {"empty plan", EmptyPlan},           {"all venues", AllVenues},
        {"filtered search", FilteredSearch}, {"search by country", CountrySearch},
        {"sorted by date", DateSort},
    };
    return steps;
}

} // namespace korvel::Demo
