#include <ui/pictures/PictureSaver_p.h>

#include <ui/ModalWindow_p.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPixmap>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace korvel::Ui::VenueDatabase {

namespace {

constexpr int c_jpegQuality = 95;

/// Where the first file dialog of the process starts.
QString PicturesFolder()
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::PicturesLocation);
    return folders.isEmpty() ? QDir::currentPath() : folders.last();
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

    bool isDone = false;
    while (!isDone) {
        isDone = fileDialog->exec() != QDialog::Accepted || !fileDialog
            || save(fileDialog->selectedFiles().value(0)) || !fileDialog;
    }
}

} // namespace korvel::Ui::VenueDatabase
