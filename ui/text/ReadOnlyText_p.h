#pragma once

class QLineEdit;
class QString;
class QTextEdit;

namespace korvel::Ui::VenueDatabase {

/// Shows \p text of the server in the read-only field \p lineEdit, from its beginning on: Qt would show the
/// end of one that is too long for the field.
void ShowText(QLineEdit* lineEdit, const QString& text);

/// Shows \p text of the server in the read-only field \p textEdit as it is, without markup.
void ShowText(QTextEdit* textEdit, const QString& text);

/// Selects nothing any more, without scrolling.
void ClearSelection(QTextEdit* textEdit);

} // namespace korvel::Ui::VenueDatabase
