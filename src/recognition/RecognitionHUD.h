// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recognition/ShazamHUDContentConfig.h"

#include <QEasingCurve>
#include <QObject>

#include <memory>

namespace trackwise {

/// The heads-up display of a window, which slides in from the top. The view animates, and tells of the end by
/// didHide(). Without a view (`setAnimated(false)`, the default until a view says otherwise) a dismissal ends
/// on the next turn of the event loop. Main thread.
class RecognitionHUD : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    /// None while nothing is shown.
    Q_PROPERTY(trackwise::ShazamHUDContentConfig *config READ config NOTIFY changed)
    /// False already while it slides out.
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY changed)
    /// Whether cancel() does something now.
    Q_PROPERTY(bool canCancel READ canCancel NOTIFY changed)
    /// How loud it is at the microphone, from 0 to 1.
    Q_PROPERTY(qreal level READ level NOTIFY levelChanged)
    /// What a screen reader is to say, now that it is another text than before.
    Q_PROPERTY(QString announcement READ announcement NOTIFY announcementChanged)
    // Durations in milliseconds, and what springs do meanwhile.
    Q_PROPERTY(int slideInDuration READ slideInDuration CONSTANT)
    Q_PROPERTY(int slideOutDuration READ slideOutDuration CONSTANT)
    Q_PROPERTY(QEasingCurve slideIn READ slideIn CONSTANT)
    Q_PROPERTY(QEasingCurve slideOut READ slideOut CONSTANT)

public:
    using QObject::QObject;

    /// Slides in with @p effects, or changes in place where it is shown already.
    void show(const StateEffects &effects);
    /// Slides out; didDismiss() tells of the end. Nothing happens where nothing is shown.
    void dismiss();
    /// Ends a dismissal that runs at once.
    void finishDismissal();
    /// There is nothing to be shown any more.
    void clear();
    void announce(const QString &text);
    void setLevel(qreal level);

    [[nodiscard]] ShazamHUDContentConfig *config() const { return m_config.get(); }
    [[nodiscard]] bool isVisible() const { return m_stage == Stage::Shown; }
    [[nodiscard]] bool canCancel() const { return isVisible() && m_config->canCancel(); }
    [[nodiscard]] bool isLeaving() const { return m_stage == Stage::Leaving; }
    [[nodiscard]] qreal level() const { return m_level; }
    [[nodiscard]] QString announcement() const { return m_announcement; }

    [[nodiscard]] static int slideInDuration();
    [[nodiscard]] static int slideOutDuration();
    [[nodiscard]] static QEasingCurve slideIn();
    [[nodiscard]] static QEasingCurve slideOut();
    /// How small the texts may become for want of room, as a share of their size at @p textScale.
    Q_INVOKABLE [[nodiscard]] static qreal minimumScale(qreal textScale);

    // For the view.
    Q_INVOKABLE void setAnimated(bool animated) { m_animated = animated; }
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void didHide() { finishDismissal(); }

Q_SIGNALS:
    void changed();
    void announcementChanged();
    void levelChanged();
    void didDismiss();
    void cancelRequested();

private:
    enum class Stage { Hidden, Shown, Leaving };

    std::unique_ptr<ShazamHUDContentConfig> m_config;
    QString m_announcement;
    qreal m_level = 0;
    Stage m_stage = Stage::Hidden;
    bool m_animated = false;
};

} // namespace trackwise
