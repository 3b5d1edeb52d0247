// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/Alert.h"
#include "ui/HostedView.h"

#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace trackwise {

/// What one window shows beside its root: the sheet above it, alerts above that, and the screens pushed onto
/// its navigation stack. The views animate; they tell of the end of each animation by the `did…` calls.
/// Without views (`setAnimated(false)`, the default until a view says otherwise) everything ends at once, on
/// the next turn of the event loop. Main thread.
class Presentation : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(trackwise::HostedView *sheet READ sheet NOTIFY sheetChanged)
    Q_PROPERTY(bool isSheetVisible READ isSheetVisible NOTIFY sheetChanged)
    Q_PROPERTY(trackwise::Alert *alert READ alert NOTIFY alertChanged)
    Q_PROPERTY(bool isAlertVisible READ isAlertVisible NOTIFY alertChanged)

public:
    using Completion = std::function<void()>;

    using QObject::QObject;
    ~Presentation() override;

    /// Shows @p view as a sheet. While another one is up the new one is dropped; while one is on its way
    /// out it waits for that.
    void present(std::shared_ptr<HostedView> view);
    /// Takes the sheet (and every alert) down; @p completion runs when nothing is presented any more.
    void dismiss(Completion completion = {});
    [[nodiscard]] bool isPresenting() const { return m_sheet || m_alert; }
    /// Calls @p then once nothing is presented but a question of the device, taking down what is.
    void whenUncovered(Completion then);

    /// Shows @p alert above everything, after those that wait already.
    void presentAlert(std::unique_ptr<Alert> alert);

    void push(std::shared_ptr<HostedView> view);
    Q_INVOKABLE void pop();
    [[nodiscard]] const std::vector<std::shared_ptr<HostedView>> &pushedViews() const { return m_pushed; }

    [[nodiscard]] HostedView *sheet() const { return m_sheet.get(); }
    [[nodiscard]] bool isSheetVisible() const { return m_sheetVisible; }
    [[nodiscard]] Alert *alert() const { return m_alert.get(); }
    [[nodiscard]] bool isAlertVisible() const { return m_alertVisible; }

    // For the views.
    /// Where the sheet stands in a window with that much room.
    Q_INVOKABLE [[nodiscard]] QRectF sheetFrame(const QSizeF &room) const;
    Q_INVOKABLE void setAnimated(bool animated) { m_animated = animated; }
    Q_INVOKABLE void cancelSheet();
    Q_INVOKABLE void chooseAlertAction(int index);
    Q_INVOKABLE void sheetDidHide();
    Q_INVOKABLE void alertDidHide();
    Q_INVOKABLE void viewDidLeave();

Q_SIGNALS:
    void sheetChanged();
    void alertChanged();
    void didPush(trackwise::HostedView *view);
    void didPop();
    /// The user has asked to close the sheet (Escape, a click beside it). Its controller decides.
    void sheetCancelRequested();

private:
    void showNextAlert();
    void hideSheet();
    void hideAlert();
    void finishDismissal();

    std::shared_ptr<HostedView> m_sheet;
    std::shared_ptr<HostedView> m_waitingSheet;
    bool m_sheetVisible = false;
    std::unique_ptr<Alert> m_alert;
    bool m_alertVisible = false;
    int m_chosenAction = -1;
    std::deque<std::unique_ptr<Alert>> m_waitingAlerts;
    std::vector<std::shared_ptr<HostedView>> m_pushed;
    std::vector<std::shared_ptr<HostedView>> m_leaving; ///< popped, but still sliding out
    std::vector<Completion> m_completions;
    bool m_animated = false;
};

} // namespace trackwise
