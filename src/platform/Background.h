// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

#include <utility>

namespace trackwise {

/// Runs @p work on @p pool and hands its result to @p done on the main thread, or to nobody when
/// @p receiver has gone by then. @p work may hold values only: nothing that lives on the main thread.
template <typename Work, typename Handler>
void runInBackground(QThreadPool &pool, QObject *receiver, Work work, Handler done)
{
    // The pointer is looked at on the main thread only; a look on the worker would race with destruction.
    pool.start([work = std::move(work), done = std::move(done),
                target = QPointer<QObject>(receiver)]() mutable {
        auto result = work();
        if (QCoreApplication *application = QCoreApplication::instance()) {
            QMetaObject::invokeMethod(
                application,
                [done = std::move(done), target = std::move(target), result = std::move(result)]() mutable {
                    // Qt may get rid of this closure on the worker: what it holds goes here.
                    auto handler = std::move(done);
                    auto value = std::move(result);
                    if (target)
                        handler(std::move(value));
                },
                Qt::QueuedConnection);
        }
    });
}

} // namespace trackwise
