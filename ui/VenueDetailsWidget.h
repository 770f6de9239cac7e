#pragma once

#include <data/Picture.h>
#include <data/TsFile.h>
#include <data/VenueDatabaseExport.h>

#include <QList>
#include <QWidget>

class QBoxLayout;
class QEvent;
class QLabel;
class QLineEdit;
class QPaintEvent;
class QScrollArea;
class QTextEdit;

namespace korvel::Data::VenueDatabase {
class Venue;
}

namespace korvel::Ui::VenueDatabase {

class FoldingIcon;
class PictureSlider;
class TsFileOpener;

/// Shows every field of one venue read-only, with its pictures and its model files, below a caption bar whose
/// icon folds the panel up to the bar alone, by mouse, by Space or Return, and by a screen reader's press.
///
/// Texts come from the server and are shown as plain text. The four folding icons
/// ":/Resources/korvelFoldingWidget{Open,Closed}{,_day}.svg" are the host's. Without them the bar shows an
/// arrow, and a click anywhere in it folds the panel. User-interface thread only.
///
/// @code{.cpp}
/// auto* details = new VenueDetailsWidget(&window);
/// details->SetDayMode(true);
/// details->UpdateUi(&venue, &pictures, &files);
/// details->SetCollapsed(true);
/// @endcode
class KVVENUEDATABASE_API VenueDetailsWidget : public QWidget
{
    Q_OBJECT

public:
    /// An empty, expanded panel, 516 pixels high, in the night appearance.
    explicit VenueDetailsWidget(QWidget* parent = nullptr);
    /// Slider, viewer and opener go with the panel.
    ~VenueDetailsWidget() override;

    /// Fills the panel from \p venue and hands \p pictures to the slider and \p files, which must not be
    /// null, to the opener. A null \p venue is the same as ResetUi(). Keeps copies, not the pointers.
    void UpdateUi(Data::VenueDatabase::Venue* venue, QList<Data::VenueDatabase::Picture>* pictures,
                  QList<Data::VenueDatabase::TsFile>* files);
    /// Empties all fields, the slider's caption and the list of files.
    void ResetUi() const;

    /// Folds the panel up to its caption bar (true), or lets it be up to 516 pixels high.
    void SetCollapsed(bool collapsed);
    /// True shows slider and fold icon in their light appearance.
    void SetDayMode(bool dayMode);
    /// Shows the icon for the present state and appearance.
    void UpdateCollapseIcon();

protected:
    /// Folds by a click on the icon, or on the bar where it has none; selects the text of a field that gets
    /// the focus, until it loses it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintEvent(QPaintEvent* event) override;

    void SetupUi();
    void SetupTopUi(QBoxLayout* layout);
    void SetupBottomUi(QBoxLayout* layout);
    void SetupTooltips();
    void SetupSpokenNames();
    /// Adds a row of label and field to \p layout and stores the field in \p lineEdit. The label is that of
    /// column \p labelIndex of the venue's full set; without \p visible both are hidden.
    void SetupReadonlyLineEditWithLabel(QBoxLayout* layout, int labelIndex, QLineEdit** lineEdit,
                                        bool visible);
    /// The same with a text field, \p height pixels high.
    void SetupReadonlyTextEditWithLabel(QBoxLayout* layout, int labelIndex, QTextEdit** textEdit,
                                        bool visible, int height);
    QWidget* CreateCaptionBar();
    QLabel* CreateFieldLabel(int labelIndex);
    void AddFieldRow(QBoxLayout* layout, QLabel* label, QWidget* field, bool visible);
    void AddSectionCaption(QBoxLayout* layout, const QString& text);

    QLineEdit* m_idLineEdit = nullptr;
    QLineEdit* m_complexNameLineEdit = nullptr;
    QLineEdit* m_venueRoomNameLineEdit = nullptr;
    QTextEdit* m_generalCommentTextEdit = nullptr;
    QTextEdit* m_addressTextEdit = nullptr;
    QTextEdit* m_locationCommentTextEdit = nullptr;
    QLineEdit* m_loadDockStreetAddressLineEdit = nullptr;
    QTextEdit* m_loadDockCommentTextEdit = nullptr;
    QLineEdit* m_clearingOfHouseGridLineEdit = nullptr;
    QTextEdit* m_riggingCommentTextEdit = nullptr;
    QLineEdit* m_uploadDateLineEdit = nullptr;
    QLineEdit* m_editorLineEdit = nullptr;
    QLineEdit* m_editDateLineEdit = nullptr;
    FoldingIcon* m_foldIcon = nullptr;
    QScrollArea* m_body = nullptr;
    QWidget* m_captionBar = nullptr;
    bool m_isCollapsed = false;
    bool m_isDayMode = false;
    PictureSlider* m_pictureSlider = nullptr;
    TsFileOpener* m_tsFileOpener = nullptr;
};

} // namespace korvel::Ui::VenueDatabase
