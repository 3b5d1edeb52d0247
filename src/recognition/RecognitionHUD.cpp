// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/RecognitionHUD.h"

#include "platform/Appearance.h"
#include "recognition/DampedSpring.h"

#include <QtMath>

#include <utility>

namespace trackwise {

namespace {

constexpr DampedSpring inwards{.duration = 0.333, .dampingRatio = 0.82};
constexpr DampedSpring outwards{.duration = 0.666, .dampingRatio = 0.85};

template <const DampedSpring &spring>
qreal positionOf(qreal progress)
{
    return progress < 1 ? spring.position(progress * spring.duration) : 1;
}

template <const DampedSpring &spring>
QEasingCurve curveOf()
{
    QEasingCurve curve;
    curve.setCustomType(positionOf<spring>);
    return curve;
}

} // namespace

int RecognitionHUD::slideInDuration()
{
    return qRound(1000 * inwards.duration);
}

int RecognitionHUD::slideOutDuration()
{
    return qRound(1000 * outwards.duration);
}

QEasingCurve RecognitionHUD::slideIn()
{
    return curveOf<inwards>();
}

QEasingCurve RecognitionHUD::slideOut()
{
    return curveOf<outwards>();
}

qreal RecognitionHUD::minimumScale(qreal textScale)
{
    return textScale <= trackwise::textScale(TextSize::ExtraLarge) ? 0.95 : 0.4;
}

void RecognitionHUD::show(const StateEffects &effects)
{
    if (m_config) {
        m_config->assign({effects.kind, effects.topText, effects.bottomText});
    } else {
        m_config =
            std::make_unique<ShazamHUDContentConfig>(effects.kind, effects.topText, effects.bottomText);
        m_stage = Stage::Shown;
    }
    Q_EMIT changed();
}

void RecognitionHUD::dismiss()
{
    if (m_stage != Stage::Shown)
        return;
    m_stage = Stage::Leaving;
    Q_EMIT changed();
    if (!m_animated)
        QMetaObject::invokeMethod(this, &RecognitionHUD::didHide, Qt::QueuedConnection);
}

void RecognitionHUD::finishDismissal()
{
    if (m_stage == Stage::Leaving)
        Q_EMIT didDismiss();
}

void RecognitionHUD::clear()
{
    m_stage = Stage::Hidden;
    const auto gone = std::exchange(m_config, nullptr);
    Q_EMIT changed(); // the view looks away
    announce({});
    setLevel(0);
}

void RecognitionHUD::announce(const QString &text)
{
    if (text == m_announcement)
        return;
    m_announcement = text;
    Q_EMIT announcementChanged();
}

void RecognitionHUD::setLevel(qreal level)
{
    m_level = level;
    Q_EMIT levelChanged();
}

void RecognitionHUD::cancel()
{
    if (canCancel())
        Q_EMIT cancelRequested();
}

} // namespace trackwise
