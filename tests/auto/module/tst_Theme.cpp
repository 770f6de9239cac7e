#include <demo/Theme.h>

#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDbDialog.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/Files.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/TextContrast.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QGraphicsView>
#include <QHeaderView>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Demo::Theme;

namespace {

QString SheetText(bool dayMode)
{
    QFile file(Theme(dayMode).VenueDatabaseSheetPath());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The application with the sheet of one theme, as long as this lives, in a palette of the opposite one:
/// nothing but the sheet makes texts readable.
class InstalledSheet
{
public:
    explicit InstalledSheet(bool dayMode, const QString& moreRules = {})
        : m_palette(QApplication::palette())
    {
        QApplication::setPalette(dayMode ? QPalette(QColor(40, 40, 40), QColor(20, 20, 20))
                                         : QPalette(QColor(225, 225, 225), QColor(245, 245, 245)));
        const QString path = Theme(dayMode).VenueDatabaseSheetPath();
        if (moreRules.isEmpty()) {
            qApp->setStyleSheet(u"file:///"_s + path);
            return;
        }
        // A text has no folder that its pictures could lie in.
        const QString folder = path.section(QLatin1Char('/'), 0, -2) + QLatin1Char('/');
        qApp->setStyleSheet(SheetText(dayMode).replace(u"url(\""_s, u"url(\""_s + folder) + moreRules);
    }
    ~InstalledSheet()
    {
        qApp->setStyleSheet({});
        QApplication::setPalette(m_palette);
    }
    Q_DISABLE_COPY_MOVE(InstalledSheet)

private:
    QPalette m_palette;
};

/// The dialog with two venues found and one of them shown, high enough for all of its details.
struct ShownDialog
{
    explicit ShownDialog(bool dayMode)
    {
        // What the band behind the caption cannot help against: white by night, black by day.
        const QByteArray data = EncodedPicture({1000, 480}, dayMode ? Qt::black : Qt::white);
        pictures = QList<Picture>(2, MakePicture(data, data, u"The stage"_s));
        connector.venues = {FilledVenue(7, u"Festspielhaus"_s), FilledVenue(8, u"Prinzregententheater"_s)};
        connector.onGetPictures = [this](qint64) { return pictures; };
        connector.onGetFiles = [](qint64) {
            return QList<TsFile>{MakeFile(u"stage.tessra"_s, u"4.2"_s), MakeFile(u"flat.tessra"_s, u"4.1"_s)};
        };
        dialog.SetDayMode(dayMode);
        dialog.findChild<VenueDbCentralWidget*>()->SetConnector(&connector);
        dialog.Open(nullptr);
        dialog.resize(1062, 1000);
        table = dialog.findChild<QTableView*>();
        QTRY_COMPARE(RowCount(table), 2);
        SelectRow(0);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(Details()->isVisible());
        dialog.findChildren<QLineEdit*>().constFirst()->setText(u"haus"_s);
    }

    void SelectRow(int row)
    {
        table->selectRow(row);
        QCoreApplication::processEvents();
    }
    VenueDetailsWidget* Details() const
    {
        return dialog.findChild<VenueDetailsWidget*>();
    }
    PictureSlider* Slider() const
    {
        return dialog.findChild<PictureSlider*>();
    }
    /// The children of the kinds that react to the user.
    QList<QWidget*> Controls() const
    {
        QList<QWidget*> controls;
        for (QWidget* widget : dialog.findChildren<QWidget*>()) {
            const bool isControl = qobject_cast<QPushButton*>(widget) || qobject_cast<QLineEdit*>(widget)
                || qobject_cast<QTextEdit*>(widget) || qobject_cast<QComboBox*>(widget);
            if (isControl && widget->isVisible() && widget->isEnabled() && widget->window() == &dialog)
                controls.append(widget);
        }
        return controls;
    }

    QList<Picture> pictures;
    ConnectorStub connector;
    VenueDbDialog dialog{nullptr};
    QTableView* table = nullptr;
};

/// What was looked at, and which texts of it cannot be read.
struct Findings
{
    void Look(QWidget* root)
    {
        for (const TextPlace& place : VisibleTexts(root))
            Look(place);
    }
    void Look(const TextPlace& place)
    {
        ++texts;
        const double contrast = DrawnContrast(place);
        if (contrast < NecessaryContrast(place))
            unreadable.append(u"%1: %2 : 1"_s.arg(place.name).arg(contrast, 0, 'f', 2));
    }

    int texts = 0;
    QStringList unreadable;
};

void HoverOver(QWidget* widget, const QPoint& position)
{
    QHoverEvent event(QEvent::HoverMove, position, widget->mapToGlobal(position), QPoint(-1, -1));
    QCoreApplication::sendEvent(widget, &event);
}

void LookAtRest(ShownDialog& shown, Findings& findings)
{
    findings.Look(&shown.dialog);
}

void LookHovered(ShownDialog& shown, Findings& findings)
{
    for (QWidget* control : shown.Controls()) {
        control->setAttribute(Qt::WA_UnderMouse);
        QTest::mouseMove(control); // what buttons go by
        findings.Look(control);
        control->setAttribute(Qt::WA_UnderMouse, false);
    }
    for (int row = 0; row < 2; ++row) {
        HoverOver(shown.table->viewport(),
                  shown.table->visualRect(shown.table->model()->index(row, 1)).center());
        findings.Look(shown.table);
    }
    QHeaderView* header = shown.table->horizontalHeader();
    HoverOver(header, QPoint(header->sectionViewportPosition(2) + 20, 8));
    findings.Look(header);
}

void LookPressed(ShownDialog& shown, Findings& findings)
{
    for (QPushButton* button : shown.dialog.findChildren<QPushButton*>()) {
        if (!button->isVisible() || button->text().isEmpty())
            continue;
        button->setDown(true);
        findings.Look(button);
        button->setDown(false);
    }
    QHeaderView* header = shown.table->horizontalHeader();
    const QPoint position(header->sectionViewportPosition(2) + 20, 8);
    QTest::mousePress(header->viewport(), Qt::LeftButton, Qt::NoModifier, position);
    findings.Look(header);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

void LookFocused(ShownDialog& shown, Findings& findings)
{
    QList<QWidget*> controls = shown.Controls();
    controls.append(shown.table);
    for (QWidget* control : std::as_const(controls)) {
        control->setFocus(Qt::TabFocusReason);
        if (auto* lineEdit = qobject_cast<QLineEdit*>(control))
            lineEdit->deselect();
        findings.Look(control);
    }
}

void LookSelected(ShownDialog& shown, Findings& findings)
{
    for (QWidget* control : shown.Controls()) {
        control->setFocus(Qt::OtherFocusReason);
        if (auto* lineEdit = qobject_cast<QLineEdit*>(control))
            lineEdit->selectAll();
        else if (!qobject_cast<QTextEdit*>(control)) // these select their text when they get the focus
            continue;
        findings.Look(control);
    }
}

void LookAtLists(ShownDialog& shown, Findings& findings)
{
    for (QComboBox* comboBox : shown.dialog.findChildren<QComboBox*>()) {
        comboBox->showPopup();
        QAbstractItemView* view = comboBox->view();
        view->setCurrentIndex(view->model()->index(1, 0));
        findings.Look(view->window());
        HoverOver(view->viewport(), view->visualRect(view->model()->index(0, 0)).center());
        findings.Look(view->window());
        comboBox->hidePopup();
    }
}

void LookAtToolTip(ShownDialog& shown, Findings& findings)
{
    auto* field = shown.dialog.findChildren<QLineEdit*>().constFirst();
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), field->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(field, &event);
    const auto tip = [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->inherits("QTipLabel") && window->isVisible();
        });
        return found == windows.end() ? nullptr : *found;
    };
    if (tip())
        findings.Look(tip());
    QToolTip::hideText();
    QTRY_VERIFY(!tip());
}

