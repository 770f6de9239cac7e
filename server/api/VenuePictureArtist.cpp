#include <server/api/VenuePictureArtist.h>

#include <server/api/VenueHallBuilder_p.h>
#include <server/api/VenuePictureOutside_p.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QImageWriter>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace korvel::Demo {

namespace {

/// Everything is drawn on a sheet of this height; its width follows from the picture's proportions.
constexpr qreal c_sheetHeight = 1000.0;

QString ViewText(const QString& view)
{
    const auto text = [](const char* words) {
        return QCoreApplication::translate("korvel::Demo::VenuePictureArtist", words);
    };
    if (view == QLatin1String("from_the_auditorium"))
        return text("from the auditorium");
    if (view == QLatin1String("from_the_stage_into_the_auditorium"))
        return text("from the stage into the auditorium");
    if (view == QLatin1String("isometric"))
        return text("isometric view");
    if (view == QLatin1String("stage_left"))
        return text("stage left");
    if (view == QLatin1String("stage_right"))
        return text("stage right");
    if (view == QLatin1String("view_from_the_inside"))
        return text("the inside");
    return text("the outside");
}

QString Caption(const PictureSubject& subject)
{
    QStringList place;
    for (const QString& part : {subject.city, subject.title, subject.room}) {
        const QString line = part.simplified();
        if (!line.isEmpty() && !place.contains(line))
            place.append(line);
    }
    const QString what = QCoreApplication::translate("korvel::Demo::VenuePictureArtist", "%1 (drawing)")
                             .arg(ViewText(subject.view));
    return place.isEmpty() ? what : place.join(QStringLiteral(", ")) + QStringLiteral(" — ") + what;
}

void PaintHall(QPainter& painter, QSizeF sheet, const VenueStyle& style, const QString& view)
{
    using Plan = VenueHallPlan;
    const bool auditorium = view == QLatin1String("from_the_auditorium");
    const bool isometric = view == QLatin1String("isometric");
    const bool wing = view == QLatin1String("stage_left") || view == QLatin1String("stage_right");
    Scene scene;
    Plan plan(style,
              isometric  ? Plan::Part::CutAway
                  : wing ? Plan::Part::StageHouse
                         : Plan::Part::Everything,
              isometric                ? Plan::Mood::Model
                  : auditorium || wing ? Plan::Mood::Show
                                       : Plan::Mood::HouseLight);
    VenueHallBuilder(scene, plan).Build();
    if (isometric) {
        QLinearGradient paper(0, 0, 0, sheet.height());
        paper.setColorAt(0, QColor(0xE9, 0xEC, 0xF0));
        paper.setColorAt(1, QColor(0xC3, 0xCA, 0xD3));
        painter.fillRect(QRectF(QPointF(), sheet), paper);
        QRadialGradient shadow(QPointF(0, 0), 1.0);
        shadow.setColorAt(0.0, QColor(30, 36, 48, 150));
        shadow.setColorAt(0.55, QColor(30, 36, 48, 95));
        shadow.setColorAt(1.0, QColor(30, 36, 48, 0));
        painter.save();
        painter.translate(sheet.width() * 0.5, sheet.height() * 0.58);
        painter.scale(sheet.width() * 0.46, sheet.height() * 0.40);
        painter.setPen(Qt::NoPen);
        painter.setBrush(shadow);
        painter.drawEllipse(QPointF(0, 0), 1.0, 1.0);
        painter.restore();
    } else {
        painter.fillRect(QRectF(QPointF(), sheet), ToColor(style.wallDeep * 0.12F));
    }
    Camera camera = plan.FromStage();
    if (isometric)
        camera = plan.FromAbove();
    else if (auditorium)
        camera = plan.FromAuditorium();
    else if (wing)
        camera = plan.FromWing(view == QLatin1String("stage_left"));
    else if (view == QLatin1String("view_from_the_inside"))
        camera = plan.FromCorner();
    scene.Render(painter, camera, sheet);
}

/// Darkens the corners a little, as a lens does.
void PaintVignette(QPainter& painter, QSizeF sheet, int strength)
{
    QRadialGradient gradient(QPointF(sheet.width() / 2, sheet.height() * 0.48), sheet.width() * 0.66);
    gradient.setColorAt(0.0, QColor(0, 0, 0, 0));
    gradient.setColorAt(0.55, QColor(0, 0, 0, 0));
    gradient.setColorAt(1.0, QColor(0, 0, 0, strength));
    painter.fillRect(QRectF(QPointF(), sheet), gradient);
}

void PaintCaption(QPainter& painter, QSizeF sheet, const PictureSubject& subject, const VenueStyle& style)
{
    const qreal height = 46.0;
    // At the top: viewers put captions of their own over the bottom edge.
    const QRectF strip(0, 0, sheet.width(), height);
    QLinearGradient fade(0, strip.bottom(), 0, strip.bottom() + 30);
    fade.setColorAt(0, QColor(10, 12, 16, 110));
    fade.setColorAt(1, QColor(10, 12, 16, 0));
    painter.fillRect(QRectF(0, strip.bottom(), sheet.width(), 30), fade);
    painter.fillRect(strip, QColor(12, 14, 18, 205));
    painter.fillRect(QRectF(0, strip.bottom() - 1.6, sheet.width(), 1.6), ToColor(style.trim, 0.85F));
    painter.fillRect(QRectF(24, strip.center().y() - 5, 10, 10), ToColor(style.seat * 1.2F));

    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(22);
    const QRectF room = strip.adjusted(48, 0, -24, 0);
    const QString line = QFontMetricsF(font).elidedText(Caption(subject), Qt::ElideMiddle, room.width());
    painter.setFont(font);
    painter.setPen(QColor(0xEC, 0xEA, 0xE4));
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, line);
}

} // namespace

QImage VenuePictureArtist::Draw(const PictureSubject& subject, QSize size)
{
    if (size.isEmpty())
        return {};
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    image.fill(Qt::black);
    const VenueStyle style = ChooseStyle(subject);
    const qreal scale = size.height() / c_sheetHeight;
    const QSizeF sheet(size.width() / scale, c_sheetHeight);

    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    const QString& view = subject.view;
    static const QStringList c_hallViews{
        QStringLiteral("from_the_auditorium"), QStringLiteral("from_the_stage_into_the_auditorium"),
        QStringLiteral("isometric"),           QStringLiteral("stage_left"),
        QStringLiteral("stage_right"),         QStringLiteral("view_from_the_inside")};
    if (c_hallViews.contains(view)) {
        PaintHall(painter, sheet, style, view);
        PaintVignette(painter, sheet, view == QLatin1String("isometric") ? 40 : 120);
    } else {
        PaintOutside(painter, sheet, style);
        PaintVignette(painter, sheet, 70);
    }
    PaintCaption(painter, sheet, subject, style);
    return image;
}

QByteArray VenuePictureArtist::DrawJpeg(const PictureSubject& subject, QSize size, int quality)
{
    const QImage image = Draw(subject, size);
    if (image.isNull())
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setQuality(std::clamp(quality, 0, 100));
    return writer.write(image) ? bytes : QByteArray();
}

} // namespace korvel::Demo
