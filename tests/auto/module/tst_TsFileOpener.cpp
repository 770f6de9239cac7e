#include <ui/TsFileOpener.h>
#include <ui/VenueDbSignalHandler.h>

#include <tests/support/Files.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/VdbMessages.h>
#include <tests/support/Widgets.h>

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;
using korvel::Data::VenueDatabase::TsFile;

namespace {

QList<TsFile> ThreeFiles()
{
    return {MakeFile(u"end-stage.tessra"_s, u"4.1"_s, "one"), MakeFile(u"arena.tessra"_s, u"4.2"_s, "two"),
            MakeFile(u"zone.tessra"_s, u"5.0"_s, "three")};
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
    return opener.findChild<QLabel*>(u"tsFileVersionLabel"_s);
}

/// The row of the opener's layout.
QLayout* Row(const QWidget& opener)
{
    return opener.layout()->itemAt(0)->layout();
}

/// An opener that has been given three files.
struct FilledOpener : TsFileOpener
{
    FilledOpener()
    {
        Show(*this, ThreeFiles());
    }

    QSignalSpy requests{this, &TsFileOpener::ImportVenueFromTempFileRequest};
};

/// An opener in a dialog whose first button closes it.
struct OpenerInWindow
{
    OpenerInWindow()
    {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(close);
        layout->addWidget(&opener);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
    void ImportByKey()
    {
        ImportButton(opener)->setFocus();
        QTest::keyClick(ImportButton(opener), Qt::Key_Space);
    }

    QDialog dialog;
    QPushButton* close = new QPushButton(u"Close"_s, &dialog);
    FilledOpener opener;
};

} // namespace

class tst_TsFileOpener : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        StrictTest::init();
        m_folder = std::make_unique<TempFolder>();
    }
    void cleanup()
    {
        m_folder.reset();
        StrictTest::cleanup();
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
        QCOMPARE(label->text(), u"File selector: "_s);
        QCOMPARE(label->minimumWidth(), 140);
        QCOMPARE(label->maximumWidth(), 140);
        QCOMPARE(row->itemAt(1)->widget(), Combo(opener));
        QCOMPARE(Combo(opener)->minimumWidth(), 100);
        QCOMPARE(row->itemAt(2)->widget(), ImportButton(opener));
        QCOMPARE(ImportButton(opener)->text(), u"Import to Tessra"_s);
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
        QCOMPARE(StyleOf(Row(opener)->itemAt(0)->widget()), u"labelKorvelLight"_s);
        QCOMPARE(StyleOf(Combo(opener)), u"comboBoxKorvelDefault"_s);
        QCOMPARE(StyleOf(ImportButton(opener)), u"buttonKorvelDefault"_s);
        QCOMPARE(StyleOf(VersionLabel(opener)), u"labelKorvelLight"_s);
    }

    void VersionStandsInNoLayout()
    {
        FilledOpener opener;
        opener.resize(500, 40);
        opener.show();
        QVERIFY(QTest::qWaitForWindowExposed(&opener));
        QCOMPARE(VersionLabel(opener)->parentWidget(), &opener);
        QCOMPARE(opener.layout()->indexOf(VersionLabel(opener)), -1);
        QCOMPARE(Row(opener)->indexOf(VersionLabel(opener)), -1);
        QCOMPARE(VersionLabel(opener)->pos(), QPoint(0, 0));
        QVERIFY(VersionLabel(opener)->isVisible());
    }

    void VersionLiesOverNoButtonFromRightToLeft_data()
    {
        const Rows<QString, bool> row("styleSheet", "turnsLate");
        const QString sheet = u"QLabel#tsFileVersionLabel { min-width: 136px; max-width: 136px; }"_s;
        row("bare", {}, false);
        row("bare, turned while it is shown", {}, true);
        row("of a width that the host chose", sheet, false);
    }
    void VersionLiesOverNoButtonFromRightToLeft()
    {
        const auto [styleSheet, turnsLate] = Fetch<QString, bool>();
        FilledOpener opener;
        opener.setStyleSheet(styleSheet);
        if (!turnsLate)
            opener.setLayoutDirection(Qt::RightToLeft);
        opener.resize(500, 40);
        opener.show();
        opener.setLayoutDirection(Qt::RightToLeft);
        const auto verifyPlace = [&opener] {
            const QRect version = VersionLabel(opener)->geometry();
            QCOMPARE(version.right(), opener.rect().right());
            QCOMPARE(version.top(), 0);
            QTRY_VERIFY(!version.intersects(ImportButton(opener)->geometry()));
        };
        verifyPlace();
        opener.resize(700, 40);
        verifyPlace();
        opener.setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(VersionLabel(opener)->pos(), QPoint(0, 0));
    }

    void ListsFileNamesAndSelectsTheFirst()
    {
        FilledOpener opener;
        QVERIFY(ImportButton(opener)->isEnabled());
        QCOMPARE(ItemTexts(Combo(opener)), NamesOf(ThreeFiles()));
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!Combo(opener)->itemData(i).isValid());
            QVERIFY(Combo(opener)->itemIcon(i).isNull());
        }
        QCOMPARE(Combo(opener)->currentIndex(), 0);
        QCOMPARE(VersionLabel(opener)->text(), u"4.1"_s);
    }

    void ChosenFileShowsItsVersion()
    {
        // The list that it was given is gone: it keeps a copy.
        FilledOpener opener;
        Combo(opener)->setCurrentIndex(2);
        QCOMPARE(VersionLabel(opener)->text(), u"5.0"_s);
        Combo(opener)->setCurrentIndex(1);
        QCOMPARE(VersionLabel(opener)->text(), u"4.2"_s);
        Combo(opener)->setCurrentIndex(-1);
        QVERIFY(VersionLabel(opener)->text().isEmpty());
    }

    void ChoosingTheCurrentEntryAgainStartsAfresh()
    {
        FilledOpener opener;
        VersionLabel(opener)->setText(u"stale"_s);
        Q_EMIT Combo(opener)->activated(0);
        QCOMPARE(VersionLabel(opener)->text(), u"4.1"_s);
    }

    void VenueWithoutFilesEmptiesTheRow()
    {
        FilledOpener opener;
        Show(opener, {});
        QVERIFY(!ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 0);
        QVERIFY(VersionLabel(opener)->text().isEmpty());

        opener.OnTsFileButtonClicked();
        QCOMPARE(opener.requests.count(), 0);
        QVERIFY(opener.isEnabled());
    }

    void NewListStartsAtItsFirstFile()
    {
        FilledOpener opener;
        Combo(opener)->setCurrentIndex(2);
        Show(opener, {MakeFile(u"other.tessra"_s, u"6"_s)});
        QCOMPARE(Combo(opener)->count(), 1);
        QCOMPARE(VersionLabel(opener)->text(), u"6"_s);
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QVERIFY(opener.requests.value(0).value(0).toString().endsWith(u"-other.tessra"_s));
    }

    void ImportWritesTheChosenFileAndAsksTheHost_data()
    {
        const Rows<int, QString, QByteArray> row("index", "ending", "content");
        row("preselected", 0, u"-end-stage.tessra"_s, "one");
        row("last", 2, u"-zone.tessra"_s, "three");
    }
    void ImportWritesTheChosenFileAndAsksTheHost()
    {
        const auto [index, ending, content] = Fetch<int, QString, QByteArray>();
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
        QCOMPARE(QFileInfo(path).dir(), QDir(m_folder->Path()));
        QCOMPARE(ContentOf(path), content);
        // What was handed in stays as it is: the opener works on its own copy.
        QVERIFY(std::all_of(files.cbegin(), files.cend(),
                            [](const TsFile& file) { return file.GetTempPath().isEmpty(); }));
    }

    void HostsAnswerSetsTheEnabledState()
    {
        FilledOpener opener;
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QVERIFY(!opener.isEnabled());
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(false);
        QVERIFY(!opener.isEnabled());
        Show(opener, ThreeFiles());
        QVERIFY2(!opener.isEnabled(), "another venue does not answer for the host");
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        QVERIFY(opener.isEnabled());
        QVERIFY(ImportButton(opener)->isEnabled());
    }

    void ImportGivesTheFocusBack_data()
    {
        const Rows<QList<bool>, bool> row("answers", "showsBox");
        row("imported at once", {true}, false);
        row("refused, and the reason read", {false, true}, true);
    }
    void ImportGivesTheFocusBack()
    {
        const auto [answers, showsBox] = Fetch<QList<bool>, bool>();
        OpenerInWindow window;
        window.ImportByKey();
        QCOMPARE(window.opener.requests.count(), 1);
        if (showsBox) {
            // Closing it makes the window active again, which looks for a widget to focus.
            QMessageBox box(&window.dialog);
            box.open();
            QVERIFY(QTest::qWaitForWindowActive(&box));
            box.accept();
            QVERIFY(QTest::qWaitForWindowActive(&window.dialog));
        }
        for (const bool loaded : answers)
            Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(loaded);
        QCOMPARE(window.dialog.focusWidget(), ImportButton(window.opener));
        QVERIFY(ImportButton(window.opener)->hasFocus());
    }

    void WaitingForTheHostReturnDoesNotClose()
    {
        OpenerInWindow window;
        window.ImportByKey();
        QVERIFY(window.dialog.focusWidget());
        QVERIFY(window.dialog.focusWidget() != window.close);
    }

    void FocusThatTheUserMovedMeanwhileStays()
    {
        OpenerInWindow window;
        window.ImportByKey();
        window.close->setFocus();
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        QCOMPARE(window.dialog.focusWidget(), window.close);
    }

    void FocusGoesToTheChooserWhereNothingIsLeftToImport()
    {
        OpenerInWindow window;
        window.ImportByKey();
        Show(window.opener, {});
        Q_EMIT VenueDbSignalHandler::GetInstance()->VenueLoaded(true);
        QCOMPARE(window.dialog.focusWidget(), Combo(window.opener));
    }

    void SecondImportReplacesTheFileOfTheSameSelection()
    {
        FilledOpener opener;
        opener.OnTsFileButtonClicked();
        opener.OnTsFileButtonClicked();
        QCOMPARE(opener.requests.count(), 2);
        QVERIFY(!QFileInfo::exists(opener.requests.at(0).first().toString()));
        QVERIFY(QFileInfo::exists(opener.requests.at(1).first().toString()));
    }

    void AnotherSelectionLeavesTheFirstFileToTheHost()
    {
        FilledOpener opener;
        opener.OnTsFileButtonClicked();
        Combo(opener)->setCurrentIndex(1);
        opener.OnTsFileButtonClicked();
        QCOMPARE(opener.requests.count(), 2);
        QCOMPARE(ContentOf(opener.requests.at(0).first().toString()), "one");
        QCOMPARE(ContentOf(opener.requests.at(1).first().toString()), "two");
    }

    // Files that cannot be written, and why, stand in tst_TsFile.
    void FileThatCannotBeWrittenIsOnlyLogged()
    {
        FilledOpener opener;
        Show(opener, {MakeFile(u"x/../../hall.tessra"_s)});
        // Hears no other category than the module's.
        const VdbMessages messages;
        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QCOMPARE(VdbMessages::Take(), QStringList(u"An error occurred while writing TSFile to disk."_s));
        QCOMPARE(opener.requests.count(), 0);
        QVERIFY(opener.isEnabled());
        QVERIFY(ImportButton(opener)->isEnabled());
        QCOMPARE(Tree(m_folder->Path()), QStringList());
    }

    void ResetEmptiesTheRowButKeepsTheSelection()
    {
        FilledOpener opener;
        Combo(opener)->setCurrentIndex(2);
        opener.ResetUi();
        QVERIFY(!ImportButton(opener)->isEnabled());
        QCOMPARE(Combo(opener)->count(), 0);
        QVERIFY(VersionLabel(opener)->text().isEmpty());

        QTest::mouseClick(ImportButton(opener), Qt::LeftButton);
        QCOMPARE(opener.requests.count(), 0);
        opener.OnTsFileButtonClicked();
        QCOMPARE(opener.requests.count(), 1);
        QVERIFY(opener.requests.first().first().toString().endsWith(u"-zone.tessra"_s));

        opener.setEnabled(true);
        Show(opener, ThreeFiles());
        QVERIFY(ImportButton(opener)->isEnabled());
    }

    void HostileTextsAreShownLiterallyAndWidenNothing()
    {
        const QString markup = u"<h1>5.0</h1><img src=\"/etc/x.png\" width=30000>"_s;
        const QString name = QString(4000, u'W');
        TsFileOpener opener;
        Show(opener, {MakeFile(u"a"_s, u"1"_s)});
        const int width = opener.minimumSizeHint().width();
        opener.ResetUi();
        Show(opener, {MakeFile(name, markup), MakeFile(markup, name)});
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
        auto* opener = new FilledOpener;
        const QPointer<TsFileOpener> guard(opener);
        const QObject host;
        connect(VenueDbSignalHandler::GetInstance(), &VenueDbSignalHandler::ImportVenueFromTempFileRequest,
                &host, [opener] { delete opener; });
        ImportButton(*opener)->click();
        QVERIFY(!guard);
    }

    void StyleSheetBackgroundIsPainted()
    {
        TsFileOpener opener;
        opener.setStyleSheet(u"korvel--Ui--VenueDatabase--TsFileOpener { background: #ff0000; }"_s);
        opener.resize(500, 60);
        QCOMPARE(opener.grab().toImage().pixelColor(3, 58), QColor(Qt::red));
    }

private:
    std::unique_ptr<TempFolder> m_folder;
};

QTEST_MAIN(tst_TsFileOpener)
#include "tst_TsFileOpener.moc"
