#include <demo/HelpWindow.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace korvel::Demo {

HelpWindow::HelpWindow(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Tessra help"));
    resize(560, 520);

    auto* text = new QTextBrowser(this);
    text->document()->setDocumentMargin(20);
    text->setHtml(
        tr("<h2>Venues</h2>"
           "<p>The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets "
           "to the dock, what may hang from the grid.</p>"
           "<h3>Find a venue</h3>"
           "<p>Type a part of a name or of a city, or choose a country, and click <b>Search</b>. "
           "<b>Reset</b> lists everything again. A click on the header of the date column sorts.</p>"
           "<h3>Look at it</h3>"
           "<p>Select a row to see its details. The round buttons step through the pictures; the one in the "
           "middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the "
           "picture.</p>"
           "<h3>Bring it into the plan</h3>"
           "<p>Choose one of the model files and click <b>Import to Tessra</b>. The plan then shows the "
           "hall to scale, its stage, its seats and its rigging points with their loads.</p>"
           "<h3>Keys</h3>"
           "<p>Ctrl+D venue database &nbsp;·&nbsp; Ctrl+B light or dark &nbsp;·&nbsp; F1 this page "
           "&nbsp;·&nbsp; Ctrl+Q quit</p>"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setProperty("customStyle", u"buttonKorvelDefault"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
}

} // namespace korvel::Demo
