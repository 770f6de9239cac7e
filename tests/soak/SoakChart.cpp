#include <tests/soak/SoakChart.h>

#include <QFont>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace korvel::Soak {

namespace {

constexpr QSize c_panel(620, 300);
constexpr QMargins c_margins(76, 56, 24, 48);
constexpr int c_columns = 2;
const QColor c_ink(40, 44, 52);
const QColor c_grid(222, 226, 232);
const QColor c_heapColor(28, 105, 180);

/// A round number of which four to ten cover \p span.
double Tick(double span)
{
    double tick = 1.0;
    while (tick * 10.0 < span)
        tick *= 10.0;
    for (const double factor : {0.1, 0.2, 0.5})
        if (span / (tick * factor) <= 8.0)
            return tick * factor;
    return tick;
}

void DrawPanel(QPainter& painter, const QRect& area, const QList<Sample>& phase)
{
    const QRect plot = area.marginsRemoved(c_margins);
    const Sample& first = phase.constFirst();
    const Sample& last = phase.constLast();
    constexpr double c_kilobyte = 1024.0;

    double low = 0.0;
    double high = 100.0;
    for (const Sample& sample : phase) {
        low = std::min(low, double(sample.heap - first.heap) / c_kilobyte);
        high = std::max(high, double(sample.heap - first.heap) / c_kilobyte);
    }
    const double tick = Tick(high - low);
    low = std::floor(low / tick) * tick;
    high = std::ceil(high / tick) * tick;
    const auto x = [&](double round) { return plot.left() + plot.width() * round / double(last.round); };
    const auto y
        = [&](double kilobytes) { return plot.bottom() - plot.height() * (kilobytes - low) / (high - low); };

    painter.setPen(c_ink);
    QFont font = painter.font();
    font.setPixelSize(17);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QPointF(area.left() + 16, area.top() + 24), first.phase);
    font.setPixelSize(12);
    font.setBold(false);
    painter.setFont(font);
    painter.drawText(QPointF(area.left() + 16, area.top() + 43),
                     u"heap %1 KB, descriptors %2 after %3 rounds"_s
                         .arg(qRound(double(last.heap - first.heap) / c_kilobyte))
                         .arg(last.descriptors - first.descriptors)
                         .arg(last.round));

    for (double value = low; value <= high + tick / 2; value += tick) {
        painter.setPen(c_grid);
        painter.drawLine(QPointF(plot.left(), y(value)), QPointF(plot.right(), y(value)));
        painter.setPen(c_ink);
        painter.drawText(QRectF(area.left(), y(value) - 9, c_margins.left() - 8, 18),
                         Qt::AlignRight | Qt::AlignVCenter, u"%1 KB"_s.arg(value));
    }
    for (const double part : {0.0, 0.5, 1.0}) {
        const double round = part * double(last.round);
        painter.drawText(QRectF(x(round) - 50, plot.bottom() + 6, 100, 18), Qt::AlignHCenter,
                         QString::number(round));
    }

    QPainterPath path(QPointF(x(0), y(0)));
    for (const Sample& sample : phase)
        path.lineTo(x(double(sample.round)), y(double(sample.heap - first.heap) / c_kilobyte));
    painter.setPen(QPen(c_heapColor, 2));
    painter.drawPath(path);
}

} // namespace

QImage DrawChart(const QList<Sample>& samples)
{
    const QList<QList<Sample>> phases = ByPhase(samples);
    const int rows = (int(phases.size()) + c_columns - 1) / c_columns;
    QImage image(c_panel.width() * c_columns, c_panel.height() * rows, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int index = 0; index < int(phases.size()); ++index) {
        const QPoint corner((index % c_columns) * c_panel.width(), (index / c_columns) * c_panel.height());
        DrawPanel(painter, QRect(corner, c_panel), phases.at(index));
    }
    return image;
}

} // namespace korvel::Soak
