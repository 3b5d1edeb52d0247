// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/recognizer/FingerprintMessages.h"
#include "platform/Result.h"

#include <QProcess>

namespace trackwise {

/// A worker process and the file that it listens to. Whatever a file does to the decoder, it does it to that
/// process, which is ended with this object, at once. Main thread.
class FingerprintProcess : public QObject
{
    Q_OBJECT

public:
    /// @p program and @p arguments begin a worker, see runFingerprintWorker().
    FingerprintProcess(QString program, QStringList arguments, QObject *parent = nullptr);
    ~FingerprintProcess() override;

    [[nodiscard]] bool isBusy() const { return !m_path.isEmpty(); }
    /// To be called while it is not busy. Starts the process where there is none.
    void listenTo(const QByteArray &path);
    /// Ends the process at once; of the file nothing is told any more.
    void end();

Q_SIGNALS:
    /// Once for each file. A file over which two workers have died is Malformed; Unavailable: there are none.
    void didHear(const trackwise::Result<trackwise::HeardSong> &song);

private:
    void ask();
    void take();
    void didEnd();
    void answer(const Result<HeardSong> &song);

    QString m_program;
    QStringList m_arguments;
    QProcess m_process;
    QByteArray m_path; ///< that is listened to; empty: none
    QByteArray m_received;
    int m_deaths = 0; ///< over it
};

} // namespace trackwise
