// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/FingerprintProcess.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace trackwise {

namespace {

QByteArray request(const QByteArray &path)
{
    const RequestHead head{std::uint32_t(path.size())};
    return QByteArray(reinterpret_cast<const char *>(&head), sizeof(head)) + path;
}

} // namespace

FingerprintProcess::FingerprintProcess(QString program, QStringList arguments, QObject *parent)
    : QObject(parent)
    , m_program(std::move(program))
    , m_arguments(std::move(arguments))
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &FingerprintProcess::take);
    connect(&m_process, &QProcess::finished, this, &FingerprintProcess::didEnd);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            answer(Failure{FailureKind::Unavailable, m_process.errorString()});
    });
}

FingerprintProcess::~FingerprintProcess()
{
    end();
    disconnect(&m_process, nullptr, this, nullptr);
    m_process.waitForFinished();
}

void FingerprintProcess::end()
{
    m_path.clear();
    m_process.kill();
}

void FingerprintProcess::listenTo(const QByteArray &path)
{
    m_path = path;
    m_deaths = 0;
    ask();
}

void FingerprintProcess::ask()
{
    m_received.clear();
    if (m_process.state() == QProcess::NotRunning)
        m_process.start(m_program, m_arguments);
    if (m_process.isWritable())
        m_process.write(request(m_path));
}

void FingerprintProcess::take()
{
    m_received += m_process.readAllStandardOutput();
    ReplyHead head;
    if (m_received.size() < qsizetype(sizeof(head)))
        return;
    std::memcpy(&head, m_received.constData(), sizeof(head));
    const std::size_t unit = head.failure == 0 ? sizeof(fingerprint::Peak) : 1;
    if (head.count > mostPeaks) {
        m_process.kill();
        return;
    }
    const std::size_t length = head.count * unit;
    if (std::size_t(m_received.size()) < sizeof(head) + length)
        return;
    const char *content = m_received.constData() + sizeof(head);
    if (head.failure != 0) {
        const auto kind = FailureKind(std::min(head.failure - 1, std::uint32_t(FailureKind::Cancelled)));
        answer(Failure{kind, QString::fromUtf8(content, qsizetype(length))});
        return;
    }
    HeardSong song{head.seconds, std::vector<fingerprint::Peak>(head.count)};
    std::copy_n(content, length, reinterpret_cast<char *>(song.peaks.data()));
    answer(song);
}

void FingerprintProcess::didEnd()
{
    if (!isBusy())
        return;
    // Once may be somebody else's doing, such as the system's where memory is short.
    if (++m_deaths == 1)
        ask();
    else
        answer(Failure{FailureKind::Malformed, QStringLiteral("Reading it ends the program.")});
}

void FingerprintProcess::answer(const Result<HeardSong> &song)
{
    if (!m_path.isEmpty()) {
        m_path.clear();
        Q_EMIT didHear(song);
    }
}

} // namespace trackwise
