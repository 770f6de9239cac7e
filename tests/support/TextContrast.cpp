#include <tests/support/TextContrast.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFontInfo>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace korvel::Test {

namespace {

/// Small letters are thinner than a pixel and would not reach their colour: the window is drawn enlarged.
constexpr int c_enlargement = 4;

/// Relative luminance.
double Luminance(const QColor& colour)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

bool IsLarge(const QWidget* widget)
{
    const QFontInfo font(widget->font());
    return font.pixelSize() >= 24 || (font.bold() && font.pixelSize() >= 18.66);
}

/// The place of the one line \p text in a field, without its ends: where it is selected, there is another
/// ground beside it.
QRect LineIn(const QWidget* field, const QString& text)
{
    constexpr int c_begin = 10;
    const QFontMetrics metrics(field->font());
    return QRect(c_begin, (field->height() - metrics.height()) / 2, metrics.horizontalAdvance(text) - 4,
                 metrics.height())
        .adjusted(0, 2, 0, -2);
}

/// Collects the texts of one widget after the other.
class TextCollector
{
public:
    QList<TextPlace> places;

    void Add(QWidget* widget);

private:
    void AddPlace(QWidget* widget, const QRect& rect, const QString& text, const QString& kind = {});
    void AddHeader(QHeaderView* header);
    void AddItems(QAbstractItemView* view);
    void AddMenu(QMenu* menu);
    void AddTextEdit(QTextEdit* edit);
};

void TextCollector::AddPlace(QWidget* widget, const QRect& rect, const QString& text, const QString& kind)
{
    const QRect seen = rect & widget->visibleRegion().boundingRect();
    if (text.trimmed().isEmpty() || seen.width() < 4 || seen.height() < 8)
        return;
    const QString style = widget->property("customStyle").toString();
    const QString name
        = kind.isEmpty() ? QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + style : kind;
    places.append({u"%1 \"%2\""_s.arg(name, text), widget->window(),
                   seen.translated(widget->mapTo(widget->window(), QPoint())), IsLarge(widget)});
}

void TextCollector::AddHeader(QHeaderView* header)
{
    for (int section = 0; section < header->count(); ++section) {
        // The arrow of the sorted column stands at the right end.
        const QRect rect(header->sectionViewportPosition(section) + 6, 3, header->sectionSize(section) - 28,
                         header->height() - 6);
        if (!header->isSectionHidden(section))
            AddPlace(header->viewport(), rect,
                     header->model()->headerData(section, Qt::Horizontal).toString(), u"header"_s);
    }
}

void TextCollector::AddItems(QAbstractItemView* view)
{
    constexpr int c_enoughRows = 30;
    const QAbstractItemModel* model = view->model();
    const QModelIndex root = view->rootIndex();
    for (int row = 0; model && row < std::min(c_enoughRows, model->rowCount(root)); ++row) {
        for (int column = 0; column < model->columnCount(root); ++column) {
            const QModelIndex index = model->index(row, column, root);
            const int left = index.data(Qt::DecorationRole).isValid() ? view->iconSize().width() + 24 : 6;
            AddPlace(view->viewport(), view->visualRect(index).adjusted(left, 2, -6, -3),
                     index.data().toString(), u"row"_s);
        }
    }
}

void TextCollector::AddMenu(QMenu* menu)
{
    for (const QAction* action : menu->actions())
        if (action->isEnabled())
            AddPlace(menu, menu->actionGeometry(const_cast<QAction*>(action)).adjusted(10, 3, -16, -3),
                     action->text(), u"entry"_s);
}

void TextCollector::AddTextEdit(QTextEdit* edit)
{
    const QString line = edit->toPlainText().section(QLatin1Char('\n'), 0, 0).left(6);
    const QRect start = edit->cursorRect(QTextCursor(edit->document()->firstBlock()));
    AddPlace(edit->viewport(),
             QRect(start.topLeft(), QSize(edit->fontMetrics().horizontalAdvance(line), start.height()))
                 .adjusted(2, 2, 0, -2),
             line, edit->property("customStyle").toString());
}

void TextCollector::Add(QWidget* widget)
{
    if (!widget->isVisible() || !widget->isEnabled())
        return;
    if (auto* label = qobject_cast<QLabel*>(widget))
        AddPlace(label, label->contentsRect(), label->text());
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        AddPlace(button, button->rect().adjusted(4, 3, -4, -3), button->text());
    else if (auto* lineEdit = qobject_cast<QLineEdit*>(widget))
        AddPlace(lineEdit, LineIn(lineEdit, lineEdit->text()), lineEdit->text());
    else if (auto* comboBox = qobject_cast<QComboBox*>(widget))
        AddPlace(comboBox, LineIn(comboBox, comboBox->currentText()), comboBox->currentText());
    else if (auto* textEdit = qobject_cast<QTextEdit*>(widget))
        AddTextEdit(textEdit);
    else if (auto* header = qobject_cast<QHeaderView*>(widget))
        AddHeader(header);
    else if (auto* view = qobject_cast<QAbstractItemView*>(widget))
        AddItems(view);
    else if (auto* menu = qobject_cast<QMenu*>(widget))
        AddMenu(menu);
}

} // namespace

double Contrast(const QColor& a, const QColor& b)
{
    // A list: of two values std::minmax() would return references to what is gone.
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QList<TextPlace> VisibleTexts(QWidget* root)
{
    TextCollector collector;
    collector.Add(root);
    for (QWidget* widget : root->findChildren<QWidget*>())
        if (widget->window() == root->window())
            collector.Add(widget);
    return collector.places;
}

double DrawnContrast(const TextPlace& place)
{
    QImage image(place.rect.size() * c_enlargement, QImage::Format_RGB32);
    image.setDevicePixelRatio(c_enlargement);
    place.window->render(&image, QPoint(), QRegion(place.rect));

    QHash<QRgb, int> pixels;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            ++pixels[line[x]];
    }
    QRgb ground = 0;
    int most = 0;
    for (auto colour = pixels.cbegin(); colour != pixels.cend(); ++colour) {
        if (colour.value() > most) {
            most = colour.value();
            ground = colour.key();
        }
    }
    // What occurs a few times only is a rounded edge.
    constexpr int c_fewPixels = 8;
    double strongest = 1;
    for (auto colour = pixels.cbegin(); colour != pixels.cend(); ++colour)
        if (colour.value() >= c_fewPixels)
            strongest = std::max(strongest, Contrast(QColor(ground), QColor(colour.key())));
    return strongest;
}

double NecessaryContrast(const TextPlace& place)
{
    return place.isLarge ? 3.0 : 4.5;
}

} // namespace korvel::Test
