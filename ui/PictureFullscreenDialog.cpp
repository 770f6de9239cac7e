#include <ui/PictureFullscreenDialog.h>

#include <data/DownloadManager.h>
#include <ui/CustomStyle_p.h>
#include <ui/ModalWindow_p.h>
#include <ui/PictureNavigationButton.h>
#include <ui/PictureView.h>
#include <ui/accessible/ScreenReader_p.h>
#include <ui/pictures/DownloadCursors_p.h>
#include <ui/pictures/PictureCaption_p.h>
#include <ui/pictures/PictureDecoder_p.h>
#include <ui/pictures/PictureItem_p.h>
#include <ui/pictures/PictureSaver_p.h>
#include <ui/text/PlainLabel_p.h>
#include <ui/text/ShownText_p.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::DownloadManager;
using Data::VenueDatabase::Picture;

PictureFullscreenDialog::PictureFullscreenDialog(QWidget* parent)
    : VenueDbDialogBase(parent)
    , m_downloadManager(new DownloadManager(this))
    , m_view(new PictureView)
    , m_scene(new QGraphicsScene(this))
    , m_downloadCursors(std::make_unique<DownloadCursors>())
{
    SetupUi();
    SetDayMode(false);
    ConnectSignals();
}

PictureFullscreenDialog::~PictureFullscreenDialog() = default;

void PictureFullscreenDialog::SetPictures(QList<Picture>* pictures)
{
    if (!pictures)
        return;
    m_pictures = *pictures;
    m_index = 0;
    m_currentPicture.reset();
    m_currentRow = -1;

    m_leftButton->setVisible(m_pictures.size() > 1);
    m_rightButton->setVisible(m_pictures.size() > 1);
    PlaceOverlays();
    if (m_pictures.isEmpty()) {
        m_scene->clear();
        m_scene->setSceneRect(QRectF());
        SetDescriptionLabelText();
    }
}

void PictureFullscreenDialog::SetPicturesIndex(short index)
{
    ShowPictureAt(index);
}

void PictureFullscreenDialog::ShowPictureAt(qsizetype index)
{
    if (index < 0 || index >= m_pictures.size())
        return;
    m_index = index;
    ShowPicture(m_pictures.at(index), index);
}

void PictureFullscreenDialog::ModifyPicturesIndex(short delta)
{
    if (m_pictures.isEmpty())
        return;
    // Negative, and thus outside of the list, where the step back is longer than the list.
    ShowPictureAt((m_index + delta + m_pictures.size()) % m_pictures.size());
}

void PictureFullscreenDialog::SetPicture(Picture* picture)
{
    if (!picture) {
        m_currentPicture.reset();
        m_currentRow = -1;
        return;
    }
    ShowPicture(*picture, -1);
}

void PictureFullscreenDialog::SetImage(const QByteArray& data)
{
    ShowPixmap(DecodePicture(data));
}

void PictureFullscreenDialog::ShowPixmap(const QPixmap& pixmap)
{
    if (!m_scene->sceneRect().isEmpty())
        m_scene->clear();
    // Deliberate: without a picture the scene keeps the rectangle of the previous one.
    if (!pixmap.isNull()) {
        m_scene->setSceneRect(pixmap.rect());
        m_scene->addItem(new PictureItem(pixmap)); // owned by the scene
    }
    m_view->FitPictureInView();
}

void PictureFullscreenDialog::SetDescriptionLabelText()
{
    const QString description = m_currentPicture ? m_currentPicture->GetAlternativeDescription() : QString();
    const QString caption = PictureCaption(m_index, m_pictures.size(), description);
    m_descriptionLabel->setText(caption);
    m_view->setAccessibleName(m_pictures.isEmpty() ? tr("Picture") : WithinScreen(caption));
    DescribeSteps(m_leftButton, m_rightButton, caption);
    PlaceOverlays();
}

void PictureFullscreenDialog::Open()
{
    ShowInTheMiddleOf(nullptr);
    setWindowState(Qt::WindowMaximized);
    m_view->setFocus();
}

