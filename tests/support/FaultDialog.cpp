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

using namespace Qt::StringLiterals;

namespace korvel::Test {

using namespace Data::VenueDatabase;
using namespace Ui::VenueDatabase;

FaultDialog::FaultDialog()
    : boxes(QMessageBox::Close)
{
    connector.venues = {MakeVenue(c_venueId, u"Complex"_s)};
    SearchPanel(dialog)->SetConnector(&connector);
    dialog.show();
    SearchPanel(dialog)->PerformQuery();
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
    return Opener()->findChild<QLabel*>(u"tsFileVersionLabel"_s);
}

QPushButton* FaultDialog::ImportButton() const
{
    return Opener()->findChild<QPushButton*>();
}

QString FaultDialog::Painted() const
{
    const QImage image = Test::Painted(*Slider());
    for (const QString& text : {u"No Image"_s, u"Image failure"_s, QString()})
        if (image == PaintedText(text))
            return text;
    return u"picture"_s;
}

QString FaultDialog::Complaint() const
{
    if (!boxes.shown.isEmpty())
        return u"message box: "_s + boxes.shown.first();
    if (!dialog.isVisible())
        return u"the dialog has gone"_s;
    if (!dialog.GetStatusLabel()->text().isEmpty())
        return u"status: "_s + dialog.GetStatusLabel()->text();
    if (SearchPanel(dialog)->cursor().shape() != Qt::ArrowCursor)
        return u"the panel still waits"_s;
    if (!Details()->isVisible() || !Details()->isEnabled())
        return u"the details cannot be used"_s;
    if (connector.longest > 30'500)
        return u"it took %1 ms"_s.arg(connector.longest);
    return {};
}

} // namespace korvel::Test
