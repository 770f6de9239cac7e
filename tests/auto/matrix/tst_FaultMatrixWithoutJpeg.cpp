#include <ui/PictureFullscreenDialog.h>

#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/SaveDriver.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QFile>
#include <QImageWriter>
#include <QLabel>
#include <QLibraryInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace korvel::Test;
using korvel::Data::VenueDatabase::Picture;
using korvel::Ui::VenueDatabase::PictureFullscreenDialog;

/// A host that ships without Qt's image-format plug-ins.
class tst_FaultMatrixWithoutJpeg : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void PictureCannotBeSaved()
    {
        QVERIFY(!QImageWriter::supportedImageFormats().contains("jpg"));
        const QTemporaryDir folder;
        qputenv("HOME", folder.path().toLocal8Bit());
        const QString path = folder.filePath(u"hall.jpg"_s);
        PictureFullscreenDialog viewer;
        OpenViewer(viewer, {MakePicture({}, EncodedPicture(QSize(60, 40), Qt::red))});

        const SaveDriver user(path);
        viewer.OnSaveImageAs();
        QCOMPARE(user.boxes, QStringList{u"Cannot write "_s + path});
        QCOMPARE(user.dialogs, 2);
        QCOMPARE(viewer.GetStatusLabel()->text(), QString());
        // Nothing is left behind, not even an empty file.
        QVERIFY(!QFile::exists(path));
    }
};

int main(int argc, char** argv)
{
    // The windows' plug-in is found by its own path, all others by none.
    qputenv("QT_QPA_PLATFORM_PLUGIN_PATH",
            QFile::encodeName(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms"_s));
    QCoreApplication::setLibraryPaths({});
    const QApplication application(argc, argv);
    QCoreApplication::setLibraryPaths({});
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    tst_FaultMatrixWithoutJpeg test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FaultMatrixWithoutJpeg.moc"
