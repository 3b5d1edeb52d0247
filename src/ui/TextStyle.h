// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// One of the text styles that every screen draws from: a font and the height of its lines in points.
struct TextStyle
{
    Q_GADGET
    QML_VALUE_TYPE(textStyle)
    Q_PROPERTY(QFont font MEMBER font)
    Q_PROPERTY(qreal lineHeight MEMBER lineHeight)

public:
    QFont font;
    qreal lineHeight = 0;

    /// The same style in another weight; heavy is more than bold.
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle heavy() const { return weighing(QFont::ExtraBold); }
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle bold() const { return weighing(QFont::Bold); }
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle semibold() const { return weighing(QFont::DemiBold); }
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle medium() const { return weighing(QFont::Medium); }
    /// The same style, made smaller where its letters are higher than @p pixelSize, for places that do not
    /// grow.
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle atMost(int pixelSize) const;
    /// The same style, made smaller, to half at most, where a word of @p text is wider than @p width.
    Q_INVOKABLE [[nodiscard]] trackwise::TextStyle keepingWords(const QString &text, qreal width) const;

    friend bool operator==(const TextStyle &, const TextStyle &) = default;

private:
    [[nodiscard]] TextStyle weighing(QFont::Weight weight) const;
};

} // namespace trackwise
