#include <ui/PictureSlider.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// The panel's own fields, in the order in which a reader finds them: labels "Address" and "Comment" exist
/// several times. From the general comment on they have several lines.
enum Field
{
    Id,
    Editor,
    EditDate,
    UploadDate,
    ComplexName,
    VenueRoomName,
    DockAddress,
    Clearance,
    GeneralComment,
    Address,
    LocationComment,
    DockComment,
    RiggingComment
};
constexpr Field c_comments[] = {GeneralComment, Address, LocationComment, DockComment, RiggingComment};

QList<QLineEdit*> LineEdits(const QWidget& panel)
{
    return panel.findChildren<QLineEdit*>();
}

QList<QTextEdit*> TextEdits(const QWidget& panel)
{
    return panel.findChildren<QTextEdit*>();
}

QTextEdit* Comment(const QWidget& panel, Field field)
{
    return TextEdits(panel).value(field - GeneralComment);
}

QWidget* Widget(const QWidget& panel, Field field)
{
    return field < GeneralComment ? static_cast<QWidget*>(LineEdits(panel).value(field))
                                  : Comment(panel, field);
}

QString Text(const QWidget& panel, Field field)
{
    return field < GeneralComment ? LineEdits(panel).value(field)->text()
                                  : Comment(panel, field)->toPlainText();
}

/// The texts of all fields, one after the other.
QString AllTexts(const QWidget& panel)
{
    QString texts;
    for (int field = Id; field <= RiggingComment; ++field)
        texts += Text(panel, Field(field));
    return texts;
}

QScrollArea* Body(const QWidget& panel)
{
    return panel.findChild<QScrollArea*>();
}

QWidget* CaptionBar(const QWidget& panel)
{
    return Label(panel, u"Venue details"_s)->parentWidget();
}

QColor FoldIconColour(const QWidget& panel)
{
    return FoldIcon(panel)->pixmap().toImage().pixelColor(8, 8);
}

QRect GeometryIn(const QWidget& panel, const QWidget* widget)
{
    return {widget->mapTo(&panel, QPoint(0, 0)), widget->size()};
}

QList<Picture> TwoPictures()
{
    return {MakePicture({}, {}, u"Stage"_s), Picture()};
}

QList<TsFile> TwoFiles()
{
    return {MakeFile(u"a.tessra"_s), MakeFile(u"b.tessra"_s)};
}

void Fill(VenueDetailsWidget& panel, Venue venue)
{
    QList<Picture> pictures = TwoPictures();
    QList<TsFile> files = TwoFiles();
    panel.UpdateUi(&venue, &pictures, &files);
}

struct FilledPanel : VenueDetailsWidget
{
    FilledPanel()
    {
        Fill(*this, FilledVenue(4294967297));
    }
};

/// The same on the screen.
struct ShownPanel : FilledPanel
{
    explicit ShownPanel(int width = 1062)
    {
        resize(width, 516);
        show();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
};

/// An empty one, shown and expanded.
struct ExpandedPanel : VenueDetailsWidget
{
    ExpandedPanel()
    {
        SetCollapsed(false);
        show();
    }
};

} // namespace

/// A host that supplies none of the four icons, as long as this lives. Resources are known outside
/// of namespaces only.
struct WithoutIcons
{
    WithoutIcons()
    {
        Q_CLEANUP_RESOURCE(foldingIcons);
    }
    ~WithoutIcons()
    {
        Q_INIT_RESOURCE(foldingIcons);
    }
    Q_DISABLE_COPY_MOVE(WithoutIcons)
};

