#include <demo/MainWindow.h>
#include <demo/PlanView.h>
#include <tests/support/Widgets.h>
#include <tests/tour/Hands.h>
#include <tests/tour/Texts.h>
#include <tests/tour/TourSteps.h>

#include <ui/VenueDbDialog.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

namespace {

void RequireListed(const TourContext& context, QList<qint64> expected, const QString& what)
{
    QList<qint64> listed = context.ListedIds();
    std::sort(listed.begin(), listed.end());
    std::sort(expected.begin(), expected.end());
    Require(!expected.isEmpty(), u"the catalogue has something to find"_s);
    RequireEqual(listed, expected, what);
}

QComboBox* CountryChooser(const TourContext& context)
{
    return Hands::FieldBeside<QComboBox>(context.Dialog(), Texts::FieldLabel("Country"));
}

QString EmptyPlan(TourContext& context)
{
    // The window started in the other theme, so this one comes as it does for users: by a key, at run time.
    Hands::Press(Qt::Key_B, Qt::ControlModifier);
    auto* plan = context.window->findChild<PlanView*>();
    Require(!plan->HasVenue(), u"the plan is empty"_s);
    const QColor paper = Theme(context.dayMode).Colour(u"plan-paper"_s);
    const QImage image = plan->grab().toImage();
    Require(image.pixelColor(3, 3) == paper || image.pixelColor(7, 5) == paper,
            u"the plan has the theme's paper"_s);
    return u"Ctrl+B changed the theme, the plan says how to begin"_s;
}

QString AllVenues(TourContext& context)
{
    auto* button = context.window->findChild<QToolButton*>(u"venueDatabaseButton"_s);
    Hands::Click(button);
    auto* dialog = context.Dialog();
    const auto everything = context.CatalogueIds([](const VenueRecord&) { return true; });
    Hands::WaitUntil(
        [&] {
            return context.ListedIds().size() == everything.size() && CountryChooser(context)->isEnabled()
                && dialog->GetStatusLabel()->text().isEmpty();
        },
        u"the first search ends"_s);
    RequireListed(context, everything, u"listed"_s);
    context.WaitForItsSize();
    const QStringList names = Test::ColumnTexts(context.Table(), 1);
    for (const VenueRecord& venue : context.catalogue->Venues())
        Require(names.contains(venue.title), venue.title + u" is listed"_s);
    return u"%1 venues, the whole catalogue"_s.arg(everything.size());
}

QString FilteredSearch(TourContext& context)
{
    Hands::Fill(Hands::FieldBeside<QLineEdit>(context.Dialog(), Texts::FieldLabel("City")), u"paris"_s);
    Hands::Press(Qt::Key_Return);
    const auto inParis = context.CatalogueIds(
        [](const VenueRecord& venue) { return venue.locality.contains(u"paris"_s, Qt::CaseInsensitive); });
    RequireListed(context, inParis, u"listed"_s);
    for (const QString& city : Test::ColumnTexts(context.Table(), 3))
        RequireEqual(city, u"Paris"_s, u"city"_s);
    return u"%1 venues, all in Paris"_s.arg(inParis.size());
}

QString CountrySearch(TourContext& context)
{
    context.ClickReset();
    QComboBox* chooser = CountryChooser(context);
    const QStringList countries = Test::ItemTexts(chooser);
    RequireEqual(countries.value(0), u"--"_s, u"first entry"_s);
    const auto inJapan
        = context.CatalogueIds([](const VenueRecord& venue) { return venue.countryCode == u"JP"_s; });

    Hands::Choose(chooser, [&] {
        Hands::Type(u"jap"_s);
        context.takePicture();
    });
    RequireEqual(chooser->currentText(), u"Japan"_s, u"chosen"_s);
    context.ClickSearch();
    RequireListed(context, inJapan, u"listed"_s);
    for (const QString& country : Test::ColumnTexts(context.Table(), 4))
        RequireEqual(country, u"Japan"_s, u"country"_s);
    RequireEqual(chooser->currentText(), u"Japan"_s, u"still chosen"_s);
    return u"%1 of %2 countries chosen, %3 venues"_s.arg(chooser->currentText())
        .arg(countries.size() - 1)
        .arg(inJapan.size());
}

/// The dates that the catalogue has for the listed venues, from the newest down; a venue whose date the
/// module does not know counts as the oldest. \p isReversed: the same read from the bottom.
void RequireNewestFirst(const TourContext& context, bool isReversed)
{
    const QList<qint64> ids = context.ListedIds();
    const QStringList texts = Test::ColumnTexts(context.Table(), 5);
    QStringList dates;
    for (qsizetype row = 0; row < ids.size(); ++row)
        dates.append(texts[row].isEmpty() ? QString() : context.Venue(ids[row]).changed.left(19));
    if (isReversed)
        std::reverse(dates.begin(), dates.end());
    for (qsizetype row = 1; row < dates.size(); ++row)
        Require(dates[row] <= dates[row - 1], u"%1 stands below %2"_s.arg(dates[row], dates[row - 1]));
    Require(dates.constFirst() > dates.at(dates.size() / 2), u"the dates differ"_s);
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
    const QString newest = Test::ColumnTexts(context.Table(), 5).constFirst();
    context.takePicture();
    clickDates();
    RequireNewestFirst(context, true);
    return u"latest first, %1 on top, and the other way round"_s.arg(newest);
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
