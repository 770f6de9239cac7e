#include <ui/VenueDetailsWidget.h>

#include <data/Venue.h>
#include <ui/CustomStyle_p.h>
#include <ui/FocusKeeper_p.h>
#include <ui/FoldingIcon_p.h>
#include <ui/NameToolTips_p.h>
#include <ui/PictureSlider.h>
#include <ui/TsFileOpener.h>
#include <ui/accessible/ScreenReader_p.h>
#include <ui/text/ReadOnlyText_p.h>

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollArea>
#include <QSizePolicy>
#include <QSpacerItem>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::Picture;
using Data::VenueDatabase::TsFile;
using Data::VenueDatabase::Venue;

namespace {

constexpr int c_panelHeight = 516;
constexpr int c_captionBarHeight = 34;
constexpr int c_bodyHeight = 480;
constexpr int c_bodyLeastHeight = 80;
constexpr int c_bodyMinimumWidth = 1046;
constexpr int c_topBlockHeight = 240;
constexpr int c_leftColumnWidth = 500;
constexpr int c_columnGap = 22;
constexpr int c_labelMinimumWidth = 140;
constexpr int c_labelFieldSpacing = 6;
constexpr int c_textEditHeight = 54;
constexpr int c_bottomMargin = 4;

QSpacerItem* CreateColumnGap()
{
    return new QSpacerItem(c_columnGap, 0, QSizePolicy::Minimum, QSizePolicy::Expanding);
}

/// The layout of a column of the bottom block. The right column with its six rows fills the height of the
/// block to the last pixels: there is no room for margins, and little between the rows.
QVBoxLayout* CreateBottomColumnLayout(QWidget* column)
{
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    return layout;
}

} // namespace

VenueDetailsWidget::VenueDetailsWidget(QWidget* parent)
    : QWidget(parent)
{
    ServeScreenReaders();
    SetupUi();
    SetupSpokenNames();
}

VenueDetailsWidget::~VenueDetailsWidget() = default;

void VenueDetailsWidget::UpdateUi(Venue* venue, QList<Picture>* pictures, QList<TsFile>* files)
{
    if (!venue) {
        ResetUi();
        return;
    }

    ShowText(m_idLineEdit, QString::number(venue->GetId()));
    ShowText(m_complexNameLineEdit, venue->GetComplexName());
    ShowText(m_venueRoomNameLineEdit, venue->GetVenueRoomName());
    ShowText(m_generalCommentTextEdit, venue->GetGeneralComment());
    // The lines of the address are joined by this literal text.
    ShowText(m_addressTextEdit, venue->GetAddressText().replace("<br/>"_L1, "\n"_L1));
    ShowText(m_locationCommentTextEdit, venue->GetLocationComment());
    ShowText(m_loadDockStreetAddressLineEdit, venue->GetLoadDockStreetAddress());
    ShowText(m_loadDockCommentTextEdit, venue->GetLoadDockComment());
    ShowText(m_clearingOfHouseGridLineEdit, venue->GetClearingOfHouseGrid());
    ShowText(m_riggingCommentTextEdit, venue->GetRiggingComment());
    ShowText(m_uploadDateLineEdit, venue->GetUploadDateAsString());
    ShowText(m_editorLineEdit, QString::number(venue->GetEditor()));
    ShowText(m_editDateLineEdit, venue->GetEditDateAsString());

    m_pictureSlider->UpdateUi(pictures);
    m_tsFileOpener->UpdateUi(files);
}

void VenueDetailsWidget::ResetUi() const
{
    for (QLineEdit* lineEdit :
         {m_idLineEdit, m_complexNameLineEdit, m_venueRoomNameLineEdit, m_loadDockStreetAddressLineEdit,
          m_clearingOfHouseGridLineEdit, m_uploadDateLineEdit, m_editorLineEdit, m_editDateLineEdit})
        lineEdit->clear();
    for (QTextEdit* textEdit : {m_generalCommentTextEdit, m_addressTextEdit, m_locationCommentTextEdit,
                                m_loadDockCommentTextEdit, m_riggingCommentTextEdit})
        textEdit->clear();
    m_pictureSlider->ResetUi();
    m_tsFileOpener->ResetUi();
}

