// SPDX-License-Identifier: GPL-3.0-or-later
#include "Covers.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <map>
#include <numbers>
#include <stdexcept>

namespace trackwise::demo {

namespace {

constexpr int side = 600;
constexpr int jpegQuality = 88;
constexpr double tau = 2 * std::numbers::pi;

void fill(QPainter &p, QRgb top, QRgb bottom)
{
    QLinearGradient ground(0, 0, 0, side);
    ground.setColorAt(0, QColor(top));
    ground.setColorAt(1, QColor(bottom));
    p.fillRect(0, 0, side, side, ground);
}

void glow(QPainter &p, QPointF centre, double radius, QColor colour)
{
    QRadialGradient light(centre, radius);
    light.setColorAt(0, colour);
    colour.setAlpha(0);
    light.setColorAt(1, colour);
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawEllipse(centre, radius, radius);
}

// Lamps over dark water, and their reflections.
void harbour(QPainter &p)
{
    fill(p, 0xff1d2a4d, 0xff0b1020);
    for (int i = 0; i < 7; ++i) {
        const double x = 60 + 80 * i;
        const double y = 250 + 18 * std::sin(i * 1.7);
        const QColor colour = i == 2   ? QColor(QRgb(0xffe5484d))
                              : i == 4 ? QColor(QRgb(0xff46c28e))
                                       : QColor(QRgb(0xffffd27d));
        glow(p, {x, y}, 70, colour);
        p.setBrush(colour);
        p.drawEllipse(QPointF(x, y), 7, 7);
        for (int k = 0; k < 9; ++k) {
            QColor faint = colour;
            faint.setAlpha(150 - 15 * k);
            p.fillRect(QRectF(x - 20 + 5 * std::sin(k * 2.1 + i), 350 + 26 * k, 40 - 2 * k, 5), faint);
        }
    }
    p.fillRect(QRectF(0, 318, side, 3), QColor(QRgb(0xff3c4a72)));
}

// Three kites on long strings.
void kites(QPainter &p)
{
    fill(p, 0xfff7e9cf, 0xffb9d7d2);
    const struct
    {
        QPointF at;
        double size;
        QRgb colour;
    } all[] = {{{190, 170}, 95, 0xffd9583f}, {{400, 120}, 65, 0xff2f6f73}, {{430, 310}, 50, 0xfff0a830}};
    for (const auto &kite : all) {
        QPainterPath string(kite.at + QPointF(0, kite.size));
        string.cubicTo(kite.at + QPointF(60, 160), {240, 420}, {300, 600});
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(QRgb(0x80404040)), 2));
        p.drawPath(string);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(kite.colour));
        p.drawPolygon(QPolygonF{kite.at + QPointF(0, -kite.size), kite.at + QPointF(kite.size * 0.7, 0),
                                kite.at + QPointF(0, kite.size), kite.at + QPointF(-kite.size * 0.7, 0)});
        p.setBrush(QColor(255, 255, 255, 60));
        p.drawPolygon(QPolygonF{kite.at + QPointF(0, -kite.size), kite.at + QPointF(0, kite.size),
                                kite.at + QPointF(-kite.size * 0.7, 0)});
    }
}

// A six-armed crystal with branches.
void frost(QPainter &p)
{
    fill(p, 0xffdfeaf5, 0xff7fa3c7);
    p.translate(side / 2.0, side / 2.0);
    p.setPen(QPen(Qt::white, 7, Qt::SolidLine, Qt::RoundCap));
    for (int arm = 0; arm < 6; ++arm) {
        p.drawLine(QPointF(0, 0), QPointF(0, -235));
        for (const double at : {80.0, 135.0, 185.0}) {
            const double reach = 0.42 * (260 - at);
            p.drawLine(QPointF(0, -at), QPointF(reach, -at - 0.6 * reach));
            p.drawLine(QPointF(0, -at), QPointF(-reach, -at - 0.6 * reach));
        }
        p.rotate(60);
    }
}

// Steps going up, slanting rain, one umbrella.
void rain(QPainter &p)
{
    fill(p, 0xff4d5f6e, 0xff27323b);
    p.setPen(Qt::NoPen);
    for (int step = 0; step < 8; ++step) {
        p.setBrush(QColor::fromHsv(205, 50, 60 + 14 * step));
        p.drawRect(QRectF(step * 80, 560 - step * 48, side, side));
    }
    p.setPen(QPen(QColor(220, 235, 245, 110), 2));
    for (int drop = 0; drop < 90; ++drop) {
        const double x = std::fmod(drop * 97.0, side + 60);
        const double y = std::fmod(drop * 151.0, side);
        p.drawLine(QPointF(x, y), QPointF(x - 12, y + 34));
    }
    p.setPen(QPen(QColor(QRgb(0xff222222)), 5));
    p.drawLine(QPointF(300, 250), QPointF(300, 376));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(QRgb(0xffe0475b)));
    p.drawChord(QRectF(205, 180, 190, 150), 0, 180 * 16);
}

