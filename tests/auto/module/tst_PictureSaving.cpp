#include <ui/PictureFullscreenDialog.h>

#include <tests/support/Files.h>
#include <tests/support/ModalDriver.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPointer>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

constexpr QSize c_size(30, 20);

std::unique_ptr<PictureFullscreenDialog> Viewer()
{
    auto viewer = std::make_unique<PictureFullscreenDialog>();
    Picture picture = MakePicture({}, EncodedPicture(c_size, Qt::blue));
    viewer->SetPicture(&picture);
    return viewer;
}

/// Behaves as a dialog of the desktop's that adds the suffix only after it has looked for a file to ask
/// about: it asks nothing, and \p existing, if any, is there.
void SaveOnADesktop(QFileDialog* fileDialog, const QString& name, const QString& existing)
{
    // So Qt marks its own dialog when the desktop's stands in for it.
    fileDialog->setAttribute(Qt::WA_DontShowOnScreen);
    if (!existing.isEmpty())
        QFile::remove(existing);
    SaveAs(fileDialog, name);
    if (!existing.isEmpty())
        WriteFile(existing, "old");
}

} // namespace

/// Where a picture is saved, and what of files that are there.
class tst_PictureSaving : public StrictTest
{
    Q_OBJECT

private:
    QTemporaryDir m_home;
    QString m_path;

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QGuiApplication::setApplicationDisplayName(u"Stage planner"_s);
        QVERIFY(m_home.isValid());
        qputenv("HOME", m_home.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_home.path().toLocal8Bit());
        m_path = m_home.filePath(u"<b>Auditorium</b>.jpg"_s);
        QVERIFY(QDir(m_home.path()).mkpath(QFileInfo(m_path).path()));
    }

    // The first test: what the first file dialog of a process does can be seen once.
    void WithoutAPicturesFolderTheFirstDialogStartsAtHomeAsTheSecondDoes()
    {
        const auto viewer = Viewer();
        QStringList folders;
        for (int run = 0; run < 2; ++run) {
            const ModalDriver<QFileDialog> user([&](QFileDialog* fileDialog) {
                folders.append(fileDialog->directory().absolutePath());
                fileDialog->reject();
            });
            viewer->OnSaveImageAs();
        }
        QCOMPARE(folders, QStringList({m_home.path(), m_home.path()}));
    }

    void ReplacesAFileThatTheDesktopDidNotAskAboutOnlyAfterAQuestion_data()
    {
        const Rows<QMessageBox::StandardButton, bool> row("answer", "isReplaced");
        row("yes", QMessageBox::Yes, true);
        row("no: the dialog comes again", QMessageBox::No, false);
    }
    void ReplacesAFileThatTheDesktopDidNotAskAboutOnlyAfterAQuestion()
    {
        const auto [answer, isReplaced] = Fetch<QMessageBox::StandardButton, bool>();
        const auto viewer = Viewer();
        const ModalDriver<QFileDialog> user(
            [this](QFileDialog* fileDialog) { SaveOnADesktop(fileDialog, m_path.chopped(4), m_path); });
        std::unique_ptr<ModalDriver<QFileDialog>> sameUser;
        const BoxDriver question([&](QMessageBox* box) {
            QCOMPARE(
                box->text(),
                u"%1 already exists.\nDo you want to replace it?"_s.arg(QDir::toNativeSeparators(m_path)));
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QCOMPARE(box->windowTitle(), u"Stage planner"_s);
            QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
            QCOMPARE(box->defaultButton(), box->button(QMessageBox::No));
            QCOMPARE(ContentOf(m_path), "old");
            sameUser = std::make_unique<ModalDriver<QFileDialog>>([](QFileDialog* again) {
                QCOMPARE(again->defaultSuffix(), u"jpg"_s);
                again->reject();
            });
            box->button(answer)->click();
        });
        viewer->OnSaveImageAs();
        QCOMPARE(question.Count(), 1);
        QCOMPARE(sameUser->Count(), isReplaced ? 0 : 1);
        QCOMPARE(ContentOf(m_path) == "old", !isReplaced);
        QCOMPARE(QImageReader(m_path).size(), isReplaced ? c_size : QSize());
        QCOMPARE(viewer->GetStatusLabel()->text(), isReplaced ? u"Saved \"%1\""_s.arg(m_path) : QString());
    }

    void AsksNoSecondTime_data()
    {
        const Rows<bool, QString> row("exists", "typed");
        row("the desktop asked about the whole name", true, m_path);
        row("there is no such file", false, m_path.chopped(4));
    }
    void AsksNoSecondTime()
    {
        const auto [exists, typed] = Fetch<bool, QString>();
        QFile::remove(m_path);
        const auto viewer = Viewer();
        const ModalDriver<QFileDialog> user(
            [&](QFileDialog* fileDialog) { SaveOnADesktop(fileDialog, typed, exists ? m_path : QString()); });
        const auto question = AnswerBox(QMessageBox::No);
        viewer->OnSaveImageAs();
        QCOMPARE(question->Count(), 0);
        QCOMPARE(QImageReader(m_path).size(), c_size);
    }

    void QtsOwnDialogAsksOnce()
    {
        WriteFile(m_path, "old");
        const auto viewer = Viewer();
        const ModalDriver<QFileDialog> user(
            [this](QFileDialog* fileDialog) { SaveAs(fileDialog, m_path.chopped(4)); });
        std::unique_ptr<BoxDriver> secondQuestion;
        const BoxDriver question([&](QMessageBox* box) {
            secondQuestion = AnswerBox(QMessageBox::No);
            box->button(QMessageBox::Yes)->click();
        });
        viewer->OnSaveImageAs();
        QCOMPARE(question.Count(), 1);
        QCOMPARE(secondQuestion->Count(), 0);
        QCOMPARE(QImageReader(m_path).size(), c_size);
    }

    void ViewerMayDieUnderTheQuestion()
    {
        auto viewer = Viewer();
        const QPointer<PictureFullscreenDialog> guard(viewer.get());
        const ModalDriver<QFileDialog> user(
            [this](QFileDialog* fileDialog) { SaveOnADesktop(fileDialog, m_path.chopped(4), m_path); });
        const BoxDriver question([&](QMessageBox*) { viewer.reset(); });
        guard->OnSaveImageAs();
        QVERIFY(!guard);
        QCOMPARE(ContentOf(m_path), "old");
    }
};

QTEST_MAIN(tst_PictureSaving)
#include "tst_PictureSaving.moc"
