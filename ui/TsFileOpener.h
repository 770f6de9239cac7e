#pragma once

#include <data/TsFile.h>
#include <data/VenueDatabaseExport.h>

#include <QList>
#include <QString>
#include <QWidget>

#include <memory>

class QComboBox;
class QLabel;
class QPaintEvent;
class QPushButton;

namespace korvel::Ui::VenueDatabase {

class FocusKeeper;

/// One row that offers the model files of the shown venue and hands the chosen one to the host as a temporary
/// file.
///
/// After a request the whole row is disabled until the host has answered through
/// VenueDbSignalHandler::VenueLoaded(). The keyboard focus waits beside it and comes back then, unless the
/// user has moved it. Asks the server for nothing. User-interface thread only.
///
/// @code{.cpp}
/// auto* opener = new TsFileOpener(&window);
/// opener->UpdateUi(&files); // keeps a copy
/// QObject::connect(opener, &TsFileOpener::ImportVenueFromTempFileRequest, &window, [](const QString& path) {
///     Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(ImportModel(path));
/// });
/// @endcode
class KVVENUEDATABASE_API TsFileOpener : public QWidget
{
    Q_OBJECT

public:
    /// An empty row, wired to the signal hub, with its import button disabled.
    explicit TsFileOpener(QWidget* parent = nullptr);
    /// Temporary files stay: the host may still be reading them.
    ~TsFileOpener() override;

    /// Lists \p files, which must not be null, and selects the first; an empty list disables the import
    /// button. Keeps a copy of the list, not the pointer. Does not enable a row that waits for the host.
    void UpdateUi(QList<Data::VenueDatabase::TsFile>* files);
    /// Empties the file list on screen and disables the import button. The selected file is kept until the
    /// next UpdateUi().
    void ResetUi() const;

    /// Wires the children and the signal hub; called once, by the constructor.
    void ConnectSignals();

public Q_SLOTS:
    /// Makes the file at the current index of the combo box the selected one and shows its version; without
    /// such a file only the version is emptied.
    void OnTsFileComboBoxCurrentIndexChanged();
    /// Writes the selected file to the temporary folder and asks the host to import it. Does nothing without
    /// a selected file; a file that cannot be written is only logged.
    void OnTsFileButtonClicked();

Q_SIGNALS:
    /// The host is to import the file with the full path \p pathToFile. Forwarded to the signal hub. The
    /// opener may be deleted in answer to it.
    void ImportVenueFromTempFileRequest(QString pathToFile);

protected:
    /// Draws the background of the style sheet.
    void paintEvent(QPaintEvent* event) override;
    /// Keeps the version at the beginning of a row that runs right to left.
    void resizeEvent(QResizeEvent* event) override;
    /// Takes the version to the beginning of the row where the layout turns to the other side.
    void changeEvent(QEvent* event) override;

private:
    void SetupUi();
    void PlaceVersionLabel();
    void SelectFile(const Data::VenueDatabase::TsFile& file);

    QPushButton* m_importButton = nullptr;
    QComboBox* m_fileComboBox = nullptr;
    QLabel* m_versionLabel = nullptr;
    QList<Data::VenueDatabase::TsFile> m_files;
    std::unique_ptr<Data::VenueDatabase::TsFile> m_selectedFile;
    std::unique_ptr<FocusKeeper> m_focusKeeper;
};

} // namespace korvel::Ui::VenueDatabase
