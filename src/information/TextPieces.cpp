// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/TextPieces.h"

#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimerEvent>

#include <algorithm>

namespace trackwise {

namespace {

// More than a screen of the smallest text; some 5 ms of layout.
constexpr qsizetype firstPiece = 6000;
constexpr qsizetype laterPiece = 3000;
// A text without line breaks has to be laid out as one paragraph, but not anew for each piece.
constexpr qsizetype longestPiece = 20'000;

} // namespace

void TextPieces::setDocument(QQuickTextDocument *document)
{
    if (document == m_document)
        return;
    m_document = document;
    startOver();
    Q_EMIT changed();
}

void TextPieces::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    startOver();
    Q_EMIT changed();
}

void TextPieces::setLineHeight(qreal lineHeight)
{
    if (qFuzzyCompare(lineHeight, m_lineHeight))
        return;
    m_lineHeight = lineHeight;
    if (m_document) {
        QTextCursor cursor(m_document->textDocument());
        QTextBlockFormat format;
        format.setLineHeight(lineHeight, QTextBlockFormat::FixedHeight);
        cursor.select(QTextCursor::Document);
        cursor.mergeBlockFormat(format); // later blocks take it over
    }
    Q_EMIT changed();
}

void TextPieces::startOver()
{
    m_nextPiece.stop();
    m_placed = 0;
    if (!m_document)
        return;
    QTextDocument *document = m_document->textDocument();
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document);
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    addPiece(firstPiece);
    Q_EMIT didBegin();
    if (m_placed < m_text.size())
        m_nextPiece.start(0, this);
}

// Pieces end with a line where one ends nearby, so that no line is laid out twice.
void TextPieces::addPiece(qsizetype leastLength)
{
    const qsizetype lineEnd = m_text.indexOf(u'\n', std::min(m_placed + leastLength, m_text.size()));
    qsizetype end = std::min(lineEnd < 0 ? m_text.size() : lineEnd + 1, m_placed + longestPiece);
    if (end < m_text.size() && m_text.at(end).isLowSurrogate())
        ++end;
    QTextCursor cursor(m_document->textDocument());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(m_text.mid(m_placed, end - m_placed));
    m_placed = end;
}

void TextPieces::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_nextPiece.timerId())
        return QObject::timerEvent(event);
    if (m_document)
        addPiece(laterPiece);
    if (!m_document || m_placed >= m_text.size())
        m_nextPiece.stop();
}

} // namespace trackwise
