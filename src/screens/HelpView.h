// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace trackwise {

/// The help screen's two actions, which its presenter carries out. Main thread.
class HelpView : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(HelpScreen)
    QML_UNCREATABLE("made by whoever presents it")

public:
    struct Actions
    {
        std::function<void()> dismissAction;
        std::function<void()> contactSupportAction;
    };

    explicit HelpView(Actions actions)
        : m_actions(std::move(actions))
    {}

    Q_INVOKABLE void dismiss() const { m_actions.dismissAction(); }
    Q_INVOKABLE void contactSupport() const { m_actions.contactSupportAction(); }

private:
    Actions m_actions;
};

} // namespace trackwise
