#include <ui/TsFileOpener.h>

#include <data/network/Logging_p.h>
#include <ui/CustomStyle_p.h>
#include <ui/FocusKeeper_p.h>
#include <ui/VenueDbSignalHandler.h>
#include <ui/text/PlainComboBox_p.h>
#include <ui/text/PlainLabel_p.h>
#include <ui/text/ShownText_p.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSizePolicy>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

using Data::VenueDatabase::TsFile;
using Data::VenueDatabase::VdbLog;

TsFileOpener::TsFileOpener(QWidget* parent)
    : QWidget(parent)
    , m_focusKeeper(std::make_unique<FocusKeeper>())
{
    SetupUi();
    ConnectSignals();
}

TsFileOpener::~TsFileOpener() = default;

void TsFileOpener::UpdateUi(QList<TsFile>* files)
{
    m_fileComboBox->clear();
    if (files->isEmpty()) {
        m_importButton->setEnabled(false);
        m_files.clear();
        m_selectedFile.reset();
        return;
    }

    m_files = *files;
    m_importButton->setEnabled(true);
    for (const TsFile& file : std::as_const(m_files))
        m_fileComboBox->addItem(WithinReason(file.GetFileName()));
    SelectFile(m_files.constFirst());
}

void TsFileOpener::ResetUi() const
{
    m_importButton->setEnabled(false);
    m_fileComboBox->clear();
}

void TsFileOpener::ConnectSignals()
{
    connect(m_importButton, &QPushButton::clicked, this, &TsFileOpener::OnTsFileButtonClicked);
    connect(m_fileComboBox, &QComboBox::currentIndexChanged, this,
            &TsFileOpener::OnTsFileComboBoxCurrentIndexChanged);
    connect(m_fileComboBox, &QComboBox::activated, this, &TsFileOpener::OnTsFileComboBoxCurrentIndexChanged);
    connect(this, &TsFileOpener::ImportVenueFromTempFileRequest, VenueDbSignalHandler::GetInstance(),
            &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
    connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::VenueLoaded, this,
            [this](bool loaded) {
                setEnabled(loaded);
                if (loaded)
                    m_focusKeeper->GiveBack(m_fileComboBox);
            });
}

void TsFileOpener::OnTsFileComboBoxCurrentIndexChanged()
{
    const int index = m_fileComboBox->currentIndex();
    if (index >= 0 && index < m_files.size()) {
        SelectFile(m_files.at(index));
        return;
    }
    m_versionLabel->clear();
}

void TsFileOpener::OnTsFileButtonClicked()
{
    if (!m_selectedFile)
        return;
    if (!m_selectedFile->CopyToTempFolder()) {
        qCCritical(VdbLog) << "An error occurred while writing TSFile to disk.";
        return;
    }
    // The host may show a message before it answers: what closes the message would press another button next.
    if (parentWidget())
        m_focusKeeper->Park(this, parentWidget());
    setEnabled(false);
    // The last act: the host's handler may delete the dialog and with it this opener.
    Q_EMIT ImportVenueFromTempFileRequest(m_selectedFile->GetTempPath());
}

void TsFileOpener::paintEvent(QPaintEvent* /*event*/)
{
    PaintStyledBackground(this);
}

void TsFileOpener::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // From left to right the label stays where the host may have put it.
    if (isRightToLeft())
        PlaceVersionLabel();
}

void TsFileOpener::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        PlaceVersionLabel();
}

void TsFileOpener::SetupUi()
{
    auto* layout = new QVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    setLayout(layout);
    auto* row = new QHBoxLayout;
    layout->addLayout(row);

    QLabel* label = CreateLabel(tr("File selector: "), "labelKorvelLight"_L1, this);
    label->setFixedWidth(140);
    row->addWidget(label);

    m_fileComboBox = new PlainComboBox(this);
    SetCustomStyle(m_fileComboBox, "comboBoxKorvelDefault"_L1);
    m_fileComboBox->setMinimumWidth(100);
    label->setBuddy(m_fileComboBox);
    row->addWidget(m_fileComboBox);

    m_importButton = CreateButton(tr("Import to Tessra"), this);
    m_importButton->setEnabled(false);
    m_importButton->setMinimumWidth(125);
    m_importButton->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    row->addWidget(m_importButton);

    // Deliberate: in no layout. It stays where a new child stands, at the top left; hosts place and style it
    // by its object name. From right to left the row begins on the right, and so does the label.
    m_versionLabel = new PlainLabel(QString(), this);
    m_versionLabel->setObjectName(u"tsFileVersionLabel"_s);
    SetCustomStyle(m_versionLabel, "labelKorvelLight"_L1);
}

void TsFileOpener::PlaceVersionLabel()
{
    // Its width is the style sheet's.
    m_versionLabel->ensurePolished();
    m_versionLabel->move(isRightToLeft() ? width() - m_versionLabel->width() : 0, 0);
}

void TsFileOpener::SelectFile(const TsFile& file)
{
    m_versionLabel->setText(file.GetTsVersion());
    m_selectedFile = std::make_unique<TsFile>(file);
}

} // namespace korvel::Ui::VenueDatabase

#include "moc_TsFileOpener.cpp"
