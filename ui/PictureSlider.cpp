#include <ui/PictureSlider.h>

#include <ui/CustomStyle_p.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureNavigationButton.h>
#include <ui/accessible/ScreenReader_p.h>
#include <ui/pictures/FocusRing_p.h>
#include <ui/pictures/PictureCaption_p.h>
#include <ui/pictures/PictureDecoder_p.h>
#include <ui/text/ElidedLabel_p.h>

#include <QFocusEvent>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Picture;

namespace {

constexpr QSize c_size(500, 240);
/// Deliberate: wider than the slider. A wide picture fills the height, and its sides are cut off.
constexpr QSize c_pictureBox(800, 240);
constexpr QRect c_captionBand(0, 213, 500, 23);
/// Deliberate: larger than the slider, so that the text is centred on (400, 150).
constexpr QRect c_textArea(0, 0, 800, 300);
constexpr QRect c_fullscreenArea(238, 108, 24, 24);

/// What the pictures that were shown before may hold together, in bytes: 21 of the largest at the scale 1.
constexpr qsizetype c_seenPixmapsLimit = 16LL * 1024 * 1024;

int CenteredAt(int available, double extent)
{
    return static_cast<int>(std::round((available - extent) * 0.5));
}

} // namespace

PictureSlider::PictureSlider(QWidget* parent)
    : QWidget(parent)
    , m_font(u"Verdana"_s, 40)
    , m_seenPixmaps(c_seenPixmapsLimit)
    , m_fullscreenDialog(new PictureFullscreenDialog(this))
{
    ServeScreenReaders();
    SetupUi();
    ConnectSignals();
}

PictureSlider::~PictureSlider() = default;

void PictureSlider::UpdateUi(QList<Picture>* pictures)
{
    if (pictures) {
        m_pictures = *pictures;
        m_seenPixmaps.clear();
        ShowVenuePic(0);
        m_leftButton->setVisible(m_pictures.size() > 1);
        m_rightButton->setVisible(m_pictures.size() > 1);
    }
    SetVenuePicButtonsStatus();
    if (m_fullscreenDialog)
        m_fullscreenDialog->SetPictures(pictures);
}

void PictureSlider::ResetUi() const
{
    m_captionLabel->setText(CaptionWithoutPictures());
}

void PictureSlider::SetDayMode(bool dayMode)
{
    m_dayMode = dayMode;
    if (m_fullscreenDialog)
        m_fullscreenDialog->SetDayMode(dayMode);
    m_rightButton->SetDayMode(dayMode);
    m_leftButton->SetDayMode(dayMode);
    // Deliberate: the other way round than elsewhere. The disc under the glyph is dark in the light theme.
    m_fullscreenButton->setIcon(
        QIcon(dayMode ? u":/Resources/ic_EQ_scale_16x16.svg"_s : u":/Resources/ic_EQ_scale_16x16_day.svg"_s));
    SetFullscreenIconStyle();
    update();
}

void PictureSlider::ShowVenuePic(short direction)
{
    const qsizetype count = m_pictures.size();
    if (count < 1) {
        m_pixmap = QPixmap();
        m_text = tr("No Image");
    } else {
        switch (direction) {
        case -1:
            m_index = m_index > 0 ? m_index - 1 : count - 1;
            break;
        case 0:
            m_index = 0;
            break;
        case 1:
            m_index = m_index + 1 < count ? m_index + 1 : 0;
            break;
        default:
            SetVenuePicButtonsStatus();
            return;
        }
        setCursor(Qt::WaitCursor);
        LoadPixmap();
        setCursor(Qt::ArrowCursor);
    }
    SetVenuePicButtonsStatus();
    setAccessibleDescription(m_text);
    update();
}

void PictureSlider::SetVenuePicButtonsStatus()
{
    // Deliberate: no button changes. Which of them show is decided with the list.
    const QString description
        = m_pictures.isEmpty() ? QString() : m_pictures.at(m_index).GetAlternativeDescription();
    m_captionLabel->setText(PictureCaption(m_index, m_pictures.size(), description));
    DescribeSteps(m_leftButton, m_rightButton, m_captionLabel->text());
}

void PictureSlider::SetFullscreenIconStyle()
{
    if (!m_fullscreenButton)
        return;
    m_fullscreenButton->setStyleSheet(
        u"background: hsla( 0, 0, %1, %2); border-radius: 12px;"_s.arg(m_dayMode ? 0 : 255)
            .arg(m_isFullscreenHovered ? 1.0 : 0.5, 0, 'f', 2));
}

void PictureSlider::OnPictureNavigationRequested(int direction)
{
    ShowVenuePic(static_cast<short>(direction));
    Announce(m_captionLabel);
}

void PictureSlider::ShowFullScreen()
{
    if (!m_fullscreenDialog)
        return;
    m_fullscreenDialog->Open();
    m_fullscreenDialog->ShowPictureAt(m_index);
}

