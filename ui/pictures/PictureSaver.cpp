#include <ui/pictures/PictureSaver_p.h>

#include <ui/ModalWindow_p.h>
#include <ui/PictureFullscreenDialog.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr int c_jpegQuality = 95;

/// Where the first file dialog of the process starts: in the user's folder of pictures, or above where that
/// is not there.
QString PicturesFolder()
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::PicturesLocation);
    QString folder = folders.isEmpty() ? QDir::currentPath() : folders.last();
    while (!QFileInfo::exists(folder) && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

/// Whether \p fileDialog, which was accepted, asked before that about replacing \p path, the file that it
/// names.
bool HasAskedAbout(QFileDialog& fileDialog, const QString& path)
{
    // Qt's own dialog completes the name first. It stays off the screen where the desktop's stands in for it,
    // which may ask about the name as it was typed.
    if (!fileDialog.testAttribute(Qt::WA_DontShowOnScreen))
        return true;
    const QString suffix = fileDialog.defaultSuffix();
    fileDialog.setDefaultSuffix(QString());
    const bool isComplete = fileDialog.selectedFiles().value(0) == path;
    fileDialog.setDefaultSuffix(suffix);
    return isComplete;
}

/// Runs a nested event loop, in which \p parent may be destroyed.
bool MayReplace(const QString& path, QWidget* parent)
{
    const ModalWindow<QMessageBox> box(
        QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
        PictureFullscreenDialog::tr("%1 already exists.\nDo you want to replace it?")
            .arg(QDir::toNativeSeparators(path)),
        QMessageBox::Yes | QMessageBox::No, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes;
}

} // namespace

bool WriteJpeg(const QPixmap& picture, const QString& path)
{
    QSaveFile file(path);
    // Where the file may be written but nothing be created beside it.
    file.setDirectWriteFallback(true);
    // commit() does not notice what only the flush brings to light.
    return file.open(QIODevice::WriteOnly) && picture.save(&file, "JPG", c_jpegQuality) && file.flush()
        && file.commit();
}

void AskWhereToSave(QWidget* parent, const QString& title, const QString& pictureName,
                    const std::function<bool(const QString& path)>& save)
{
    const ModalWindow<QFileDialog> fileDialog(parent, title);
    static bool isFirstSave = true;
    if (isFirstSave)
        fileDialog->setDirectory(PicturesFolder());
    isFirstSave = false;
    fileDialog->selectFile(QFileInfo(pictureName).baseName());
    fileDialog->setMimeTypeFilters({u"image/jpeg"_s});
    fileDialog->selectMimeTypeFilter(u"image/jpeg"_s);
    fileDialog->setAcceptMode(QFileDialog::AcceptSave);
    fileDialog->setDefaultSuffix(u"jpg"_s);

    while (fileDialog->exec() == QDialog::Accepted && fileDialog) {
        const QString path = fileDialog->selectedFiles().value(0);
        const bool isAllowed
            = !QFileInfo::exists(path) || HasAskedAbout(*fileDialog, path) || MayReplace(path, parent);
        if (!fileDialog || (isAllowed && save(path)) || !fileDialog)
            return;
    }
}

} // namespace korvel::Ui::VenueDatabase