// A round window, a rail and wires.
void tram(QPainter &p)
{
    fill(p, 0xff3a2f2a, 0xff8c4a2f);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(QRgb(0xfff2e3c2)));
    p.drawRoundedRect(QRectF(110, 190, 380, 260), 46, 46);
    p.setBrush(QColor(QRgb(0xffa83c32)));
    p.drawRoundedRect(QRectF(110, 330, 380, 120), 30, 30);
    p.setBrush(QColor(QRgb(0xff5b7f91)));
    for (int window = 0; window < 4; ++window)
        p.drawRoundedRect(QRectF(140 + 85 * window, 225, 65, 80), 12, 12);
    p.setBrush(QColor(QRgb(0xff201a17)));
    p.drawEllipse(QPointF(190, 455), 30, 30);
    p.drawEllipse(QPointF(410, 455), 30, 30);
    p.setPen(QPen(QColor(QRgb(0xff201a17)), 5));
    p.drawLine(QPointF(0, 488), QPointF(side, 488));
    p.drawLine(QPointF(0, 90), QPointF(side, 70));
    p.drawPolyline(QPolygonF{{300, 190}, {260, 130}, {320, 80}});
}

// Traces of a circuit board.
void solder(QPainter &p)
{
    fill(p, 0xff0f4a3a, 0xff0a2f28);
    for (int trace = 0; trace < 9; ++trace) {
        const double x = 50 + 62 * trace;
        const double bend = 140 + 45 * ((trace * 5) % 8);
        const double across = trace % 2 == 0 ? 62 : -40;
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(QRgb(0xffd88a4a)), 12, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPolyline(
            QPolygonF{{x, 0}, {x, bend}, {x + across, bend + std::abs(across)}, {x + across, 560}});
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(QRgb(0xffe9d9b8)));
        p.drawEllipse(QPointF(x + across, 560), 17, 17);
        p.setBrush(QColor(QRgb(0xff0a2f28)));
        p.drawEllipse(QPointF(x + across, 560), 7, 7);
    }
}

// A dial without one of its hours; the hands have stopped at half past seven.
void clock(QPainter &p)
{
    fill(p, 0xfffbbf24, 0xffea6a2a);
    p.translate(side / 2.0, side / 2.0);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(QRgb(0xfffff7e6)));
    p.drawEllipse(QPointF(0, 0), 220, 220);
    p.setBrush(QColor(QRgb(0xff4a2511)));
    for (int hour = 0; hour < 12; ++hour)
        if (hour != 5)
            p.drawEllipse(QPointF(185 * std::sin(tau * hour / 12), -185 * std::cos(tau * hour / 12)), 11, 11);
    p.setPen(QPen(QColor(QRgb(0xff4a2511)), 14, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(0, 0), QPointF(110 * std::sin(tau * 7.5 / 12), -110 * std::cos(tau * 7.5 / 12)));
    p.drawLine(QPointF(0, 0), QPointF(0, 165));
}

// A crescent over roofs.
void moon(QPainter &p)
{
    fill(p, 0xff16204a, 0xff5a3a6b);
    glow(p, {390, 180}, 210, QColor(255, 240, 200, 90));
    const QPointF at(390, 180);
    QPainterPath full;
    full.addEllipse(at, 95, 95);
    QPainterPath bite;
    bite.addEllipse(at + QPointF(-42, -18), 84, 84);
    p.setBrush(QColor(QRgb(0xfffff1c9)));
    p.drawPath(full.subtracted(bite));
    for (int roof = 0; roof < 6; ++roof) {
        p.setBrush(QColor::fromHsv(250, 110, 40 + 8 * (roof % 3)));
        p.drawRect(QRectF(roof * 105 - 10, 400 + 30 * ((roof * 2) % 5), 112, side));
    }
}

// Four shafts with a cabin each, every one a floor later.
void lifts(QPainter &p)
{
    fill(p, 0xfff1eee8, 0xffd9d2c5);
    for (int shaft = 0; shaft < 4; ++shaft) {
        const double x = 60 + 125 * shaft;
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(QRgb(0xff3d4250)));
        p.drawRect(QRectF(x, 50, 105, 500));
        p.setBrush(QColor(QRgb(0xffe3b23c)));
        p.drawRect(QRectF(x + 10, 410 - 110 * shaft, 85, 115));
        p.setPen(QPen(QColor(QRgb(0xff3d4250)), 4));
        p.drawLine(QPointF(x + 52, 410 - 110 * shaft), QPointF(x + 52, 525 - 110 * shaft));
    }
}

} // namespace

QByteArray drawCover(const QString &name)
{
    static const std::map<QString, void (*)(QPainter &)> drawings{
        {QStringLiteral("harbour"), harbour}, {QStringLiteral("kites"), kites},
        {QStringLiteral("frost"), frost},     {QStringLiteral("rain"), rain},
        {QStringLiteral("tram"), tram},       {QStringLiteral("solder"), solder},
        {QStringLiteral("clock"), clock},     {QStringLiteral("moon"), moon},
        {QStringLiteral("lifts"), lifts}};
    const auto drawing = drawings.find(name);
    if (drawing == drawings.end())
        throw std::runtime_error("no such cover: " + name.toStdString());
    QImage image(side, side, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawing->second(painter);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "JPEG", jpegQuality))
        throw std::runtime_error("cannot write JPEG");
    return bytes;
}

} // namespace trackwise::demo