bool PictureFullscreenDialog::SaveImage(const QString& path)
{
    const QPixmap pixmap
        = m_currentPicture ? DecodePicture(m_currentPicture->GetLargestPictureData()) : QPixmap();
    if (pixmap.isNull()) {
        SetStatusLabelText(tr("Could not save file. Sorry."));
        return false;
    }
    if (WriteJpeg(pixmap, path)) {
        SetStatusLabelText(tr("Saved \"%1\"").arg(QDir::toNativeSeparators(path)));
        return true;
    }

    const ModalWindow<QMessageBox> box(QMessageBox::Information, QGuiApplication::applicationDisplayName(),
                                       tr("Cannot write %1").arg(QDir::toNativeSeparators(path)),
                                       QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    return false;
}

void PictureFullscreenDialog::SetDayMode(bool dayMode)
{
    m_view->SetDayMode(dayMode);
    m_rightButton->SetDayMode(dayMode);
    m_leftButton->SetDayMode(dayMode);
    m_descriptionLabel->setStyleSheet(
        dayMode ? u"QLabel { background: hsla( 0, 0, 255, 0.75); color: black; padding: 6px 4px; }"_s
                : u"QLabel { background: hsla( 0, 0, 0, 0.5); color: white; padding: 6px 4px; }"_s);
}

void PictureFullscreenDialog::OnPictureBinaryDataFinished(QUrl url, QByteArray buffer)
{
    if (m_currentPicture && url == QUrl(m_currentPicture->GetPictureUrlLarge())) {
        m_currentPicture->SetPictureDataLarge(buffer);
        if (m_currentRow >= 0)
            m_pictures[m_currentRow].SetPictureDataLarge(buffer);
        ShowPixmap(DecodeRendition(buffer, *m_currentPicture));
        SetStatusLabelText(QString());
    }
    m_downloadCursors->EndOne(url, true);
}

void PictureFullscreenDialog::OnPictureBinaryDataRequestFailed(QUrl url, QString errorMessage)
{
    // The downloader reports twice after a network error, and this comes first.
    m_downloadCursors->EndOne(url, errorMessage != "Request failed!"_L1);
}

void PictureFullscreenDialog::OnContextMenuRequested(QPoint pos)
{
    // No parent: nobody else deletes the menu while it is open. It closes with the viewer all the same.
    QMenu menu;
    connect(this, &QObject::destroyed, &menu, &QMenu::close);
    menu.addAction(tr("Save Image As..."), this, &PictureFullscreenDialog::OnSaveImageAs);
    menu.exec(m_view->mapToGlobal(pos));
}

void PictureFullscreenDialog::OnCloseWindowRequested()
{
    hide();
}

void PictureFullscreenDialog::OnSaveImageAs()
{
    if (!m_currentPicture)
        return;

    const QPointer<PictureFullscreenDialog> guard(this);
    AskWhereToSave(this, tr("Save Image As"), m_currentPicture->GetPictureName(),
                   [guard](const QString& path) {
                       // Done as well when the viewer is gone, or has no picture any more.
                       return guard->SaveImage(path) || !guard || !guard->m_currentPicture;
                   });
}

void PictureFullscreenDialog::OnPictureNavigationRequested(int direction)
{
    ModifyPicturesIndex(static_cast<short>(direction));
}

void PictureFullscreenDialog::keyPressEvent(QKeyEvent* event)
{
    const QPointer<PictureFullscreenDialog> guard(this);
    VenueDbDialogBase::keyPressEvent(event);
    if (!guard)
        return;

    // Deliberate: the frame has handed the key to QDialog already. A key that is not named below reaches it a
    // second time.
    switch (event->key()) {
    case Qt::Key_Q:
    case Qt::Key_Escape:
        hide();
        return;
    case Qt::Key_Plus:
        m_view->ZoomBy(PictureView::c_zoomStep);
        return;
    case Qt::Key_Minus:
        m_view->ZoomBy(1.0 / PictureView::c_zoomStep);
        return;
    case Qt::Key_A:
    case Qt::Key_PageDown:
        ModifyPicturesIndex(-1);
        return;
    case Qt::Key_D:
    case Qt::Key_PageUp:
        ModifyPicturesIndex(1);
        return;
    case Qt::Key_Home:
        SetPicturesIndex(0);
        return;
    case Qt::Key_S:
        if (event->modifiers().testFlag(Qt::ControlModifier)) {
            OnSaveImageAs();
            return;
        }
        break;
    default:
        break;
    }
    QDialog::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void PictureFullscreenDialog::resizeEvent(QResizeEvent* event)
{
    if (isMaximized())
        m_view->FitPictureInView();
    QWidget::resizeEvent(event); // NOLINT(bugprone-parent-virtual-call)
    PlaceOverlays();
}

void PictureFullscreenDialog::showEvent(QShowEvent* event)
{
    VenueDbDialogBase::showEvent(event);
    // Hidden buttons get their pending resize event only when they are shown, which moves them to the edge.
    PlaceOverlays();
}

void PictureFullscreenDialog::hideEvent(QHideEvent* event)
{
    VenueDbDialogBase::hideEvent(event);
    m_downloadCursors->EndAll();
}

void PictureFullscreenDialog::changeEvent(QEvent* event)
{
    VenueDbDialogBase::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        PlaceOverlays();
}

void PictureFullscreenDialog::closeEvent(QCloseEvent* event)
{
    HideInsteadOfClosing(event);
}

void PictureFullscreenDialog::SetupUi()
{
    setMouseTracking(true);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->setScene(m_scene);
    setModal(true);
    setObjectName(u"PictureFullscreenDialog"_s);
    setWindowTitle(tr("Venue database pictures"));
    SetCustomStyle(this, "dialogKorvelDefault"_L1);
    setWindowFlags(Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    SetContentWidget(m_view);

    m_leftButton = new PictureNavigationButton(-1, m_view);
    m_rightButton = new PictureNavigationButton(1, m_view);
    // The view keeps the focus when the mouse presses them: the arrow keys scroll it.
    m_leftButton->setFocusPolicy(Qt::TabFocus);
    m_rightButton->setFocusPolicy(Qt::TabFocus);
    m_view->setAccessibleName(tr("Picture"));
    m_view->setAccessibleDescription(tr(
        "Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves."));

    m_descriptionLabel = new PlainLabel(CaptionWithoutPictures(), m_view);
    m_descriptionLabel->setWordWrap(true);
    SetCustomStyle(m_descriptionLabel, "labelKorvelCaptionSmall"_L1);
}

void PictureFullscreenDialog::ConnectSignals()
{
    // Deliberate: connected by signature, so that the slot is found by its name.
    connect(m_view, SIGNAL(customContextMenuRequested(QPoint)), this, SLOT(OnContextMenuRequested(QPoint)));
    connect(m_downloadManager, &DownloadManager::PictureBinaryDataFinished, this,
            &PictureFullscreenDialog::OnPictureBinaryDataFinished);
    connect(m_downloadManager, &DownloadManager::RequestFailed, this,
            &PictureFullscreenDialog::OnPictureBinaryDataRequestFailed);
    for (const PictureNavigationButton* button : {m_leftButton, m_rightButton}) {
        connect(button, &PictureNavigationButton::PictureNavigationClicked, this,
                &PictureFullscreenDialog::OnPictureNavigationRequested);
    }
}

void PictureFullscreenDialog::ShowPicture(const Picture& picture, qsizetype row)
{
    m_currentPicture = picture;
    m_currentRow = row;
    ShowPixmap(DecodeRendition(m_currentPicture->GetLargestPictureData(), *m_currentPicture));
    SetDescriptionLabelText();
    Announce(m_view);
    if (!m_currentPicture->GetPictureDataLarge().isEmpty())
        return;

    const QUrl url(m_currentPicture->GetPictureUrlLarge());
    SetStatusLabelText(tr("Loading large image..."));
    m_downloadCursors->Begin(url);
    m_downloadManager->RequestPictureBinaryData(url);
}

void PictureFullscreenDialog::PlaceOverlays()
{
    const int scrollBarExtent = QApplication::style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    // From right to left the scroll bar stands on the left, before the viewport.
    const bool isRightToLeft = m_view->isRightToLeft();
    const int viewportStart = m_view->viewport()->x();
    m_leftButton->AdjustToParent(isRightToLeft ? viewportStart : 0);
    m_rightButton->AdjustToParent(isRightToLeft ? 0 : -scrollBarExtent);

    const int bottom = m_view->height() - scrollBarExtent;
    m_descriptionLabel->ensurePolished();
    m_descriptionLabel->setFixedWidth(std::max(0, m_view->width() - scrollBarExtent - 1));
    const int textHeight = m_descriptionLabel->heightForWidth(m_descriptionLabel->width());
    m_descriptionLabel->resize(m_descriptionLabel->width(), std::clamp(textHeight, 0, std::max(0, bottom)));
    m_descriptionLabel->move(isRightToLeft ? viewportStart : 2, bottom - m_descriptionLabel->height());
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_PictureFullscreenDialog.cpp"
