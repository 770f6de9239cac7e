#include <tests/support/FaultDialog.h>

#include <ui/PictureSlider.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDetailsWidget.h>

#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTableView>

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Ui::VenueDatabase;

namespace {

constexpr QSize c_sliderSize(500, 240);
constexpr QColor c_darkBackground(49, 49, 49);

QImage Background()
{
    QImage image(c_sliderSize, QImage::Format_RGB32);
    image.fill(c_darkBackground);
    return image;
}

/// The slider's look with \p text instead of a picture.
QImage WithText(const QString& text)
{
    QImage image = Background();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(128, 128, 128));
    painter.setFont(QFont(QStringLiteral("Verdana"), 40));
    painter.drawText(QRect(0, 0, 800, 300), Qt::AlignCenter, text);
    return image;
}

} // namespace

FaultDialog::FaultDialog()
    : boxes(QMessageBox::Close)
{
    Venue venue;
    venue.SetId(c_venueId);
    venue.SetComplexName(QStringLiteral("Complex"));
    connector.venues = {venue};
    auto* panel = dialog.findChild<VenueDbCentralWidget*>();
    panel->SetConnector(&connector);
    dialog.show();
    panel->PerformQuery();
}

FaultDialog::~FaultDialog() = default;

void FaultDialog::SelectVenue()
{
    dialog.findChild<QTableView*>()->selectRow(0);
}

VenueDetailsWidget* FaultDialog::Details() const
{
    return dialog.findChild<VenueDetailsWidget*>();
}

PictureSlider* FaultDialog::Slider() const
{
    return dialog.findChild<PictureSlider*>();
}

TsFileOpener* FaultDialog::Opener() const
{
    return dialog.findChild<TsFileOpener*>();
}

QLabel* FaultDialog::Caption() const
{
    return Slider()->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

QComboBox* FaultDialog::FileBox() const
{
    return Opener()->findChild<QComboBox*>();
}

QLabel* FaultDialog::VersionLabel() const
{
    return Opener()->findChild<QLabel*>(QStringLiteral("tsFileVersionLabel"));
}

QPushButton* FaultDialog::ImportButton() const
{
    return Opener()->findChild<QPushButton*>();
}

QString FaultDialog::Painted() const
{
    QImage image(c_sliderSize, QImage::Format_RGB32);
    // Without its children.
    Slider()->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    for (const QString& text : {QStringLiteral("No Image"), QStringLiteral("Image failure")}) {
        if (image == WithText(text))
            return text;
    }
    return image == Background() ? QString() : QStringLiteral("picture");
}

QString FaultDialog::Complaint() const
{
    if (!boxes.shown.isEmpty())
        return QStringLiteral("message box: ") + boxes.shown.first();
    if (!dialog.isVisible())
        return QStringLiteral("the dialog has gone");
    if (!dialog.GetStatusLabel()->text().isEmpty())
        return QStringLiteral("status: ") + dialog.GetStatusLabel()->text();
    if (dialog.findChild<VenueDbCentralWidget*>()->cursor().shape() != Qt::ArrowCursor)
        return QStringLiteral("the panel still waits");
    if (!Details()->isVisible() || !Details()->isEnabled())
        return QStringLiteral("the details cannot be used");
    if (connector.longest > 30'500)
        return QStringLiteral("it took %1 ms").arg(connector.longest);
    return {};
}

} // namespace korvel::Test
