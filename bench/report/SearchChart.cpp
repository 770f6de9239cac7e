#include <bench/report/SearchChart.h>

#include <QPainter>

#include <array>

using namespace Qt::StringLiterals;

namespace korvel::Bench {

namespace {

struct Phase
{
    const char* counter;
    const char* label;
    QRgb color;
};

constexpr std::array c_phases{
    Phase{"tlsMs", "Connection and TLS", 0xff5b6b8c},
    Phase{"serverMs", "Waiting for the server", 0xffb8c0cc},
    Phase{"networkMs", "Transfer", 0xff8fb3d9},
    Phase{"recordsMs", "Records", 0xffd9734e},
    Phase{"modelMs", "Model", 0xff6aa57c},
    Phase{"viewMs", "Table painted", 0xff2f7d6d},
};
constexpr std::array c_sizes{100, 1000, 10000};

constexpr QSize c_size(1200, 520);
constexpr int c_left = 170;
constexpr int c_right = 130;
constexpr int c_top = 84;
constexpr int c_barHeight = 72;
constexpr int c_barDistance = 112;
constexpr int c_legendTop = c_top + 3 * c_barDistance + 8;
/// Phases narrower than this have no room for their number.
constexpr double c_labelWidth = 44;

constexpr QRgb c_ink = 0xff22262c;
constexpr QRgb c_faint = 0xff6b7280;

QString Milliseconds(double milliseconds)
{
    return QString::number(milliseconds, 'f', milliseconds < 10 ? 1 : 0);
}

void SetFontSize(QPainter& painter, int pixels, bool bold = false)
{
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(pixels);
    font.setBold(bold);
    painter.setFont(font);
}

double CounterOf(const Results& results, int venueCount, const char* counter)
{
    return results.Counter(u"SearchPhases/%1"_s.arg(venueCount), QLatin1String(counter)).value_or(0);
}

void DrawBar(QPainter& painter, const Results& results, int venueCount, int top)
{
    double total = 0;
    for (const Phase& phase : c_phases)
        total += CounterOf(results, venueCount, phase.counter);
    if (total <= 0)
        return;

    SetFontSize(painter, 17, true);
    painter.setPen(QColor(c_ink));
    painter.drawText(QRect(0, top, c_left - 20, c_barHeight), Qt::AlignRight | Qt::AlignVCenter,
                     u"%L1 venues"_s.arg(venueCount));
    painter.drawText(QRect(c_size.width() - c_right + 16, top, c_right - 16, c_barHeight),
                     Qt::AlignLeft | Qt::AlignVCenter, Milliseconds(total) + u" ms"_s);

    SetFontSize(painter, 14);
    const double scale = (c_size.width() - c_left - c_right) / total;
    double left = c_left;
    for (const Phase& phase : c_phases) {
        const double duration = CounterOf(results, venueCount, phase.counter);
        const QRectF area(left, top, duration * scale, c_barHeight);
        painter.fillRect(area, QColor(phase.color));
        if (area.width() >= c_labelWidth) {
            const bool isLight = qGray(phase.color) > 140;
            painter.setPen(isLight ? QColor(c_ink) : QColor(Qt::white));
            painter.drawText(area, Qt::AlignCenter, Milliseconds(duration));
        }
        left = area.right();
    }
}

void DrawLegend(QPainter& painter)
{
    constexpr int c_columns = 4;
    constexpr int c_columnWidth = 250;
    constexpr int c_lineHeight = 28;
    constexpr int c_swatch = 16;
    SetFontSize(painter, 15);
    for (std::size_t i = 0; i < c_phases.size(); ++i) {
        const int left = c_left + static_cast<int>(i % c_columns) * c_columnWidth;
        const int top = c_legendTop + static_cast<int>(i / c_columns) * c_lineHeight;
        painter.fillRect(left, top, c_swatch, c_swatch, QColor(c_phases.at(i).color));
        painter.setPen(QColor(c_ink));
        painter.drawText(QRect(left + c_swatch + 8, top - 2, c_columnWidth - c_swatch - 8, c_swatch + 4),
                         Qt::AlignLeft | Qt::AlignVCenter, QLatin1String(c_phases.at(i).label));
    }
}

} // namespace

QImage DrawSearchChart(const Results& results)
{
    QImage image(c_size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(QColor(c_ink));
    SetFontSize(painter, 22, true);
    painter.drawText(QRect(24, 14, c_size.width() - 48, 34), Qt::AlignLeft | Qt::AlignVCenter,
                     u"Where the time of a search goes"_s);
    painter.setPen(QColor(c_faint));
    SetFontSize(painter, 14);
    painter.drawText(QRect(24, 46, c_size.width() - 48, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     u"Milliseconds from the request to the painted table, new connection, local "
                     "server, median; each bar is scaled to its own total."_s);
    int top = c_top;
    for (const int venueCount : c_sizes) {
        DrawBar(painter, results, venueCount, top);
        top += c_barDistance;
    }
    DrawLegend(painter);
    return image;
}

} // namespace korvel::Bench
