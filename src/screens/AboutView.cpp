// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens/AboutView.h"

#include "platform/DeviceConditions.h"

namespace trackwise {

AboutView::AboutView(Content content, const DeviceConditions *conditions)
    : m_content(std::move(content))
    , m_conditions(conditions)
{
    if (m_conditions)
        connect(m_conditions, &DeviceConditions::conditionsDidChange, this, &AboutView::allowsDriftDidChange);
}

QString AboutView::versionLine() const
{
    return tr("Version %1").arg(m_content.version);
}

bool AboutView::allowsDrift() const
{
    return !m_conditions || (!m_conditions->isScreenReaderRunning() && !m_conditions->isSavingPower());
}

} // namespace trackwise
