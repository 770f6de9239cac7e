#pragma once

#include <QColor>
#include <QPointF>
#include <QSizeF>
#include <QVarLengthArray>
#include <QVector3D>

#include <vector>

class QPainter;

namespace korvel::Demo {

/// A colour as red, green and blue from 0 to 1, so that light can be summed and multiplied.
using Rgb = QVector3D;

Rgb RgbFromHex(QRgb hex);
QColor ToColor(const Rgb& rgb, float alpha = 1.0F);
Rgb Mix(const Rgb& from, const Rgb& to, float share);

/// The numbers from \p first to \p last, or the last one before it, in steps of \p step, which may be
/// negative.
std::vector<float> Steps(float first, float last, float step);

/// Numbers that look random and are the same for the same seed, on every platform.
class Dice
{
public:
    explicit Dice(quint64 seed);
    /// A number from \p low (included) to \p high (excluded).
    float Between(float low, float high);
    /// A whole number from 0 to \p count - 1.
    int Below(int count);

private:
    quint64 m_state = 0;
};

/// Where the picture is taken from. Metres; x to the right of the audience, y up, z away from the stage edge.
struct Camera
{
    QVector3D eye;
    QVector3D target;
    float zoom = 1.0F; ///< focal length in picture heights; with \a parallel the picture heights per metre
    bool parallel = false; ///< axonometric instead of perspective
    float horizonShift = 0.0F; ///< moves the picture up by this share of its height
};

/// A small three-dimensional scene: coloured faces, point lights, beams and glows, painted back to front.
class Scene
{
public:
    using Corners = QVarLengthArray<QVector3D, 8>;

    struct Light
    {
        QVector3D position;
        Rgb colour;
        float range = 10.0F; ///< metres after which half of it is left
    };

    Rgb ambientAbove;
    Rgb ambientBelow;
    Rgb fog;
    float fogDistance = 0.0F; ///< metres after which the fog colour wins; 0 for none

    void AddLight(const QVector3D& position, const Rgb& colour, float range);
    /// Adds a flat face; \p emission is the share of its colour that shows without any light.
    void AddFace(const Corners& corners, const Rgb& colour, float emission = 0.0F, int layer = 1);
    /// Adds a four-cornered face in \p columns x \p rows parts, which sort and shade better than a large one.
    void AddPanel(const QVector3D& a, const QVector3D& b, const QVector3D& c, const QVector3D& d,
                  const Rgb& colour, int columns, int rows, float emission = 0.0F, int layer = 1);
    void AddBox(const QVector3D& low, const QVector3D& high, const Rgb& colour, float emission = 0.0F,
                int layer = 1);
    /// Adds an upright prism around \p foot that passes for a cylinder.
    void AddColumn(const QVector3D& foot, float radius, float height, const Rgb& colour, int sides = 10,
                   float taper = 1.0F, int layer = 1);
    /// A standing person in silhouette; \p across is the direction of the shoulders, of length 1.
    void AddFigure(const QVector3D& foot, const QVector3D& across, float height, const Rgb& colour);
    /// A cone of light through haze.
    void AddBeam(const QVector3D& from, const QVector3D& to, float radius, const Rgb& colour, float strength);
    /// A soft round shine, \p radius in metres.
    void AddGlow(const QVector3D& centre, float radius, const Rgb& colour, float strength, int layer = 1);

    /// Paints the scene into a picture of \p size. A \p mirrored scene is turned upside down at y = 0.
    void Render(QPainter& painter, const Camera& camera, QSizeF size, bool mirrored = false) const;

private:
    struct Face
    {
        Corners corners;
        Rgb colour;
        float emission = 0.0F;
        int layer = 1;
    };
    struct Beam
    {
        QVector3D from;
        QVector3D to;
        float radius = 1.0F;
        Rgb colour;
        float strength = 0.0F;
    };
    struct Glow
    {
        QVector3D centre;
        float radius = 1.0F;
        Rgb colour;
        float strength = 0.0F;
        int layer = 1;
    };
    /// One thing to paint; exactly one of the pointers is set.
    struct Item
    {
        int layer = 1;
        float depth = 0.0F;
        const Face* face = nullptr;
        const Beam* beam = nullptr;
        const Glow* glow = nullptr;
    };

    std::vector<Item> InPaintingOrder(const class Projection& projection, bool withLight) const;
    Rgb Shade(const Face& face, const QVector3D& point, const QVector3D& normal, float distance) const;
    void PaintFace(QPainter& painter, const Face& face, const class Projection& projection) const;
    void PaintBeam(QPainter& painter, const Beam& beam, const class Projection& projection) const;
    void PaintGlow(QPainter& painter, const Glow& glow, const class Projection& projection) const;

    std::vector<Face> m_faces;
    std::vector<Light> m_lights;
    std::vector<Beam> m_beams;
    std::vector<Glow> m_glows;
};

/// Turns points of a scene into points of a picture.
class Projection
{
public:
    Projection(const Camera& camera, QSizeF size, bool mirrored = false);

    QVector3D ToEye(const QVector3D& point) const;
    /// \p seen is a point in eye space at least c_near in front of the camera.
    QPointF ToPicture(const QVector3D& seen) const;
    /// Picture units per metre at the depth of \p seen.
    float Scale(const QVector3D& seen) const;
    bool IsParallel() const;
    const QVector3D& Eye() const;

    static constexpr float c_near = 0.35F;

private:
    Camera m_camera;
    QSizeF m_size;
    bool m_mirrored = false;
    QVector3D m_forward;
    QVector3D m_right;
    QVector3D m_up;
};

} // namespace korvel::Demo
