#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextEdit>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

QAccessibleInterface* Accessible(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object);
}

/// What a screen reader says: the label of a field where it has one. On some systems the name of a combo box
/// is its current text, so that only this relation tells what it is for.
QString NameOf(QObject* object)
{
    const auto labels = Accessible(object)->relations(QAccessible::Label);
    QAccessibleInterface* named = labels.isEmpty() ? Accessible(object) : labels.first().first;
    return named->text(QAccessible::Name);
}

QString DescriptionOf(QObject* object)
{
    return Accessible(object)->text(QAccessible::Description);
}

/// What one object calls itself, whatever its label says.
QString OwnNameOf(QObject* object)
{
    return Accessible(object)->text(QAccessible::Name);
}

void Press(QObject* object)
{
    Accessible(object)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

QList<Picture> TwoPictures()
{
    QList<Picture> pictures;
    for (const Qt::GlobalColor color : {Qt::darkCyan, Qt::darkRed}) {
        const QByteArray data = EncodedPicture(QSize(300, 240), color);
        // With a large rendition the viewer fetches nothing.
        pictures.append(MakePicture(data, data, u"Stage"_s));
    }
    return pictures;
}

/// The dialog with one venue found and shown, which has two pictures and a model file.
struct ShownDialog
{
    ShownDialog()
    {
        connector.venues = {MakeVenue(7, u"Festspielhaus"_s, u"Germany"_s)};
        connector.onGetPictures = [](qint64) { return TwoPictures(); };
        connector.onGetFiles = [](qint64) { return QList<TsFile>{MakeFile(u"stage.tessra"_s)}; };
        dialog.findChild<VenueDbCentralWidget*>()->SetConnector(&connector);
        dialog.Open(nullptr);
        table = dialog.findChild<QTableView*>();
        details = dialog.findChild<VenueDetailsWidget*>();
        slider = dialog.findChild<PictureSlider*>();
        const auto isFound = [this] { return table->model() && table->model()->rowCount() == 1; };
        if (QTest::qWaitFor(isFound))
            table->selectRow(0);
        isShown = QTest::qWaitFor([this] { return details->isVisible() && dialog.isActiveWindow(); });
    }

    ConnectorStub connector;
    VenueDbDialog dialog{nullptr};
    QTableView* table = nullptr;
    VenueDetailsWidget* details = nullptr;
    PictureSlider* slider = nullptr;
    bool isShown = false;
};

/// What a user would call the focused widget: its kind and accessible name.
QString FocusedName()
{
    QWidget* widget = QApplication::focusWidget();
    return widget ? NameOf(widget) : u"nothing"_s;
}

} // namespace

