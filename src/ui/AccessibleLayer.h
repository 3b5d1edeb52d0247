// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>

namespace trackwise {

/// A layer of a window, as screen readers meet it: the screen, or a sheet or an alert over it, which are
/// modal. What is covered by another layer has nothing to be found in it. Has one child, which has a role,
/// and is a focus scope. Main thread.
class AccessibleLayer : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kind kind MEMBER m_kind)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    /// What else is said when the layer appears.
    Q_PROPERTY(QString details READ details WRITE setDetails NOTIFY changed)
    Q_PROPERTY(bool isCovered MEMBER m_isCovered NOTIFY changed)

public:
    enum class Kind { Screen, Sheet, Alert };
    Q_ENUM(Kind)

    explicit AccessibleLayer(QQuickItem *parent = nullptr);

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] QString details() const { return m_details; }
    void setDetails(const QString &details);
    [[nodiscard]] bool isCovered() const { return m_isCovered; }

Q_SIGNALS:
    void changed();

protected:
    void componentComplete() override;

private:
    Kind m_kind = Kind::Screen;
    QString m_name;
    QString m_details;
    bool m_isCovered = false;
};

} // namespace trackwise