void LookWithoutPictures(ShownDialog& shown, Findings& findings)
{
    shown.pictures.clear();
    shown.SelectRow(1);
    findings.Look(shown.Slider());
    // The visible part of "No Image", beside the full-screen button.
    const QPoint origin = shown.Slider()->mapTo(&shown.dialog, QPoint());
    findings.Look({u"No Image"_s, &shown.dialog, QRect(origin + QPoint(300, 125), QSize(150, 50)), true});
}

void LookAtViewer(ShownDialog& shown, Findings& findings)
{
    auto* viewer = shown.dialog.findChild<PictureFullscreenDialog*>();
    shown.Slider()->ShowFullScreen();
    QVERIFY(QTest::qWaitForWindowExposed(viewer));
    viewer->SetStatusLabelText(u"Saved"_s);
    QCoreApplication::processEvents();
    findings.Look(viewer);
    viewer->hide();
}

void LookAtContextMenu(ShownDialog& shown, Findings& findings)
{
    auto* viewer = shown.dialog.findChild<PictureFullscreenDialog*>();
    shown.Slider()->ShowFullScreen();
    QVERIFY(QTest::qWaitForWindowExposed(viewer));
    QTimer::singleShot(0, &shown.dialog, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            findings.Look(menu);
            menu->setActiveAction(menu->actions().constFirst());
            findings.Look(menu);
            menu->close();
        }
    });
    Q_EMIT viewer->findChild<QGraphicsView*>()->customContextMenuRequested(QPoint(50, 50));
    viewer->hide();
}

