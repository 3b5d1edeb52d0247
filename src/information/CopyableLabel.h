// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <QString>

namespace trackwise {

/// What a label does whose text can be copied; what it looks like is its children's. Copies go to the general
/// clipboard as plain text. Main thread.
class CopyableLabel : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// The part of the text that the user selected; it is copied instead of the whole.
    Q_PROPERTY(QString selection READ selection WRITE setSelection NOTIFY selectionChanged)

public:
    explicit CopyableLabel(QQuickItem *parent = nullptr)
        : QQuickItem(parent)
    {}

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);
    [[nodiscard]] QString selection() const { return m_selection; }
    void setSelection(const QString &selection);

    /// Copies the text as it is now: the choice of the edit menu and of the copy key.
    Q_INVOKABLE void copy() const;
    /// Copies the text that the label was made with: the choice of the context menu.
    Q_INVOKABLE void copyCreationText() const;
    /// Makes the label count as a new one, made with @p text.
    Q_INVOKABLE void renew(const QString &text) { m_creationText = text; }

    /// Where the edit menu points for a touch held at @p touch: a little above the finger, but not above the
    /// first line.
    Q_INVOKABLE [[nodiscard]] static QPointF editMenuAnchor(QPointF touch);

Q_SIGNALS:
    void textChanged();
    void selectionChanged();
    /// The keyboard asks for the context menu.
    void contextMenuRequested();

protected:
    void componentComplete() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void copyText(const QString &whole) const;

    QString m_text;
    QString m_selection;
    QString m_creationText;
};

} // namespace trackwise
