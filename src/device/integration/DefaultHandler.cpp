// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DefaultHandler.h"

#include <QProcess>
#include <QTimer>

#include <chrono>

namespace trackwise {

using namespace std::chrono_literals;

namespace {
constexpr auto patience = 5s; // a shell script that reads a few small files
} // namespace

void findDefaultHandler(const QString &mimeType, QObject *receiver,
                        const std::function<void(std::optional<QString> handler)> &then)
{
    auto *query = new QProcess(receiver);
    QObject::connect(query, &QProcess::finished, receiver, [query, then] {
        query->deleteLater();
        then(QString::fromUtf8(query->readAllStandardOutput()).section(u'\n', 0, 0).trimmed());
    });
    QObject::connect(query, &QProcess::errorOccurred, receiver, [query, then](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        query->deleteLater();
        then(std::nullopt);
    });
    QTimer::singleShot(patience, query, &QProcess::kill);
    query->start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), mimeType});
}

} // namespace trackwise