void VenueDetailsWidget::SetCollapsed(bool collapsed)
{
    const int captionBarHeight = m_captionBar->sizeHint().height();
    if (collapsed && HoldsFocus(m_body))
        m_foldIcon->setFocus(Qt::OtherFocusReason);
    m_body->setVisible(!collapsed);
    if (collapsed) {
        setFixedHeight(captionBarHeight);
    } else {
        setMinimumHeight(0);
        setMaximumHeight(c_panelHeight);
    }
    m_isCollapsed = collapsed;
    UpdateCollapseIcon();
}

void VenueDetailsWidget::SetDayMode(bool dayMode)
{
    m_isDayMode = dayMode;
    m_pictureSlider->SetDayMode(dayMode);
    UpdateCollapseIcon();
}

void VenueDetailsWidget::UpdateCollapseIcon()
{
    QString path;
    if (m_isCollapsed) {
        path = m_isDayMode ? u":/Resources/korvelFoldingWidgetClosed_day.svg"_s
                           : u":/Resources/korvelFoldingWidgetClosed.svg"_s;
    } else {
        path = m_isDayMode ? u":/Resources/korvelFoldingWidgetOpen_day.svg"_s
                           : u":/Resources/korvelFoldingWidgetOpen.svg"_s;
    }
    m_foldIcon->ShowIcon(path, m_isCollapsed, m_isDayMode);
}

bool VenueDetailsWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease
        && m_foldIcon->IsMeantBy(watched, *static_cast<QMouseEvent*>(event)))
        SetCollapsed(!m_isCollapsed);
    if (auto* textEdit = qobject_cast<QTextEdit*>(watched)) {
        if (event->type() == QEvent::FocusIn)
            textEdit->selectAll();
        else if (event->type() == QEvent::FocusOut)
            ClearSelection(textEdit);
    }
    return QWidget::eventFilter(watched, event);
}

void VenueDetailsWidget::paintEvent(QPaintEvent* /*event*/)
{
    PaintStyledBackground(this);
}

void VenueDetailsWidget::SetupUi()
{
    SetCustomStyle(this, "widgetKorvelDefault"_L1);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    setFixedHeight(c_panelHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_captionBar = CreateCaptionBar();
    layout->addWidget(CreateSeparator(this));
    layout->addWidget(m_captionBar);
    layout->addWidget(CreateSeparator(this));

    m_body = new QScrollArea(this);
    m_body->setWidgetResizable(true);
    SetCustomStyle(m_body, "scrollAreaKorvelDefault"_L1);
    m_body->setFrameShape(QFrame::NoFrame);
    // The fields get the focus, and the area scrolls to them. A focus of its own would not be seen.
    m_body->setFocusPolicy(Qt::NoFocus);
    // However low the user drags it, its fields can be scrolled to.
    m_body->setMinimumHeight(c_bodyLeastHeight);
    m_body->setMaximumHeight(c_bodyHeight);
    m_body->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_body->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Ignored);
    layout->addWidget(m_body);

    auto* content = new QWidget(this);
    SetCustomStyle(content, "widgetKorvelDefault"_L1);
    content->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    content->setMinimumWidth(c_bodyMinimumWidth);
    content->setFixedHeight(c_bodyHeight);
    auto* contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(4, 4, 4, 0);
    SetupTopUi(contentLayout);
    contentLayout->addWidget(CreateSeparator(content));
    SetupBottomUi(contentLayout);
    m_body->setWidget(content);

    SetupTooltips();
    UpdateCollapseIcon();
}

QWidget* VenueDetailsWidget::CreateCaptionBar()
{
    auto* bar = new QWidget(this);
    SetCustomStyle(bar, "widgetKorvelViewSectionHeaderBright"_L1);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(8, 0, 8, 0);

    QLabel* caption = CreateLabel(tr("Venue details"), "labelKorvelSectionCaptionDark"_L1, this);
    m_foldIcon = new FoldingIcon(caption, this);
    m_foldIcon->installEventFilter(this);
    bar->installEventFilter(this);
    connect(m_foldIcon, &FoldingIcon::ToggleRequested, this, [this] { SetCollapsed(!m_isCollapsed); });
    layout->addWidget(m_foldIcon);

    caption->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Minimum);
    // The collapsed panel gets the height that the bar asks for. Font and icon must not make it less.
    caption->setMinimumHeight(c_captionBarHeight);
    layout->addWidget(caption);

    bar->setFixedHeight(c_captionBarHeight);
    return bar;
}

