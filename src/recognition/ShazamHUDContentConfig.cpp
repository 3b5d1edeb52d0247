// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/ShazamHUDContentConfig.h"

#include <array>
#include <utility>

namespace trackwise {

namespace {

using Config = ShazamHUDContentConfig;

struct Look
{
    const char *systemImageName;
    Config::SymbolVariant variant;
    Config::RenderingMode renderingMode;
    const char *color;
    qreal fontSize;
    bool canCancel;
};

// In the order of the kinds.
constexpr std::array looks{
    Look{"mic", Config::Fill, Config::RenderingMode::Multicolor, "", 22, true},
    Look{"checkmark", Config::Circle, Config::RenderingMode::Hierarchical, "green", 28, false},
    Look{"questionmark", Config::Circle, Config::RenderingMode::Hierarchical, "yellow", 28, false},
    Look{"questionmark", Config::Circle, Config::RenderingMode::Hierarchical, "yellow", 28, false},
    Look{"exclamationmark", Config::Circle, Config::RenderingMode::Hierarchical, "red", 28, false},
};

const Look &lookOf(HUDKind kind)
{
    return looks.at(static_cast<std::size_t>(kind));
}

} // namespace

ShazamHUDContentConfig::ShazamHUDContentConfig(HUDKind kind, const QString &topText,
                                               const QString &bottomText, QObject *parent)
    : QObject(parent)
    , m_systemImageName(QLatin1StringView(lookOf(kind).systemImageName))
    , m_symbolVariants(lookOf(kind).variant)
    , m_symbolRenderingMode(lookOf(kind).renderingMode)
    , m_symbolColor(QLatin1StringView(lookOf(kind).color))
    , m_symbolFontSize(lookOf(kind).fontSize)
    , m_canCancel(lookOf(kind).canCancel)
    , m_topText(topText)
    , m_bottomText(bottomText)
{}

void ShazamHUDContentConfig::assign(const ShazamHUDContentConfig &other)
{
    const auto copy = [this, &other](auto field, auto changed) {
        if (std::exchange(this->*field, other.*field) != other.*field)
            Q_EMIT(this->*changed)();
    };
    copy(&ShazamHUDContentConfig::m_systemImageName, &ShazamHUDContentConfig::systemImageNameChanged);
    copy(&ShazamHUDContentConfig::m_symbolVariants, &ShazamHUDContentConfig::symbolVariantsChanged);
    copy(&ShazamHUDContentConfig::m_symbolRenderingMode, &ShazamHUDContentConfig::symbolRenderingModeChanged);
    Q_EMIT symbolNameChanged(); // only now is it one that there is
    copy(&ShazamHUDContentConfig::m_symbolColor, &ShazamHUDContentConfig::symbolColorChanged);
    copy(&ShazamHUDContentConfig::m_symbolFontSize, &ShazamHUDContentConfig::symbolFontSizeChanged);
    copy(&ShazamHUDContentConfig::m_canCancel, &ShazamHUDContentConfig::canCancelChanged);
    copy(&ShazamHUDContentConfig::m_topText, &ShazamHUDContentConfig::topTextChanged);
    copy(&ShazamHUDContentConfig::m_bottomText, &ShazamHUDContentConfig::bottomTextChanged);
}

QString ShazamHUDContentConfig::nameWith(SymbolVariants variants) const
{
    QString name = m_systemImageName;
    if (variants & Circle)
        name += QLatin1StringView(".circle");
    if (variants & Fill)
        name += QLatin1StringView(".fill");
    if (m_symbolRenderingMode == RenderingMode::Hierarchical)
        name += QLatin1StringView(".hierarchical");
    return name;
}

} // namespace trackwise
