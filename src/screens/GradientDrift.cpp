// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens/GradientDrift.h"

#include <QEasingCurve>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace trackwise {

using namespace std::chrono_literals;

namespace {

constexpr double secondsOneWay = 20;
// Both lie outside the unit square: on its way the gradient turns and widens.
constexpr GradientPoints atRest;
constexpr GradientPoints farthest{{0, -1}, {-1, 1}};

constexpr auto look = 250ms; // how often it is looked whether there is something to be seen

constexpr double levelsBetweenColors = 55; // of 255, in green and in blue
constexpr double areaOfPhone = 360 * 720;
constexpr double areaOfLevel = 520'000; // one level more for each
constexpr double mostLevels = 4;

QPointF between(const QPointF &a, const QPointF &b, double share)
{
    return a + (b - a) * share;
}

double easedInAndOut(double share)
{
    static const QEasingCurve curve = [] {
        QEasingCurve made(QEasingCurve::BezierSpline);
        made.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
        return made;
    }();
    return curve.valueForProgress(share);
}

} // namespace

GradientPoints driftingPoints(double seconds)
{
    const double ways = std::fmod(seconds / secondsOneWay, 2);
    const double share = easedInAndOut(ways <= 1 ? ways : 2 - ways);
    return {between(atRest.startPoint, farthest.startPoint, share),
            between(atRest.endPoint, farthest.endPoint, share)};
}

QVector3D gradientPlane(const GradientPoints &points, const QSizeF &size)
{
    // In points, not in shares: the colours change across the line from start to end.
    const QPointF start(points.startPoint.x() * size.width(), points.startPoint.y() * size.height());
    const QPointF end(points.endPoint.x() * size.width(), points.endPoint.y() * size.height());
    const QPointF way = end - start;
    const double length = QPointF::dotProduct(way, way);
    if (length <= 0)
        return {};
    return QVector3D(static_cast<float>(way.x() * size.width() / length),
                     static_cast<float>(way.y() * size.height() / length),
                     static_cast<float>(-QPointF::dotProduct(start, way) / length));
}

double greatestChange(const QVector3D &a, const QVector3D &b)
{
    // The difference of two planes is one too: it is greatest in a corner.
    const std::array corners{QVector3D(0, 0, 1), QVector3D(1, 0, 1), QVector3D(0, 1, 1), QVector3D(1, 1, 1)};
    double greatest = 0;
    for (const QVector3D &corner : corners) {
        const auto at = [&corner](const QVector3D &plane) {
            return std::clamp(QVector3D::dotProduct(plane, corner), 0.0F, 1.0F);
        };
        greatest = std::max<double>(greatest, std::abs(at(a) - at(b)));
    }
    return greatest;
}

double smallestStep(double windowArea)
{
    const double levels = 1 + (windowArea - areaOfPhone) / areaOfLevel;
    return std::clamp(levels, 1.0, mostLevels) / levelsBetweenColors;
}

GradientDrift::GradientDrift(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(look);
    connect(&m_timer, &QTimer::timeout, this, &GradientDrift::tick);
}

void GradientDrift::setRunning(bool isRunning)
{
    if (isRunning == m_timer.isActive())
        return;
    if (isRunning) {
        m_sinceStart.start();
        m_timer.start();
    } else {
        m_secondsBefore += static_cast<double>(m_sinceStart.elapsed()) / 1000;
        m_timer.stop();
    }
    Q_EMIT isRunningChanged();
}

void GradientDrift::setSize(const QSizeF &size)
{
    if (size == m_size)
        return;
    m_size = size;
    Q_EMIT sizeChanged();
    show(m_points);
}

void GradientDrift::tick()
{
    const GradientPoints points =
        driftingPoints(m_secondsBefore + static_cast<double>(m_sinceStart.elapsed()) / 1000);
    if (greatestChange(gradientPlane(points, m_size), m_plane) >= smallestStep(m_windowArea))
        show(points);
}

void GradientDrift::show(const GradientPoints &points)
{
    m_points = points;
    m_plane = gradientPlane(points, m_size);
    Q_EMIT stepped();
}

} // namespace trackwise
