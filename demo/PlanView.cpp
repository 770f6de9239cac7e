#include <demo/PlanView.h>

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel::Demo {

namespace {

constexpr int c_margin = 26;
constexpr int c_titleHeight = 66;
constexpr int c_footerHeight = 52;

QFont FontOfSize(const QWidget* widget, int pixels, QFont::Weight weight = QFont::Normal)
{
    QFont font = widget->font();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

/// The shortest of 1, 2, 5, 10 ... metres that is at least \p pixels wide.
double RoundStep(double pixelsPerMetre, double pixels)
{
    double step = 1;
    for (const double factor : {2.0, 2.5, 2.0}) {
        if (step * pixelsPerMetre >= pixels)
            return step;
        step *= factor;
    }
    return step * pixelsPerMetre >= pixels ? step : 10 * RoundStep(pixelsPerMetre * 10, pixels);
}

/// The smallest distance between two rigging points; it decides whether there is room for their loads. Zero
/// where there are more than anyone could read.
double SmallestDistance(const QList<RiggingPoint>& points)
{
    constexpr qsizetype c_readable = 500;
    if (points.size() > c_readable)
        return 0;
    double smallest = std::numeric_limits<double>::max();
    for (qsizetype i = 0; i < points.size(); ++i) {
        for (qsizetype j = i + 1; j < points.size(); ++j) {
            const QPointF distance = points[i].position - points[j].position;
            smallest = std::min(smallest, std::hypot(distance.x(), distance.y()));
        }
    }
    return smallest;
}

} // namespace

PlanView::PlanView(const Theme& theme, QWidget* parent)
    : QWidget(parent)
    , m_theme(theme)
{
    setMinimumSize(480, 360);
}

void PlanView::SetTheme(const Theme& theme)
{
    m_theme = theme;
    update();
}

void PlanView::SetVenue(const VenueModel& venue)
{
    m_venue = venue;
    update();
}

QSize PlanView::sizeHint() const
{
    return {1000, 640};
}

void PlanView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Colour("plan-paper"));
    const QTransform toView = ModelToView();
    DrawGrid(painter, toView);
    if (!m_venue) {
        DrawEmptyState(painter);
        return;
    }
    DrawHall(painter, toView);
    DrawRigging(painter, toView);
    DrawTitle(painter);
    DrawScaleBar(painter, toView.m11());
    DrawLegend(painter);
}

