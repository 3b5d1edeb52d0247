// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Theme.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace trackwise {

namespace {

constexpr double readableTextContrast = 4.5; // WCAG 2.1, level AA, text of normal size
constexpr int crossFadeMs = 150;
constexpr int largestBarText = 24; // pixels

QColor ownAccent(bool dark)
{
    return dark ? QColor(QRgb(0xffff5c7a)) : QColor(QRgb(0xffcf2347));
}

double channelLuminance(double c)
{
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const QColor &c)
{
    return 0.2126 * channelLuminance(c.redF()) + 0.7152 * channelLuminance(c.greenF()) +
           0.0722 * channelLuminance(c.blueF());
}

TextStyle textStyle(const ThemeSettings &settings, qreal points, qreal lineHeight,
                    QFont::Weight weight = QFont::Normal)
{
    TextStyle style;
    style.font = QGuiApplication::font();
    style.font.setPixelSize(qRound(points * settings.textScale));
    style.font.setWeight(weight);
    style.lineHeight = std::round(lineHeight * settings.textScale);
    return style;
}

} // namespace

double contrastRatio(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Theme::Theme(QObject *parent)
    : QObject(parent)
{}

void Theme::setSettings(const ThemeSettings &settings)
{
    if (settings == m_settings)
        return;
    m_settings = settings;
    Q_EMIT changed();
}

bool Theme::isRightToLeft() const
{
    return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

QColor Theme::systemBackground() const
{
    return isDark() ? QColor(QRgb(0xff000000)) : QColor(QRgb(0xffffffff));
}

QColor Theme::secondarySystemBackground() const
{
    return isDark() ? QColor(QRgb(0xff1c1c1e)) : QColor(QRgb(0xfff2f2f7));
}

QColor Theme::tertiarySystemBackground() const
{
    return isDark() ? QColor(QRgb(0xff2c2c2e)) : QColor(QRgb(0xffffffff));
}

QColor Theme::label() const
{
    return isDark() ? QColor(QRgb(0xfff5f5f7)) : QColor(QRgb(0xff111114));
}

QColor Theme::secondaryLabel() const
{
    if (m_settings.isHighContrast)
        return label();
    return isDark() ? QColor(QRgb(0xffa1a1a8)) : QColor(QRgb(0xff62626a));
}

QColor Theme::separator() const
{
    if (m_settings.isHighContrast)
        return secondaryLabel();
    return isDark() ? QColor(QRgb(0xff3a3a3e)) : QColor(QRgb(0xffd8d8de));
}

QColor Theme::systemFill() const
{
    return isDark() ? QColor(QRgb(0xff3a3a3e)) : QColor(QRgb(0xffe4e4ea));
}

QColor Theme::accent() const
{
    if (m_settings.accent && contrastRatio(*m_settings.accent, systemBackground()) >= readableTextContrast &&
        contrastRatio(*m_settings.accent, secondarySystemBackground()) >= readableTextContrast)
        return *m_settings.accent;
    return ownAccent(isDark());
}

QColor Theme::onAccent() const
{
    const QColor white(Qt::white);
    return contrastRatio(accent(), white) >= readableTextContrast ? white : QColor(Qt::black);
}

QColor Theme::thinMaterial() const
{
    QColor color(isDark() ? QRgb(0xff28282b) : QRgb(0xfff6f6f8));
    if (!m_settings.isHighContrast)
        color.setAlphaF(0.95F);
    return color;
}

QColor Theme::green() const
{
    return isDark() ? QColor(QRgb(0xff30d158)) : QColor(QRgb(0xff248a3d));
}

QColor Theme::yellow() const
{
    return isDark() ? QColor(QRgb(0xffffd60a)) : QColor(QRgb(0xffb25000));
}

QColor Theme::red() const
{
    return isDark() ? QColor(QRgb(0xffff453a)) : QColor(QRgb(0xffd70015));
}

QUrl Theme::symbolSource(const QString &name, const QColor &color) const
{
    if (name.isEmpty())
        return {};
    return QUrl(QStringLiteral("image://symbol/%1/%2").arg(name, color.name(QColor::HexArgb)));
}

TextStyle Theme::largeTitle() const
{
    return textStyle(m_settings, 34, 41);
}
TextStyle Theme::title() const
{
    return textStyle(m_settings, 28, 34);
}
TextStyle Theme::title2() const
{
    return textStyle(m_settings, 22, 28);
}
TextStyle Theme::title3() const
{
    return textStyle(m_settings, 20, 25);
}
TextStyle Theme::headline() const
{
    return textStyle(m_settings, 17, 22, QFont::DemiBold);
}
TextStyle Theme::body() const
{
    return textStyle(m_settings, 17, 22);
}
TextStyle Theme::callout() const
{
    return textStyle(m_settings, 16, 21);
}
TextStyle Theme::subheadline() const
{
    return textStyle(m_settings, 15, 20);
}
TextStyle Theme::footnote() const
{
    return textStyle(m_settings, 13, 18);
}
TextStyle Theme::caption() const
{
    return textStyle(m_settings, 12, 16);
}
TextStyle Theme::caption2() const
{
    return textStyle(m_settings, 11, 13);
}
TextStyle Theme::barTitle() const
{
    return headline().atMost(largestBarText);
}
TextStyle Theme::barButton() const
{
    return subheadline().medium().atMost(largestBarText);
}

int Theme::sheetDuration() const
{
    return reducesMotion() ? crossFadeMs : 350;
}
int Theme::alertDuration() const
{
    return reducesMotion() ? crossFadeMs : 200;
}
int Theme::pushDuration() const
{
    return reducesMotion() ? crossFadeMs : 300;
}

} // namespace trackwise
