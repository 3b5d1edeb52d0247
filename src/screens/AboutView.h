// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace trackwise {

class DeviceConditions;

/// What the about screen says, and its four actions, which its presenter carries out. Main thread.
class AboutView : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(AboutScreen)
    QML_UNCREATABLE("made by whoever presents it")
    Q_PROPERTY(QString versionLine READ versionLine CONSTANT)
    Q_PROPERTY(QString developerName READ developerName CONSTANT)
    Q_PROPERTY(bool allowsDrift READ allowsDrift NOTIFY allowsDriftDidChange)

public:
    struct Content
    {
        QString version; ///< empty where the program has none
        QString developerName;
        std::function<void()> dismissAction;
        std::function<void()> moreAppsAction;
        std::function<void()> rateAction;
        std::function<void()> privacyAction;
    };

    /// @p conditions must outlive the screen. They may be null: then nothing keeps the ground from moving.
    AboutView(Content content, const DeviceConditions *conditions);

    [[nodiscard]] QString versionLine() const;
    [[nodiscard]] QString developerName() const { return m_content.developerName; }
    /// Whether the device lets decoration move; what the user has chosen about motion is not looked at.
    [[nodiscard]] bool allowsDrift() const;

    Q_INVOKABLE void dismiss() const { m_content.dismissAction(); }
    Q_INVOKABLE void showMoreApps() const { m_content.moreAppsAction(); }
    Q_INVOKABLE void rate() const { m_content.rateAction(); }
    Q_INVOKABLE void showPrivacyPolicy() const { m_content.privacyAction(); }

Q_SIGNALS:
    void allowsDriftDidChange();

private:
    Content m_content;
    const DeviceConditions *m_conditions;
};

} // namespace trackwise