void PlanView::DrawEmptyState(QPainter& painter) const
{
    // The dashed outline of a stage with its three trusses stands for the plan that is still missing.
    const QPointF centre = QRectF(rect()).center() - QPointF(0, 60);
    painter.setPen(QPen(Colour("plan-seats-edge"), 2, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(centre - QPointF(90, 55), QSizeF(180, 110)), 6, 6);
    painter.drawRect(QRectF(centre - QPointF(50, 40), QSizeF(100, 36)));
    for (const int y : {12, 26, 40})
        painter.drawLine(centre + QPointF(-60, y), centre + QPointF(60, y));

    const QRectF text(0, centre.y() + 76, width(), 80);
    painter.setPen(Colour("plan-text"));
    painter.setFont(FontOfSize(this, 20, QFont::DemiBold));
    painter.drawText(text, Qt::AlignHCenter | Qt::AlignTop, tr("No venue in this plan yet"));
    painter.setPen(Colour("plan-text-muted"));
    painter.setFont(FontOfSize(this, 14));
    painter.drawText(text.translated(0, 34), Qt::AlignHCenter | Qt::AlignTop,
                     tr("Open the venue database, choose a hall and import its model."));
}

void PlanView::DrawGrid(QPainter& painter, const QTransform& toView) const
{
    const double step = RoundStep(toView.m11(), 14);
    const QRectF area = toView.inverted().mapRect(QRectF(rect()));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const auto pen
        = [this](int index) { return QPen(Colour(index % 5 == 0 ? "plan-grid-major" : "plan-grid"), 1); };
    for (int i = int(std::floor(area.left() / step)); i * step <= area.right(); ++i) {
        const double x = toView.map(QPointF(i * step, 0)).x();
        painter.setPen(pen(i));
        painter.drawLine(QPointF(x, 0), QPointF(x, height()));
    }
    for (int i = int(std::floor(area.top() / step)); i * step <= area.bottom(); ++i) {
        const double y = toView.map(QPointF(0, i * step)).y();
        painter.setPen(pen(i));
        painter.drawLine(QPointF(0, y), QPointF(width(), y));
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

void PlanView::DrawHall(QPainter& painter, const QTransform& toView) const
{
    QColor floor = Colour("plan-floor");
    floor.setAlphaF(0.7F);
    painter.setPen(QPen(Colour("plan-outline"), 2.5));
    painter.setBrush(floor);
    painter.drawPolygon(toView.map(m_venue->outline));

    painter.setPen(QPen(Colour("plan-seats-edge"), 1));
    painter.setBrush(Colour("plan-seats"));
    for (const QPolygonF& block : m_venue->seats)
        painter.drawPolygon(toView.map(block));

    const QPolygonF stage = toView.map(m_venue->stage);
    painter.setPen(QPen(Colour("plan-stage-edge"), 2));
    painter.setBrush(Colour("plan-stage"));
    painter.drawPolygon(stage);
}

void PlanView::DrawRigging(QPainter& painter, const QTransform& toView) const
{
    constexpr double c_radius = 3.5;
    constexpr double c_roomForLoad = 36;
    const bool loadsFit = SmallestDistance(m_venue->riggingPoints) * toView.m11() >= c_roomForLoad;
    const QColor colour = Colour("plan-rigging");
    QColor ground = Colour("plan-paper");
    ground.setAlphaF(0.75F);
    painter.setFont(FontOfSize(this, 11));
    for (const RiggingPoint& point : m_venue->riggingPoints) {
        const QPointF centre = toView.map(point.position);
        painter.setPen(QPen(colour, 1.5));
        painter.setBrush(Colour("plan-paper"));
        painter.drawEllipse(centre, c_radius, c_radius);
        painter.drawLine(centre - QPointF(c_radius + 3, 0), centre + QPointF(c_radius + 3, 0));
        painter.drawLine(centre - QPointF(0, c_radius + 3), centre + QPointF(0, c_radius + 3));
        if (!loadsFit || point.load == 0)
            continue;
        // On a ground of its own: loads stand across edges of the stage and of seats.
        const QString load = QString::number(point.load);
        const QRectF text(centre + QPointF(-30, c_radius + 4), QSizeF(60, 13));
        const double slack = text.width() - painter.fontMetrics().horizontalAdvance(load) - 4;
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(text.adjusted(slack / 2, 0, -slack / 2, 0), 3, 3);
        painter.setPen(Colour("plan-text"));
        painter.drawText(text, Qt::AlignCenter, load);
    }
}

void PlanView::DrawTitle(QPainter& painter) const
{
    const QRectF hall = m_venue->outline.boundingRect();
    double load = 0;
    for (const RiggingPoint& point : m_venue->riggingPoints)
        load += point.load;
    const QLocale locale;
    const QString facts
        = tr("Hall %1 × %2 m   ·   %n rigging points, %3 t in all", nullptr,
             int(m_venue->riggingPoints.size()))
              .arg(locale.toString(hall.width(), 'f', 1), locale.toString(hall.height(), 'f', 1),
                   locale.toString(load / 1000, 'f', 1));

    QColor paper = Colour("plan-paper");
    paper.setAlphaF(0.88F);
    painter.fillRect(QRectF(0, 0, width(), c_titleHeight), paper);
    const QRectF line(c_margin, 12, width() - 2 * c_margin, 26);
    painter.setPen(Colour("plan-text"));
    const QFont titleFont = FontOfSize(this, 19, QFont::DemiBold);
    painter.setFont(titleFont);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(titleFont).elidedText(m_venue->name, Qt::ElideRight, int(line.width())));
    painter.setPen(Colour("plan-text-muted"));
    painter.setFont(FontOfSize(this, 13));
    painter.drawText(line.translated(0, 25), Qt::AlignLeft | Qt::AlignVCenter, facts);
}

void PlanView::DrawScaleBar(QPainter& painter, double pixelsPerMetre) const
{
    const double step = RoundStep(pixelsPerMetre, 90);
    const double length = step * pixelsPerMetre;
    const QPointF start(c_margin, height() - 20);
    painter.setPen(QPen(Colour("plan-text"), 1.5));
    painter.drawLine(start, start + QPointF(length, 0));
    for (const double part : {0.0, 0.5, 1.0})
        painter.drawLine(start + QPointF(part * length, -5), start + QPointF(part * length, 0));
    painter.setFont(FontOfSize(this, 12));
    painter.drawText(QRectF(start + QPointF(0, -24), QSizeF(length, 16)), Qt::AlignHCenter | Qt::AlignVCenter,
                     tr("%1 m").arg(QLocale().toString(step)));
}

void PlanView::DrawLegend(QPainter& painter) const
{
    const QFont font = FontOfSize(this, 12);
    const QFontMetrics metrics(font);
    painter.setFont(font);
    const double y = height() - 24;
    double right = width() - c_margin;
    // From right to left, so that the row ends at the margin whatever the texts are.
    const auto draw = [&](const QString& text, auto&& symbol) {
        right -= metrics.horizontalAdvance(text);
        painter.setPen(Colour("plan-text-muted"));
        painter.drawText(QRectF(right, y - 8, width(), 16), Qt::AlignLeft | Qt::AlignVCenter, text);
        right -= 22;
        symbol(QPointF(right + 8, y));
        right -= 16;
    };
    const auto box = [&](const char* edge, const char* fill) {
        return [&painter, edgeColour = Colour(edge), fillColour = Colour(fill)](QPointF centre) {
            painter.setPen(QPen(edgeColour, 1.5));
            painter.setBrush(fillColour);
            painter.drawRect(QRectF(centre - QPointF(6, 5), QSizeF(12, 10)));
        };
    };
    draw(tr("Rigging point, load in kg"), [&](QPointF centre) {
        painter.setPen(QPen(Colour("plan-rigging"), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, 3.5, 3.5);
        painter.drawLine(centre - QPointF(6.5, 0), centre + QPointF(6.5, 0));
        painter.drawLine(centre - QPointF(0, 6.5), centre + QPointF(0, 6.5));
    });
    if (!m_venue->seats.isEmpty())
        draw(tr("Seats"), box("plan-seats-edge", "plan-seats"));
    draw(tr("Stage"), box("plan-stage-edge", "plan-stage"));
}

QTransform PlanView::ModelToView() const
{
    const QRectF hall = m_venue ? m_venue->outline.boundingRect() : QRectF(-20, -15, 40, 30);
    const QRectF room = QRectF(rect()).adjusted(c_margin, m_venue ? c_titleHeight : c_margin, -c_margin,
                                                m_venue ? -c_footerHeight : -c_margin);
    // A hall can be as flat as a line, but not smaller than a metre.
    const double scale
        = std::min(room.width() / std::max(hall.width(), 1.0), room.height() / std::max(hall.height(), 1.0));
    QTransform transform;
    transform.translate(room.center().x(), room.center().y());
    transform.scale(scale, scale);
    transform.translate(-hall.center().x(), -hall.center().y());
    return transform;
}

QColor PlanView::Colour(const char* name) const
{
    return m_theme.Colour(QLatin1String(name));
}

} // namespace korvel::Demo