void VenueDetailsWidget::SetupTopUi(QBoxLayout* layout)
{
    auto* block = new QWidget(this);
    block->setFixedHeight(c_topBlockHeight);
    auto* blockLayout = new QHBoxLayout(block);
    // The slider is as high as the block.
    blockLayout->setContentsMargins(0, 0, 0, 0);

    m_pictureSlider = new PictureSlider(this);
    blockLayout->addWidget(m_pictureSlider);
    blockLayout->addItem(CreateColumnGap());

    auto* column = new QWidget(this);
    auto* columnLayout = new QVBoxLayout(column);
    // In line with the right column of the bottom block.
    columnLayout->setContentsMargins(c_bottomMargin, 0, c_bottomMargin, 0);
    SetupReadonlyLineEditWithLabel(columnLayout, 0, &m_idLineEdit, true);
    SetupReadonlyLineEditWithLabel(columnLayout, 11, &m_editorLineEdit, false);
    SetupReadonlyLineEditWithLabel(columnLayout, 12, &m_editDateLineEdit, true);
    SetupReadonlyLineEditWithLabel(columnLayout, 10, &m_uploadDateLineEdit, true);
    SetupReadonlyLineEditWithLabel(columnLayout, 1, &m_complexNameLineEdit, true);
    SetupReadonlyLineEditWithLabel(columnLayout, 2, &m_venueRoomNameLineEdit, true);
    m_tsFileOpener = new TsFileOpener(this);
    SetCustomStyle(m_tsFileOpener, "buttonKorvelDefault"_L1);
    columnLayout->addWidget(m_tsFileOpener);
    blockLayout->addWidget(column);

    layout->addWidget(block);
}

