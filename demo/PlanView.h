#pragma once

#include <demo/Theme.h>
#include <demo/VenueModelFile.h>

#include <QTransform>
#include <QWidget>

#include <optional>

namespace korvel::Demo {

/// The stage plan: the imported venue from above, to scale, or an invitation to import one.
class PlanView : public QWidget
{
    Q_OBJECT

public:
    /// \p theme must outlive the view or be replaced by SetTheme() before it goes.
    explicit PlanView(const Theme& theme, QWidget* parent = nullptr);

    void SetTheme(const Theme& theme);
    /// Replaces the venue that is shown.
    void SetVenue(const VenueModel& venue);
    bool HasVenue() const
    {
        return m_venue.has_value();
    }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void DrawEmptyState(QPainter& painter) const;
    void DrawGrid(QPainter& painter, const QTransform& toView) const;
    void DrawHall(QPainter& painter, const QTransform& toView) const;
    void DrawRigging(QPainter& painter, const QTransform& toView) const;
    void DrawTitle(QPainter& painter) const;
    void DrawScaleBar(QPainter& painter, double pixelsPerMetre) const;
    void DrawLegend(QPainter& painter) const;

    QTransform ModelToView() const;
    QColor Colour(const char* name) const;

    Theme m_theme;
    std::optional<VenueModel> m_venue;
};

} // namespace korvel::Demo
