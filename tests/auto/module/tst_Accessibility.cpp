#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
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

#include <functional>

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
        panel->SetConnector(&connector);
        dialog.Open(nullptr);
        QTRY_COMPARE(RowCount(table), 1);
        table->selectRow(0);
        QTRY_VERIFY(details->isVisible() && dialog.isActiveWindow());
    }

    ConnectorStub connector;
    VenueDbDialog dialog{nullptr};
    VenueDbCentralWidget* panel = SearchPanel(dialog);
    QTableView* table = dialog.findChild<QTableView*>();
    VenueDetailsWidget* details = dialog.findChild<VenueDetailsWidget*>();
    PictureSlider* slider = dialog.findChild<PictureSlider*>();
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
        Show(slider, QList<Picture>());
        QCOMPARE(DescriptionOf(&slider), u"No Image"_s);
        Show(slider, TwoPictures());
        QCOMPARE(DescriptionOf(&slider), QString());
        Show(slider, {MakePicture("no picture")});
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
        Show(viewer, TwoPictures());
        QCOMPARE(OwnNameOf(view), u"1/2 Stage"_s);
        viewer.ModifyPicturesIndex(1);
        QCOMPARE(OwnNameOf(view), u"2/2 Stage"_s);
        Show(viewer, {});
        QCOMPARE(OwnNameOf(view), u"Picture"_s);
    }

    void ThePressedButtonTellsThePictureAsItsDescription()
    {
        // Where alerts are not passed on, a change of the focused button is.
        PictureSlider slider;
        Show(slider, TwoPictures());
        QCOMPARE(DescriptionOf(NavigationButton(slider, 1)), u"1/2 Stage"_s);
        slider.ShowVenuePic(1);
        for (const int which : {0, 1})
            QCOMPARE(DescriptionOf(NavigationButton(slider, which)), u"2/2 Stage"_s);

        PictureFullscreenDialog viewer;
        Show(viewer, TwoPictures(), 1);
        for (const int which : {0, 1})
            QCOMPARE(DescriptionOf(NavigationButton(viewer, which)), u"2/2 Stage"_s);
    }

    void DatesAreReadAsTheTableShowsThem()
    {
        ShownDialog shown;
        shown.connector.venues = {FilledVenue()};
        shown.panel->PerformQuery();
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
        QAccessibleInterface* splitter = Accessible(shown.dialog.findChild<QSplitter*>());
        const int table = splitter->indexOfChild(Accessible(shown.table));
        const int details = splitter->indexOfChild(Accessible(shown.details));
        QVERIFY2(table >= 0 && table < details, qPrintable(u"%1, %2"_s.arg(table).arg(details)));
    }

    void TheSplitterCanBeMovedWithoutAMouse()
    {
        const ShownDialog shown;
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
        QVERIFY(!Accessible(shown.panel)->state().busy);
        bool wasBusy = false;
        shown.connector.duringCall = [&] { wasBusy = Accessible(shown.panel)->state().busy; };
        shown.panel->PerformQuery();
        QVERIFY(wasBusy);
        QVERIFY(!Accessible(shown.panel)->state().busy);
    }

    void APressDuringTheWaitCountsAfterIt_data()
    {
        const Rows<QString, int> row("button", "filters");
        row("Search", u"Search"_s, 1);
        row("Reset", u"Reset"_s, 0);
    }
    void APressDuringTheWaitCountsAfterIt()
    {
        const auto [button, filters] = Fetch<QString, int>();
        ShownDialog shown;
        shown.panel->findChild<QLineEdit*>()->setText(u"hall"_s);
        shown.connector.searches.clear();
        shown.connector.duringCall = [&] {
            if (shown.connector.searches.size() == 1) {
                // The press takes effect in the event loop of the wait.
                Press(Button(*shown.panel, button));
                QSignalSpy clicks(Button(*shown.panel, button), &QPushButton::clicked);
                clicks.wait();
            }
        };
        shown.panel->PerformQuery();
        QCOMPARE(shown.connector.searches.size(), 2);
        // A search, and the country list after it.
        QTRY_COMPARE(shown.connector.searches.size(), 4);
        QCOMPARE(shown.connector.searches.at(2).size(), filters);
    }

    void APressIsForgottenWhenTheUserGivesUp()
    {
        ShownDialog shown;
        shown.connector.searches.clear();
        shown.connector.duringCall = [&] {
            const bool isFirst = shown.connector.searches.size() == 1;
            shown.connector.result = isFirst ? Timeout : Ok;
            if (isFirst)
                Button(*shown.panel, u"Search"_s)->click();
        };
        const auto driver = AnswerBox(QMessageBox::Close);
        shown.panel->PerformQuery();
        QVERIFY(!shown.dialog.isVisible());
        QCoreApplication::processEvents();
        QCOMPARE(shown.connector.searches.size(), 1);
    }

    void TabLeadsThroughTheDialogAsItIsRead()
    {
        const ShownDialog shown;
        const QStringList order
            = u"Complex name:|Venue/room name:|City:|Country:|Search|Reset|Sort by Complex name|Venues|"
              "Collapse venue details|Previous picture|Next picture|Show pictures full screen|ID:|"
              "Editing date (UTC):|Upload date:|Complex name:|Venue/room name:|File selector: |"
              "Import to Tessra|General comment:|Address:|Location comment:|Address:|Comment:|"
              "Clearance of house grid (m):|Comment:|Close|Help"_s.split(u'|');
        shown.panel->findChild<QLineEdit*>()->setFocus(Qt::TabFocusReason);
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

    void NavigationButtonsWorkAlsoWithoutAMouse_data()
    {
        const Rows<std::function<void(QPushButton*)>, int> row("press", "clicks");
        row("Space", [](QPushButton* button) { QTest::keyClick(button, Qt::Key_Space); }, 1);
        row("a screen reader's press", &Press, 1);
        row(
            "a mouse press navigates once and does not click",
            [](QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }, 0);
    }
    void NavigationButtonsWorkAlsoWithoutAMouse()
    {
        const auto [press, clicks] = Fetch<std::function<void(QPushButton*)>, int>();
        for (const int direction : {-1, 1}) {
            QWidget parent;
            parent.resize(500, 240);
            PictureNavigationButton button(direction, &parent);
            parent.show();
            QSignalSpy requests(&button, &PictureNavigationButton::PictureNavigationClicked);
            QSignalSpy clicked(&button, &QPushButton::clicked);
            press(&button);
            QTRY_COMPARE(requests.size(), 1);
            QCOMPARE(requests.first().first().toInt(), direction);
            QCOMPARE(clicked.size(), clicks);
        }
    }

    void TheSliderStepsAndOpensWithoutAMouse()
    {
        const ShownDialog shown;
        QCOMPARE(Caption(*shown.slider)->text(), u"1/2 Stage"_s);
        Press(NavigationButton(*shown.slider, 1));
        QTRY_COMPARE(Caption(*shown.slider)->text(), u"2/2 Stage"_s);
        QTest::keyClick(NavigationButton(*shown.slider, 0), Qt::Key_Space);
        QCOMPARE(Caption(*shown.slider)->text(), u"1/2 Stage"_s);

        auto* viewer = shown.dialog.findChild<PictureFullscreenDialog*>();
        Press(FullscreenButton(*shown.slider));
        QTRY_VERIFY(viewer->isVisible());
        // Tab leads from the picture to its buttons, which the mouse leaves without the focus.
        QTRY_COMPARE(FocusedName(), u"1/2 Stage"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(FocusedName(), u"Previous picture"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(FocusedName(), u"Next picture"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QTRY_COMPARE(Caption(*viewer)->text(), u"2/2 Stage"_s);
        // The viewer's own keys go on working there.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A);
        QCOMPARE(Caption(*viewer)->text(), u"1/2 Stage"_s);
    }

    void TheFoldIconIsAButtonForKeyboardAndScreenReader()
    {
        const ShownDialog shown;
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
        shown.details->setEnabled(false);
        QLabel* icon = FoldIcon(*shown.details);
        QVERIFY(!Accessible(icon)->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        Press(icon);
        QVERIFY(shown.details->findChild<QScrollArea*>()->isVisible());
    }

    void FocusShowsWhenItCameByKeyboardOnly_data()
    {
        using Finder = std::function<QWidget*(const ShownDialog&)>;
        const Rows<Finder, Finder, bool> row("target", "showsIt", "dayMode");
        const Finder slider = [](const ShownDialog& shown) { return shown.slider; };
        const Finder icon = [](const ShownDialog& shown) { return FoldIcon(*shown.details); };
        for (const bool dayMode : {false, true}) {
            const QByteArray mode = dayMode ? "day" : "night";
            row(
                "navigation button, " + mode,
                [](const ShownDialog& shown) { return NavigationButton(*shown.slider, 0); }, slider, dayMode);
            row(
                "full-screen button, " + mode,
                [](const ShownDialog& shown) { return FullscreenButton(*shown.slider); }, slider, dayMode);
            row("fold icon, " + mode, icon, icon, dayMode);
        }
    }
    void FocusShowsWhenItCameByKeyboardOnly()
    {
        using Finder = std::function<QWidget*(const ShownDialog&)>;
        const auto [target, showsIt, dayMode] = Fetch<Finder, Finder, bool>();
        ShownDialog shown;
        shown.dialog.SetDayMode(dayMode);
        QWidget* widget = target(shown);
        QWidget* shownIn = showsIt(shown);
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
