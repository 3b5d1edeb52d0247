// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/TextStyle.h"

#include <QColor>
#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace trackwise {

/// What the theme is made from. Everything here is the user's choice.
struct ThemeSettings
{
    bool isDark = false;
    bool isHighContrast = false;
    bool reducesMotion = false;
    qreal textScale = 1; ///< how high letters are, as a share of those at the default size
    bool isAccessibilitySize = false;
    std::optional<QColor> accent;

    friend bool operator==(const ThemeSettings &, const ThemeSettings &) = default;
};

/// Colours, text styles and metrics of every view: one object for each QML engine, set by whoever made the
/// engine. Lengths are in points (device-independent pixels). Main thread.
class Theme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY changed)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT)
    Q_PROPERTY(qreal textScale READ textScale NOTIFY changed)
    Q_PROPERTY(bool isAccessibilitySize READ isAccessibilitySize NOTIFY changed)

    Q_PROPERTY(QColor systemBackground READ systemBackground NOTIFY changed)
    Q_PROPERTY(QColor secondarySystemBackground READ secondarySystemBackground NOTIFY changed)
    Q_PROPERTY(QColor tertiarySystemBackground READ tertiarySystemBackground NOTIFY changed)
    Q_PROPERTY(QColor label READ label NOTIFY changed)
    Q_PROPERTY(QColor secondaryLabel READ secondaryLabel NOTIFY changed)
    Q_PROPERTY(QColor separator READ separator NOTIFY changed)
    Q_PROPERTY(QColor systemFill READ systemFill NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor onAccent READ onAccent NOTIFY changed)
    Q_PROPERTY(QColor thinMaterial READ thinMaterial NOTIFY changed)
    Q_PROPERTY(QColor green READ green NOTIFY changed)
    Q_PROPERTY(QColor yellow READ yellow NOTIFY changed)
    Q_PROPERTY(QColor red READ red NOTIFY changed)

    Q_PROPERTY(trackwise::TextStyle largeTitle READ largeTitle NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle title READ title NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle title2 READ title2 NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle title3 READ title3 NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle headline READ headline NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle body READ body NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle callout READ callout NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle subheadline READ subheadline NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle footnote READ footnote NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle caption READ caption NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle caption2 READ caption2 NOTIFY changed)

    /// Of the title and of the buttons in the bar at the top of a screen, which keeps its height: letters
    /// there stop growing at some size, all at the same.
    Q_PROPERTY(trackwise::TextStyle barTitle READ barTitle NOTIFY changed)
    Q_PROPERTY(trackwise::TextStyle barButton READ barButton NOTIFY changed)

    Q_PROPERTY(qreal touchTarget READ touchTarget CONSTANT)
    /// From this width on a window has room for a sidebar, and for what stands over it to leave it in sight.
    Q_PROPERTY(qreal regularWidth READ regularWidth CONSTANT)
    /// Of a sheet in such a window.
    Q_PROPERTY(qreal sheetWidth READ sheetWidth CONSTANT)
    /// Of its corners.
    Q_PROPERTY(qreal sheetRadius READ sheetRadius CONSTANT)
    /// Screens whose shorter side is less than this are those of phones.
    Q_PROPERTY(qreal widestPhone READ widestPhone CONSTANT)
    Q_PROPERTY(int hoverDuration READ hoverDuration NOTIFY changed)
    Q_PROPERTY(int sheetDuration READ sheetDuration NOTIFY changed)
    Q_PROPERTY(int alertDuration READ alertDuration NOTIFY changed)
    Q_PROPERTY(int pushDuration READ pushDuration NOTIFY changed)

public:
    explicit Theme(QObject *parent = nullptr);

    [[nodiscard]] const ThemeSettings &settings() const { return m_settings; }
    void setSettings(const ThemeSettings &settings);

    [[nodiscard]] bool isDark() const { return m_settings.isDark; }
    [[nodiscard]] bool reducesMotion() const { return m_settings.reducesMotion; }
    /// Whether the user's language is written from right to left.
    [[nodiscard]] bool isRightToLeft() const;
    [[nodiscard]] qreal textScale() const { return m_settings.textScale; }
    [[nodiscard]] bool isAccessibilitySize() const { return m_settings.isAccessibilitySize; }

    [[nodiscard]] QColor systemBackground() const;
    [[nodiscard]] QColor secondarySystemBackground() const;
    [[nodiscard]] QColor tertiarySystemBackground() const;
    [[nodiscard]] QColor label() const;
    [[nodiscard]] QColor secondaryLabel() const;
    [[nodiscard]] QColor separator() const;
    [[nodiscard]] QColor systemFill() const;
    /// The desktop's accent colour where it can be read on our grounds, else our own.
    [[nodiscard]] QColor accent() const;
    /// Text and symbols on an accent-coloured ground.
    [[nodiscard]] QColor onAccent() const;
    /// The ground of what floats above a screen that is still to be felt behind it. What is there is not
    /// blurred, so that it shines through only as much as leaves texts readable.
    [[nodiscard]] QColor thinMaterial() const;
    // What came of something.
    [[nodiscard]] QColor green() const;
    [[nodiscard]] QColor yellow() const;
    [[nodiscard]] QColor red() const;

    [[nodiscard]] TextStyle largeTitle() const;
    [[nodiscard]] TextStyle title() const;
    [[nodiscard]] TextStyle title2() const;
    [[nodiscard]] TextStyle title3() const;
    [[nodiscard]] TextStyle headline() const;
    [[nodiscard]] TextStyle body() const;
    [[nodiscard]] TextStyle callout() const;
    [[nodiscard]] TextStyle subheadline() const;
    [[nodiscard]] TextStyle footnote() const;
    [[nodiscard]] TextStyle caption() const;
    [[nodiscard]] TextStyle caption2() const;
    [[nodiscard]] TextStyle barTitle() const;
    [[nodiscard]] TextStyle barButton() const;

    /// The source of the image that shows a symbol in a colour; empty without a name. Made here since QML of
    /// Qt 6.4 that turns a colour into text may crash when memory is collected meanwhile.
    Q_INVOKABLE [[nodiscard]] QUrl symbolSource(const QString &name, const QColor &color) const;

    [[nodiscard]] qreal touchTarget() const { return 44; }
    [[nodiscard]] static qreal regularWidth() { return 700; }
    [[nodiscard]] static qreal sheetWidth() { return 540; }
    [[nodiscard]] static qreal sheetRadius() { return 16; }
    [[nodiscard]] static qreal widestPhone() { return 500; }
    /// Beside the content of a screen.
    Q_INVOKABLE [[nodiscard]] static qreal margin(bool isRegularWidth = false)
    {
        return isRegularWidth ? 22 : 18;
    }
    /// Milliseconds. With reduced motion every transition is a short cross-fade.
    [[nodiscard]] int hoverDuration() const { return 120; }
    [[nodiscard]] int sheetDuration() const;
    [[nodiscard]] int alertDuration() const;
    [[nodiscard]] int pushDuration() const;

Q_SIGNALS:
    void changed();

private:
    ThemeSettings m_settings;
};

/// Contrast of two opaque colours, 1 to 21, by the formula of WCAG 2.1 ("contrast ratio").
[[nodiscard]] double contrastRatio(const QColor &a, const QColor &b);

} // namespace trackwise