void VenueDetailsWidget::SetupBottomUi(QBoxLayout* layout)
{
    auto* block = new QWidget(this);
    auto* blockLayout = new QHBoxLayout(block);
    blockLayout->setContentsMargins(c_bottomMargin, c_bottomMargin, c_bottomMargin, c_bottomMargin);

    // Deliberate: the section captions are not translated.
    auto* left = new QWidget(this);
    left->setFixedWidth(c_leftColumnWidth);
    auto* leftLayout = CreateBottomColumnLayout(left);
    AddSectionCaption(leftLayout, u"General"_s);
    SetupReadonlyTextEditWithLabel(leftLayout, 3, &m_generalCommentTextEdit, true, c_textEditHeight);
    // First and last row are level with those of the right column.
    leftLayout->addStretch();
    SetupReadonlyTextEditWithLabel(leftLayout, 4, &m_addressTextEdit, true, c_textEditHeight);
    leftLayout->addStretch();
    SetupReadonlyTextEditWithLabel(leftLayout, 5, &m_locationCommentTextEdit, true, c_textEditHeight);
    blockLayout->addWidget(left);
    blockLayout->addItem(CreateColumnGap());

    auto* right = new QWidget(this);
    auto* rightLayout = CreateBottomColumnLayout(right);
    AddSectionCaption(rightLayout, u"Loading dock"_s);
    SetupReadonlyLineEditWithLabel(rightLayout, 6, &m_loadDockStreetAddressLineEdit, true);
    SetupReadonlyTextEditWithLabel(rightLayout, 7, &m_loadDockCommentTextEdit, true, c_textEditHeight);
    rightLayout->addItem(new QSpacerItem(1, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
    AddSectionCaption(rightLayout, u"Rigging"_s);
    SetupReadonlyLineEditWithLabel(rightLayout, 8, &m_clearingOfHouseGridLineEdit, true);
    SetupReadonlyTextEditWithLabel(rightLayout, 9, &m_riggingCommentTextEdit, true, c_textEditHeight);
    blockLayout->addWidget(right);

    layout->addWidget(block);
}

void VenueDetailsWidget::SetupTooltips()
{
    m_complexNameLineEdit->setToolTip(NameToolTips::ComplexName());
    m_venueRoomNameLineEdit->setToolTip(NameToolTips::VenueRoomName());
    m_addressTextEdit->setToolTip(tr("Official address of venue."));
    m_locationCommentTextEdit->setToolTip(tr(
        "Anything that is important to know when accessing the venue, such as \"try to arrive before 9am to "
        "avoid terrible traffic\"."));
    m_loadDockStreetAddressLineEdit->setToolTip(
        tr("If the street address of the loading dock is not the same as the official loading dock address, "
           "please enter here."));
    m_loadDockCommentTextEdit->setToolTip(
        tr("If there are any peculiarities about the dock (e.g. \"difficult to reverse into\", or \"freight "
           "elevator only\"), please note them here."));
    m_clearingOfHouseGridLineEdit->setToolTip(
        tr("To calculate how much actual rigging height is going to be available considering "
           "production-specific pre-riggs and chain motors."));
    m_riggingCommentTextEdit->setToolTip(tr(
        "Any specialties or unusual restrictions, such as \"all points have to be bridled\" or \"no access "
        "to catwalk, all points have to be set via cherry picker\"."));
}

void VenueDetailsWidget::SetupSpokenNames()
{
    setAccessibleName(tr("Venue details"));
    // Who sees the panel knows by the captions which address and which comment are meant.
    const auto spoken
        = [](int labelIndex) { return Venue::GetLabelAt(labelIndex, false) + QLatin1Char(':'); };
    m_loadDockStreetAddressLineEdit->setAccessibleName(tr("Loading dock, %1").arg(spoken(6)));
    m_loadDockCommentTextEdit->setAccessibleName(tr("Loading dock, %1").arg(spoken(7)));
    m_clearingOfHouseGridLineEdit->setAccessibleName(tr("Rigging, %1").arg(spoken(8)));
    m_riggingCommentTextEdit->setAccessibleName(tr("Rigging, %1").arg(spoken(9)));
}

void VenueDetailsWidget::SetupReadonlyLineEditWithLabel(QBoxLayout* layout, int labelIndex,
                                                        QLineEdit** lineEdit, bool visible)
{
    QLabel* label = CreateFieldLabel(labelIndex);
    auto* field = new QLineEdit(this);
    SetCustomStyle(field, "lineEditKorvelDisplayOnly"_L1);
    field->setReadOnly(true);
    AddFieldRow(layout, label, field, visible);
    *lineEdit = field;
}

void VenueDetailsWidget::SetupReadonlyTextEditWithLabel(QBoxLayout* layout, int labelIndex,
                                                        QTextEdit** textEdit, bool visible, int height)
{
    QLabel* label = CreateFieldLabel(labelIndex);
    label->setAlignment(Qt::AlignTop);
    auto* field = new QTextEdit(this);
    SetCustomStyle(field, "textEditKorvelDisplayOnly"_L1);
    field->setReadOnly(true);
    field->setFixedHeight(height);
    // Qt's own 4 pixels would take the third line of a common address.
    field->document()->setDocumentMargin(2);
    field->installEventFilter(this);
    AddFieldRow(layout, label, field, visible);
    *textEdit = field;
}

QLabel* VenueDetailsWidget::CreateFieldLabel(int labelIndex)
{
    QLabel* label
        = CreateLabel(Venue::GetLabelAt(labelIndex, false) + QLatin1Char(':'), "labelKorvelLight"_L1, this);
    label->setMinimumWidth(c_labelMinimumWidth);
    return label;
}

void VenueDetailsWidget::AddFieldRow(QBoxLayout* layout, QLabel* label, QWidget* field, bool visible)
{
    label->setBuddy(field);
    auto* row = new QHBoxLayout;
    // The columns have different spacings. The fields of all rows must stand in line.
    row->setSpacing(c_labelFieldSpacing);
    layout->addLayout(row);
    row->addWidget(label);
    row->addWidget(field);
    if (!visible) {
        label->hide();
        field->hide();
    }
}

void VenueDetailsWidget::AddSectionCaption(QBoxLayout* layout, const QString& text)
{
    auto* caption = new QLabel(text, this);
    // Deliberate: the name of the style class passes through the translation, its text does not.
    caption->setProperty("customStyle", tr("labelKorvelCaptionSmall"));
    layout->addWidget(caption);
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_VenueDetailsWidget.cpp"
