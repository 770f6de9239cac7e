#include <tests/support/FaultDialog.h>

#include <tests/support/Records.h>
#include <tests/support/Widgets.h>

#include <ui/PictureSlider.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDetailsWidget.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Ui::VenueDatabase;

FaultDialog::FaultDialog()
    : boxes(QMessageBox::Close)
{
    connector.venues = {MakeVenue(c_venueId, QStringLiteral("Complex"))};
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
    return Test::Caption(*Slider());
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
    const QImage image = Test::Painted(*Slider());
    for (const QString& text : {QStringLiteral("No Image"), QStringLiteral("Image failure"), QString()}) {
        if (image == PaintedText(text))
            return text;
    }
    return QStringLiteral("picture");
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
