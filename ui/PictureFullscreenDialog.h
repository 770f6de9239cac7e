#pragma once

#include <data/Picture.h>
#include <data/VenueDatabaseExport.h>
#include <ui/VenueDbDialogBase.h>

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QString>
#include <QUrl>

#include <memory>
#include <optional>

class QGraphicsScene;
class QPixmap;

namespace korvel::Data::VenueDatabase {
class DownloadManager;
}

namespace korvel::Ui::VenueDatabase {

class DownloadCursors;
class PictureNavigationButton;
class PictureView;

/// The modal, maximised viewer of a venue's pictures: shows one at its largest rendition at hand, fetches the
/// large one in the background, zooms, pans, steps through the list and saves as JPEG.
///
/// Keys: + and - zoom, A and Page Down step back, D and Page Up step forward, Home shows the first picture,
/// Ctrl+S saves, Q and Escape hide. Created once and reused: closing only hides it.
///
/// While a large rendition is fetched the application shows a wait cursor; the viewer takes back only the
/// cursors that it set, and all of them when it hides or dies. User-interface thread only.
///
/// @code{.cpp}
/// auto* viewer = new PictureFullscreenDialog(&window);
/// viewer->SetDayMode(true);
/// viewer->SetPictures(&pictures); // keeps a copy
/// viewer->Open();
/// viewer->SetPicturesIndex(0);
/// @endcode
class KVVENUEDATABASE_API PictureFullscreenDialog : public VenueDbDialogBase
{
    Q_OBJECT

public:
    /// Builds the viewer in the dark theme, without pictures. \p parent owns it.
    explicit PictureFullscreenDialog(QWidget* parent = nullptr);
    /// Takes back the wait cursors that it set; running downloads end silently.
    ~PictureFullscreenDialog() override;

    /// Takes a shared copy of the list, in which it will keep the large renditions that it fetches. No
    /// picture is current afterwards and none is loaded until one is chosen; an empty list clears what is
    /// shown. Null changes nothing.
    void SetPictures(QList<Data::VenueDatabase::Picture>* pictures);
    /// Shows the picture at the zero-based \p index; does nothing outside of the list.
    void SetPicturesIndex(short index);
    /// Steps by \p delta, round the ends of the list; does nothing for an empty list, or where \p delta goes
    /// back by more than the list is long.
    void ModifyPicturesIndex(short delta);
    /// Makes a copy of \p picture the current one, shows it, and fetches its large rendition where that is
    /// missing. With null no picture is current any more, and what is shown stays.
    void SetPicture(Data::VenueDatabase::Picture* picture);
    /// Shows the encoded picture \p data, fitted and upright. A picture beyond
    /// QImageReader::allocationLimit() is shown at half its size where its format allows for that. Bytes that
    /// do not decode show nothing.
    void SetImage(const QByteArray& data);
    /// Writes the caption: "2/5 description" of the current picture, "-/0" for an empty list.
    void SetDescriptionLabelText();
    /// Shows the viewer maximised and gives the view the focus. Its normal geometry is 1062 x 768 pixels in
    /// the middle of the primary screen.
    void Open();
    /// Saves the current picture at the largest rendition at hand as a JPEG file. The outcome stands in the
    /// status line, except that a file that cannot be written is reported by a message box: that runs a
    /// nested event loop, in which the viewer may be destroyed. True when the file was written;
    /// otherwise nothing is left behind, and a file that was there stays.
    bool SaveImage(const QString& path);
    /// True: the light theme.
    void SetDayMode(bool dayMode);

public Q_SLOTS:
    /// Shows and keeps a large rendition that arrived for the current picture; one for a picture that the
    /// user has left is dropped. Where it is too large to be decoded, the next smaller one is shown. Takes
    /// the wait cursor of the download back.
    void OnPictureBinaryDataFinished(QUrl url, QByteArray buffer);
    /// Takes the wait cursor of the download back; the smaller rendition and the status text stay.
    void OnPictureBinaryDataRequestFailed(QUrl url, QString errorMessage);
    /// Offers to save the picture, in a menu at \p pos of the view. Runs a nested event loop.
    void OnContextMenuRequested(QPoint pos);
    /// Hides the viewer.
    void OnCloseWindowRequested();
    /// Asks for a file and saves the current picture; asks again until it was saved or the user gives up.
    /// Runs a nested event loop. Does nothing without a current picture.
    void OnSaveImageAs();
    /// Steps by \p direction.
    void OnPictureNavigationRequested(int direction);

Q_SIGNALS:
    /// Never emitted; kept for receivers that are connected to it.
    void FitViewAfterOpen();

protected:
    /// The keys of the class description, in addition to those of the frame and of QDialog. May run a nested
    /// event loop.
    void keyPressEvent(QKeyEvent* event) override;
    /// Fits the picture when maximised and places the buttons and the caption again.
    void resizeEvent(QResizeEvent* event) override;
    /// Places the buttons and the caption.
    void showEvent(QShowEvent* event) override;
    /// Takes back the wait cursors of running downloads.
    void hideEvent(QHideEvent* event) override;
    /// Places the buttons and the caption where the layout turns to the other side.
    void changeEvent(QEvent* event) override;
    /// Hides the viewer and ignores the event.
    void closeEvent(QCloseEvent* event) override;

private:
    friend class PictureSlider;

    void SetupUi();
    void ConnectSignals();
    /// The same as SetPicturesIndex(), also for the indexes of lists that are longer than a short can count.
    void ShowPictureAt(qsizetype index);
    /// Shows \p pixmap, fitted; nothing for a null one.
    void ShowPixmap(const QPixmap& pixmap);
    /// Shows \p picture, whose large rendition is to be kept in row \p row of the list, -1 for none.
    void ShowPicture(const Data::VenueDatabase::Picture& picture, qsizetype row);
    void PlaceOverlays();

    Data::VenueDatabase::DownloadManager* m_downloadManager = nullptr;
    /// A copy, so that it outlives whatever becomes of the list that it was taken from.
    std::optional<Data::VenueDatabase::Picture> m_currentPicture;
    /// Where the current picture stands in the list, -1 when it is none of it.
    qsizetype m_currentRow = -1;
    QList<Data::VenueDatabase::Picture> m_pictures;
    PictureView* m_view = nullptr;
    QLabel* m_descriptionLabel = nullptr;
    PictureNavigationButton* m_leftButton = nullptr;
    PictureNavigationButton* m_rightButton = nullptr;
    qsizetype m_index = -1;
    QGraphicsScene* m_scene = nullptr;
    std::unique_ptr<DownloadCursors> m_downloadCursors;
};

} // namespace korvel::Ui::VenueDatabase
