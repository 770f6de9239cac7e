#include <ui/text/ReadOnlyText_p.h>

#include <ui/text/ShownText_p.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QTextOption>

namespace korvel::Ui::VenueDatabase {

namespace {

/// Whether \p text has a word of more characters than any word has.
bool HasEndlessWord(const QString& text)
{
    constexpr qsizetype c_longestWord = 1000;
    qsizetype length = 0;
    for (const QChar character : text) {
        length = character.isSpace() ? 0 : length + 1;
        if (length > c_longestWord)
            return true;
    }
    return false;
}

} // namespace

void ShowText(QLineEdit* lineEdit, const QString& text)
{
    lineEdit->setText(WithinScreen(text));
    lineEdit->setCursorPosition(0);
}

void ShowText(QTextEdit* textEdit, const QString& text)
{
    const QString shown = WithinReason(text);
    // For each line of a word that does not fit into one Qt looks for the end of the word again, which takes
    // minutes for a megabyte without a blank. The old text goes first: the mode lays it out once more.
    textEdit->clear();
    textEdit->setWordWrapMode(HasEndlessWord(shown) ? QTextOption::WrapAnywhere
                                                    : QTextOption::WrapAtWordBoundaryOrAnywhere);
    textEdit->setPlainText(shown);
}

void ClearSelection(QTextEdit* textEdit)
{
    // Handing the cursor back scrolls to it, that is to the end of the text.
    const int scrollPosition = textEdit->verticalScrollBar()->value();
    QTextCursor cursor = textEdit->textCursor();
    cursor.clearSelection();
    textEdit->setTextCursor(cursor);
    textEdit->verticalScrollBar()->setValue(scrollPosition);
}

} // namespace korvel::Ui::VenueDatabase