void LookAtSaveDialog(ShownDialog& shown, Findings& findings)
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"Halls"_s));
    WriteFile(folder.filePath(u"hall.jpg"_s));
    auto* viewer = shown.dialog.findChild<PictureFullscreenDialog*>();
    shown.Slider()->ShowFullScreen();
    QVERIFY(QTest::qWaitForWindowActive(viewer));
    const ModalDriver<QFileDialog> driver([&](QFileDialog* dialog) {
        dialog->setDirectory(folder.path());
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"hall"_s);
        for (const QFileDialog::ViewMode mode : {QFileDialog::Detail, QFileDialog::List}) {
            dialog->setViewMode(mode);
            auto* view = dialog->findChild<QAbstractItemView*>(mode == QFileDialog::Detail ? u"treeView"_s
                                                                                           : u"listView"_s);
            if (QTest::qWaitFor([view] { return view->model()->rowCount(view->rootIndex()) == 2; })) {
                findings.Look(dialog);
                view->setCurrentIndex(view->model()->index(0, 0, view->rootIndex()));
                findings.Look(view);
            }
        }
        dialog->reject();
    });
    QTest::keyClick(viewer, Qt::Key_S, Qt::ControlModifier);
    viewer->hide();
}

void LookAtErrorBox(ShownDialog& shown, Findings& findings)
{
    shown.connector.result = Timeout;
    const ModalDriver<QMessageBox> driver([&](QMessageBox* box) {
        findings.Look(box);
        box->button(QMessageBox::Close)->click();
    });
    Button(shown.dialog, u"Search"_s)->click();
}

constexpr const char* c_foldingIcons[] = {"korvelFoldingWidgetOpen", "korvelFoldingWidgetOpen_day",
                                          "korvelFoldingWidgetClosed", "korvelFoldingWidgetClosed_day"};

struct Scene
{
    const char* name;
    void (*look)(ShownDialog&, Findings&);
    /// Fewer texts than these would mean that something was not looked at.
    int texts;
};

constexpr Scene c_scenes[] = {
    {"at rest", LookAtRest, 45},           {"under the mouse", LookHovered, 30},
    {"pressed", LookPressed, 9},           {"with the keyboard focus", LookFocused, 20},
    {"selected texts", LookSelected, 10},  {"open lists", LookAtLists, 8},
    {"tool tip", LookAtToolTip, 1},        {"venue without pictures", LookWithoutPictures, 2},
    {"picture viewer", LookAtViewer, 4},   {"context menu", LookAtContextMenu, 2},
    {"save dialog", LookAtSaveDialog, 20}, {"error box", LookAtErrorBox, 3},
};

const Scene* SceneCalled(const QByteArray& name)
{
    return std::find_if(std::begin(c_scenes), std::end(c_scenes),
                        [&](const Scene& scene) { return name == scene.name; });
}

