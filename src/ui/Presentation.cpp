// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Presentation.h"

#include "ui/SheetFrame.h"

#include <QPointer>

#include <utility>

namespace trackwise {

namespace {
// A view that has been told to go is deleted on a later turn of the event loop, and looks at what it shows
// until then: what it shows goes after it.
template <typename T>
void releaseLater(QObject *context, std::shared_ptr<T> object)
{
    QMetaObject::invokeMethod(
        context, [object = std::move(object)] {}, Qt::QueuedConnection);
}
} // namespace

Presentation::~Presentation() = default;

void Presentation::present(std::shared_ptr<HostedView> view)
{
    if (m_sheet) {
        if (!m_sheetVisible)
            m_waitingSheet = std::move(view);
        return;
    }
    m_sheet = std::move(view);
    m_sheetVisible = true;
    Q_EMIT sheetChanged();
}

void Presentation::dismiss(Completion completion)
{
    if (completion)
        m_completions.push_back(std::move(completion));
    m_waitingSheet.reset();
    m_waitingAlerts.clear();
    hideAlert();
    hideSheet();
    finishDismissal();
}

void Presentation::whenUncovered(Completion then)
{
    const bool isAsking = m_sheet && m_sheetVisible && m_sheet->isQuestion();
    if (isAsking || !isPresenting())
        then();
    else
        dismiss(std::move(then));
}

void Presentation::hideSheet()
{
    if (!m_sheet || !m_sheetVisible)
        return;
    m_sheetVisible = false;
    Q_EMIT sheetChanged();
    if (!m_animated)
        QMetaObject::invokeMethod(this, &Presentation::sheetDidHide, Qt::QueuedConnection);
}

void Presentation::hideAlert()
{
    if (!m_alert || !m_alertVisible)
        return;
    m_alertVisible = false;
    Q_EMIT alertChanged();
    if (!m_animated)
        QMetaObject::invokeMethod(this, &Presentation::alertDidHide, Qt::QueuedConnection);
}

void Presentation::sheetDidHide()
{
    if (!m_sheet || m_sheetVisible)
        return;
    std::shared_ptr<HostedView> gone = std::exchange(m_sheet, nullptr);
    Q_EMIT sheetChanged();
    releaseLater(this, std::move(gone));
    finishDismissal();
    if (m_waitingSheet)
        present(std::exchange(m_waitingSheet, nullptr));
}

void Presentation::presentAlert(std::unique_ptr<Alert> alert)
{
    m_waitingAlerts.push_back(std::move(alert));
    showNextAlert();
}

void Presentation::showNextAlert()
{
    if (m_alert || m_waitingAlerts.empty())
        return;
    m_alert = std::move(m_waitingAlerts.front());
    m_waitingAlerts.pop_front();
    m_chosenAction = -1;
    m_alertVisible = true;
    Q_EMIT alertChanged();
}

void Presentation::chooseAlertAction(int index)
{
    if (!m_alert || !m_alertVisible || index < 0 || static_cast<size_t>(index) >= m_alert->actions().size())
        return;
    m_chosenAction = index;
    hideAlert();
}

void Presentation::alertDidHide()
{
    if (!m_alert || m_alertVisible)
        return;
    std::shared_ptr<Alert> gone(std::move(m_alert));
    Q_EMIT alertChanged();
    const QPointer<Presentation> alive(this);
    if (m_chosenAction >= 0) {
        const std::function<void()> handler = gone->actions().at(static_cast<size_t>(m_chosenAction)).handler;
        if (handler)
            handler();
    }
    if (!alive)
        return;
    releaseLater(this, std::move(gone));
    finishDismissal();
    showNextAlert();
}

void Presentation::finishDismissal()
{
    if (isPresenting())
        return;
    for (const Completion &completion : std::exchange(m_completions, {}))
        completion();
}

QRectF Presentation::sheetFrame(const QSizeF &room) const
{
    return trackwise::sheetFrame(room, m_sheet ? m_sheet->preferredSize() : std::nullopt);
}

void Presentation::cancelSheet()
{
    if (m_sheet && m_sheetVisible)
        Q_EMIT sheetCancelRequested();
}

void Presentation::push(std::shared_ptr<HostedView> view)
{
    m_pushed.push_back(std::move(view));
    Q_EMIT didPush(m_pushed.back().get());
}

void Presentation::pop()
{
    if (m_pushed.empty())
        return;
    m_leaving.push_back(std::move(m_pushed.back()));
    m_pushed.pop_back();
    Q_EMIT didPop();
    if (!m_animated)
        viewDidLeave();
}

void Presentation::viewDidLeave()
{
    for (std::shared_ptr<HostedView> &view : std::exchange(m_leaving, {}))
        releaseLater(this, std::move(view));
}

} // namespace trackwise
