// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QString>

namespace trackwise {

/// Puts a text into a document piece by piece, so that a very long one is on the screen at once: the first
/// piece when the text is set, the others between frames. Main thread.
class TextPieces : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY changed)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    /// Height of every line in points, which TextEdit has no property for.
    Q_PROPERTY(qreal lineHeight READ lineHeight WRITE setLineHeight NOTIFY changed)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickTextDocument *document() const { return m_document; }
    void setDocument(QQuickTextDocument *document);
    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);
    [[nodiscard]] qreal lineHeight() const { return m_lineHeight; }
    void setLineHeight(qreal lineHeight);

Q_SIGNALS:
    void changed();
    /// The first piece is there; a cursor stands behind it.
    void didBegin();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void startOver();
    void addPiece(qsizetype leastLength);

    QPointer<QQuickTextDocument> m_document;
    QString m_text;
    qreal m_lineHeight = 0;
    qsizetype m_placed = 0; ///< characters that are in the document
    QBasicTimer m_nextPiece;
};

} // namespace trackwise
