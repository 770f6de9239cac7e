#include <ui/PictureFullscreenDialog.h>

#include <data/DownloadManager.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureView.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/MessageGuard.h>
#include <tests/support/PictureFixtures.h>

#include <QApplication>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGraphicsPixmapItem>
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
#include <QTest>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>

using korvel::Data::VenueDatabase::DownloadManager;
using korvel::Data::VenueDatabase::Picture;
using korvel::Test::DataUrl;
using korvel::Test::EncodedPicture;
using korvel::Test::IsNear;
using korvel::Ui::VenueDatabase::PictureFullscreenDialog;
using korvel::Ui::VenueDatabase::PictureNavigationButton;
using korvel::Ui::VenueDatabase::PictureView;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

namespace {

constexpr QSize c_mediumSize(120, 80);
constexpr QSize c_largeSize(300, 200);
const QString c_loading = QStringLiteral("Loading large image...");

/// Only a medium rendition is at hand; the large one is to be fetched from \p largeUrl.
Picture PictureToFetch(const QString& description, const QString& largeUrl)
{
    Picture picture;
    picture.SetPictureName(description + QStringLiteral(".view.jpeg"));
    picture.SetAlternativeDescription(description);
    picture.SetPictureDataMedium(EncodedPicture(c_mediumSize, Qt::red));
    picture.SetPictureUrlLarge(largeUrl);
    return picture;
}

/// The large rendition is at hand.
Picture CompletePicture(const QString& description)
{
    Picture picture = PictureToFetch(description, QStringLiteral("https://127.0.0.1:1/none.jpg"));
    picture.SetPictureDataLarge(EncodedPicture(c_largeSize, Qt::blue));
    return picture;
}

QList<Picture> CompletePictures(qsizetype count)
{
    return QList<Picture>(count, CompletePicture(QStringLiteral("Hall")));
}

PictureView* View(const PictureFullscreenDialog& dialog)
{
    return dialog.findChild<PictureView*>();
}

QLabel* Caption(const PictureFullscreenDialog& dialog)
{
    const auto labels = View(dialog)->findChildren<QLabel*>();
    return labels.size() == 1 ? labels.first() : nullptr;
}

/// The previous (0) or next (1) button.
PictureNavigationButton* Button(const PictureFullscreenDialog& dialog, int which)
{
    return View(dialog)->findChildren<PictureNavigationButton*>().value(which);
}

QString Status(const PictureFullscreenDialog& dialog)
{
    return dialog.GetStatusLabel()->text();
}

/// The size of the only item in the scene; empty where there is none.
QSize ShownSize(const PictureFullscreenDialog& dialog)
{
    const QList<QGraphicsItem*> items = View(dialog)->scene()->items();
    const auto* item = items.size() == 1 ? qgraphicsitem_cast<QGraphicsPixmapItem*>(items.first()) : nullptr;
    return item ? item->pixmap().size() : QSize(0, 0);
}

Qt::CursorShape OverrideShape()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : Qt::ArrowCursor;
}

void IgnoreDownloadFailure()
{
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QStringLiteral("^Picture download")));
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
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(serverPort()).arg(path);
    }
};

/// Runs \p act with the window of type T that \p current gives, as soon as it is visible.
template <typename T>
void OnceVisible(const std::function<QWidget*()>& current, const std::function<void(T*)>& act)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, current, act] {
        auto* window = qobject_cast<T*>(current());
        if (!window || !window->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        act(window);
    });
    timer->start(0);
}

template <typename T> void OnceModal(const std::function<void(T*)>& act)
{
    OnceVisible<T>(&QApplication::activeModalWidget, act);
}

/// Answers the save dialog with \p path, as a user who types it and presses "Save".
void AnswerFileDialog(QFileDialog* fileDialog, const QString& path)
{
    fileDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
    static_cast<QDialog*>(fileDialog)->accept();
}

} // namespace