/// The selectors of a sheet in their order, without the blanks that mean nothing.
QStringList Selectors(QString sheet)
{
    static const QRegularExpression comment(u"/\\*.*?\\*/"_s, QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression body(u"\\{[^}]*\\}"_s);
    sheet.replace(comment, QString()).replace(body, u","_s);
    QStringList selectors;
    for (const QString& selector : sheet.split(QLatin1Char(',')))
        selectors.append(selector.simplified());
    selectors.removeAll(QString());
    return selectors;
}

/// Whether one of \p selectors is for \p widget in its plain state, by its value of "customStyle".
bool HasRule(const QWidget* widget, const QStringList& selectors)
{
    const QString ending = u"[customStyle=\"%1\"]"_s.arg(StyleOf(widget));
    return std::any_of(selectors.begin(), selectors.end(), [&](const QString& selector) {
        if (!selector.endsWith(ending))
            return false;
        QString type = selector.chopped(ending.size()).section(QLatin1Char(' '), -1);
        return widget->inherits(type.replace(u"--"_s, u"::"_s).toLatin1());
    });
}

/// The values used below \p root for which \p sheet has no rule.
QStringList ValuesWithoutRule(const QWidget* root, const QString& sheet)
{
    const QStringList selectors = Selectors(sheet);
    QStringList values;
    QWidgetList widgets = root->findChildren<QWidget*>();
    widgets.append(const_cast<QWidget*>(root));
    for (const QWidget* widget : std::as_const(widgets)) {
        const QString value = StyleOf(widget);
        if (!value.isEmpty() && !HasRule(widget, selectors) && !values.contains(value))
            values.append(value);
    }
    return values;
}

void AddThemeRows()
{
    const Rows<bool> row("dayMode");
    row("light", true);
    row("dark", false);
}

} // namespace

