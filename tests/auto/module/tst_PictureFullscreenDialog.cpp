#include <ui/PictureFullscreenDialog.h>

#include <data/DownloadManager.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureView.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/ModalDriver.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStyle>
#include <QTcpServer>
#include <QTemporaryDir>

#include <functional>
#include <limits>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

constexpr QSize c_mediumSize(120, 80);
constexpr QSize c_largeSize(300, 200);
const QString c_notSaved = u"Could not save file. Sorry."_s;
const QString c_loading = u"Loading large image..."_s;

/// Only a medium rendition is at hand; the large one is to be fetched from \p largeUrl.
Picture PictureToFetch(const QString& description, const QString& largeUrl)
{
    Picture picture;
    picture.SetPictureName(description + u".view.jpeg"_s);
    picture.SetAlternativeDescription(description);
    picture.SetPictureDataMedium(EncodedPicture(c_mediumSize, Qt::red));
    picture.SetPictureUrlLarge(largeUrl);
    return picture;
}

/// The large rendition is at hand.
Picture CompletePicture(const QString& description)
{
    Picture picture = PictureToFetch(description, u"https://127.0.0.1:1/none.jpg"_s);
    picture.SetPictureDataLarge(EncodedPicture(c_largeSize, Qt::blue));
    return picture;
}

QList<Picture> CompletePictures(qsizetype count)
{
    return QList<Picture>(count, CompletePicture(u"Hall"_s));
}

PictureView* View(const PictureFullscreenDialog& dialog)
{
    return dialog.findChild<PictureView*>();
}

QString Status(const PictureFullscreenDialog& dialog)
{
    return dialog.GetStatusLabel()->text();
}

Qt::CursorShape OverrideShape()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : Qt::ArrowCursor;
}

/// Accepts connections and never answers.
class SilentServer : public QTcpServer
{
public:
    SilentServer()
    {
        listen(QHostAddress::LocalHost);
    }
    QString Url(const QString& path) const
    {
        return u"http://127.0.0.1:%1/%2"_s.arg(serverPort()).arg(path);
    }
};

/// The viewer with \p pictures, showing that at \p index.
struct Viewer : PictureFullscreenDialog
{
    Viewer() = default;
    explicit Viewer(const QList<Picture>& pictures, int index = 0)
    {
        Show(*this, pictures, index);
    }
    /// Another list, and none of its pictures shown.
    void TakeList(QList<Picture> pictures)
    {
        SetPictures(&pictures);
    }
    void Finish(const QUrl& url, const QByteArray& bytes = EncodedPicture(c_largeSize, Qt::blue))
    {
        OnPictureBinaryDataFinished(url, bytes);
    }
    /// As the downloader says it: twice for one request.
    void FailTwice(const QUrl& url)
    {
        OnPictureBinaryDataRequestFailed(url, u"Request failed!"_s);
        OnPictureBinaryDataRequestFailed(url, u"Cannot convert reply. Reply is not an image."_s);
    }
};

/// The viewer while the large rendition of its only picture is on its way for ever.
struct WaitingViewer : Viewer
{
    WaitingViewer()
    {
        Show(*this, pictures);
    }
    SilentServer server;
    const QUrl url{server.Url(u"hall"_s)};
    const QList<Picture> pictures{PictureToFetch(u"Hall"_s, url.toString())};
};

/// The viewer on the screen.
struct ShownViewer : Viewer
{
    explicit ShownViewer(const QList<Picture>& pictures, int index = 0)
    {
        TakeList(pictures);
        Open();
        SetPicturesIndex(static_cast<short>(index));
    }
};

} // namespace

