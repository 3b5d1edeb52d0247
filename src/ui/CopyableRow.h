// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/FocusableItem.h"

namespace trackwise {

/// A row of texts that is one thing to a screen reader, which can also copy it.
// By its full name, which the QML tooling needs.
class CopyableRow : public trackwise::FocusableItem
{
    Q_OBJECT
    QML_ELEMENT
    /// What a screen reader says.
    Q_PROPERTY(QString spokenText READ spokenText WRITE setSpokenText NOTIFY spokenTextChanged)

public:
    explicit CopyableRow(QQuickItem *parent = nullptr);

    [[nodiscard]] QString spokenText() const { return m_spokenText; }
    void setSpokenText(const QString &text);

Q_SIGNALS:
    void spokenTextChanged();
    void copyRequested();

private:
    QString m_spokenText;
};

} // namespace trackwise