/// The reference style sheets: complete, readable in every state, and every file they name is there.
class tst_Theme : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QFont font(u"Inter"_s);
        font.setPixelSize(12);
        QApplication::setFont(font);
    }
    void EveryTextCanBeRead_data()
    {
        const Rows<QByteArray, bool> row("scene", "dayMode");
        for (const Scene& scene : c_scenes) {
            row(scene.name + QByteArray(", light"), scene.name, true);
            row(scene.name + QByteArray(", dark"), scene.name, false);
        }
    }
    void EveryTextCanBeRead()
    {
        const auto [scene, dayMode] = Fetch<QByteArray, bool>();
        const InstalledSheet sheet(dayMode);
        ShownDialog shown(dayMode);
        Findings findings;
        SceneCalled(scene)->look(shown, findings);
        QVERIFY2(findings.unreadable.isEmpty(), qPrintable(findings.unreadable.join(QLatin1Char('\n'))));
        QVERIFY2(findings.texts >= SceneCalled(scene)->texts, qPrintable(QString::number(findings.texts)));
    }

    void DialogsOfTheHostStayReadable_data()
    {
        AddThemeRows();
    }
    void DialogsOfTheHostStayReadable()
    {
        QFETCH(bool, dayMode);
        const InstalledSheet sheet(dayMode);
        // Nothing in it is ours: the host's own palette is what counts.
        QDialog dialog;
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QLabel(u"Name of the plan"_s));
        layout->addWidget(new QLineEdit(u"Untitled"_s));
        layout->addWidget(new QCheckBox(u"With all layers"_s));
        layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        const QList<TextPlace> texts = VisibleTexts(&dialog);
        QVERIFY2(texts.size() >= 4, qPrintable(QString::number(texts.size())));
        for (const TextPlace& text : texts)
            QVERIFY2(DrawnContrast(text) >= NecessaryContrast(text), qPrintable(text.name));
        const QColor ground = dialog.grab().toImage().pixelColor(2, 2);
        QCOMPARE(ground.name(), QApplication::palette().color(QPalette::Window).name());
    }

    void ABadRuleIsFound_data()
    {
        const Rows<QByteArray, QByteArray, QByteArray> row("scene", "rule", "found");
        row("pale label", "at rest", "QLabel[customStyle=\"labelKorvelLight\"] { color: #8f9aab; }",
            "QLabel labelKorvelLight");
        row("pale header", "at rest", "QHeaderView::section { color: #8f9aab; }", "header \"Complex name\"");
        row("pale field of the details", "at rest",
            "QLineEdit[customStyle=\"lineEditKorvelDisplayOnly\"] { color: #8f9aab; }",
            "QLineEdit lineEditKorvelDisplayOnly");
        row("pale comment", "at rest",
            "QTextEdit[customStyle=\"textEditKorvelDisplayOnly\"] { color: #8f9aab; }",
            "textEditKorvelDisplayOnly");
        row("pale selected row", "at rest",
            "QTableView[customStyle=\"tableViewKorvelAudioNetworkDevices\"]::item:selected { color: #8f9aab; "
            "}",
            "row \"Festspielhaus\"");
        row("grey caption on a black picture", "at rest",
            "korvel--Ui--VenueDatabase--PictureSlider > QLabel[customStyle=\"labelKorvelCaptionSmall\"] "
            "{ color: #777777; }",
            "QLabel labelKorvelCaptionSmall \"1/2 The stage\"");
        row("pale button under the mouse", "under the mouse",
            "QPushButton[customStyle=\"buttonKorvelDefault\"]:hover { color: #8f9aab; }",
            "QPushButton buttonKorvelDefault");
        row("pale row under the mouse", "under the mouse",
            "QTableView[customStyle=\"tableViewKorvelAudioNetworkDevices\"]::item:hover { color: #8f9aab; }",
            "row \"Prinzregententheater\"");
        row("pale header under the mouse", "under the mouse",
            "QHeaderView::section:hover { color: #8f9aab; }", "header \"Venue/room name\"");
        row("pale pressed button", "pressed",
            "QPushButton[customStyle=\"buttonKorvelDefault\"]:pressed { color: #8f9aab; }",
            "QPushButton buttonKorvelDefault");
        row("pale pressed header", "pressed", "QHeaderView::section:pressed { color: #8f9aab; }",
            "header \"Venue/room name\"");
        row("pale chooser with the focus", "with the keyboard focus",
            "QComboBox[customStyle=\"comboBoxKorvelDefault\"]:focus { color: #8f9aab; }",
            "QComboBox comboBoxKorvelDefault");
        row("pale selection", "selected texts",
            "QLineEdit[customStyle=\"lineEditKorvelDefault\"] { selection-color: #8fb4ee; }",
            "QLineEdit lineEditKorvelDefault");
        row("pale entry of a list", "open lists",
            "QComboBox[customStyle=\"comboBoxKorvelDefault\"] QAbstractItemView { color: #8f9aab; }", "row ");
        row("pale tool tip", "tool tip", "QToolTip { color: #5d6672; }", "QTipLabel");
        row("pale status line of the viewer", "picture viewer",
            "QLabel[customStyle=\"labelKorvelDefault\"] { color: #8f9aab; }",
            "QLabel labelKorvelDefault \"Saved\"");
        row("pale menu", "context menu", "QMenu { color: #8f9aab; }", "entry \"Save Image As...\"");
        row("pale chosen entry of the menu", "context menu", "QMenu::item:selected { color: #8f9aab; }",
            "entry \"Save Image As...\"");
        row("pale label of the save dialog", "save dialog", "QFileDialog QLabel { color: #8f9aab; }",
            "QLabel");
        row("pale text of the box", "error box", "QMessageBox QLabel { color: #8f9aab; }", "QLabel");
    }
    void ABadRuleIsFound()
    {
        const auto [scene, rule, found] = Fetch<QByteArray, QByteArray, QByteArray>();
        const InstalledSheet sheet(true, QString::fromLatin1(rule));
        ShownDialog shown(true);
        Findings findings;
        SceneCalled(scene)->look(shown, findings);
        const QString unreadable = findings.unreadable.join(QLatin1Char('\n'));
        QVERIFY2(unreadable.contains(QLatin1String(found)), qPrintable(unreadable));
    }

    void KeyboardFocusCanBeSeen_data()
    {
        AddThemeRows();
    }
    void KeyboardFocusCanBeSeen()
    {
        QFETCH(bool, dayMode);
        const InstalledSheet sheet(dayMode);
        ShownDialog shown(dayMode);
        QWidget* search = Button(shown.dialog, u"Search"_s);
        QWidget* reset = Button(shown.dialog, u"Reset"_s);
        int widgets = 0;
        for (QWidget* widget : shown.dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible() || !widget->isEnabled() || widget->window() != &shown.dialog
                || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy())
                continue;
            // Some are too small for a ring inside them.
            const QRect place
                = QRect(widget->mapTo(&shown.dialog, QPoint()), widget->size()).adjusted(-6, -6, 6, 6);
            (widget == search ? reset : search)->setFocus(Qt::TabFocusReason);
            const QImage without = shown.dialog.grab(place).toImage();
            widget->setFocus(Qt::TabFocusReason);
            QVERIFY(widget->hasFocus());
            QVERIFY2(shown.dialog.grab(place).toImage() != without, widget->metaObject()->className());
            ++widgets;
        }
        QVERIFY2(widgets > 20, qPrintable(QString::number(widgets)));
    }

    void EveryStyleValueInUseHasARule_data()
    {
        AddThemeRows();
    }
    void EveryStyleValueInUseHasARule()
    {
        QFETCH(bool, dayMode);
        const ShownDialog shown(dayMode);
        QCOMPARE(ValuesWithoutRule(&shown.dialog, SheetText(dayMode)), QStringList());
        // A plain widget can carry a button's value: a rule for the bare value would catch it.
        for (const QString& selector : Selectors(SheetText(dayMode)))
            QVERIFY2(!selector.startsWith(QLatin1Char('[')) && !selector.contains(u" ["_s),
                     qPrintable(selector));
    }

    void AMissingRuleIsFound()
    {
        const ShownDialog shown(true);
        // A rule for another type of widget is none.
        const QString sheet = SheetText(true)
                                  .replace(u"labelKorvelLight"_s, u"labelKorvelOther"_s)
                                  .replace(u"QScrollArea[customStyle"_s, u"QSplitter[customStyle"_s);
        QStringList values = ValuesWithoutRule(&shown.dialog, sheet);
        values.sort();
        QCOMPARE(values, QStringList({u"labelKorvelLight"_s, u"scrollAreaKorvelDefault"_s}));
    }

    void TheSheetsHaveTheSameSelectors()
    {
        const QStringList light = Selectors(SheetText(true));
        QVERIFY(light.size() > 80);
        QCOMPARE(light, Selectors(SheetText(false)));
        QVERIFY(SheetText(true) != SheetText(false));
        for (const bool dayMode : {true, false}) {
            QVERIFY(!SheetText(dayMode).contains(QLatin1Char('@')));
            QVERIFY(!Theme(dayMode).WindowStyleSheet().contains(QLatin1Char('@')));
        }
    }

    void EveryStateHasARule_data()
    {
        const Rows<QByteArray> row("states");
        row("QPushButton[customStyle=\"buttonKorvelDefault\"]", "hover focus pressed default disabled");
        row("QLineEdit[customStyle=\"lineEditKorvelDefault\"]", "hover focus disabled");
        row("QLineEdit[customStyle=\"lineEditKorvelDisplayOnly\"]", "hover focus disabled");
        row("QTextEdit[customStyle=\"textEditKorvelDisplayOnly\"]", "hover focus disabled");
        row("QComboBox[customStyle=\"comboBoxKorvelDefault\"]", "hover on focus disabled");
        row("QComboBox[customStyle=\"comboBoxKorvelDefault\"] QAbstractItemView::item", "hover selected");
        row("QComboBox[customStyle=\"comboBoxKorvelDefault\"]::down-arrow", "disabled");
        row("QTableView[customStyle=\"tableViewKorvelAudioNetworkDevices\"]", "focus disabled");
        row("QTableView[customStyle=\"tableViewKorvelAudioNetworkDevices\"]::item", "hover selected");
        row("QHeaderView::section", "hover pressed focus");
        row("QSplitter[customStyle=\"splitterKorvelDefault\"]::handle", "hover pressed");
        row("QScrollBar::handle", "hover pressed");
        row("QLabel[customStyle]", "disabled");
        row("QMenu::item", "selected disabled");
    }
    void EveryStateHasARule()
    {
        QFETCH(QByteArray, states);
        const QByteArray part = QTest::currentDataTag();
        const QStringList selectors = Selectors(SheetText(true));
        for (const QByteArray& state : states.split(' '))
            QVERIFY2(selectors.contains(QLatin1String(part + ':' + state)), state.constData());
    }

    void EveryPictureOfTheSheetsCanBeLoaded_data()
    {
        AddThemeRows();
    }
    void EveryPictureOfTheSheetsCanBeLoaded()
    {
        QFETCH(bool, dayMode);
        static const QRegularExpression reference(u"url\\(\"([^\"]+)\"\\)"_s);
        const QString folder = Theme(dayMode).VenueDatabaseSheetPath().section(QLatin1Char('/'), 0, -2);
        int pictures = 0;
        for (const auto& match : reference.globalMatch(SheetText(dayMode))) {
            const QString path = folder + QLatin1Char('/') + match.captured(1);
            QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
            ++pictures;
        }
        QVERIFY(pictures > 10);
    }

    void ASheetServesFromItsFolder_data()
    {
        AddThemeRows();
    }
    void ASheetServesFromItsFolder()
    {
        QFETCH(bool, dayMode);
        // As it is installed: a host loads the file, and the pictures are found beside it.
        const QString folder = QStringLiteral(VDB_STYLES_DIR) + (dayMode ? u"/light"_s : u"/dark"_s);
        qApp->setStyleSheet(u"file:///"_s + folder + u"/venue-database.qss"_s);
        {
            QMessageBox box(QMessageBox::Warning, u"Error"_s, u"Text"_s);
            box.show();
            const QImage drawn = box.iconPixmap().toImage();
            const QImage expected = QIcon(folder + u"/warning.svg"_s).pixmap(drawn.size()).toImage();
            QVERIFY(!drawn.isNull());
            QCOMPARE(drawn.convertToFormat(QImage::Format_ARGB32),
                     expected.convertToFormat(QImage::Format_ARGB32));
        }
        qApp->setStyleSheet({});
        for (const char* name : c_foldingIcons)
            QVERIFY(!QPixmap(folder + u"/%1.svg"_s.arg(QLatin1String(name))).isNull());
    }

    void FoldingIconsAreWhereTheModuleLooks_data()
    {
        const Rows<QString> row("name");
        for (const char* name : c_foldingIcons)
            row(name, QString::fromLatin1(name));
    }
    void FoldingIconsAreWhereTheModuleLooks()
    {
        QFETCH(QString, name);
        const QImage icon = QPixmap(u":/Resources/%1.svg"_s.arg(name)).toImage();
        QCOMPARE(icon.size(), QSize(16, 16));
        // The day icons stand on a light bar, the others on a dark one.
        const Theme theme(name.endsWith(u"_day"_s));
        double strongest = 0;
        for (int y = 0; y < icon.height(); ++y) {
            for (int x = 0; x < icon.width(); ++x) {
                const QColor pixel = icon.pixelColor(x, y);
                if (pixel.alpha() > 200)
                    strongest = std::max(strongest, Contrast(pixel, theme.Colour(u"caption-bar"_s)));
            }
        }
        QVERIFY2(strongest >= 4.5, qPrintable(QString::number(strongest)));
    }

    void TextsOfThePlanAreReadable_data()
    {
        const Rows<QString, QString> row("text", "ground");
        const auto rows = [&row](const QByteArray& text, const QByteArray& grounds) {
            for (const QByteArray& ground : grounds.split(' '))
                row(text + " on " + ground, QString::fromLatin1(text), QString::fromLatin1(ground));
        };
        rows("text", "window raised-hover raised-pressed");
        rows("text-muted", "raised-off");
        rows("accent-text", "accent accent-hover accent-pressed");
        rows("plan-text", "plan-paper plan-stage plan-seats plan-floor");
        rows("plan-text-muted", "plan-paper");
    }
    void TextsOfThePlanAreReadable()
    {
        const auto [text, ground] = Fetch<QString, QString>();
        for (const bool dayMode : {true, false}) {
            const Theme theme(dayMode);
            const double contrast = Contrast(theme.Colour(text), theme.Colour(ground));
            QVERIFY2(contrast >= 4.5, qPrintable(u"%1 : 1 in day mode %2"_s.arg(contrast).arg(dayMode)));
        }
    }
};

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
