#include <ui/TsFileOpener.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/MessageGuard.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using korvel::Data::VenueDatabase::TsFile;
using korvel::Ui::VenueDatabase::TsFileOpener;
using korvel::Ui::VenueDatabase::VenueDbSignalHandler;

namespace {

TsFile CreateFile(QString name, QString version, QByteArray data = QByteArrayLiteral("model"))
{
    TsFile file;
    file.SetId(7);
    file.SetFileName(name);
    file.SetTsVersion(version);
    file.SetFileData(data);
    return file;
}

QList<TsFile> ThreeFiles()
{
    return {CreateFile(QStringLiteral("end-stage.tessra"), QStringLiteral("4.1"), QByteArrayLiteral("one")),
            CreateFile(QStringLiteral("arena.tessra"), QStringLiteral("4.2"), QByteArrayLiteral("two")),
            CreateFile(QStringLiteral("zone.tessra"), QStringLiteral("5.0"), QByteArrayLiteral("three"))};
}

QString StyleOf(const QObject* object)
{
    return object->property("customStyle").toString();
}

QComboBox* Combo(const QWidget& opener)
{
    return opener.findChild<QComboBox*>();
}

QPushButton* ImportButton(const QWidget& opener)
{
    return opener.findChild<QPushButton*>();
}

QLabel* VersionLabel(const QWidget& opener)
{
    return opener.findChild<QLabel*>(QStringLiteral("tsFileVersionLabel"));
}

/// The row of the opener's layout.
QLayout* Row(const QWidget& opener)
{
    return opener.layout()->itemAt(0)->layout();
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_TsFileOpener : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        korvel::Test::FailOnUnexpectedWarnings();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_systemFolder = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(m_folder->path()));
    }
    void cleanup()
    {
        m_systemFolder.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_systemFolder);
        m_folder.reset();
        QVERIFY(korvel::Test::NoWindowIsLeft());
    }

    void RowHoldsLabelComboAndButtonInThisOrder()
    {
        const TsFileOpener opener;
        QCOMPARE(opener.layout()->contentsMargins(), QMargins());
        QCOMPARE(opener.layout()->count(), 1);
        QLayout* row = Row(opener);
        QVERIFY(row);
        QCOMPARE(row->count(), 3);
        const auto* label = qobject_cast<QLabel*>(row->itemAt(0)->widget());
        QVERIFY(label);
        QCOMPARE(label->text(), QStringLiteral("File selector: "));
        QCOMPARE(label->minimumWidth(), 140);
        QCOMPARE(label->maximumWidth(), 140);
        QCOMPARE(row->itemAt(1)->widget(), Combo(opener));
        QCOMPARE(Combo(opener)->minimumWidth(), 100);
        QCOMPARE(row->itemAt(2)->widget(), ImportButton(opener));
        QCOMPARE(ImportButton(opener)->text(), QStringLiteral("Import to Tessra"));
        QCOMPARE(ImportButton(opener)->minimumWidth(), 125);
        QCOMPARE(ImportButton(opener)->sizePolicy(), QSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum));
        for (int i = 0; i < row->count(); ++i)
            QCOMPARE(row->itemAt(i)->alignment(), Qt::Alignment());
    }

    void StartsEmptyAndDisabled()
    {
        const TsFileOpener opener;
        QVERIFY(opener.isEnabled());
        QVERIFY(!ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 0);
        QVERIFY(VersionLabel(opener)->text().isEmpty());
    }

    void StyleClasses()
    {
        const TsFileOpener opener;
        QCOMPARE(StyleOf(Row(opener)->itemAt(0)->widget()), QStringLiteral("labelKorvelLight"));
        QCOMPARE(StyleOf(Combo(opener)), QStringLiteral("comboBoxKorvelDefault"));
        QCOMPARE(StyleOf(ImportButton(opener)), QStringLiteral("buttonKorvelDefault"));
        QCOMPARE(StyleOf(VersionLabel(opener)), QStringLiteral("labelKorvelLight"));
    }

    void VersionStandsInNoLayout()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        opener.resize(500, 40);
        opener.show();
        QVERIFY(QTest::qWaitForWindowExposed(&opener));
        QCOMPARE(VersionLabel(opener)->parentWidget(), &opener);
        QCOMPARE(opener.layout()->indexOf(VersionLabel(opener)), -1);
        QCOMPARE(Row(opener)->indexOf(VersionLabel(opener)), -1);
        QCOMPARE(VersionLabel(opener)->pos(), QPoint(0, 0));
        QVERIFY(VersionLabel(opener)->isVisible());
    }

    void ListsFileNamesAndSelectsTheFirst()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        QVERIFY(ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 3);
        QCOMPARE(Combo(opener)->itemText(0), QStringLiteral("end-stage.tessra"));
        QCOMPARE(Combo(opener)->itemText(1), QStringLiteral("arena.tessra"));
        QCOMPARE(Combo(opener)->itemText(2), QStringLiteral("zone.tessra"));
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!Combo(opener)->itemData(i).isValid());
            QVERIFY(Combo(opener)->itemIcon(i).isNull());
        }
        QCOMPARE(Combo(opener)->currentIndex(), 0);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("4.1"));
    }

    void ChosenFileShowsItsVersion()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        Combo(opener)->setCurrentIndex(2);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("5.0"));
        Combo(opener)->setCurrentIndex(1);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("4.2"));
        Combo(opener)->setCurrentIndex(-1);
        QVERIFY(VersionLabel(opener)->text().isEmpty());
    }

    void ChoosingTheCurrentEntryAgainStartsAfresh()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        VersionLabel(opener)->setText(QStringLiteral("stale"));
        Q_EMIT Combo(opener)->activated(0);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("4.1"));
    }

    void VenueWithoutFilesEmptiesTheRow()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        QList<TsFile> none;
        opener.UpdateUi(&none);
        QVERIFY(!ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 0);
        QVERIFY(VersionLabel(opener)->text().isEmpty());

        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        opener.OnTsFileButtonClicked();
        QCOMPARE(requests.count(), 0);
        QVERIFY(opener.isEnabled());
    }

    void NewListStartsAtItsFirstFile()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        Combo(opener)->setCurrentIndex(2);
        QList<TsFile> other = {CreateFile(QStringLiteral("other.tessra"), QStringLiteral("6"))};
        opener.UpdateUi(&other);
        QCOMPARE(Combo(opener)->count(), 1);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("6"));
        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QVERIFY(requests.value(0).value(0).toString().endsWith(QStringLiteral("-other.tessra")));
    }

    void KeepsACopyOfTheList()
    {
        TsFileOpener opener;
        {
            QList<TsFile> files = ThreeFiles();
            opener.UpdateUi(&files);
            files.clear();
        }
        Combo(opener)->setCurrentIndex(1);
        QCOMPARE(VersionLabel(opener)->text(), QStringLiteral("4.2"));
    }

    void ImportWritesTheChosenFileAndAsksTheHost_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("ending");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("preselected") << 0 << QStringLiteral("-end-stage.tessra") << QByteArrayLiteral("one");
        QTest::newRow("last") << 2 << QStringLiteral("-zone.tessra") << QByteArrayLiteral("three");
    }
    void ImportWritesTheChosenFileAndAsksTheHost()
    {
        QFETCH(int, index);
        QFETCH(QString, ending);
        QFETCH(QByteArray, content);
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        Combo(opener)->setCurrentIndex(index);
        QSignalSpy own(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        QSignalSpy hub(VenueDbSignalHandler::GetInstance(),
                       &VenueDbSignalHandler::ImportVenueFromTempFileRequest);
        bool wasEnabled = true;
        connect(&opener, &TsFileOpener::ImportVenueFromTempFileRequest, this,
                [&] { wasEnabled = opener.isEnabled(); });

        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QCOMPARE(own.count(), 1);
        QCOMPARE(hub.count(), 1);
        QVERIFY(!wasEnabled);
        QVERIFY(!opener.isEnabled());
        const QString path = hub.first().first().toString();
        QCOMPARE(own.first().first().toString(), path);
        QVERIFY2(path.endsWith(ending), qPrintable(path));
        QCOMPARE(QFileInfo(path).dir(), QDir(m_folder->path()));
        QCOMPARE(ContentOf(path), content);
        // What was handed in stays as it is: the opener works on its own copy.
        QVERIFY(std::all_of(files.cbegin(), files.cend(),
                            [](const TsFile& file) { return file.GetTempPath().isEmpty(); }));
    }

    void HostsAnswerSetsTheEnabledState()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QVERIFY(!opener.isEnabled());
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(false);
        QVERIFY(!opener.isEnabled());
        opener.UpdateUi(&files);
        QVERIFY2(!opener.isEnabled(), "another venue does not answer for the host");
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        QVERIFY(opener.isEnabled());
        QVERIFY(ImportButton(opener)->isEnabled());
    }

    void SecondImportReplacesTheFileOfTheSameSelection()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        opener.OnTsFileButtonClicked();
        opener.OnTsFileButtonClicked();
        QCOMPARE(requests.count(), 2);
        QVERIFY(!QFileInfo::exists(requests.at(0).first().toString()));
        QVERIFY(QFileInfo::exists(requests.at(1).first().toString()));
    }

    void AnotherSelectionLeavesTheFirstFileToTheHost()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        opener.OnTsFileButtonClicked();
        Combo(opener)->setCurrentIndex(1);
        opener.OnTsFileButtonClicked();
        QCOMPARE(requests.count(), 2);
        QCOMPARE(ContentOf(requests.at(0).first().toString()), QByteArrayLiteral("one"));
        QCOMPARE(ContentOf(requests.at(1).first().toString()), QByteArrayLiteral("two"));
    }

    void FileThatCannotBeWrittenIsOnlyLogged_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<bool>("folderExists");
        QTest::newRow("no temporary folder") << QStringLiteral("hall.tessra") << false;
        QTest::newRow("name leads elsewhere") << QStringLiteral("x/../../hall.tessra") << true;
        QTest::newRow("name too long") << QString(300, QLatin1Char('a')) << true;
    }
    void FileThatCannotBeWrittenIsOnlyLogged()
    {
        QFETCH(QString, fileName);
        QFETCH(bool, folderExists);
        if (!folderExists)
            qputenv("TMPDIR", QFile::encodeName(m_folder->filePath(QStringLiteral("missing"))));
        TsFileOpener opener;
        QList<TsFile> files = {CreateFile(fileName, QStringLiteral("1"))};
        opener.UpdateUi(&files);
        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        QTest::ignoreMessage(QtCriticalMsg, "An error occurred while writing TSFile to disk.");
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QCOMPARE(requests.count(), 0);
        QVERIFY(opener.isEnabled());
        QVERIFY(ImportButton(opener)->isEnabled());
        QVERIFY(QDir(m_folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void FailureGoesToTheModulesCategory()
    {
        static QString category;
        category.clear();
        static QtMessageHandler previous = nullptr;
        TsFileOpener opener;
        QList<TsFile> files = {CreateFile(QStringLiteral(".."), QStringLiteral("1"))};
        opener.UpdateUi(&files);
        previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext& context, const QString&) {
            category = QString::fromLatin1(context.category);
        });
        opener.OnTsFileButtonClicked();
        qInstallMessageHandler(previous);
        QCOMPARE(category, QStringLiteral("vdb"));
    }

    void ResetEmptiesTheRowButKeepsTheSelection()
    {
        TsFileOpener opener;
        QList<TsFile> files = ThreeFiles();
        opener.UpdateUi(&files);
        Combo(opener)->setCurrentIndex(2);
        opener.ResetUi();
        QVERIFY(!ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 0);
        QVERIFY(VersionLabel(opener)->text().isEmpty());

        QSignalSpy requests(&opener, &TsFileOpener::ImportVenueFromTempFileRequest);
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QCOMPARE(requests.count(), 0);
        opener.OnTsFileButtonClicked();
        QCOMPARE(requests.count(), 1);
        QVERIFY(requests.first().first().toString().endsWith(QStringLiteral("-zone.tessra")));

        opener.setEnabled(true);
        opener.UpdateUi(&files);
        QVERIFY(ImportButton(opener)->isEnabled());
    }

    void HostileTextsAreShownLiterallyAndWidenNothing()
    {
        const QString markup = QStringLiteral("<h1>5.0</h1><img src=\"/etc/x.png\" width=30000>");
        const QString name = QString(4000, QLatin1Char('W'));
        TsFileOpener opener;
        QList<TsFile> few = {CreateFile(QStringLiteral("a"), QStringLiteral("1"))};
        opener.UpdateUi(&few);
        const int width = opener.minimumSizeHint().width();
        opener.ResetUi();
        QList<TsFile> files = {CreateFile(name, markup), CreateFile(markup, name)};
        opener.UpdateUi(&files);
        QCOMPARE(VersionLabel(opener)->text(), markup);
        QCOMPARE(VersionLabel(opener)->textFormat(), Qt::PlainText);
        QCOMPARE(Combo(opener)->itemText(1), markup);
        opener.show();
        QVERIFY(QTest::qWaitForWindowExposed(&opener));
        QCOMPARE(opener.minimumSizeHint().width(), width);
        QVERIFY(opener.width() < 1000);
    }

    void HostMayDeleteTheOpenerInItsHandler()
    {
        auto* opener = new TsFileOpener;
        const QPointer<TsFileOpener> guard(opener);
        QList<TsFile> files = ThreeFiles();
        opener->UpdateUi(&files);
        const QObject host;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::ImportVenueFromTempFileRequest,
                &host, [opener] { delete opener; });
        ImportButton(*opener)->click();
        QVERIFY(!guard);
    }

    void StyleSheetBackgroundIsPainted()
    {
        TsFileOpener opener;
        opener.setStyleSheet(
            QStringLiteral("korvel--Ui--VenueDatabase--TsFileOpener { background: #ff0000; }"));
        opener.resize(500, 60);
        QCOMPARE(opener.grab().toImage().pixelColor(3, 58), QColor(Qt::red));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_systemFolder;
};

QTEST_MAIN(tst_TsFileOpener)
#include "tst_TsFileOpener.moc"
