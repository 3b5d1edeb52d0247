// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recognition/ShazamState.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// What the HUD shows. Its view follows every field by itself. Main thread.
class ShazamHUDContentConfig : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made for the states of music recognition")
    Q_PROPERTY(QString systemImageName MEMBER m_systemImageName NOTIFY systemImageNameChanged)
    Q_PROPERTY(SymbolVariants symbolVariants READ symbolVariants NOTIFY symbolVariantsChanged)
    Q_PROPERTY(
        RenderingMode symbolRenderingMode MEMBER m_symbolRenderingMode NOTIFY symbolRenderingModeChanged)
    /// A colour of the theme; empty: the symbol's own.
    Q_PROPERTY(QString symbolColor MEMBER m_symbolColor NOTIFY symbolColorChanged)
    Q_PROPERTY(qreal symbolFontSize MEMBER m_symbolFontSize NOTIFY symbolFontSizeChanged)
    Q_PROPERTY(bool canCancel MEMBER m_canCancel NOTIFY canCancelChanged)
    Q_PROPERTY(QString topText MEMBER m_topText NOTIFY topTextChanged)
    Q_PROPERTY(QString bottomText MEMBER m_bottomText NOTIFY bottomTextChanged)
    /// The one symbol that all this comes to.
    Q_PROPERTY(QString symbolName READ symbolName NOTIFY symbolNameChanged)
    /// The same without a filling.
    Q_PROPERTY(QString outlineName READ outlineName NOTIFY symbolNameChanged)

public:
    enum SymbolVariant { NoVariant = 0, Fill = 1, Circle = 2 };
    Q_DECLARE_FLAGS(SymbolVariants, SymbolVariant)
    Q_FLAG(SymbolVariants)
    enum class RenderingMode { Multicolor, Hierarchical };
    Q_ENUM(RenderingMode)

    ShazamHUDContentConfig(HUDKind kind, const QString &topText, const QString &bottomText,
                           QObject *parent = nullptr);

    /// Takes over all eight fields, one by one.
    void assign(const ShazamHUDContentConfig &other);

    [[nodiscard]] QString symbolName() const { return nameWith(m_symbolVariants); }
    [[nodiscard]] QString outlineName() const { return nameWith(m_symbolVariants & ~SymbolVariants(Fill)); }
    [[nodiscard]] SymbolVariants symbolVariants() const { return m_symbolVariants; }
    [[nodiscard]] bool canCancel() const { return m_canCancel; }

Q_SIGNALS:
    void systemImageNameChanged();
    void symbolVariantsChanged();
    void symbolRenderingModeChanged();
    void symbolColorChanged();
    void symbolFontSizeChanged();
    void canCancelChanged();
    void topTextChanged();
    void bottomTextChanged();
    void symbolNameChanged();

private:
    [[nodiscard]] QString nameWith(SymbolVariants variants) const;

    QString m_systemImageName;
    SymbolVariants m_symbolVariants;
    RenderingMode m_symbolRenderingMode;
    QString m_symbolColor;
    qreal m_symbolFontSize;
    bool m_canCancel;
    QString m_topText;
    QString m_bottomText;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ShazamHUDContentConfig::SymbolVariants)

} // namespace trackwise