class tst_VenueDetailsWidget : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void StartsEmptyAndExpanded()
    {
        const VenueDetailsWidget panel;
        QCOMPARE(LineEdits(panel).size(), 8);
        QCOMPARE(TextEdits(panel).size(), 5);
        QCOMPARE(AllTexts(panel), QString());
        QCOMPARE(panel.minimumHeight(), 516);
        QCOMPARE(panel.maximumHeight(), 516);
        QVERIFY(!Body(panel)->isHidden());
        QVERIFY(!panel.findChild<PictureSlider*>()->isHidden());
        QVERIFY(!panel.findChild<TsFileOpener*>()->isHidden());
    }

    void EachFieldShowsItsValue()
    {
        FilledPanel panel;
        QCOMPARE(Text(panel, Id), u"4294967297"_s);
        QCOMPARE(Text(panel, Editor), u"42"_s);
        QCOMPARE(Text(panel, EditDate),
                 QLocale::system().toString(QDateTime(QDate(2024, 3, 1), QTime(10, 20, 30)),
                                            QLocale::ShortFormat));
        QVERIFY(Text(panel, EditDate).contains(u"10:20"_s));
        QCOMPARE(Text(panel, UploadDate),
                 QLocale::system().toString(QDate(2023, 2, 1), QLocale::ShortFormat));
        QVERIFY(Text(panel, UploadDate).contains(u"2023"_s));
        QCOMPARE(Text(panel, ComplexName), u"complex"_s);
        QCOMPARE(Text(panel, VenueRoomName), u"room"_s);
        QCOMPARE(Text(panel, GeneralComment), u"general"_s);
        QCOMPARE(Text(panel, LocationComment), u"location"_s);
        QCOMPARE(Text(panel, DockAddress), u"dock street"_s);
        QCOMPARE(Text(panel, DockComment), u"dock comment"_s);
        QCOMPARE(Text(panel, Clearance), u"12.5"_s);
        QCOMPARE(Text(panel, RiggingComment), u"rigging"_s);
    }

    void AddressShowsItsLinesAsLines()
    {
        FilledPanel panel;
        QCOMPARE(Text(panel, Address), u"Main St 5\n10115 Berlin\nGermany"_s);
        QCOMPARE(Comment(panel, Address)->document()->blockCount(), 3);
    }

    void UnknownValuesAreMinusOneOrEmpty()
    {
        FilledPanel panel;
        Fill(panel, Venue());
        QCOMPARE(Text(panel, Id), u"-1"_s);
        QCOMPARE(Text(panel, Editor), u"-1"_s);
        QCOMPARE(AllTexts(panel), u"-1-1"_s);
    }

    void PicturesAndFilesAreHandedOn()
    {
        FilledPanel panel;
        QVERIFY(Label(panel, u"1/2 Stage"_s));
        const auto* combo = panel.findChild<QComboBox*>();
        QCOMPARE(combo->count(), 2);
        QCOMPARE(combo->itemText(1), u"b.tessra"_s);
    }

    void NullVenueAndResetEmptyEverything_data()
    {
        const Rows<std::function<void(VenueDetailsWidget&)>> row("empty");
        row("null venue", [](VenueDetailsWidget& panel) {
            QList<Picture> pictures = TwoPictures();
            QList<TsFile> files = TwoFiles();
            panel.UpdateUi(nullptr, &pictures, &files);
        });
        row("null venue without lists",
            [](VenueDetailsWidget& panel) { panel.UpdateUi(nullptr, nullptr, nullptr); });
        row("reset", &VenueDetailsWidget::ResetUi);
    }
    void NullVenueAndResetEmptyEverything()
    {
        QFETCH(std::function<void(VenueDetailsWidget&)>, empty);
        FilledPanel panel;
        empty(panel);
        QCOMPARE(AllTexts(panel), QString());
        QVERIFY(Label(panel, u"-/0"_s));
        QCOMPARE(panel.findChild<QComboBox*>()->count(), 0);
    }

    void EditorIsFilledButNeverVisible()
    {
        VenueDetailsWidget panel;
        panel.show();
        Fill(panel, FilledVenue(4294967297));
        QCOMPARE(Text(panel, Editor), u"42"_s);
        QVERIFY(!Widget(panel, Editor)->isVisible());
        QVERIFY(!Label(panel, u"Editor:"_s)->isVisible());
        panel.SetCollapsed(true);
        panel.SetCollapsed(false);
        QVERIFY(!Widget(panel, Editor)->isVisible());
        QVERIFY(Widget(panel, Id)->isVisible());
    }

    void HostileTextsAreShownLiterally()
    {
        const QString markup = u"<h1>Hall</h1><img src=\"/etc/x.png\" width=30000>&lt;"_s;
        Venue venue;
        venue.SetComplexName(markup);
        venue.SetVenueRoomName(markup);
        venue.SetGeneralComment(markup);
        venue.SetStreetAddress(markup);
        venue.SetLocationComment(markup);
        venue.SetLoadDockStreetAddress(markup);
        venue.SetLoadDockComment(markup);
        venue.SetClearingOfHouseGrid(QString(5000, u'W'));
        venue.SetRiggingComment(markup);
        VenueDetailsWidget panel;
        const QSize hint = panel.minimumSizeHint();
        Fill(panel, venue);
        for (const Field field : {ComplexName, VenueRoomName, DockAddress, GeneralComment, LocationComment,
                                  DockComment, RiggingComment})
            QCOMPARE(Text(panel, field), markup);
        QVERIFY2(Text(panel, Address).startsWith(markup), qPrintable(Text(panel, Address)));
        QCOMPARE(panel.minimumSizeHint(), hint);
        QCOMPARE(Body(panel)->widget()->minimumSizeHint().width() <= 1046, true);
    }

    void LongTextsShowTheirBeginning()
    {
        VenueDetailsWidget panel;
        Venue venue;
        venue.SetComplexName(QString(500, u'x'));
        Fill(panel, venue);
        QCOMPARE(LineEdits(panel).value(ComplexName)->cursorPosition(), 0);
    }

    void RowsStandInOrder()
    {
        const ShownPanel panel;
        const auto field = [&panel](Field which) { return Widget(panel, which); };
        const auto caption = [&panel](const char* text) { return Label(panel, QString::fromLatin1(text)); };
        const QList<QWidgetList> columns{
            {field(Id), field(EditDate), field(UploadDate), field(ComplexName), field(VenueRoomName),
             panel.findChild<TsFileOpener*>()},
            {caption("General"), field(GeneralComment), field(Address), field(LocationComment)},
            {caption("Loading dock"), field(DockAddress), field(DockComment), caption("Rigging"),
             field(Clearance), field(RiggingComment)}};
        for (const QWidgetList& column : columns)
            for (qsizetype row = 1; row < column.size(); ++row)
                QVERIFY(GeometryIn(panel, column.at(row - 1)).bottom()
                        < GeometryIn(panel, column.at(row)).top());
    }

    void LabelsStandBeforeTheirFields_data()
    {
        const Rows<QString, Field> row("label", "field");
        row("id", u"ID:"_s, Id);
        row("editing date", u"Editing date (UTC):"_s, EditDate);
        row("upload date", u"Upload date:"_s, UploadDate);
        row("complex name", u"Complex name:"_s, ComplexName);
        row("venue/room name", u"Venue/room name:"_s, VenueRoomName);
        row("dock address", u"Address:"_s, DockAddress);
        row("clearance", u"Clearance of house grid (m):"_s, Clearance);
        row("general comment", u"General comment:"_s, GeneralComment);
        row("address", u"Address:"_s, Address);
        row("location comment", u"Location comment:"_s, LocationComment);
        row("dock comment", u"Comment:"_s, DockComment);
        row("rigging comment", u"Comment:"_s, RiggingComment);
    }
    void LabelsStandBeforeTheirFields()
    {
        const auto [text, field] = Fetch<QString, Field>();
        const ShownPanel panel;
        const QRect place = GeometryIn(panel, Widget(panel, field));
        const QList<QLabel*> labels = panel.findChildren<QLabel*>();
        const auto found
            = std::find_if(labels.cbegin(), labels.cend(), [&, &text = text](const QLabel* label) {
                  const QRect rect = GeometryIn(panel, label);
                  return label->text() == text && rect.top() == place.top() && rect.right() < place.left()
                      && place.left() - rect.right() < 20;
              });
        QVERIFY(found != labels.cend());
        QCOMPARE((*found)->minimumWidth(), 140);
        QCOMPARE(StyleOf(*found), u"labelKorvelLight"_s);
        if (field >= GeneralComment)
            QVERIFY((*found)->alignment().testFlag(Qt::AlignTop));
    }

    void FieldsAreReadOnlyAndStyled()
    {
        const VenueDetailsWidget panel;
        for (const QLineEdit* field : LineEdits(panel)) {
            QVERIFY(field->isReadOnly());
            QCOMPARE(StyleOf(field), u"lineEditKorvelDisplayOnly"_s);
        }
        for (const QTextEdit* field : TextEdits(panel)) {
            QVERIFY(field->isReadOnly());
            QCOMPARE(StyleOf(field), u"textEditKorvelDisplayOnly"_s);
            QCOMPARE(field->minimumHeight(), 54);
            QCOMPARE(field->maximumHeight(), 54);
        }
    }

    void StyleClassesOfTheFrame()
    {
        const VenueDetailsWidget panel;
        QCOMPARE(StyleOf(&panel), u"widgetKorvelDefault"_s);
        QCOMPARE(StyleOf(CaptionBar(panel)), u"widgetKorvelViewSectionHeaderBright"_s);
        QCOMPARE(StyleOf(Label(panel, u"Venue details"_s)), u"labelKorvelSectionCaptionDark"_s);
        QCOMPARE(StyleOf(Body(panel)), u"scrollAreaKorvelDefault"_s);
        QCOMPARE(StyleOf(Body(panel)->widget()), u"widgetKorvelDefault"_s);
        QCOMPARE(StyleOf(panel.findChild<TsFileOpener*>()), u"buttonKorvelDefault"_s);
        for (const char* section : {"General", "Loading dock", "Rigging"})
            QCOMPARE(StyleOf(Label(panel, QString::fromLatin1(section))), u"labelKorvelCaptionSmall"_s);
    }

    void SeparatorsAreThinLines()
    {
        const VenueDetailsWidget panel;
        int separators = 0;
        for (const QFrame* frame : panel.findChildren<QFrame*>()) {
            if (StyleOf(frame) != u"lineKorvelDark"_s)
                continue;
            ++separators;
            QCOMPARE(frame->frameShape(), QFrame::HLine);
            QCOMPARE(frame->minimumHeight(), 1);
            QCOMPARE(frame->maximumHeight(), 1);
            QCOMPARE(frame->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        }
        QCOMPARE(separators, 3);
        QCOMPARE(StyleOf(panel.layout()->itemAt(0)->widget()), u"lineKorvelDark"_s);
        QCOMPARE(panel.layout()->itemAt(1)->widget(), CaptionBar(panel));
        QCOMPARE(StyleOf(panel.layout()->itemAt(2)->widget()), u"lineKorvelDark"_s);
        QCOMPARE(panel.layout()->itemAt(3)->widget(), Body(panel));
    }

    void SizesOfTheFrame()
    {
        const VenueDetailsWidget panel;
        QCOMPARE(panel.sizePolicy(),
                 QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding));
        QCOMPARE(panel.layout()->contentsMargins(), QMargins());
        QCOMPARE(panel.layout()->spacing(), 0);
        QCOMPARE(CaptionBar(panel)->minimumHeight(), 34);
        QCOMPARE(CaptionBar(panel)->maximumHeight(), 34);
        // The icon and the caption, and nothing else.
        QCOMPARE(CaptionBar(panel)->layout()->count(), 2);
        QCOMPARE(Label(panel, u"Venue details"_s)->sizePolicy(),
                 QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Minimum));

        const QScrollArea* body = Body(panel);
        QVERIFY(body->widgetResizable());
        QCOMPARE(body->frameShape(), QFrame::NoFrame);
        QCOMPARE(body->maximumHeight(), 480);
        QCOMPARE(body->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
        QCOMPARE(body->sizePolicy(), QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Ignored));
        QCOMPARE(body->widget()->sizePolicy(),
                 QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed));
        QCOMPARE(body->widget()->minimumWidth(), 1046);
        QCOMPARE(body->widget()->minimumHeight(), 480);
        QCOMPARE(body->widget()->maximumHeight(), 480);
        QCOMPARE(body->widget()->layout()->contentsMargins(), QMargins(4, 4, 4, 0));
    }

    void SliderIsNotCutOff()
    {
        const ShownPanel panel;
        const auto* slider = panel.findChild<PictureSlider*>();
        QCOMPARE(slider->size(), QSize(500, 240));
        QCOMPARE(slider->parentWidget()->minimumHeight(), 240);
        QCOMPARE(slider->parentWidget()->maximumHeight(), 240);
        QVERIFY(slider->parentWidget()->rect().contains(slider->geometry()));
        QCOMPARE(slider->visibleRegion().boundingRect(), QRect(0, 0, 500, 240));
    }

    void NothingOfTheBodyIsCutOffOrOverlaps()
    {
        const ShownPanel panel;
        QVERIFY(!Body(panel)->horizontalScrollBar()->isVisible());
        QVERIFY(Body(panel)->verticalScrollBar()->isVisible());
        QList<QWidget*> shown;
        for (int field = Id; field <= RiggingComment; ++field)
            shown.append(Widget(panel, Field(field)));
        for (const char* section : {"General", "Loading dock", "Rigging"})
            shown.append(Label(panel, QString::fromLatin1(section)));
        shown.append(panel.findChild<PictureSlider*>());
        shown.append(panel.findChild<TsFileOpener*>());
        shown.removeOne(Widget(panel, Editor));
        const QRect content(QPoint(0, 0), Body(panel)->widget()->size());
        for (const QWidget* widget : std::as_const(shown)) {
            const QRect place = GeometryIn(*Body(panel)->widget(), widget);
            QVERIFY2(content.contains(place), widget->metaObject()->className());
            QVERIFY2(widget->height() >= std::min(widget->minimumSizeHint().height(), 54),
                     widget->metaObject()->className());
            for (const QWidget* other : std::as_const(shown))
                QVERIFY(other == widget || !GeometryIn(*Body(panel)->widget(), other).intersects(place));
        }
    }

    void RiggingStandsAtTheBottomOfItsColumn()
    {
        const VenueDetailsWidget panel;
        const QLabel* caption = Label(panel, u"Rigging"_s);
        QLayout* column = caption->parentWidget()->layout();
        const QSpacerItem* gap = column->itemAt(column->indexOf(caption) - 1)->spacerItem();
        QVERIFY(gap);
        QCOMPARE(gap->sizeHint(), QSize(1, 0));
        QCOMPARE(gap->expandingDirections(), Qt::Vertical);
    }

    void ColumnsStandInLine()
    {
        const ShownPanel panel(1200);
        const QRect general = GeometryIn(panel, Label(panel, u"General"_s));
        const QRect dock = GeometryIn(panel, Label(panel, u"Loading dock"_s));
        QCOMPARE(general.width(), 500);
        QCOMPARE(general.top(), dock.top());
        QVERIFY(dock.left() - general.right() - 1 >= 22);
        QCOMPARE(GeometryIn(panel, Label(panel, u"ID:"_s)).left(), dock.left());
        const QRect id = GeometryIn(panel, Widget(panel, Id));
        const QRect comment = GeometryIn(panel, Widget(panel, DockComment));
        QCOMPARE(id.left(), comment.left());
        QCOMPARE(id.right(), comment.right());
        QCOMPARE(GeometryIn(panel, Widget(panel, LocationComment)).bottom(),
                 GeometryIn(panel, Widget(panel, RiggingComment)).bottom());
    }

    void TooltipTellsWhatTheFieldMeans_data()
    {
        const Rows<Field, QString> row("field", "tooltip");
        row("complex name", ComplexName,
            u"Name of overall multi-venue building or campus (identical to Venue name if there "
            "is only one event venue in the building/on the campus)."_s);
        row("venue/room name", VenueRoomName,
            u"Name of the specific venue/room within the multi-venue building/campus (identical "
            "to Complex name if there is only one venue in the building)."_s);
        row("address", Address, u"Official address of venue."_s);
        row("location comment", LocationComment,
            u"Anything that is important to know when accessing the venue, such as \"try to "
            "arrive before 9am to avoid terrible traffic\"."_s);
        row("dock address", DockAddress,
            u"If the street address of the loading dock is not the same as the official loading "
            "dock address, please enter here."_s);
        row("dock comment", DockComment,
            u"If there are any peculiarities about the dock (e.g. \"difficult to reverse "
            "into\", or \"freight elevator only\"), please note them here."_s);
        row("clearance", Clearance,
            u"To calculate how much actual rigging height is going to be "
            "available considering production-specific pre-riggs and "
            "chain motors."_s);
        row("rigging comment", RiggingComment,
            u"Any specialties or unusual restrictions, such as \"all points have to be "
            "bridled\" or \"no access to catwalk, all points have to be set via cherry "
            "picker\"."_s);
        for (const Field field : {Id, Editor, EditDate, UploadDate})
            row("none for line field " + QByteArray::number(field), field, {});
        row("none for the general comment", GeneralComment, {});
    }
    void TooltipTellsWhatTheFieldMeans()
    {
        QFETCH(Field, field);
        const VenueDetailsWidget panel;
        QTEST(Widget(panel, field)->toolTip(), "tooltip");
    }
    void LabelsHaveNoTooltip()
    {
        const VenueDetailsWidget panel;
        for (const QLabel* label : panel.findChildren<QLabel*>())
            QVERIFY(label->toolTip().isEmpty());
    }

    void CollapsedPanelIsTheCaptionBarAlone()
    {
        VenueDetailsWidget panel;
        panel.show();
        panel.SetCollapsed(true);
        QVERIFY(!Body(panel)->isVisible());
        QCOMPARE(panel.minimumHeight(), CaptionBar(panel)->sizeHint().height());
        QCOMPARE(panel.maximumHeight(), panel.minimumHeight());
        QCOMPARE(panel.minimumHeight(), 34);
        panel.SetCollapsed(false);
        QVERIFY(Body(panel)->isVisible());
        QCOMPARE(panel.minimumHeight(), 0);
        QCOMPARE(panel.maximumHeight(), 516);
    }

    void CollapsedHeightDependsOnNoFont()
    {
        VenueDetailsWidget panel;
        QFont font = panel.font();
        font.setPointSize(16);
        panel.setFont(font);
        panel.SetCollapsed(true);
        QCOMPARE(panel.maximumHeight(), 34);
    }

    // As the search panel builds it: hidden until a venue is selected, in a splitter turned after filling.
    void ExpandedPanelGetsItsHeightBackInASplitter()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        auto* table = new QTableView;
        auto* panel = new VenueDetailsWidget(&window);
        panel->hide();
        auto* splitter = new QSplitter;
        splitter->addWidget(table);
        splitter->addWidget(panel);
        splitter->setOrientation(Qt::Vertical);
        layout.addWidget(splitter);
        window.resize(1062, 780);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (int selection = 0; selection < 2; ++selection) {
            panel->show();
            panel->SetCollapsed(false);
            QTRY_COMPARE(splitter->sizes().value(1), 516);
            QCOMPARE(panel->height(), 516);
            panel->SetCollapsed(true);
            QCOMPARE(panel->height(), 34);
            // The splitter itself follows with the next layout.
            QTRY_COMPARE(splitter->sizes().value(1), 34);
            panel->SetCollapsed(false);
            QTRY_COMPARE(splitter->sizes().value(1), 516);
            QCOMPARE(panel->height(), 516);
            panel->hide();
        }
    }

    void FoldIconTogglesAndShowsTheState()
    {
        const ExpandedPanel panel;
        QCOMPARE(FoldIconColour(panel), QColor(0x01, 0x02, 0x03));
        QTest::mouseClick(FoldIcon(panel), Qt::LeftButton);
        QVERIFY(!Body(panel)->isVisible());
        QCOMPARE(FoldIconColour(panel), QColor(0x21, 0x22, 0x23));
        QTest::mouseClick(FoldIcon(panel), Qt::LeftButton);
        QVERIFY(Body(panel)->isVisible());
        QCOMPARE(FoldIconColour(panel), QColor(0x01, 0x02, 0x03));
    }

    void FoldingTakesTheFocusAlong()
    {
        QWidget window;
        QVBoxLayout layout(&window);
        layout.addWidget(new QLineEdit);
        auto* panel = new VenueDetailsWidget;
        layout.addWidget(panel);
        panel->SetCollapsed(false);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        Widget(*panel, Id)->setFocus();
        QTest::mouseClick(FoldIcon(*panel), Qt::LeftButton);
        QVERIFY(!Body(*panel)->isVisible());
        QCOMPARE(window.focusWidget(), FoldIcon(*panel));
    }

    void DayModeShowsTheDayIconsAtOnce()
    {
        VenueDetailsWidget panel;
        panel.SetDayMode(true);
        QCOMPARE(FoldIconColour(panel), QColor(0x11, 0x12, 0x13));
        panel.SetDayMode(false);
        QCOMPARE(FoldIconColour(panel), QColor(0x01, 0x02, 0x03));
        panel.SetCollapsed(true);
        QCOMPARE(FoldIconColour(panel), QColor(0x21, 0x22, 0x23));
        panel.SetDayMode(true);
        QCOMPARE(FoldIconColour(panel), QColor(0x31, 0x32, 0x33));
        panel.SetCollapsed(false);
        QCOMPARE(FoldIconColour(panel), QColor(0x11, 0x12, 0x13));
    }

    void MissingIconsAreHarmless()
    {
        const WithoutIcons withoutIcons;
        VenueDetailsWidget panel;
        panel.SetDayMode(true);
        panel.SetCollapsed(true);
        QVERIFY(FoldIcon(panel)->pixmap().isNull());
        QCOMPARE(panel.maximumHeight(), 34);
    }

    void BarWithoutIconsFolds_data()
    {
        using Action = std::function<void(const QWidget&)>;
        const Rows<Action> row("act");
        const auto click = [](QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); };
        row("a click on the bar itself", [=](const QWidget& panel) { click(CaptionBar(panel)); });
        row("a click on its words", [=](const QWidget& panel) { click(Label(panel, u"Venue details"_s)); });
        row("a click on its arrow", [=](const QWidget& panel) { click(FoldIcon(panel)); });
        row("Space", [](const QWidget& panel) { QTest::keyClick(FoldIcon(panel), Qt::Key_Space); });
        row("Return", [](const QWidget& panel) { QTest::keyClick(FoldIcon(panel), Qt::Key_Return); });
    }
    void BarWithoutIconsFolds()
    {
        QFETCH(std::function<void(const QWidget&)>, act);
        const WithoutIcons withoutIcons;
        ExpandedPanel panel;
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QCOMPARE(FoldIcon(panel)->focusPolicy(), Qt::TabFocus);
        act(panel);
        QVERIFY(!Body(panel)->isVisible());
        act(panel);
        QVERIFY(Body(panel)->isVisible());
    }

    void BarWithoutIconsShowsTheStateInTheColourOfItsWords()
    {
        const WithoutIcons withoutIcons;
        VenueDetailsWidget panel;
        panel.setStyleSheet(u"QLabel[customStyle=\"labelKorvelSectionCaptionDark\"] { color: #ff0000; }"_s);
        panel.show();
        const auto shown = [&panel] { return FoldIcon(panel)->grab().toImage(); };
        const auto redPixels = [](const QImage& image) {
            int count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    count += image.pixelColor(x, y) == QColor(Qt::red) ? 1 : 0;
            return count;
        };
        panel.SetCollapsed(false);
        const QImage open = shown();
        panel.SetCollapsed(true);
        const QImage closed = shown();
        QVERIFY(redPixels(open) > 0);
        QVERIFY(redPixels(closed) > 0);
        QVERIFY(open != closed);
    }

    void ReleaseElsewhereDoesNotFold()
    {
        VenueDetailsWidget panel;
        panel.show();
        QTest::mouseClick(Label(panel, u"Venue details"_s), Qt::LeftButton);
        QTest::mouseClick(CaptionBar(panel), Qt::LeftButton);
        QVERIFY(Body(panel)->isVisible());
    }

    void FocusSelectsACommentAndLeavingItUnselects_data()
    {
        const Rows<Field> row("field");
        for (const Field field : c_comments)
            row("text field " + QByteArray::number(field - GeneralComment), field);
    }
    void FocusSelectsACommentAndLeavingItUnselects()
    {
        QFETCH(Field, field);
        const ShownPanel panel;
        QTextEdit* textEdit = Comment(panel, field);
        Widget(panel, Id)->setFocus();
        QVERIFY(!textEdit->textCursor().hasSelection());
        textEdit->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(textEdit->hasFocus());
        QCOMPARE(textEdit->textCursor().selection().toPlainText(), textEdit->toPlainText());
        QVERIFY(!textEdit->toPlainText().isEmpty());
        Widget(panel, Id)->setFocus(Qt::BacktabFocusReason);
        QTRY_VERIFY(!textEdit->hasFocus());
        QVERIFY(!textEdit->textCursor().hasSelection());
    }

    void TabLeavesAComment()
    {
        const ShownPanel panel;
        QTextEdit* first = Comment(panel, GeneralComment);
        QTextEdit* second = Comment(panel, Address);
        first->setFocus();
        QTRY_VERIFY(first->hasFocus());
        QTest::keyClick(first, Qt::Key_Tab);
        QTRY_VERIFY(second->hasFocus());
        QVERIFY(!first->textCursor().hasSelection());
        QCOMPARE(second->textCursor().selection().toPlainText(), second->toPlainText());
    }

    void LeavingALongCommentDoesNotScrollIt()
    {
        VenueDetailsWidget panel;
        Venue venue;
        venue.SetGeneralComment(QStringList(40, u"line"_s).join(u'\n'));
        Fill(panel, venue);
        panel.show();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        QTextEdit* textEdit = Comment(panel, GeneralComment);
        textEdit->setFocus();
        QTRY_VERIFY(textEdit->hasFocus());
        QVERIFY(textEdit->verticalScrollBar()->maximum() > 0);
        Widget(panel, Id)->setFocus();
        QTRY_VERIFY(!textEdit->hasFocus());
        QCOMPARE(textEdit->verticalScrollBar()->value(), 0);
    }

    void StyleSheetBackgroundIsPainted()
    {
        VenueDetailsWidget panel;
        panel.setStyleSheet(u"korvel--Ui--VenueDatabase--VenueDetailsWidget { background: #ff0000; }"
                            "QScrollArea, QScrollArea > QWidget > QWidget { background: "
                            "transparent; }"_s);
        panel.resize(1062, 516);
        QCOMPARE(panel.grab().toImage().pixelColor(1, 514), QColor(Qt::red));
    }

    void OwnerDeletesEverything()
    {
        QWidget host;
        auto* panel = new VenueDetailsWidget(&host);
        QCOMPARE(panel->parentWidget(), &host);
        panel->SetCollapsed(true);
    }
};

QTEST_MAIN(tst_VenueDetailsWidget)
#include "tst_VenueDetailsWidget.moc"
