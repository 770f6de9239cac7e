#pragma once

#include <QColor>
#include <QList>
#include <QRect>
#include <QString>

class QWidget;

namespace korvel::Test {

/// How far two colours stand apart, from 1 to 21, as the web's accessibility guidelines define it.
double Contrast(const QColor& a, const QColor& b);

/// A text that a window shows.
struct TextPlace
{
    /// Says in a message which text it is.
    QString name;
    QWidget* window = nullptr;
    /// In the window's coordinates; nothing but the text and its ground is inside.
    QRect rect;
    /// At least 24 pixels high, or 18.66 and bold: less contrast is enough.
    bool isLarge = false;
};

/// The texts that \p root and its visible children in the same window show: labels, buttons, fields, headers,
/// rows, menu entries. Disabled ones are left out: their faint look says that they do nothing.
QList<TextPlace> VisibleTexts(QWidget* root);

/// The contrast of what is really drawn there: the ground is the most frequent colour, the text the one that
/// differs most from it.
double DrawnContrast(const TextPlace& place);

/// 4.5, or 3 for a large text.
double NecessaryContrast(const TextPlace& place);

} // namespace korvel::Test