bool PictureSlider::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_fullscreenButton
        && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        m_isFullscreenFocusShown
            = ShowsFocusAfter(*static_cast<QFocusEvent*>(event), m_isFullscreenFocusShown);
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void PictureSlider::leaveEvent(QEvent* event)
{
    // A quick mouse is gone without a last move, and the viewer covers the slider without one.
    SetFullscreenHovered(false);
    QWidget::leaveEvent(event);
}

void PictureSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (event)
        SetFullscreenHovered(m_fullscreenButton->geometry().contains(event->position().toPoint()));
}

void PictureSlider::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);

    // The slider may have moved to a screen of another scale.
    if (!m_pixmap.isNull() && !qFuzzyCompare(m_pixmap.devicePixelRatio(), devicePixelRatioF()))
        LoadPixmap();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), c_size), m_dayMode ? QColor(Qt::white) : QColor(49, 49, 49));
    if (!m_pixmap.isNull()) {
        const QSizeF size = m_pixmap.deviceIndependentSize();
        painter.drawPixmap(CenteredAt(c_size.width(), size.width()),
                           CenteredAt(c_size.height(), size.height()), m_pixmap);
        QColor band = m_dayMode ? Qt::white : Qt::black;
        band.setAlphaF(m_dayMode ? 0.75F : 0.5F);
        painter.fillRect(c_captionBand, band);
    }
    if (!m_text.isEmpty()) {
        painter.setPen(QColor(128, 128, 128));
        painter.setFont(m_font);
        painter.drawText(c_textArea, Qt::AlignHCenter | Qt::AlignVCenter, m_text);
    }
    // Round the button, which draws itself above this.
    if (m_isFullscreenFocusShown && m_fullscreenButton->hasFocus())
        PaintFocusRing(painter, QRectF(c_fullscreenArea).center());
}

void PictureSlider::SetupUi()
{
    setFixedSize(c_size);
    setMouseTracking(true);
    setAccessibleName(tr("Venue pictures"));

    auto* layout = new QVBoxLayout;
    layout->addSpacing(c_size.height());
    m_captionLabel = new ElidedLabel(CaptionWithoutPictures(), this);
    SetCustomStyle(m_captionLabel, "labelKorvelCaptionSmall"_L1);
    layout->addWidget(m_captionLabel);
    setLayout(layout);

    m_leftButton = new PictureNavigationButton(-1, this);
    m_rightButton = new PictureNavigationButton(1, this);

    m_fullscreenButton = new QPushButton(this);
    m_fullscreenButton->setFlat(true);
    m_fullscreenButton->setFixedSize(c_fullscreenArea.size());
    m_fullscreenButton->move(c_fullscreenArea.topLeft());
    m_fullscreenButton->setIconSize(QSize(16, 16));
    m_fullscreenButton->setMouseTracking(true);
    m_fullscreenButton->setCursor(Qt::PointingHandCursor);
    m_fullscreenButton->setAccessibleName(tr("Show pictures full screen"));
    m_fullscreenButton->installEventFilter(this);
    SetFullscreenIconStyle();
}

void PictureSlider::ConnectSignals()
{
    for (const PictureNavigationButton* button : {m_leftButton, m_rightButton}) {
        connect(button, &PictureNavigationButton::PictureNavigationClicked, this,
                &PictureSlider::OnPictureNavigationRequested);
    }
    connect(m_fullscreenButton, &QPushButton::clicked, this, &PictureSlider::ShowFullScreen);
}

void PictureSlider::LoadPixmap()
{
    const double ratio = devicePixelRatioF();
    const QPixmap* seen = m_seenPixmaps.object(m_index);
    if (seen && qFuzzyCompare(seen->devicePixelRatio(), ratio)) {
        m_pixmap = *seen;
        m_text.clear();
        return;
    }
    const QPixmap decoded = DecodePicture(m_pictures.at(m_index).GetPictureDataSmall());
    if (decoded.isNull()) {
        m_pixmap = QPixmap();
        m_text = tr("Image failure");
        return;
    }
    // As many pixels as the screen shows in the box, so that the picture is sharp on scaled screens too.
    m_pixmap = decoded.scaled(c_pictureBox * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    m_pixmap.setDevicePixelRatio(ratio);
    m_text.clear();
    const qsizetype bytes = qsizetype(m_pixmap.width()) * m_pixmap.height() * m_pixmap.depth() / 8;
    m_seenPixmaps.insert(m_index, new QPixmap(m_pixmap), bytes);
}

void PictureSlider::SetFullscreenHovered(bool hovered)
{
    if (hovered == m_isFullscreenHovered)
        return;
    m_isFullscreenHovered = hovered;
    SetFullscreenIconStyle();
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_PictureSlider.cpp"
