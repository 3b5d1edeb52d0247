// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QSizeF>
#include <QTimer>
#include <QVector3D>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// Where a linear gradient starts and ends, as shares of the width and height of what it fills.
struct GradientPoints
{
    QPointF startPoint{0, 0};
    QPointF endPoint{1, 1};

    friend bool operator==(const GradientPoints &, const GradientPoints &) = default;
};

/// The points of a drift that has run for @p seconds: to a place outside and back, slowly, forever.
[[nodiscard]] GradientPoints driftingPoints(double seconds);

/// How far the gradient has got at (u, v), shares of width and height: x·u + y·v + z, below 0 before its
/// start, above 1 after its end.
[[nodiscard]] QVector3D gradientPlane(const GradientPoints &points, const QSizeF &size);

/// The greatest difference of two gradients over one and the same rectangle.
[[nodiscard]] double greatestChange(const QVector3D &a, const QVector3D &b);

/// How far the gradient may move before a window of @p windowArea, in square points, is drawn again: as much
/// as changes a colour by one of 255 in a phone's, and more in larger ones, which cost more.
[[nodiscard]] double smallestStep(double windowArea);

/// Lets a gradient drift. Every step draws the whole window, so there is none before it can be seen. Main
/// thread.
class GradientDrift : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// Where it stops it goes on later.
    Q_PROPERTY(bool isRunning READ isRunning WRITE setRunning NOTIFY isRunningChanged)
    /// Of what the gradient fills.
    Q_PROPERTY(QSizeF size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(double windowArea MEMBER m_windowArea NOTIFY sizeChanged)
    Q_PROPERTY(QPointF startPoint READ startPoint NOTIFY stepped)
    Q_PROPERTY(QPointF endPoint READ endPoint NOTIFY stepped)
    Q_PROPERTY(QVector3D plane READ plane NOTIFY stepped)

public:
    explicit GradientDrift(QObject *parent = nullptr);

    [[nodiscard]] bool isRunning() const { return m_timer.isActive(); }
    void setRunning(bool isRunning);
    [[nodiscard]] QSizeF size() const { return m_size; }
    void setSize(const QSizeF &size);
    [[nodiscard]] QPointF startPoint() const { return m_points.startPoint; }
    [[nodiscard]] QPointF endPoint() const { return m_points.endPoint; }
    [[nodiscard]] QVector3D plane() const { return m_plane; }

Q_SIGNALS:
    void isRunningChanged();
    void sizeChanged();
    void stepped();

private:
    void tick();
    void show(const GradientPoints &points);

    QTimer m_timer;
    QElapsedTimer m_sinceStart;
    double m_secondsBefore = 0; ///< that it ran until it was stopped last
    QSizeF m_size;
    double m_windowArea = 0;
    GradientPoints m_points;
    QVector3D m_plane;
};

} // namespace trackwise