class tst_PictureFullscreenDialog : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QStandardPaths::setTestModeEnabled(true);
        QGuiApplication::setApplicationDisplayName(u"Stage planner"_s);
        QGuiApplication::setQuitOnLastWindowClosed(false);
        QVERIFY(m_home.isValid());
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_home.path().toLocal8Bit());
        QVERIFY(QDir(m_home.path()).mkdir(u"Pictures"_s));
        QVERIFY(QDir(m_home.path()).mkdir(u"Elsewhere"_s));
    }
    void cleanup()
    {
        StrictTest::cleanup();
        for (const QWidget* widget : QApplication::allWidgets())
            QVERIFY(!qobject_cast<const QMenu*>(widget));
    }

    // The first test: what the first file dialog of a process does can be seen once.
    void OnlyTheFirstFileDialogStartsInThePicturesFolder()
    {
        Viewer dialog(CompletePictures(1));
        QStringList folders;
        for (int run = 0; run < 2; ++run) {
            const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) {
                folders.append(fileDialog->directory().absolutePath());
                fileDialog->setDirectory(m_home.filePath(u"Elsewhere"_s));
                fileDialog->reject();
            });
            dialog.OnSaveImageAs();
        }
        QCOMPARE(folders, QStringList({m_home.filePath(u"Pictures"_s), m_home.filePath(u"Elsewhere"_s)}));
    }

    void IsAModalDialogWithItsOwnNames()
    {
        const PictureFullscreenDialog dialog;
        QVERIFY(dialog.isModal());
        QVERIFY(dialog.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(dialog.objectName(), u"PictureFullscreenDialog"_s);
        QCOMPARE(dialog.windowTitle(), u"Venue database pictures"_s);
        QCOMPARE(StyleOf(&dialog), u"dialogKorvelDefault"_s);
        QVERIFY(dialog.windowFlags().testFlags(Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
        QCOMPARE(dialog.windowType(), Qt::Dialog);
        QCOMPARE(View(dialog)->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(Caption(dialog)->text(), u"-/0"_s);
        QCOMPARE(StyleOf(Caption(dialog)), u"labelKorvelCaptionSmall"_s);
    }

    void HasItsOwnSignalAndSlots()
    {
        const QMetaObject& meta = PictureFullscreenDialog::staticMetaObject;
        QByteArrayList signatures;
        for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
            signatures.append(meta.method(index).methodSignature());
        QCOMPARE(signatures,
                 QByteArrayList({"FitViewAfterOpen()", "OnPictureBinaryDataFinished(QUrl,QByteArray)",
                                 "OnPictureBinaryDataRequestFailed(QUrl,QString)",
                                 "OnContextMenuRequested(QPoint)", "OnCloseWindowRequested()",
                                 "OnSaveImageAs()", "OnPictureNavigationRequested(int)"}));
    }

    void OwnsSceneAndDownloader()
    {
        auto dialog = std::make_unique<PictureFullscreenDialog>();
        const QPointer<QGraphicsScene> scene(View(*dialog)->scene());
        const QPointer<DownloadManager> manager(dialog->findChild<DownloadManager*>());
        QVERIFY(scene);
        QVERIFY(manager);
        dialog.reset();
        QVERIFY(!scene);
        QVERIFY(!manager);
    }

    void OpensMaximisedOverAPlacedNormalGeometry()
    {
        Viewer dialog;
        dialog.TakeList(CompletePictures(2));
        QSignalSpy fits(&dialog, &PictureFullscreenDialog::FitViewAfterOpen);
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        for (int run = 0; run < 2; ++run) {
            dialog.Open();
            QVERIFY(dialog.isVisible());
            QVERIFY(dialog.isMaximized());
            QCOMPARE(dialog.normalGeometry().size(), QSize(1062, 768));
            const QPoint offCenter = dialog.normalGeometry().center() - available.center();
            QVERIFY2(offCenter.manhattanLength() <= 2, "not in the middle of the screen");
            QCOMPARE(dialog.focusWidget(), View(dialog));
            // Each opening gives the view the focus, wherever it has been.
            NavigationButton(dialog, 0)->setFocus();
            dialog.hide();
        }
        QCOMPARE(fits.count(), 0);
    }

    void CaptionCountsFromOne_data()
    {
        const Rows<int, int, QString> row("count", "index", "caption");
        row("first of one", 1, 0, u"1/1 Hall"_s);
        row("second of five", 5, 1, u"2/5 Hall"_s);
        row("last of five", 5, 4, u"5/5 Hall"_s);
        row("behind the last: nothing", 5, 5, u"-/0"_s);
        row("before the first: nothing", 5, -1, u"-/0"_s);
    }
    void CaptionCountsFromOne()
    {
        const auto [count, index, caption] = Fetch<int, int, QString>();
        Viewer dialog(CompletePictures(count), index);
        QCOMPARE(Caption(dialog)->text(), caption);
    }

    void CaptionOfAReplacedListNamesNoPicture()
    {
        Viewer dialog(CompletePictures(3), 2);
        dialog.TakeList(CompletePictures(3));
        dialog.SetDescriptionLabelText();
        QCOMPARE(Caption(dialog)->text(), u"1/3 "_s);
    }

    void StepsGoRoundTheEnds_data()
    {
        const Rows<int, int, int, QString> row("count", "start", "delta", "position");
        row("next", 3, 0, 1, u"2/3"_s);
        row("previous", 3, 1, -1, u"1/3"_s);
        row("before the first", 3, 0, -1, u"3/3"_s);
        row("behind the last", 3, 2, 1, u"1/3"_s);
        row("the only one, next", 1, 0, 1, u"1/1"_s);
        row("the only one, previous", 1, 0, -1, u"1/1"_s);
        row("far ahead", 3, 1, 7, u"3/3"_s);
        row("back by the count", 3, 1, -3, u"2/3"_s);
        row("too far back: nothing", 3, 1, -5, u"2/3"_s);
        row("40000, before the first", 40000, 0, -1, u"40000/40000"_s);
        row("40000, over 32767", 40000, 32767, 1, u"32769/40000"_s);
        row("40000, behind the last", 40000, 39999, 1, u"1/40000"_s);
        row("40000, far ahead", 40000, 32766, 32767, u"25534/40000"_s);
    }
    void StepsGoRoundTheEnds()
    {
        const auto [count, start, delta, position] = Fetch<int, int, int, QString>();
        Viewer dialog(CompletePictures(count));
        for (int left = start; left > 0; left -= std::numeric_limits<short>::max())
            dialog.ModifyPicturesIndex(
                static_cast<short>(qMin<int>(left, std::numeric_limits<short>::max())));
        dialog.ModifyPicturesIndex(static_cast<short>(delta));
        QCOMPARE(Caption(dialog)->text(), position + u" Hall"_s);
    }

    void NavigationButtonsShowOnlyForSeveralPictures_data()
    {
        const Rows<int, bool> row("count", "hidden");
        row("none", 0, true);
        row("one", 1, true);
        row("two", 2, false);
    }
    void NavigationButtonsShowOnlyForSeveralPictures()
    {
        const auto [count, hidden] = Fetch<int, bool>();
        Viewer dialog;
        dialog.TakeList(CompletePictures(count == 2 ? 1 : 2));
        dialog.TakeList(CompletePictures(count));
        dialog.SetPictures(nullptr);
        QCOMPARE(NavigationButton(dialog, 0)->isHidden(), hidden);
        QCOMPARE(NavigationButton(dialog, 1)->isHidden(), hidden);
    }

    void NavigationButtonsStep()
    {
        ShownViewer dialog(CompletePictures(3));
        QTest::mousePress(NavigationButton(dialog, 1), Qt::LeftButton);
        QCOMPARE(Caption(dialog)->text(), u"2/3 Hall"_s);
        QTest::mousePress(NavigationButton(dialog, 0), Qt::LeftButton);
        QTest::mousePress(NavigationButton(dialog, 0), Qt::LeftButton);
        QCOMPARE(Caption(dialog)->text(), u"3/3 Hall"_s);
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(View(dialog)->hasFocus());
    }

    void OverlaysStandOnTheEdges_data()
    {
        const Rows<bool> row("listComesLate");
        row("list before opening", false);
        row("list while open", true);
    }
    void OverlaysStandOnTheEdges()
    {
        QFETCH(bool, listComesLate);
        Viewer dialog;
        dialog.TakeList(CompletePictures(listComesLate ? 0 : 2));
        dialog.resize(900, 600);
        dialog.show();
        if (listComesLate)
            dialog.TakeList(CompletePictures(2));
        const auto verifyPlaces = [&dialog] {
            const QSize view = View(dialog)->size();
            const int bar = QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
            const int width = std::clamp(view.width() / 12, 32, 80);
            QCOMPARE(NavigationButton(dialog, 0)->geometry(), QRect(0, 0, width, view.height()));
            QCOMPARE(NavigationButton(dialog, 1)->geometry(),
                     QRect(view.width() - bar - width, 0, width, view.height()));
            const QRect label = Caption(dialog)->geometry();
            QCOMPARE(label.left(), 2);
            QCOMPARE(label.width(), view.width() - bar - 1);
            QCOMPARE(label.bottom() + 1, view.height() - bar);
            QVERIFY(label.height() >= Caption(dialog)->heightForWidth(label.width()));
        };
        verifyPlaces();
        dialog.resize(700, 500);
        verifyPlaces();
        dialog.hide();
        dialog.show();
        verifyPlaces();
        Show(dialog, {Picture(), CompletePicture(u"A long description. "_s.repeated(30))}, 1);
        verifyPlaces();
        QVERIFY(Caption(dialog)->height() > 2 * Caption(dialog)->fontMetrics().height());
    }

    void OverlaysLeaveTheScrollBarFreeFromRightToLeft_data()
    {
        const Rows<bool> row("turnsLate");
        row("turned before it is shown", false);
        row("turned while it is shown", true);
    }
    void OverlaysLeaveTheScrollBarFreeFromRightToLeft()
    {
        QFETCH(bool, turnsLate);
        Viewer dialog;
        dialog.TakeList(CompletePictures(2));
        if (!turnsLate)
            dialog.setLayoutDirection(Qt::RightToLeft);
        dialog.resize(900, 600);
        dialog.show();
        dialog.setLayoutDirection(Qt::RightToLeft);
        const PictureView* view = View(dialog);
        const int barEnd = view->viewport()->x();
        QVERIFY(view->verticalScrollBar()->mapTo(view, QPoint(0, 0)).x() < barEnd);
        for (const int width : {900, 700}) {
            dialog.resize(width, 600);
            QCOMPARE(Caption(dialog)->x(), barEnd);
            QCOMPARE(NavigationButton(dialog, 0)->x(), barEnd);
            QCOMPARE(NavigationButton(dialog, 1)->geometry().right(), view->rect().right());
        }
        dialog.setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(Caption(dialog)->x(), 2);
        QCOMPARE(NavigationButton(dialog, 0)->x(), 0);
    }

    void MaximisedResizeFitsAgain()
    {
        ShownViewer dialog(CompletePictures(1));
        View(dialog)->ZoomBy(2.0);
        QCOMPARE(View(dialog)->transform().m11(), 2.0);
        // Asked to resize, Qt would end the maximised state: this is what the window system says.
        QResizeEvent resized(dialog.size(), dialog.size() - QSize(10, 10));
        QCoreApplication::sendEvent(&dialog, &resized);
        QCOMPARE(View(dialog)->transform().m11(), 1.0);

        dialog.showNormal();
        View(dialog)->ZoomBy(2.0);
        dialog.resize(dialog.size() - QSize(10, 10));
        QCOMPARE(View(dialog)->transform().m11(), 2.0);
    }

    void ThemeReachesViewButtonsAndCaption_data()
    {
        const Rows<bool, QColor, QString> row("dayMode", "background", "captionStyle");
        row("light", true, QColor(255, 255, 255),
            u"QLabel { background: hsla( 0, 0, 255, 0.75); color: black; "
            "padding: 6px 4px; }"_s);
        row("dark", false, QColor(49, 49, 49),
            u"QLabel { background: hsla( 0, 0, 0, 0.5); color: white; "
            "padding: 6px 4px; }"_s);
    }
    void ThemeReachesViewButtonsAndCaption()
    {
        const auto [dayMode, background, captionStyle] = Fetch<bool, QColor, QString>();
        Viewer dialog;
        dialog.TakeList(CompletePictures(2));
        dialog.SetDayMode(!dayMode);
        dialog.SetDayMode(dayMode);
        dialog.resize(800, 600);
        dialog.show();
        QCOMPARE(Caption(dialog)->styleSheet(), captionStyle);
        const QImage image = View(dialog)->grab().toImage();
        QCOMPARE(image.pixelColor(image.width() / 2, 20), background);
        for (const int which : {0, 1}) {
            // Right of the chevron's tip or left of it, on the half transparent disc.
            const QPoint onDisc = NavigationButton(dialog, which)->geometry().center() + QPoint(0, 9);
            const int expected = dayMode ? 128 : 152;
            QVERIFY(IsNear(image.pixelColor(onDisc), QColor(expected, expected, expected), 3));
        }
    }

    void ShowsTheBestRenditionAtHand_data()
    {
        const Rows<QSize, QSize, QSize> row("medium", "large", "shown");
        row("large", c_mediumSize, c_largeSize, c_largeSize);
        row("medium", c_mediumSize, {}, c_mediumSize);
        row("small", {}, {}, QSize(40, 30));
    }
    void ShowsTheBestRenditionAtHand()
    {
        const auto [medium, large, shown] = Fetch<QSize, QSize, QSize>();
        const SilentServer server;
        const auto encoded = [](const QSize& size) {
            return size.isEmpty() ? QByteArray() : EncodedPicture(size, Qt::green);
        };
        Picture picture = MakePicture(encoded(QSize(40, 30)), encoded(large));
        picture.SetPictureDataMedium(encoded(medium));
        picture.SetPictureUrlLarge(server.Url(u"large"_s));
        Viewer dialog;
        dialog.SetStatusLabelText(u"before"_s);
        Show(dialog, {picture});
        QCOMPARE(ShownSize(dialog), shown);
        // Only a missing large rendition is fetched.
        QCOMPARE(Status(dialog), large.isEmpty() ? c_loading : u"before"_s);
        QCOMPARE(OverrideShape(), large.isEmpty() ? Qt::WaitCursor : Qt::ArrowCursor);
    }

    void PictureIsDrawnAtItsNaturalSize()
    {
        ShownViewer dialog(CompletePictures(1));
        QCOMPARE(View(dialog)->transform(), QTransform());
        const QImage image = View(dialog)->viewport()->grab().toImage();
        const QPoint topLeft = View(dialog)->mapFromScene(QPointF(0, 0));
        QCOMPARE(image.pixelColor(topLeft), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(topLeft + QPoint(299, 199)), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(topLeft + QPoint(-1, 0)), QColor(49, 49, 49));
        QCOMPARE(image.pixelColor(topLeft + QPoint(0, -1)), QColor(49, 49, 49));
        QCOMPARE(image.pixelColor(topLeft + QPoint(300, 0)), QColor(49, 49, 49));
    }

    void ThinLinesStayVisibleInAPictureShownSmall_data()
    {
        const Rows<QSize> row("size");
        row("below half its size", QSize(2400, 1200));
        row("below an eighth of its size", QSize(9000, 1200));
    }

    void ThinLinesStayVisibleInAPictureShownSmall()
    {
        QFETCH(const QSize, size);
        constexpr int c_lineCount = 100;
        // One dark pixel for each line, on white.
        const int distance = size.width() / c_lineCount;
        QImage lines(size, QImage::Format_RGB32);
        lines.fill(Qt::white);
        for (int line = 0; line < c_lineCount; ++line)
            for (int y = 0; y < size.height(); ++y)
                lines.setPixelColor(line * distance + distance / 2, y, Qt::black);
        ShownViewer dialog({MakePicture({}, Png(lines))});
        QVERIFY(View(dialog)->transform().m11() < 0.5);
        const QImage shown = View(dialog)->viewport()->grab().toImage();
        // Beside the caption and the buttons.
        const int row = View(dialog)->mapFromScene(QPointF(0, size.height() * 0.75)).y();
        for (int line = 10; line < c_lineCount - 10; ++line) {
            const int column = View(dialog)->mapFromScene(QPointF(line * distance + distance / 2.0, 0)).x();
            int darkest = 255;
            for (int x = column - 2; x <= column + 2; ++x)
                darkest = std::min(darkest, shown.pixelColor(x, row).lightness());
            // A pixel that stands for n others cannot get darker than 1 - 1/n, and shares the line with its
            // neighbour.
            const double darkening = 255 * View(dialog)->transform().m11() / 3;
            QVERIFY2(darkest < 255 - darkening,
                     qPrintable(u"line %1 has lightness %2"_s.arg(line).arg(darkest)));
        }
    }

    void LargeRenditionIsSwappedInAndKept()
    {
        const QByteArray large = EncodedPicture(c_largeSize, Qt::blue);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = {PictureToFetch(u"Hall"_s, DataUrl(large)), CompletePicture(u"Foyer"_s)};
        dialog.SetPictures(&pictures);
        const auto* manager = dialog.findChild<DownloadManager*>();
        QSignalSpy finished(manager, &DownloadManager::PictureBinaryDataFinished);

        dialog.SetPicturesIndex(0);
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QCOMPARE(Status(dialog), c_loading);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(Status(dialog), QString());
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);

        // Back again: no second download, the status stays.
        dialog.SetPicturesIndex(1);
        dialog.SetStatusLabelText(u"kept"_s);
        dialog.SetPicturesIndex(0);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(Status(dialog), u"kept"_s);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
        // The list that was handed in is somebody else's.
        QVERIFY(pictures.at(0).GetPictureDataLarge().isEmpty());
    }

    // Downloads that fail stand in the matrix.
    void OneFailureDoesNotEndTheWaitForAnotherDownload()
    {
        const SilentServer server;
        const QString foyer = server.Url(u"foyer"_s);
        PictureFullscreenDialog dialog;
        QSignalSpy failed(dialog.findChild<DownloadManager*>(), &DownloadManager::RequestFailed);
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"^Picture download"_s));
        Show(dialog,
             {PictureToFetch(u"Hall"_s, u"https://127.0.0.1:1/large.jpg"_s),
              PictureToFetch(u"Foyer"_s, foyer)});
        dialog.ModifyPicturesIndex(1);
        QTRY_COMPARE(failed.count(), 2);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.OnPictureBinaryDataRequestFailed(QUrl(foyer), QString());
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void OnlyItsOwnFailureEndsTheWaitOfADownloadThatWasStartedTwice()
    {
        WaitingViewer dialog;
        dialog.ModifyPicturesIndex(1);
        for (const Qt::CursorShape left : {Qt::WaitCursor, Qt::ArrowCursor}) {
            dialog.FailTwice(dialog.url);
            QCOMPARE(OverrideShape(), left);
        }
    }

    void LateReplyIsDropped()
    {
        const SilentServer server;
        const QUrl left(server.Url(u"left"_s));
        Viewer dialog({PictureToFetch(u"Hall"_s, left.toString()), CompletePicture(u"Foyer"_s)});
        dialog.SetPicturesIndex(1);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.Finish(left, EncodedPicture(QSize(10, 10), Qt::green));
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(Status(dialog), c_loading);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);

        // Not kept: coming back fetches again.
        dialog.SetPicturesIndex(0);
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
    }

    void EveryStepWithoutLargeRenditionStartsARequest()
    {
        const SilentServer server;
        QList<Picture> pictures;
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
            pictures.append(PictureToFetch(name, server.Url(name)));
        Viewer dialog(pictures);
        QTest::keyClick(&dialog, Qt::Key_D);
        QTest::keyClick(&dialog, Qt::Key_D);
        QCOMPARE(Caption(dialog)->text(), u"3/3 c"_s);
        for (const Picture& picture : std::as_const(pictures)) {
            QCOMPARE(OverrideShape(), Qt::WaitCursor);
            dialog.Finish(QUrl(picture.GetPictureUrlLarge()));
        }
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
        QCOMPARE(ShownSize(dialog), c_largeSize);
    }

    void SecondReplyIsShownAndFittedLikeTheFirst_data()
    {
        const Rows<QByteArray> row("second");
        row("same bytes", EncodedPicture(c_largeSize, Qt::blue));
        row("other bytes", EncodedPicture(c_largeSize, Qt::green));
    }
    void SecondReplyIsShownAndFittedLikeTheFirst()
    {
        QFETCH(QByteArray, second);
        WaitingViewer dialog;
        dialog.ModifyPicturesIndex(1);
        dialog.Finish(dialog.url);
        View(dialog)->ZoomBy(2.0);
        dialog.SetStatusLabelText(u"before"_s);
        dialog.Finish(dialog.url, second);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(View(dialog)->transform().m11(), 1.0);
        QCOMPARE(Status(dialog), QString());
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void ReplyFromBeforeTheViewerWasClosedTakesNoCursor_data()
    {
        const Rows<bool, bool> row("samePicture", "fails");
        row("another venue, the old picture arrives", false, false);
        row("another venue, the old download fails", false, true);
        row("same picture again, the old reply arrives", true, false);
        row("same picture again, the old download fails", true, true);
    }
    void ReplyFromBeforeTheViewerWasClosedTakesNoCursor()
    {
        const auto [samePicture, fails] = Fetch<bool, bool>();
        const SilentServer server;
        Viewer dialog;
        const QUrl oldUrl(server.Url(u"old"_s));
        const QUrl newUrl = samePicture ? oldUrl : QUrl(server.Url(u"new"_s));
        for (const QUrl& url : {oldUrl, newUrl}) {
            dialog.hide();
            QCOMPARE(OverrideShape(), Qt::ArrowCursor);
            OpenViewer(dialog, {PictureToFetch(u"Hall"_s, url.toString())});
            QCOMPARE(OverrideShape(), Qt::WaitCursor);
        }
        if (fails)
            dialog.FailTwice(oldUrl);
        else
            dialog.Finish(oldUrl);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.Finish(newUrl);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void ReplyOfUnknownOriginEndsOneWait()
    {
        WaitingViewer dialog;
        dialog.Finish(QUrl(u"https://elsewhere.example/"_s), QByteArray());
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void HidingTakesAllWaitCursorsBack_data()
    {
        const Rows<bool> row("dies");
        row("hides", false);
        row("dies", true);
    }
    void HidingTakesAllWaitCursorsBack()
    {
        QFETCH(bool, dies);
        const SilentServer server;
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
        auto dialog = std::make_unique<PictureFullscreenDialog>();
        const QString first = server.Url(u"a"_s);
        OpenViewer(*dialog, {PictureToFetch(u"a"_s, first), PictureToFetch(u"b"_s, server.Url(u"b"_s))});
        dialog->SetPicturesIndex(1);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        if (dies) {
            dialog.reset();
        } else {
            dialog->hide();
            QCOMPARE(OverrideShape(), Qt::CrossCursor);
            // What arrives late takes nothing more.
            dialog->OnPictureBinaryDataRequestFailed(QUrl(first), QString());
        }
        QCOMPARE(OverrideShape(), Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor();
    }

    void ListReplacedLeavesNoCurrentPicture()
    {
        WaitingViewer dialog;
        dialog.TakeList(dialog.pictures);
        dialog.Finish(dialog.url);
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QVERIFY(!dialog.SaveImage(m_home.filePath(u"none.jpg"_s)));
        QCOMPARE(Status(dialog), c_notSaved);
        // Returns at once, without a file dialog.
        dialog.OnSaveImageAs();
        QVERIFY(dialog.findChildren<QFileDialog*>().isEmpty());
    }

    void EmptyListClearsSceneAndCaption()
    {
        Viewer dialog(CompletePictures(2), 1);
        dialog.TakeList({});
        QVERIFY(View(dialog)->scene()->items().isEmpty());
        QVERIFY(View(dialog)->scene()->sceneRect().isEmpty());
        QCOMPARE(Caption(dialog)->text(), u"-/0"_s);
        dialog.ModifyPicturesIndex(1);
        dialog.SetPicturesIndex(0);
        View(dialog)->ZoomBy(1.2);
        QCOMPARE(Caption(dialog)->text(), u"-/0"_s);
        QVERIFY(!dialog.SaveImage(m_home.filePath(u"none.jpg"_s)));
    }

    void PictureFromOutsideMayDie()
    {
        WaitingViewer dialog;
        auto picture = std::make_unique<Picture>(dialog.pictures.first());
        dialog.TakeList({});
        dialog.SetPicture(picture.get());
        picture.reset();
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        dialog.Finish(dialog.url);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        const QString path = m_home.filePath(u"outside.jpg"_s);
        QVERIFY(dialog.SaveImage(path));
        QCOMPARE(QImage(path).size(), c_largeSize);

        dialog.SetPicture(nullptr);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QVERIFY(!dialog.SaveImage(path));
    }

    // More of them stand in the matrix, those that are too large in tst_PictureDecoding.
    void UndecodableBytesShowNothing_data()
    {
        const Rows<QByteArray> row("data");
        row("none", {});
        row("no picture", "hello");
        row("a drawing with prologue",
            "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"20\"/>");
    }
    void UndecodableBytesShowNothing()
    {
        QFETCH(QByteArray, data);
        PictureFullscreenDialog dialog;
        dialog.SetImage(EncodedPicture(c_largeSize, Qt::blue));
        QCOMPARE(ShownSize(dialog), c_largeSize);
        dialog.SetImage(data);
        QVERIFY(View(dialog)->scene()->items().isEmpty());
        // The rectangle of the previous picture stays.
        QCOMPARE(View(dialog)->scene()->sceneRect(), QRectF(QPointF(0, 0), c_largeSize));
        dialog.SetImage(EncodedPicture(c_mediumSize, Qt::red));
        QCOMPARE(View(dialog)->scene()->sceneRect(), QRectF(QPointF(0, 0), c_mediumSize));
    }

    void KeysDoWhatTheyAreFor_data()
    {
        const Rows<int, Qt::KeyboardModifiers, QString, double, bool> row("key", "modifiers", "position",
                                                                          "scale", "visible");
        const Qt::KeyboardModifiers none;
        const QString same = u"3/4"_s;
        const QString next = u"4/4"_s;
        const QString previous = u"2/4"_s;
        row("A", Qt::Key_A, none, previous, 1.0, true);
        row("D", Qt::Key_D, none, next, 1.0, true);
        row("Page Up is forward", Qt::Key_PageUp, none, next, 1.0, true);
        row("Page Down is back", Qt::Key_PageDown, none, previous, 1.0, true);
        row("Home", Qt::Key_Home, none, u"1/4"_s, 1.0, true);
        row("+", Qt::Key_Plus, none, same, 2.4, true);
        row("-", Qt::Key_Minus, none, same, 2.0 / 1.2, true);
        row("Q", Qt::Key_Q, none, same, 2.0, false);
        row("Escape", Qt::Key_Escape, none, same, 2.0, false);
        row("S alone", Qt::Key_S, none, same, 2.0, true);
        row("Right", Qt::Key_Right, none, same, 2.0, true);
        row("Ctrl+B", Qt::Key_B, Qt::ControlModifier, same, 2.0, true);
    }
    void KeysDoWhatTheyAreFor()
    {
        const auto [key, modifiers, position, scale, visible]
            = Fetch<int, Qt::KeyboardModifiers, QString, double, bool>();
        for (const bool throughView : {false, true}) {
            ShownViewer dialog(CompletePictures(4), 2);
            View(dialog)->ZoomBy(2.0);
            QSignalSpy rejections(&dialog, &QDialog::rejected);
            QTest::keyClick(throughView ? static_cast<QWidget*>(View(dialog)) : &dialog, Qt::Key(key),
                            modifiers);
            QCOMPARE(Caption(dialog)->text(), position + u" Hall"_s);
            QCOMPARE(View(dialog)->transform().m11(), scale);
            QCOMPARE(dialog.isVisible(), visible);
            QCOMPARE(rejections.count(), key == Qt::Key_Escape ? 1 : 0);
            QVERIFY(dialog.findChildren<QFileDialog*>().isEmpty());
            dialog.hide();
        }
    }

    void HostMayDeleteTheViewerOnCtrlB()
    {
        auto* dialog = new PictureFullscreenDialog;
        const QPointer<PictureFullscreenDialog> guard(dialog);
        const QObject host;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::DayModeChangeRequested, &host,
                [dialog] { delete dialog; });
        QKeyEvent event(QEvent::KeyPress, Qt::Key_B, Qt::ControlModifier);
        QCoreApplication::sendEvent(dialog, &event);
        QVERIFY(!guard);
    }

    void ClosingOnlyHides()
    {
        PictureFullscreenDialog dialog;
        dialog.Open();
        QCloseEvent event;
        QCoreApplication::sendEvent(&dialog, &event);
        QVERIFY(!event.isAccepted());
        QVERIFY(!dialog.isVisible());

        dialog.Open();
        dialog.OnCloseWindowRequested();
        QVERIFY(!dialog.isVisible());
    }

    void SavesTheLargestRenditionAsJpeg()
    {
        Viewer dialog(CompletePictures(1));
        const QString path = m_home.filePath(u"<b>saved</b> %1.jpg"_s);
        QVERIFY(QDir(m_home.path()).mkpath(QFileInfo(path).path()));
        QVERIFY(dialog.SaveImage(path));
        QCOMPARE(Status(dialog), u"Saved \""_s + path + u"\""_s);
        QCOMPARE(dialog.GetStatusLabel()->textFormat(), Qt::PlainText);
        const QImage saved(path, "JPG");
        QCOMPARE(saved.size(), c_largeSize);
        QVERIFY(IsNear(saved.pixelColor(150, 100), Qt::blue, 6));
    }

    void UnwritableFileIsReportedInABox()
    {
        Viewer dialog(CompletePictures(1));
        const QString path = m_home.filePath(u"missing/<b>folder/a.jpg"_s);
        const BoxDriver boxDriver([&](QMessageBox* box) {
            QCOMPARE(box->text(), u"Cannot write "_s + path);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->windowTitle(), u"Stage planner"_s);
            QCOMPARE(box->icon(), QMessageBox::Information);
            QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
            QCOMPARE(box->parent(), &dialog);
            box->accept();
        });
        QVERIFY(!dialog.SaveImage(path));
        QCOMPARE(boxDriver.Count(), 1);
        QCOMPARE(Status(dialog), QString());
        QVERIFY(dialog.findChildren<QMessageBox*>().isEmpty());
    }

    void FileDialogIsSetUpForAJpegFile_data()
    {
        const Rows<QString, QString> row("pictureName", "fileName");
        row("up to the first dot", u"hall.view.png"_s, u"hall"_s);
        row("without folders", u"../../etc/passwd"_s, u"passwd"_s);
        row("empty", {}, {});
    }
    void FileDialogIsSetUpForAJpegFile()
    {
        const auto [pictureName, fileName] = Fetch<QString, QString>();
        Picture picture = CompletePicture(u"Hall"_s);
        picture.SetPictureName(pictureName);
        Viewer dialog({picture});
        const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) {
            QCOMPARE(fileDialog->parent(), &dialog);
            QCOMPARE(fileDialog->windowTitle(), u"Save Image As"_s);
            QCOMPARE(fileDialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->text(), fileName);
            QCOMPARE(fileDialog->mimeTypeFilters(), QStringList(u"image/jpeg"_s));
            QCOMPARE(fileDialog->selectedMimeTypeFilter(), u"image/jpeg"_s);
            QCOMPARE(fileDialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(fileDialog->defaultSuffix(), u"jpg"_s);
            fileDialog->reject();
        });
        dialog.SetStatusLabelText(u"before"_s);
        dialog.OnSaveImageAs();
        QCOMPARE(fileDriver.Count(), 1);
        // Cancelled: nothing saved, no message, no dialog left.
        QCOMPARE(Status(dialog), u"before"_s);
        QVERIFY(dialog.findChildren<QFileDialog*>().isEmpty());
    }

    void CtrlSSavesUnderTheChosenName()
    {
        ShownViewer dialog(CompletePictures(1));
        const QString path = m_home.filePath(u"chosen"_s);
        const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) { SaveAs(fileDialog, path); });
        QTest::keyClick(View(dialog), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(QImage(path + u".jpg"_s).size(), c_largeSize);
        QCOMPARE(Status(dialog), u"Saved \"%1.jpg\""_s.arg(path));
    }

    void FileDialogComesBackAfterAFailure()
    {
        Viewer dialog({MakePicture({}, "no picture")});
        QList<QFileDialog*> fileDialogs;
        std::unique_ptr<ModalDriver<QFileDialog>> secondDriver;
        const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) {
            fileDialogs.append(fileDialog);
            secondDriver = std::make_unique<ModalDriver<QFileDialog>>([&](QFileDialog* again) {
                fileDialogs.append(again);
                again->reject();
            });
            SaveAs(fileDialog, m_home.filePath(u"never.jpg"_s));
        });
        dialog.OnSaveImageAs();
        QCOMPARE(fileDialogs.size(), 2);
        QCOMPARE(fileDialogs.at(0), fileDialogs.at(1));
        QCOMPARE(Status(dialog), c_notSaved);
    }

    void FileDialogDoesNotComeBackWithoutPicture()
    {
        Viewer dialog(CompletePictures(1));
        const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) {
            dialog.TakeList({});
            SaveAs(fileDialog, m_home.filePath(u"never.jpg"_s));
        });
        dialog.OnSaveImageAs();
        QCOMPARE(Status(dialog), c_notSaved);
    }

    void ViewerMayDieUnderItsWindows_data()
    {
        const Rows<QString> row("window");
        row("file dialog", u"file dialog"_s);
        row("message box", u"message box"_s);
        row("message box over the file dialog", u"both"_s);
        row("menu", u"menu"_s);
    }
    void ViewerMayDieUnderItsWindows()
    {
        QFETCH(QString, window);
        auto* dialog = new ShownViewer(CompletePictures(1));
        const QPointer<PictureFullscreenDialog> guard(dialog);
        const QString unwritable = u"/proc/none.jpg"_s;
        std::unique_ptr<BoxDriver> boxDriver;
        if (window != "file dialog"_L1)
            boxDriver = std::make_unique<BoxDriver>([dialog](QMessageBox*) { delete dialog; });
        const ModalDriver<QFileDialog> fileDriver([&](QFileDialog* fileDialog) {
            if (boxDriver)
                SaveAs(fileDialog, unwritable);
            else
                delete dialog;
        });
        const ModalDriver<QMenu> menuDriver([dialog](QMenu* menu) {
            delete dialog;
            const bool isOpen = menu->isVisible();
            menu->close();
            QVERIFY(!isOpen);
        });
        if (window == "menu"_L1)
            dialog->OnContextMenuRequested(QPoint(10, 10));
        else if (window == "message box"_L1)
            QVERIFY(!dialog->SaveImage(unwritable));
        else
            dialog->OnSaveImageAs();
        QVERIFY(!guard);
    }

    void ContextMenuOffersToSave()
    {
        ShownViewer dialog(CompletePictures(1));
        QPoint menuPosition;
        const ModalDriver<QMenu> menuDriver([&](QMenu* menu) {
            menuPosition = menu->pos();
            QCOMPARE(menu->actions().size(), 1);
            QCOMPARE(menu->actions().first()->text(), u"Save Image As..."_s);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        const ModalDriver<QFileDialog> fileDriver([](QFileDialog* fileDialog) { fileDialog->reject(); });
        const QPoint position(150, 60);
        const QPoint expected = View(dialog)->mapToGlobal(position);
        QWidget* viewport = View(dialog)->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, viewport->mapToGlobal(position));
        QCoreApplication::sendEvent(viewport, &event);
        QTRY_COMPARE(fileDriver.Count(), 1);
        QCOMPARE(menuPosition, expected);
    }

private:
    QTemporaryDir m_home;
};

QTEST_MAIN(tst_PictureFullscreenDialog)
#include "tst_PictureFullscreenDialog.moc"
