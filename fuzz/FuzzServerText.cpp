#include <fuzz/FuzzTargets.h>

#include <data/Picture.h>
#include <data/TsFile.h>
#include <data/Venue.h>
#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/VenueDetailsWidget.h>

#include <QLabel>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace korvel::Fuzz {

using Data::VenueDatabase::Picture;
using Data::VenueDatabase::TsFile;
using Data::VenueDatabase::Venue;
using Ui::VenueDatabase::PictureFullscreenDialog;
using Ui::VenueDatabase::PictureSlider;
using Ui::VenueDatabase::VenueDetailsWidget;

namespace {

/// The texts of one input, handed out in turn.
class Texts
{
public:
    explicit Texts(const QByteArray& input)
        : m_fields(Fields(input))
    {
    }
    QString Next()
    {
        return QString::fromUtf8(m_fields.at(m_next++ % m_fields.size()));
    }

private:
    QList<QByteArray> m_fields;
    qsizetype m_next = 0;
};

Venue FilledVenue(Texts& texts)
{
    Venue venue;
    venue.SetComplexName(texts.Next());
    venue.SetVenueRoomName(texts.Next());
    venue.SetGeneralComment(texts.Next());
    venue.SetStreetAddress(texts.Next());
    venue.SetPostalCode(texts.Next());
    venue.SetCity(texts.Next());
    venue.SetCountryCode(texts.Next());
    venue.SetCountry(texts.Next());
    venue.SetLocationComment(texts.Next());
    venue.SetLoadDockStreetAddress(texts.Next());
    venue.SetLoadDockComment(texts.Next());
    venue.SetClearingOfHouseGrid(texts.Next());
    venue.SetRiggingComment(texts.Next());
    return venue;
}

/// Neither format nor object: every character is text.
void RequirePlainDocument(const QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        Require(!block.textList() && !block.blockFormat().hasProperty(QTextFormat::HeadingLevel),
                "a text field has plain paragraphs");
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            const QTextCharFormat format = fragment.fragment().charFormat();
            Require(!format.isImageFormat() && !format.isAnchor()
                        && !format.hasProperty(QTextFormat::FontWeight),
                    "a text field shows plain text");
        }
    }
}

void RequirePlainLabels(const QWidget& widget)
{
    const auto labels = widget.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        const bool isPlain = label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text());
        Require(isPlain, "a label shows plain text");
    }
}

bool HasLineEditWith(const QWidget& widget, const QString& text)
{
    const auto fields = widget.findChildren<QLineEdit*>();
    return std::any_of(fields.cbegin(), fields.cend(), [&text](const QLineEdit* field) {
        return field->text() == text.left(field->maxLength());
    });
}

} // namespace

void FuzzServerText(const QByteArray& input)
{
    auto& panel = Kept<VenueDetailsWidget>();
    auto& slider = Kept<PictureSlider>();
    auto& viewer = Kept<PictureFullscreenDialog>();
    static const QSize panelMinimum = panel.minimumSizeHint();

    Texts texts(input);
    Venue venue = FilledVenue(texts);
    Picture first;
    first.SetAlternativeDescription(texts.Next());
    first.SetPictureDataLarge("no picture"_ba);
    Picture second = first;
    second.SetAlternativeDescription(texts.Next());
    QList<Picture> pictures{first, second};
    TsFile file;
    QString fileName = texts.Next();
    QString version = texts.Next();
    file.SetFileName(fileName);
    file.SetTsVersion(version);
    QList<TsFile> files{file};

    panel.UpdateUi(&venue, &pictures, &files);
    Require(HasLineEditWith(panel, venue.GetComplexName()), "the name is shown as it is");
    Require(HasLineEditWith(panel, venue.GetClearingOfHouseGrid()), "the clearance is shown as it is");
    const auto textEdits = panel.findChildren<QTextEdit*>();
    for (const QTextEdit* textEdit : textEdits)
        RequirePlainDocument(*textEdit->document());
    RequirePlainLabels(panel);
    Require(panel.minimumSizeHint() == panelMinimum, "no text widens the panel");
    (void)panel.grab();

    slider.UpdateUi(&pictures);
    slider.ShowVenuePic(1);
    Require(slider.findChild<QLabel*>()->text() == u"2/2 "_s + second.GetAlternativeDescription(),
            "the slider's caption is the description as it is");
    RequirePlainLabels(slider);
    (void)slider.findChild<QLabel*>()->grab();

    viewer.SetPictures(&pictures);
    viewer.SetPicturesIndex(1);
    RequirePlainLabels(viewer);
    (void)viewer.findChild<QLabel*>()->grab();

    panel.ResetUi();
}

} // namespace korvel::Fuzz
