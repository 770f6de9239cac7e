#include <ui/PictureFullscreenDialog.h>
#include <ui/PictureSlider.h>
#include <ui/PictureView.h>
#include <ui/TsFileOpener.h>
#include <ui/VenueDbCentralWidget.h>
#include <ui/VenueDetailsWidget.h>

#include <tests/support/ConnectorStub.h>
#include <tests/support/HangGuard.h>
#include <tests/support/HostileData.h>
#include <tests/support/PictureFixtures.h>
#include <tests/support/Records.h>
#include <tests/support/Rows.h>
#include <tests/support/StrictTest.h>
#include <tests/support/Widgets.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextEdit>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace korvel::Data::VenueDatabase;
using namespace korvel::Test;
using namespace korvel::Ui::VenueDatabase;

namespace {

/// In milliseconds. Each step takes a second or two, and took minutes with the worst texts.
constexpr int c_hangs = 15'000;
/// More characters than fit side by side on any screen.
constexpr qsizetype c_lineLength = 5'000;

/// What a field shows, without the sign that more is left out.
QString Beginning(const QString& shown)
{
    return shown.endsWith(QChar(0x2026)) ? shown.chopped(1) : shown;
}

} // namespace

/// Texts of a megabyte, which Qt would lay out for minutes, must not hold the application up.
class tst_HugeTexts : public StrictTest
{
    Q_OBJECT

private Q_SLOTS:
    void TableLaysOutNoMoreThanAScreenShows_data()
    {
        AddTexts();
    }
    void TableLaysOutNoMoreThanAScreenShows()
    {
        QFETCH(QString, text);
        ConnectorStub stub;
        Venue venue = MakeVenue(0, text);
        venue.SetVenueRoomName(text);
        venue.SetCity(text);
        stub.venues = QList<Venue>(20, venue);
        VenueDbCentralWidget panel;
        panel.SetConnector(&stub);
        panel.resize(1062, 768);

        const HangGuard::Watch watch(m_guard, u"table"_s);
        panel.PerformQuery();
        auto* table = panel.findChild<QTableView*>();
        QVERIFY(!table->grab().isNull());
        const auto* delegate = qobject_cast<QStyledItemDelegate*>(table->itemDelegate());
        QVERIFY(delegate);
        const QString shown = delegate->displayText(text, QLocale()).replace(QChar(0x2028), u'\n');
        QVERIFY2(shown.size() <= c_lineLength, qPrintable(QString::number(shown.size())));
        QVERIFY(shown.size() > 100 && text.startsWith(Beginning(shown)));

        // The data stay whole, those that are copied as well.
        const QModelIndex index = table->model()->index(3, 1);
        QCOMPARE(index.data().toString(), text);
        table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), text);
    }

    void DetailsShowTheBeginning_data()
    {
        AddTexts();
    }
    void DetailsShowTheBeginning()
    {
        QFETCH(QString, text);
        Venue venue = MakeVenue(0, text);
        venue.SetGeneralComment(text);
        QList<Picture> pictures;
        QList<TsFile> files;
        VenueDetailsWidget panel;
        panel.resize(1062, 516);
        {
            const HangGuard::Watch watch(m_guard, u"details"_s);
            panel.UpdateUi(&venue, &pictures, &files);
            QVERIFY(!panel.grab().isNull());
        }
        const QString comment = panel.findChild<QTextEdit*>()->toPlainText();
        QVERIFY(text.startsWith(Beginning(comment)));
        QVERIFY(comment.size() > 5'000);
        qsizetype longest = 0;
        for (const QLineEdit* field : panel.findChildren<QLineEdit*>())
            longest = std::max(longest, field->text().size());
        QVERIFY(longest > 1'000);
    }

    void TextThatPeopleWriteIsShownInFull_data()
    {
        const Rows<QString> row("text");
        row("prose", u"A wall of stone. "_s.repeated(50'000));
        row("lines", u"The dock is behind the house, ask for the key.\n"_s.repeated(20'000));
        row("one word", QString(1'000'000, u'W'));
    }
    void TextThatPeopleWriteIsShownInFull()
    {
        QFETCH(QString, text);
        Venue venue;
        venue.SetGeneralComment(text);
        QList<Picture> pictures;
        QList<TsFile> files;
        VenueDetailsWidget panel;
        panel.UpdateUi(&venue, &pictures, &files);
        QCOMPARE(panel.findChild<QTextEdit*>()->toPlainText(), text);
    }

    void CaptionsDrawNoMoreThanAScreenShows_data()
    {
        AddTexts();
    }
    void CaptionsDrawNoMoreThanAScreenShows()
    {
        QFETCH(QString, text);
        const Picture picture = MakePicture(EncodedPicture(QSize(40, 30), Qt::red),
                                            EncodedPicture(QSize(400, 300), Qt::red), text);
        PictureSlider slider;
        auto* viewer = slider.findChild<PictureFullscreenDialog*>();

        const HangGuard::Watch watch(m_guard, u"captions"_s);
        Show(slider, {picture, picture});
        QVERIFY(!slider.grab().isNull());
        slider.ShowFullScreen();
        QVERIFY(!viewer->grab().isNull());
        QCOMPARE(Caption(slider)->text(), u"1/2 "_s + text);
        const QLabel* caption = Caption(*viewer);
        QCOMPARE(caption->text(), u"1/2 "_s + text);
        QVERIFY(viewer->findChild<PictureView*>()->rect().contains(caption->geometry()));
        viewer->hide();
    }

    void ModelFilesDrawNoMoreThanAScreenShows_data()
    {
        AddTexts();
    }
    void ModelFilesDrawNoMoreThanAScreenShows()
    {
        QFETCH(QString, text);
        TsFileOpener opener;

        const HangGuard::Watch watch(m_guard, u"model files"_s);
        Show(opener, {MakeFile(text, text), MakeFile(text, text)});
        opener.show();
        QVERIFY(!opener.grab().isNull());
        auto* box = opener.findChild<QComboBox*>();
        QVERIFY(text.startsWith(Beginning(box->itemText(1))));
        box->showPopup();
        QVERIFY(!box->view()->grab().isNull());
        box->hidePopup();
    }

private:
    static void AddTexts()
    {
        QTest::addColumn<QString>("text");
        for (const auto& [name, text, json] : HugeTexts())
            QTest::newRow(name.constData()) << text;
    }

    HangGuard m_guard{c_hangs};
};

QTEST_MAIN(tst_HugeTexts)
#include "tst_HugeTexts.moc"