/// What planners meet who work with the keyboard or a screen reader.
class tst_Accessibility : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void EverythingThatTakesTheFocusHasAName()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        int count = 0;
        for (QWidget* widget : shown.dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            ++count;
            QVERIFY2(!NameOf(widget).isEmpty(), widget->metaObject()->className());
        }
        QCOMPARE(count, 28);
    }

    void WidgetsWithoutATextHaveNames()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QCOMPARE(NameOf(NavigationButton(*shown.slider, 0)), u"Previous picture"_s);
        QCOMPARE(NameOf(NavigationButton(*shown.slider, 1)), u"Next picture"_s);
        QCOMPARE(NameOf(FullscreenButton(*shown.slider)), u"Show pictures full screen"_s);
        QCOMPARE(NameOf(shown.slider), u"Venue pictures"_s);
        QCOMPARE(NameOf(shown.table), u"Venues"_s);
        QVERIFY(!DescriptionOf(shown.table).isEmpty());
        auto* view = shown.dialog.findChild<PictureView*>();
        QCOMPARE(NameOf(view), u"Picture"_s);
        QVERIFY(DescriptionOf(view).contains(u"Page Up shows the next picture"_s));
        for (QPushButton* button : {NavigationButton(*shown.slider, 0), NavigationButton(*shown.slider, 1)})
            QCOMPARE(Accessible(button)->role(), QAccessible::Button);
    }

    void FieldsAreNamedByTheirLabels()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        int count = 0;
        for (const QLabel* label : shown.dialog.findChildren<QLabel*>()) {
            if (!label->buddy())
                continue;
            ++count;
            QCOMPARE(NameOf(label->buddy()), label->text());
        }
        // Four of the search, thirteen of the details, one of the model files.
        QCOMPARE(count, 18);
    }

    void ASliderWithoutAPictureSaysSo()
    {
        PictureSlider slider;
        QList<Picture> pictures;
        slider.UpdateUi(&pictures);
        QCOMPARE(DescriptionOf(&slider), u"No Image"_s);
        pictures = TwoPictures();
        slider.UpdateUi(&pictures);
        QCOMPARE(DescriptionOf(&slider), QString());
        pictures[0].SetPictureDataSmall("no picture");
        slider.UpdateUi(&pictures);
        QCOMPARE(DescriptionOf(&slider), u"Image failure"_s);
    }

    void TheSliderIsAnnouncedWhenTheFocusEntersIt()
    {
        PictureSlider slider;
        QCOMPARE(Accessible(&slider)->role(), QAccessible::Grouping);
        QVERIFY(!Accessible(&slider)->state().busy);
    }

    void TheViewListsItsCaptionAndItsButtons()
    {
        PictureFullscreenDialog viewer;
        QAccessibleInterface* view = Accessible(viewer.findChild<PictureView*>());
        QCOMPARE(view->role(), QAccessible::Graphic);
        for (QWidget* overlay : std::initializer_list<QWidget*>{Caption(viewer), NavigationButton(viewer, 0),
                                                                NavigationButton(viewer, 1)}) {
            const int index = view->indexOfChild(Accessible(overlay));
            QVERIFY2(index >= 0, overlay->metaObject()->className());
            QCOMPARE(view->child(index)->object(), overlay);
            QCOMPARE(Accessible(overlay)->parent()->object(), view->object());
        }
    }

    void TheViewIsCalledByThePictureThatItShows()
    {
        PictureFullscreenDialog viewer;
        auto* view = viewer.findChild<PictureView*>();
        QCOMPARE(OwnNameOf(view), u"Picture"_s);
        QList<Picture> pictures = TwoPictures();
        viewer.SetPictures(&pictures);
        viewer.SetPicturesIndex(0);
        QCOMPARE(OwnNameOf(view), u"1/2 Stage"_s);
        viewer.ModifyPicturesIndex(1);
        QCOMPARE(OwnNameOf(view), u"2/2 Stage"_s);
        pictures.clear();
        viewer.SetPictures(&pictures);
        QCOMPARE(OwnNameOf(view), u"Picture"_s);
    }

    void ThePressedButtonTellsThePictureAsItsDescription()
    {
        // Where alerts are not passed on, a change of the focused button is.
        PictureSlider slider;
        QList<Picture> pictures = TwoPictures();
        slider.UpdateUi(&pictures);
        QCOMPARE(DescriptionOf(NavigationButton(slider, 1)), u"1/2 Stage"_s);
        slider.ShowVenuePic(1);
        for (const int which : {0, 1})
            QCOMPARE(DescriptionOf(NavigationButton(slider, which)), u"2/2 Stage"_s);

        PictureFullscreenDialog viewer;
        viewer.SetPictures(&pictures);
        viewer.SetPicturesIndex(1);
        for (const int which : {0, 1})
            QCOMPARE(DescriptionOf(NavigationButton(viewer, which)), u"2/2 Stage"_s);
    }

    void DatesAreReadAsTheTableShowsThem()
    {
        ShownDialog shown;
        QVERIFY(shown.isShown);
        shown.connector.venues = {FilledVenue()};
        shown.dialog.findChild<VenueDbCentralWidget*>()->PerformQuery();
        constexpr int c_dateColumn = 5;
        const QVariant date = shown.table->model()->index(0, c_dateColumn).data();
        QVERIFY(date.toDateTime().isValid());
        const auto* delegate = qobject_cast<QStyledItemDelegate*>(shown.table->itemDelegate());
        const auto* cell = Accessible(shown.table)->tableInterface()->cellAt(0, c_dateColumn);
        QCOMPARE(cell->text(QAccessible::Name), delegate->displayText(date, shown.table->locale()));
        // Texts are read as they are.
        QCOMPARE(Accessible(shown.table)->tableInterface()->cellAt(0, 1)->text(QAccessible::Name),
                 u"complex"_s);
    }

    void NoTwoFieldsOfTheDetailsHaveOneName()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QStringList names;
        for (QLineEdit* field : shown.details->findChildren<QLineEdit*>())
            names.append(OwnNameOf(field));
        for (QTextEdit* field : shown.details->findChildren<QTextEdit*>())
            names.append(OwnNameOf(field));
        QCOMPARE(names.size(), 13);
        for (const QString& section : {u"Loading dock, Address:"_s, u"Loading dock, Comment:"_s,
                                       u"Rigging, Clearance of house grid (m):"_s, u"Rigging, Comment:"_s})
            QVERIFY2(names.contains(section), qPrintable(section + u" of "_s + names.join(u" | "_s)));
        QCOMPARE(names.removeDuplicates(), 0);
        // And the panel tells them from the search fields of the same names.
        QCOMPARE(Accessible(shown.details)->role(), QAccessible::Grouping);
        QCOMPARE(OwnNameOf(shown.details), u"Venue details"_s);
    }

    void TheTableIsReadBeforeTheDetails()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QAccessibleInterface* splitter = Accessible(shown.dialog.findChild<QSplitter*>());
        const int table = splitter->indexOfChild(Accessible(shown.table));
        const int details = splitter->indexOfChild(Accessible(shown.details));
        QVERIFY2(table >= 0 && table < details, qPrintable(u"%1, %2"_s.arg(table).arg(details)));
    }

    void TheSplitterCanBeMovedWithoutAMouse()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        auto* splitter = shown.dialog.findChild<QSplitter*>();
        QSplitterHandle* handle = splitter->handle(1);
        QCOMPARE(Accessible(handle)->role(), QAccessible::Separator);
        QCOMPARE(OwnNameOf(handle), u"Height of the venue table"_s);
        QAccessibleValueInterface* value = Accessible(handle)->valueInterface();
        QVERIFY(value);
        // The details get their height when the layouts have settled.
        QTRY_VERIFY(splitter->sizes().constLast() > 0);
        const int height = shown.table->height();
        QCOMPARE(value->currentValue().toInt(), height);
        QVERIFY(value->minimumValue().toInt() <= height);
        QVERIFY(value->maximumValue().toInt() > height + 100);
        value->setCurrentValue(height + 100);
        QTRY_COMPARE(shown.table->height(), height + 100);
        QCOMPARE(value->currentValue().toInt(), height + 100);
        QVERIFY(value->minimumStepSize().toInt() > 0);
    }

    void ThePanelIsBusyWhileItLoads()
    {
        ShownDialog shown;
        QVERIFY(shown.isShown);
        auto* panel = shown.dialog.findChild<VenueDbCentralWidget*>();
        QVERIFY(!Accessible(panel)->state().busy);
        bool wasBusy = false;
        shown.connector.onFindVenues = [&](const ConnectorStub::Filters&, QList<Venue>&) {
            wasBusy = Accessible(panel)->state().busy;
            return Ok;
        };
        panel->PerformQuery();
        QVERIFY(wasBusy);
        QVERIFY(!Accessible(panel)->state().busy);
    }

    void APressDuringTheWaitCountsAfterIt_data()
    {
        const Rows<QString, int> row("button", "filters");
        row("Search", u"Search"_s, 1);
        row("Reset", u"Reset"_s, 0);
    }
    void APressDuringTheWaitCountsAfterIt()
    {
        QFETCH(QString, button);
        QFETCH(int, filters);
        ShownDialog shown;
        QVERIFY(shown.isShown);
        auto* panel = shown.dialog.findChild<VenueDbCentralWidget*>();
        panel->findChild<QLineEdit*>()->setText(u"hall"_s);
        shown.connector.searches.clear();
        shown.connector.onFindVenues = [&](const ConnectorStub::Filters&, QList<Venue>&) {
            if (shown.connector.searches.size() == 1) {
                // The press takes effect in the event loop of the wait.
                Press(Button(*panel, button));
                QSignalSpy clicks(Button(*panel, button), &QPushButton::clicked);
                clicks.wait();
            }
            return Ok;
        };
        panel->PerformQuery();
        QCOMPARE(shown.connector.searches.size(), 2);
        // A search, and the country list after it.
        QTRY_COMPARE(shown.connector.searches.size(), 4);
        QCOMPARE(shown.connector.searches.at(2).size(), filters);
    }

    void APressIsForgottenWhenTheUserGivesUp()
    {
        ShownDialog shown;
        QVERIFY(shown.isShown);
        auto* panel = shown.dialog.findChild<VenueDbCentralWidget*>();
        shown.connector.searches.clear();
        shown.connector.onFindVenues = [&](const ConnectorStub::Filters&, QList<Venue>&) {
            if (shown.connector.searches.size() > 1)
                return Ok;
            Button(*panel, u"Search"_s)->click();
            return Timeout;
        };
        const auto driver = AnswerBox(QMessageBox::Close);
        panel->PerformQuery();
        QVERIFY(!shown.dialog.isVisible());
        QCoreApplication::processEvents();
        QCOMPARE(shown.connector.searches.size(), 1);
    }

    void TabLeadsThroughTheDialogAsItIsRead()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        const QStringList order = {u"Complex name:"_s,
                                   u"Venue/room name:"_s,
                                   u"City:"_s,
                                   u"Country:"_s,
                                   u"Search"_s,
                                   u"Reset"_s,
                                   u"Sort by Complex name"_s,
                                   u"Venues"_s,
                                   u"Collapse venue details"_s,
                                   u"Previous picture"_s,
                                   u"Next picture"_s,
                                   u"Show pictures full screen"_s,
                                   u"ID:"_s,
                                   u"Editing date (UTC):"_s,
                                   u"Upload date:"_s,
                                   u"Complex name:"_s,
                                   u"Venue/room name:"_s,
                                   u"File selector: "_s,
                                   u"Import to Tessra"_s,
                                   u"General comment:"_s,
                                   u"Address:"_s,
                                   u"Location comment:"_s,
                                   u"Address:"_s,
                                   u"Comment:"_s,
                                   u"Clearance of house grid (m):"_s,
                                   u"Comment:"_s,
                                   u"Close"_s,
                                   u"Help"_s};
        shown.dialog.findChild<VenueDbCentralWidget*>()->findChild<QLineEdit*>()->setFocus(
            Qt::TabFocusReason);
        QStringList found;
        for (qsizetype i = 0; i < order.size(); ++i) {
            found.append(FocusedName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(found, order);
        // And round.
        QCOMPARE(FocusedName(), order.first());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(FocusedName(), order.last());
    }

    void NavigationButtonsWorkWithoutAMouse_data()
    {
        const Rows<bool> row("byKey");
        row("Space", true);
        row("a screen reader's press", false);
    }
    void NavigationButtonsWorkWithoutAMouse()
    {
        QFETCH(bool, byKey);
        for (const int direction : {-1, 1}) {
            QWidget parent;
            parent.resize(500, 240);
            PictureNavigationButton button(direction, &parent);
            parent.show();
            QSignalSpy requests(&button, &PictureNavigationButton::PictureNavigationClicked);
            QSignalSpy clicks(&button, &QPushButton::clicked);
            if (byKey)
                QTest::keyClick(&button, Qt::Key_Space);
            else
                Press(&button);
            QTRY_COMPARE(requests.size(), 1);
            QCOMPARE(requests.first().first().toInt(), direction);
            QCOMPARE(clicks.size(), 1);
        }
    }

    void AMousePressNavigatesOnceAndDoesNotClick()
    {
        QWidget parent;
        parent.resize(500, 240);
        PictureNavigationButton button(1, &parent);
        parent.show();
        QSignalSpy requests(&button, &PictureNavigationButton::PictureNavigationClicked);
        QSignalSpy clicks(&button, &QPushButton::clicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(requests.size(), 1);
        QCOMPARE(clicks.size(), 0);
    }

    void TheSliderStepsAndOpensWithoutAMouse()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QCOMPARE(Caption(*shown.slider)->text(), u"1/2 Stage"_s);
        Press(NavigationButton(*shown.slider, 1));
        QTRY_COMPARE(Caption(*shown.slider)->text(), u"2/2 Stage"_s);
        QTest::keyClick(NavigationButton(*shown.slider, 0), Qt::Key_Space);
        QCOMPARE(Caption(*shown.slider)->text(), u"1/2 Stage"_s);

        auto* viewer = shown.dialog.findChild<PictureFullscreenDialog*>();
        Press(FullscreenButton(*shown.slider));
        QTRY_VERIFY(viewer->isVisible());
        // Tab leads from the picture to its buttons, which the mouse leaves without the focus.
        QCOMPARE(FocusedName(), u"1/2 Stage"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(FocusedName(), u"Previous picture"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(FocusedName(), u"Next picture"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QTRY_COMPARE(Caption(*viewer)->text(), u"2/2 Stage"_s);
        // The viewer's own keys go on working there.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
        QCOMPARE(Caption(*viewer)->text(), u"1/2 Stage"_s);
        viewer->hide();
    }

    void TheFoldIconIsAButtonForKeyboardAndScreenReader()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        QLabel* icon = FoldIcon(*shown.details);
        QVERIFY(icon);
        const auto* body = shown.details->findChild<QScrollArea*>();
        QCOMPARE(Accessible(icon)->role(), QAccessible::Button);
        QVERIFY(Accessible(icon)->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        QVERIFY(Accessible(icon)->state().expandable);
        QVERIFY(Accessible(icon)->state().expanded);
        QCOMPARE(NameOf(icon), u"Collapse venue details"_s);

        Press(icon);
        QVERIFY(!body->isVisible());
        QVERIFY(Accessible(icon)->state().collapsed);
        QVERIFY(!Accessible(icon)->state().expanded);
        QCOMPARE(NameOf(icon), u"Expand venue details"_s);
        QTest::keyClick(icon, Qt::Key_Space);
        QVERIFY(body->isVisible());
        QTest::keyClick(icon, Qt::Key_Return);
        QVERIFY(!body->isVisible());
        QTest::mouseClick(icon, Qt::LeftButton);
        QVERIFY(body->isVisible());
        // Whatever else is done to it folds nothing.
        QTest::keyClick(icon, Qt::Key_F);
        Accessible(icon)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QVERIFY(body->isVisible());
    }

    void ADisabledFoldIconCannotBePressed()
    {
        const ShownDialog shown;
        QVERIFY(shown.isShown);
        shown.details->setEnabled(false);
        QLabel* icon = FoldIcon(*shown.details);
        QVERIFY(!Accessible(icon)->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        Press(icon);
        QVERIFY(shown.details->findChild<QScrollArea*>()->isVisible());
    }

    void FocusShowsWhenItCameByKeyboardOnly_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("dayMode");
        for (const bool dayMode : {false, true}) {
            for (const char* target : {"navigation button", "full-screen button", "fold icon"}) {
                QTest::addRow("%s, %s", target, dayMode ? "day" : "night")
                    << QString::fromLatin1(target) << dayMode;
            }
        }
    }
    void FocusShowsWhenItCameByKeyboardOnly()
    {
        QFETCH(QString, target);
        QFETCH(bool, dayMode);
        ShownDialog shown;
        QVERIFY(shown.isShown);
        shown.dialog.SetDayMode(dayMode);
        QWidget* widget = FoldIcon(*shown.details);
        QWidget* shownIn = widget;
        if (target == "navigation button"_L1) {
            widget = NavigationButton(*shown.slider, 0);
            shownIn = shown.slider;
        } else if (target == "full-screen button"_L1) {
            widget = FullscreenButton(*shown.slider);
            shownIn = shown.slider;
        }
        // Not over the buttons, which would light up.
        shown.table->setFocus(Qt::MouseFocusReason);
        const QImage before = shownIn->grab().toImage();
        widget->setFocus(Qt::MouseFocusReason);
        QCOMPARE(shownIn->grab().toImage(), before);
        shown.table->setFocus(Qt::MouseFocusReason);
        widget->setFocus(Qt::TabFocusReason);
        QVERIFY(widget->hasFocus());
        QVERIFY(shownIn->grab().toImage() != before);
        shown.table->setFocus(Qt::TabFocusReason);
        QCOMPARE(shownIn->grab().toImage(), before);
    }
};

QTEST_MAIN(tst_Accessibility)

#include "tst_Accessibility.moc"
