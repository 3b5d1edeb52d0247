// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

namespace trackwise {

/// One button of an alert.
struct AlertAction
{
    enum class Style { Default, Cancel };
    QString title;
    Style style = Style::Default;
    std::function<void()> handler; ///< runs once the alert has gone; may be empty
};

/// A short message that the user has to answer. Plain text only.
class Alert : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QStringList actionTitles READ actionTitles CONSTANT)
    Q_PROPERTY(int preferredAction READ preferredAction CONSTANT)
    Q_PROPERTY(int cancelAction READ cancelAction CONSTANT)

public:
    /// The action at @p preferredAction is drawn in bold and answers Return.
    Alert(QString title, QString message, std::vector<AlertAction> actions, int preferredAction);

    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString message() const { return m_message; }
    [[nodiscard]] QStringList actionTitles() const;
    [[nodiscard]] const std::vector<AlertAction> &actions() const { return m_actions; }
    [[nodiscard]] int preferredAction() const { return m_preferredAction; }
    /// The action that answers Escape, or −1.
    [[nodiscard]] int cancelAction() const;

private:
    QString m_title;
    QString m_message;
    std::vector<AlertAction> m_actions;
    int m_preferredAction;
};

} // namespace trackwise