class tst_PictureFullscreenDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QStandardPaths::setTestModeEnabled(true);
        QGuiApplication::setApplicationDisplayName(QStringLiteral("Stage planner"));
        QGuiApplication::setQuitOnLastWindowClosed(false);
        QVERIFY(m_home.isValid());
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_home.path().toLocal8Bit());
        QVERIFY(QDir(m_home.path()).mkdir(QStringLiteral("Pictures")));
        QVERIFY(QDir(m_home.path()).mkdir(QStringLiteral("Elsewhere")));
    }
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
    }
    void cleanup()
    {
        QVERIFY(korvel::Test::NoWindowIsLeft());
        QVERIFY(!QGuiApplication::overrideCursor());
        for (const QWidget* widget : QApplication::allWidgets())
            QVERIFY(!qobject_cast<const QMenu*>(widget));
    }

    // The first test: what the first file dialog of a process does can be seen once.
    void OnlyTheFirstFileDialogStartsInThePicturesFolder()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        QStringList folders;
        for (int run = 0; run < 2; ++run) {
            OnceModal<QFileDialog>([&](QFileDialog* fileDialog) {
                folders.append(fileDialog->directory().absolutePath());
                fileDialog->setDirectory(m_home.filePath(QStringLiteral("Elsewhere")));
                fileDialog->reject();
            });
            dialog.OnSaveImageAs();
        }
        QCOMPARE(folders,
                 QStringList({m_home.filePath(QStringLiteral("Pictures")),
                              m_home.filePath(QStringLiteral("Elsewhere"))}));
    }

    void IsAModalDialogWithItsOwnNames()
    {
        const PictureFullscreenDialog dialog;
        QVERIFY(dialog.isModal());
        QVERIFY(dialog.testAttribute(Qt::WA_MouseTracking));
        QCOMPARE(dialog.objectName(), QStringLiteral("PictureFullscreenDialog"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Venue database pictures"));
        QCOMPARE(dialog.property("customStyle").toString(), QStringLiteral("dialogKorvelDefault"));
        QVERIFY(dialog.windowFlags().testFlags(Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
        QCOMPARE(dialog.windowType(), Qt::Dialog);
        QCOMPARE(View(dialog)->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("-/0"));
        QCOMPARE(Caption(dialog)->property("customStyle").toString(),
                 QStringLiteral("labelKorvelCaptionSmall"));
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
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(2);
        dialog.SetPictures(&pictures);
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
            Button(dialog, 0)->setFocus();
            dialog.hide();
        }
        QCOMPARE(fits.count(), 0);
    }

    void CaptionCountsFromOne_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("caption");
        QTest::newRow("first of one") << 1 << 0 << QStringLiteral("1/1 Hall");
        QTest::newRow("second of five") << 5 << 1 << QStringLiteral("2/5 Hall");
        QTest::newRow("last of five") << 5 << 4 << QStringLiteral("5/5 Hall");
        QTest::newRow("behind the last: nothing") << 5 << 5 << QStringLiteral("-/0");
        QTest::newRow("before the first: nothing") << 5 << -1 << QStringLiteral("-/0");
    }
    void CaptionCountsFromOne()
    {
        QFETCH(int, count);
        QFETCH(int, index);
        QFETCH(QString, caption);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(count);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(static_cast<short>(index));
        QCOMPARE(Caption(dialog)->text(), caption);
    }

    void CaptionShowsMarkupLiterally()
    {
        PictureFullscreenDialog dialog;
        const QString markup = QStringLiteral("<img src='/etc/x.png' width=30000> & %1");
        QList<Picture> pictures = {CompletePicture(markup)};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("1/1 ") + markup);
        QCOMPARE(Caption(dialog)->textFormat(), Qt::PlainText);
    }

    void CaptionOfAReplacedListNamesNoPicture()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(3);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(2);
        dialog.SetPictures(&pictures);
        dialog.SetDescriptionLabelText();
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("1/3 "));
    }

    void StepsGoRoundTheEnds_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("delta");
        QTest::addColumn<QString>("position");
        QTest::newRow("next") << 3 << 0 << 1 << QStringLiteral("2/3");
        QTest::newRow("previous") << 3 << 1 << -1 << QStringLiteral("1/3");
        QTest::newRow("before the first") << 3 << 0 << -1 << QStringLiteral("3/3");
        QTest::newRow("behind the last") << 3 << 2 << 1 << QStringLiteral("1/3");
        QTest::newRow("the only one, next") << 1 << 0 << 1 << QStringLiteral("1/1");
        QTest::newRow("the only one, previous") << 1 << 0 << -1 << QStringLiteral("1/1");
        QTest::newRow("far ahead") << 3 << 1 << 7 << QStringLiteral("3/3");
        QTest::newRow("back by the count") << 3 << 1 << -3 << QStringLiteral("2/3");
        QTest::newRow("too far back: nothing") << 3 << 1 << -5 << QStringLiteral("2/3");
        QTest::newRow("40000, before the first") << 40000 << 0 << -1 << QStringLiteral("40000/40000");
        QTest::newRow("40000, over 32767") << 40000 << 32767 << 1 << QStringLiteral("32769/40000");
        QTest::newRow("40000, behind the last") << 40000 << 39999 << 1 << QStringLiteral("1/40000");
        QTest::newRow("40000, far ahead") << 40000 << 32766 << 32767 << QStringLiteral("25534/40000");
    }
    void StepsGoRoundTheEnds()
    {
        QFETCH(int, count);
        QFETCH(int, start);
        QFETCH(int, delta);
        QFETCH(QString, position);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(count);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        for (int left = start; left > 0; left -= std::numeric_limits<short>::max())
            dialog.ModifyPicturesIndex(
                static_cast<short>(qMin<int>(left, std::numeric_limits<short>::max())));
        dialog.ModifyPicturesIndex(static_cast<short>(delta));
        QCOMPARE(Caption(dialog)->text(), position + QStringLiteral(" Hall"));
    }

    void NavigationButtonsShowOnlyForSeveralPictures_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("hidden");
        QTest::newRow("none") << 0 << true;
        QTest::newRow("one") << 1 << true;
        QTest::newRow("two") << 2 << false;
    }
    void NavigationButtonsShowOnlyForSeveralPictures()
    {
        QFETCH(int, count);
        QFETCH(bool, hidden);
        PictureFullscreenDialog dialog;
        QList<Picture> others = CompletePictures(count == 2 ? 1 : 2);
        dialog.SetPictures(&others);
        QList<Picture> pictures = CompletePictures(count);
        dialog.SetPictures(&pictures);
        dialog.SetPictures(nullptr);
        QCOMPARE(Button(dialog, 0)->isHidden(), hidden);
        QCOMPARE(Button(dialog, 1)->isHidden(), hidden);
    }

    void NavigationButtonsStep()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(3);
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
        QTest::mousePress(Button(dialog, 1), Qt::LeftButton);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("2/3 Hall"));
        QTest::mousePress(Button(dialog, 0), Qt::LeftButton);
        QTest::mousePress(Button(dialog, 0), Qt::LeftButton);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("3/3 Hall"));
        QVERIFY(View(dialog)->hasFocus() || !dialog.isActiveWindow());
        dialog.hide();
    }

    void OverlaysStandOnTheEdges_data()
    {
        QTest::addColumn<bool>("listComesLate");
        QTest::newRow("list before opening") << false;
        QTest::newRow("list while open") << true;
    }
    void OverlaysStandOnTheEdges()
    {
        QFETCH(bool, listComesLate);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(2);
        QList<Picture> none;
        dialog.SetPictures(listComesLate ? &none : &pictures);
        dialog.resize(900, 600);
        dialog.show();
        if (listComesLate)
            dialog.SetPictures(&pictures);
        const auto verifyPlaces = [&dialog] {
            const QSize view = View(dialog)->size();
            const int bar = QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
            const int width = std::clamp(view.width() / 12, 32, 80);
            QCOMPARE(Button(dialog, 0)->geometry(), QRect(0, 0, width, view.height()));
            QCOMPARE(Button(dialog, 1)->geometry(),
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
        pictures[1].SetAlternativeDescription(QStringLiteral("A long description. ").repeated(30));
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(1);
        verifyPlaces();
        QVERIFY(Caption(dialog)->height() > 2 * Caption(dialog)->fontMetrics().height());
        dialog.hide();
    }

    void MaximisedResizeFitsAgain()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
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
        dialog.hide();
    }

    void ThemeReachesViewButtonsAndCaption_data()
    {
        QTest::addColumn<bool>("dayMode");
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QString>("captionStyle");
        QTest::newRow("light") << true << QColor(255, 255, 255)
                               << QStringLiteral("QLabel { background: hsla( 0, 0, 255, 0.75); color: black; "
                                                 "padding: 6px 4px; }");
        QTest::newRow("dark") << false << QColor(49, 49, 49)
                              << QStringLiteral("QLabel { background: hsla( 0, 0, 0, 0.5); color: white; "
                                                "padding: 6px 4px; }");
    }
    void ThemeReachesViewButtonsAndCaption()
    {
        QFETCH(bool, dayMode);
        QFETCH(QColor, background);
        QFETCH(QString, captionStyle);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(2);
        dialog.SetPictures(&pictures);
        dialog.SetDayMode(!dayMode);
        dialog.SetDayMode(dayMode);
        dialog.resize(800, 600);
        dialog.show();
        QCOMPARE(Caption(dialog)->styleSheet(), captionStyle);
        const QImage image = View(dialog)->grab().toImage();
        QCOMPARE(image.pixelColor(image.width() / 2, 20), background);
        for (const int which : {0, 1}) {
            // Right of the chevron's tip or left of it, on the half transparent disc.
            const QPoint onDisc = Button(dialog, which)->geometry().center() + QPoint(0, 9);
            const int expected = dayMode ? 128 : 152;
            QVERIFY(IsNear(image.pixelColor(onDisc), QColor(expected, expected, expected), 3));
        }
        dialog.hide();
    }

    void ShowsTheBestRenditionAtHand_data()
    {
        QTest::addColumn<bool>("hasMedium");
        QTest::addColumn<bool>("hasLarge");
        QTest::addColumn<QSize>("size");
        QTest::newRow("large") << true << true << c_largeSize;
        QTest::newRow("medium") << true << false << c_mediumSize;
        QTest::newRow("small") << false << false << QSize(40, 30);
    }
    void ShowsTheBestRenditionAtHand()
    {
        QFETCH(bool, hasMedium);
        QFETCH(bool, hasLarge);
        QFETCH(QSize, size);
        const SilentServer server;
        Picture picture;
        picture.SetPictureUrlLarge(server.Url(QStringLiteral("large")));
        picture.SetPictureDataSmall(EncodedPicture(QSize(40, 30), Qt::green));
        if (hasMedium)
            picture.SetPictureDataMedium(EncodedPicture(c_mediumSize, Qt::red));
        if (hasLarge)
            picture.SetPictureDataLarge(EncodedPicture(c_largeSize, Qt::blue));
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = {picture};
        dialog.SetPictures(&pictures);
        dialog.SetStatusLabelText(QStringLiteral("before"));
        dialog.SetPicturesIndex(0);
        QCOMPARE(ShownSize(dialog), size);
        // Only a missing large rendition is fetched.
        QCOMPARE(Status(dialog), hasLarge ? QStringLiteral("before") : c_loading);
        QCOMPARE(OverrideShape(), hasLarge ? Qt::ArrowCursor : Qt::WaitCursor);
    }

    void PictureIsDrawnAtItsNaturalSize()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
        QCOMPARE(View(dialog)->transform(), QTransform());
        const QImage image = View(dialog)->viewport()->grab().toImage();
        const QPoint topLeft = View(dialog)->mapFromScene(QPointF(0, 0));
        QCOMPARE(image.pixelColor(topLeft), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(topLeft + QPoint(299, 199)), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(topLeft + QPoint(-1, 0)), QColor(49, 49, 49));
        QCOMPARE(image.pixelColor(topLeft + QPoint(0, -1)), QColor(49, 49, 49));
        QCOMPARE(image.pixelColor(topLeft + QPoint(300, 0)), QColor(49, 49, 49));
        dialog.hide();
    }

    void ThinLinesStayVisibleInAPictureShownSmall_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("below half its size") << QSize(2400, 1200);
        QTest::newRow("below an eighth of its size") << QSize(9000, 1200);
    }

    void ThinLinesStayVisibleInAPictureShownSmall()
    {
        QFETCH(const QSize, size);
        constexpr int c_lineCount = 100;
        // One dark pixel for each line, on white.
        const int distance = size.width() / c_lineCount;
        QImage lines(size, QImage::Format_RGB32);
        lines.fill(Qt::white);
        for (int line = 0; line < c_lineCount; ++line) {
            for (int y = 0; y < size.height(); ++y)
                lines.setPixelColor(line * distance + distance / 2, y, Qt::black);
        }
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && lines.save(&buffer, "PNG"));
        QList<Picture> pictures = CompletePictures(1);
        pictures.first().SetPictureDataLarge(bytes);

        PictureFullscreenDialog dialog;
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
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
                     qPrintable(QStringLiteral("line %1 has lightness %2").arg(line).arg(darkest)));
        }
        dialog.hide();
    }

    void LargeRenditionIsSwappedInAndKept()
    {
        const QByteArray large = EncodedPicture(c_largeSize, Qt::blue);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), DataUrl(large)),
                                   CompletePicture(QStringLiteral("Foyer"))};
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
        dialog.SetStatusLabelText(QStringLiteral("kept"));
        dialog.SetPicturesIndex(0);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(Status(dialog), QStringLiteral("kept"));
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
        // The list that was handed in is somebody else's.
        QVERIFY(pictures.at(0).GetPictureDataLarge().isEmpty());
    }

    void FailedDownloadKeepsTheSmallerRendition_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<int>("failures");
        QTest::newRow("unreachable reports twice") << QStringLiteral("https://127.0.0.1:1/large.jpg") << 2;
        QTest::newRow("foreign scheme reports twice") << QStringLiteral("file:///etc/passwd") << 2;
        QTest::newRow("no URL reports twice") << QString() << 2;
        QTest::newRow("no image reports once") << QStringLiteral("data:text/html,<p>Hello</p>") << 1;
    }
    void FailedDownloadKeepsTheSmallerRendition()
    {
        QFETCH(QString, url);
        QFETCH(int, failures);
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), url)};
        dialog.SetPictures(&pictures);
        QSignalSpy failed(dialog.findChild<DownloadManager*>(), &DownloadManager::RequestFailed);
        IgnoreDownloadFailure();
        dialog.SetPicturesIndex(0);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        QTRY_COMPARE(failed.count(), failures);
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QCOMPARE(Status(dialog), c_loading);
        // The host's own cursor is still there.
        QCOMPARE(OverrideShape(), Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void OneFailureDoesNotEndTheWaitForAnotherDownload()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        QList<Picture> pictures
            = {PictureToFetch(QStringLiteral("Hall"), QStringLiteral("https://127.0.0.1:1/large.jpg")),
               PictureToFetch(QStringLiteral("Foyer"), server.Url(QStringLiteral("foyer")))};
        dialog.SetPictures(&pictures);
        QSignalSpy failed(dialog.findChild<DownloadManager*>(), &DownloadManager::RequestFailed);
        IgnoreDownloadFailure();
        dialog.SetPicturesIndex(0);
        dialog.ModifyPicturesIndex(1);
        QTRY_COMPARE(failed.count(), 2);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.OnPictureBinaryDataRequestFailed(QUrl(pictures.at(1).GetPictureUrlLarge()), QString());
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void OnlyItsOwnFailureEndsTheWaitOfADownloadThatWasStartedTwice()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl url(server.Url(QStringLiteral("hall")));
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), url.toString())};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        dialog.ModifyPicturesIndex(1);
        for (const Qt::CursorShape left : {Qt::WaitCursor, Qt::ArrowCursor}) {
            dialog.OnPictureBinaryDataRequestFailed(url, QStringLiteral("Request failed!"));
            dialog.OnPictureBinaryDataRequestFailed(
                url, QStringLiteral("Cannot convert reply. Reply is not an image."));
            QCOMPARE(OverrideShape(), left);
        }
    }

    void LateReplyIsDropped()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl left(server.Url(QStringLiteral("left")));
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), left.toString()),
                                   CompletePicture(QStringLiteral("Foyer"))};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        dialog.SetPicturesIndex(1);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.OnPictureBinaryDataFinished(left, EncodedPicture(QSize(10, 10), Qt::green));
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
        PictureFullscreenDialog dialog;
        QList<Picture> pictures;
        for (const QString& name : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
            pictures.append(PictureToFetch(name, server.Url(name)));
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        QTest::keyClick(&dialog, Qt::Key_D);
        QTest::keyClick(&dialog, Qt::Key_D);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("3/3 c"));
        for (const Picture& picture : std::as_const(pictures)) {
            QCOMPARE(OverrideShape(), Qt::WaitCursor);
            dialog.OnPictureBinaryDataFinished(QUrl(picture.GetPictureUrlLarge()),
                                               EncodedPicture(c_largeSize, Qt::blue));
        }
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
        QCOMPARE(ShownSize(dialog), c_largeSize);
    }

    void SecondReplyIsShownAndFittedLikeTheFirst_data()
    {
        QTest::addColumn<QByteArray>("second");
        QTest::newRow("same bytes") << EncodedPicture(c_largeSize, Qt::blue);
        QTest::newRow("other bytes") << EncodedPicture(c_largeSize, Qt::green);
    }
    void SecondReplyIsShownAndFittedLikeTheFirst()
    {
        QFETCH(QByteArray, second);
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl url(server.Url(QStringLiteral("hall")));
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), url.toString())};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        dialog.ModifyPicturesIndex(1);
        dialog.OnPictureBinaryDataFinished(url, EncodedPicture(c_largeSize, Qt::blue));
        View(dialog)->ZoomBy(2.0);
        dialog.SetStatusLabelText(QStringLiteral("before"));
        dialog.OnPictureBinaryDataFinished(url, second);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QCOMPARE(View(dialog)->transform().m11(), 1.0);
        QCOMPARE(Status(dialog), QString());
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void ReplyFromBeforeTheViewerWasClosedTakesNoCursor_data()
    {
        QTest::addColumn<bool>("samePicture");
        QTest::addColumn<bool>("fails");
        QTest::newRow("another venue, the old picture arrives") << false << false;
        QTest::newRow("another venue, the old download fails") << false << true;
        QTest::newRow("same picture again, the old reply arrives") << true << false;
        QTest::newRow("same picture again, the old download fails") << true << true;
    }
    void ReplyFromBeforeTheViewerWasClosedTakesNoCursor()
    {
        QFETCH(bool, samePicture);
        QFETCH(bool, fails);
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl oldUrl(server.Url(QStringLiteral("old")));
        const QUrl newUrl = samePicture ? oldUrl : QUrl(server.Url(QStringLiteral("new")));
        for (const QUrl& url : {oldUrl, newUrl}) {
            dialog.hide();
            QCOMPARE(OverrideShape(), Qt::ArrowCursor);
            QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), url.toString())};
            dialog.SetPictures(&pictures);
            dialog.Open();
            dialog.SetPicturesIndex(0);
            QCOMPARE(OverrideShape(), Qt::WaitCursor);
        }
        const QByteArray bytes = EncodedPicture(c_largeSize, Qt::blue);
        if (fails) {
            // As the downloader says it: twice for one request.
            dialog.OnPictureBinaryDataRequestFailed(oldUrl, QStringLiteral("Request failed!"));
            QCOMPARE(OverrideShape(), Qt::WaitCursor);
            dialog.OnPictureBinaryDataRequestFailed(
                oldUrl, QStringLiteral("Cannot convert reply. Reply is not an image."));
        } else {
            dialog.OnPictureBinaryDataFinished(oldUrl, bytes);
        }
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        dialog.OnPictureBinaryDataFinished(newUrl, bytes);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
        dialog.hide();
    }

    void ReplyOfUnknownOriginEndsOneWait()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), server.Url(QStringLiteral("a")))};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        dialog.OnPictureBinaryDataFinished(QUrl(QStringLiteral("https://elsewhere.example/")), QByteArray());
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QCOMPARE(OverrideShape(), Qt::ArrowCursor);
    }

    void HidingTakesAllWaitCursorsBack_data()
    {
        QTest::addColumn<bool>("dies");
        QTest::newRow("hides") << false;
        QTest::newRow("dies") << true;
    }
    void HidingTakesAllWaitCursorsBack()
    {
        QFETCH(bool, dies);
        const SilentServer server;
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
        auto dialog = std::make_unique<PictureFullscreenDialog>();
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("a"), server.Url(QStringLiteral("a"))),
                                   PictureToFetch(QStringLiteral("b"), server.Url(QStringLiteral("b")))};
        dialog->SetPictures(&pictures);
        dialog->Open();
        dialog->SetPicturesIndex(0);
        dialog->SetPicturesIndex(1);
        QCOMPARE(OverrideShape(), Qt::WaitCursor);
        if (dies) {
            dialog.reset();
        } else {
            dialog->hide();
            QCOMPARE(OverrideShape(), Qt::CrossCursor);
            // What arrives late takes nothing more.
            dialog->OnPictureBinaryDataRequestFailed(QUrl(pictures.at(0).GetPictureUrlLarge()), QString());
        }
        QCOMPARE(OverrideShape(), Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor();
    }

    void ListReplacedLeavesNoCurrentPicture()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl url(server.Url(QStringLiteral("a")));
        QList<Picture> pictures = {PictureToFetch(QStringLiteral("Hall"), url.toString())};
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        dialog.SetPictures(&pictures);
        dialog.OnPictureBinaryDataFinished(url, EncodedPicture(c_largeSize, Qt::blue));
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        QVERIFY(!dialog.SaveImage(m_home.filePath(QStringLiteral("none.jpg"))));
        QCOMPARE(Status(dialog), QStringLiteral("Could not save file. Sorry."));
        // Returns at once, without a file dialog.
        dialog.OnSaveImageAs();
        QVERIFY(dialog.findChildren<QFileDialog*>().isEmpty());
    }

    void EmptyListClearsSceneAndCaption()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(2);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(1);
        QList<Picture> none;
        dialog.SetPictures(&none);
        QVERIFY(View(dialog)->scene()->items().isEmpty());
        QVERIFY(View(dialog)->scene()->sceneRect().isEmpty());
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("-/0"));
        dialog.ModifyPicturesIndex(1);
        dialog.SetPicturesIndex(0);
        View(dialog)->ZoomBy(1.2);
        QCOMPARE(Caption(dialog)->text(), QStringLiteral("-/0"));
        QVERIFY(!dialog.SaveImage(m_home.filePath(QStringLiteral("none.jpg"))));
    }

    void PictureFromOutsideMayDie()
    {
        const SilentServer server;
        PictureFullscreenDialog dialog;
        const QUrl url(server.Url(QStringLiteral("outside")));
        auto picture = std::make_unique<Picture>(PictureToFetch(QStringLiteral("Hall"), url.toString()));
        dialog.SetPicture(picture.get());
        picture.reset();
        QCOMPARE(ShownSize(dialog), c_mediumSize);
        dialog.OnPictureBinaryDataFinished(url, EncodedPicture(c_largeSize, Qt::blue));
        QCOMPARE(ShownSize(dialog), c_largeSize);
        const QString path = m_home.filePath(QStringLiteral("outside.jpg"));
        QVERIFY(dialog.SaveImage(path));
        QCOMPARE(QImage(path).size(), c_largeSize);

        dialog.SetPicture(nullptr);
        QCOMPARE(ShownSize(dialog), c_largeSize);
        QVERIFY(!dialog.SaveImage(path));
    }

    void UndecodableBytesShowNothing_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<QByteArray>("warning");
        const QByteArray svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"20\"></svg>";
        QByteArray bomb = EncodedPicture(QSize(1, 1), Qt::red);
        // Width and height of the header, with its checksum; 100000 x 100000.
        bomb.replace(16, 8, QByteArray::fromHex("000186a0000186a0"));
        QTest::newRow("none") << QByteArray() << QByteArray();
        QTest::newRow("no picture") << QByteArray("hello") << QByteArray();
        QTest::newRow("cut short") << EncodedPicture(c_largeSize, Qt::red).left(30) << QByteArray();
        QTest::newRow("a drawing, which could name local files") << svg << QByteArray();
        QTest::newRow("a drawing with prologue") << ("<?xml version=\"1.0\"?>" + svg) << QByteArray();
        QTest::newRow("wrong checksum and huge") << bomb << QByteArray();
        QTest::newRow("more pixels than allowed")
            << QByteArray("P5 30000 30000 255\n") << QByteArray("allocation limit");
    }
    void UndecodableBytesShowNothing()
    {
        QFETCH(QByteArray, data);
        QFETCH(QByteArray, warning);
        PictureFullscreenDialog dialog;
        dialog.SetImage(EncodedPicture(c_largeSize, Qt::blue));
        QCOMPARE(ShownSize(dialog), c_largeSize);
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::fromLatin1(warning)));
        dialog.SetImage(data);
        QVERIFY(View(dialog)->scene()->items().isEmpty());
        // The rectangle of the previous picture stays.
        QCOMPARE(View(dialog)->scene()->sceneRect(), QRectF(QPointF(0, 0), c_largeSize));
        dialog.SetImage(EncodedPicture(c_mediumSize, Qt::red));
        QCOMPARE(View(dialog)->scene()->sceneRect(), QRectF(QPointF(0, 0), c_mediumSize));
    }

    void KeysDoWhatTheyAreFor_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("position");
        QTest::addColumn<double>("scale");
        QTest::addColumn<bool>("visible");
        const Qt::KeyboardModifiers none;
        const QString same = QStringLiteral("3/4");
        const QString next = QStringLiteral("4/4");
        const QString previous = QStringLiteral("2/4");
        QTest::newRow("A") << int(Qt::Key_A) << none << previous << 1.0 << true;
        QTest::newRow("D") << int(Qt::Key_D) << none << next << 1.0 << true;
        QTest::newRow("Page Up is forward") << int(Qt::Key_PageUp) << none << next << 1.0 << true;
        QTest::newRow("Page Down is back") << int(Qt::Key_PageDown) << none << previous << 1.0 << true;
        QTest::newRow("Home") << int(Qt::Key_Home) << none << QStringLiteral("1/4") << 1.0 << true;
        QTest::newRow("+") << int(Qt::Key_Plus) << none << same << 2.4 << true;
        QTest::newRow("-") << int(Qt::Key_Minus) << none << same << 2.0 / 1.2 << true;
        QTest::newRow("Q") << int(Qt::Key_Q) << none << same << 2.0 << false;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << none << same << 2.0 << false;
        QTest::newRow("S alone") << int(Qt::Key_S) << none << same << 2.0 << true;
        QTest::newRow("Right") << int(Qt::Key_Right) << none << same << 2.0 << true;
        QTest::newRow("Ctrl+B") << int(Qt::Key_B) << Qt::KeyboardModifiers(Qt::ControlModifier) << same << 2.0
                                << true;
    }
    void KeysDoWhatTheyAreFor()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, position);
        QFETCH(double, scale);
        QFETCH(bool, visible);
        for (const bool throughView : {false, true}) {
            PictureFullscreenDialog dialog;
            QList<Picture> pictures = CompletePictures(4);
            dialog.SetPictures(&pictures);
            dialog.Open();
            dialog.SetPicturesIndex(2);
            View(dialog)->ZoomBy(2.0);
            QSignalSpy rejections(&dialog, &QDialog::rejected);
            if (throughView)
                QTest::keyClick(View(dialog), Qt::Key(key), modifiers);
            else
                QTest::keyClick(&dialog, Qt::Key(key), modifiers);
            QCOMPARE(Caption(dialog)->text(), position + QStringLiteral(" Hall"));
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

    void OpenViewerDoesNotStopTheApplicationFromQuitting()
    {
        PictureFullscreenDialog dialog;
        dialog.Open();
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QTimer tooLate;
        tooLate.callOnTimeout(qApp, [] { QCoreApplication::exit(1); });
        tooLate.start(20000);
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!dialog.isVisible());
    }

    void SavesTheLargestRenditionAsJpeg()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        const QString path = m_home.filePath(QStringLiteral("<b>saved</b> %1.jpg"));
        QVERIFY(QDir(m_home.path()).mkpath(QFileInfo(path).path()));
        QVERIFY(dialog.SaveImage(path));
        QCOMPARE(Status(dialog), QStringLiteral("Saved \"") + path + QStringLiteral("\""));
        QCOMPARE(dialog.GetStatusLabel()->textFormat(), Qt::PlainText);
        const QImage saved(path, "JPG");
        QCOMPARE(saved.size(), c_largeSize);
        QVERIFY(IsNear(saved.pixelColor(150, 100), Qt::blue, 6));
    }

    void UndecodablePictureIsNotSaved()
    {
        PictureFullscreenDialog dialog;
        Picture broken = CompletePicture(QStringLiteral("Hall"));
        broken.SetPictureDataLarge("no picture");
        dialog.SetPicture(&broken);
        const QString path = m_home.filePath(QStringLiteral("broken.jpg"));
        QVERIFY(!dialog.SaveImage(path));
        QCOMPARE(Status(dialog), QStringLiteral("Could not save file. Sorry."));
        QVERIFY(!QFileInfo::exists(path));
    }

    void UnwritableFileIsReportedInABox()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        const QString path = m_home.filePath(QStringLiteral("missing/<b>folder/a.jpg"));
        int boxes = 0;
        OnceModal<QMessageBox>([&](QMessageBox* box) {
            ++boxes;
            QCOMPARE(box->text(), QStringLiteral("Cannot write ") + path);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->windowTitle(), QStringLiteral("Stage planner"));
            QCOMPARE(box->icon(), QMessageBox::Information);
            QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
            QCOMPARE(box->parent(), &dialog);
            box->accept();
        });
        QVERIFY(!dialog.SaveImage(path));
        QCOMPARE(boxes, 1);
        QCOMPARE(Status(dialog), QString());
        QVERIFY(dialog.findChildren<QMessageBox*>().isEmpty());
    }

    void FileDialogIsSetUpForAJpegFile_data()
    {
        QTest::addColumn<QString>("pictureName");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("up to the first dot") << QStringLiteral("hall.view.png") << QStringLiteral("hall");
        QTest::newRow("without folders") << QStringLiteral("../../etc/passwd") << QStringLiteral("passwd");
        QTest::newRow("empty") << QString() << QString();
    }
    void FileDialogIsSetUpForAJpegFile()
    {
        QFETCH(QString, pictureName);
        QFETCH(QString, fileName);
        PictureFullscreenDialog dialog;
        Picture picture = CompletePicture(QStringLiteral("Hall"));
        picture.SetPictureName(pictureName);
        dialog.SetPicture(&picture);
        int fileDialogs = 0;
        OnceModal<QFileDialog>([&](QFileDialog* fileDialog) {
            ++fileDialogs;
            QCOMPARE(fileDialog->parent(), &dialog);
            QCOMPARE(fileDialog->windowTitle(), QStringLiteral("Save Image As"));
            QCOMPARE(fileDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(), fileName);
            QCOMPARE(fileDialog->mimeTypeFilters(), QStringList(QStringLiteral("image/jpeg")));
            QCOMPARE(fileDialog->selectedMimeTypeFilter(), QStringLiteral("image/jpeg"));
            QCOMPARE(fileDialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(fileDialog->defaultSuffix(), QStringLiteral("jpg"));
            fileDialog->reject();
        });
        dialog.SetStatusLabelText(QStringLiteral("before"));
        dialog.OnSaveImageAs();
        QCOMPARE(fileDialogs, 1);
        // Cancelled: nothing saved, no message, no dialog left.
        QCOMPARE(Status(dialog), QStringLiteral("before"));
        QVERIFY(dialog.findChildren<QFileDialog*>().isEmpty());
    }

    void CtrlSSavesUnderTheChosenName()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
        const QString path = m_home.filePath(QStringLiteral("chosen"));
        OnceModal<QFileDialog>([&](QFileDialog* fileDialog) { AnswerFileDialog(fileDialog, path); });
        QTest::keyClick(View(dialog), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(QImage(path + QStringLiteral(".jpg")).size(), c_largeSize);
        QCOMPARE(Status(dialog), QStringLiteral("Saved \"%1.jpg\"").arg(path));
        dialog.hide();
    }

    void FileDialogComesBackAfterAFailure()
    {
        PictureFullscreenDialog dialog;
        Picture broken = CompletePicture(QStringLiteral("Hall"));
        broken.SetPictureDataLarge("no picture");
        dialog.SetPicture(&broken);
        QList<QFileDialog*> fileDialogs;
        OnceModal<QFileDialog>([&](QFileDialog* fileDialog) {
            fileDialogs.append(fileDialog);
            OnceVisible<QFileDialog>(
                [&dialog, fileDialog]() -> QWidget* {
                    return Status(dialog).isEmpty() ? nullptr : fileDialog;
                },
                [&](QFileDialog* again) {
                    fileDialogs.append(again);
                    again->reject();
                });
            AnswerFileDialog(fileDialog, m_home.filePath(QStringLiteral("never.jpg")));
        });
        dialog.OnSaveImageAs();
        QCOMPARE(fileDialogs.size(), 2);
        QCOMPARE(fileDialogs.at(0), fileDialogs.at(1));
        QCOMPARE(Status(dialog), QStringLiteral("Could not save file. Sorry."));
    }

    void FileDialogDoesNotComeBackWithoutPicture()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.SetPicturesIndex(0);
        OnceModal<QFileDialog>([&](QFileDialog* fileDialog) {
            QList<Picture> none;
            dialog.SetPictures(&none);
            AnswerFileDialog(fileDialog, m_home.filePath(QStringLiteral("never.jpg")));
        });
        dialog.OnSaveImageAs();
        QCOMPARE(Status(dialog), QStringLiteral("Could not save file. Sorry."));
    }

    void ViewerMayDieUnderItsWindows_data()
    {
        QTest::addColumn<QString>("window");
        QTest::newRow("file dialog") << QStringLiteral("file dialog");
        QTest::newRow("message box") << QStringLiteral("message box");
        QTest::newRow("message box over the file dialog") << QStringLiteral("both");
        QTest::newRow("menu") << QStringLiteral("menu");
    }
    void ViewerMayDieUnderItsWindows()
    {
        QFETCH(QString, window);
        auto* dialog = new PictureFullscreenDialog;
        const QPointer<PictureFullscreenDialog> guard(dialog);
        QList<Picture> pictures = CompletePictures(1);
        dialog->SetPictures(&pictures);
        dialog->Open();
        dialog->SetPicturesIndex(0);
        const QString unwritable = QStringLiteral("/proc/none.jpg");
        if (window == QLatin1String("file dialog")) {
            OnceModal<QFileDialog>([dialog](QFileDialog*) { delete dialog; });
            dialog->OnSaveImageAs();
        } else if (window == QLatin1String("message box")) {
            OnceModal<QMessageBox>([dialog](QMessageBox*) { delete dialog; });
            QVERIFY(!dialog->SaveImage(unwritable));
        } else if (window == QLatin1String("both")) {
            OnceModal<QMessageBox>([dialog](QMessageBox*) { delete dialog; });
            OnceModal<QFileDialog>(
                [&unwritable](QFileDialog* fileDialog) { AnswerFileDialog(fileDialog, unwritable); });
            dialog->OnSaveImageAs();
        } else {
            OnceVisible<QMenu>(&QApplication::activePopupWidget, [dialog](QMenu* menu) {
                delete dialog;
                const bool isOpen = menu->isVisible();
                menu->close();
                QVERIFY(!isOpen);
            });
            dialog->OnContextMenuRequested(QPoint(10, 10));
        }
        QVERIFY(!guard);
    }

    void ContextMenuOffersToSave()
    {
        PictureFullscreenDialog dialog;
        QList<Picture> pictures = CompletePictures(1);
        dialog.SetPictures(&pictures);
        dialog.Open();
        dialog.SetPicturesIndex(0);
        QPoint menuPosition;
        int fileDialogs = 0;
        OnceVisible<QMenu>(&QApplication::activePopupWidget, [&](QMenu* menu) {
            menuPosition = menu->pos();
            QCOMPARE(menu->actions().size(), 1);
            QCOMPARE(menu->actions().first()->text(), QStringLiteral("Save Image As..."));
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        OnceModal<QFileDialog>([&](QFileDialog* fileDialog) {
            ++fileDialogs;
            fileDialog->reject();
        });
        const QPoint position(150, 60);
        const QPoint expected = View(dialog)->mapToGlobal(position);
        QWidget* viewport = View(dialog)->viewport();
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, viewport->mapToGlobal(position));
        QCoreApplication::sendEvent(viewport, &event);
        QTRY_COMPARE(fileDialogs, 1);
        QCOMPARE(menuPosition, expected);
        dialog.hide();
    }

private:
    QTemporaryDir m_home;
};

QTEST_MAIN(tst_PictureFullscreenDialog)
#include "tst_PictureFullscreenDialog.moc"
