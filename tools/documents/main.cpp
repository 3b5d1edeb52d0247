// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes what goes beside the program where it is installed: the manual page, the completions of the shells,
// and the changelog of its package. Runs while the project is built.
#include "Completions.h"
#include "ManualPage.h"
#include "Releases.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

int fail(const QString &why)
{
    std::fprintf(stderr, "document_maker: %s\n", qPrintable(why));
    return EXIT_FAILURE;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 5)
        return fail(QStringLiteral("usage: document_maker FOLDER MANUAL METAINFO MAINTAINER"));
    const QDir folder(QFile::decodeName(argv[1]));
    const QByteArray pattern = contentOf(QFile::decodeName(argv[2]));
    const std::vector<Release> releases = releasesIn(contentOf(QFile::decodeName(argv[3])));
    if (pattern.isEmpty() || releases.empty())
        return fail(QStringLiteral("the manual page's pattern or the metainfo's releases cannot be read"));
    const std::pair<QString, QByteArray> documents[]{
        {QStringLiteral("trackwise.1"), manualPage(pattern, releases.front().date)},
        {QStringLiteral("trackwise.bash"), bashCompletion()},
        {QStringLiteral("_trackwise"), zshCompletion()},
        {QStringLiteral("trackwise.fish"), fishCompletion()},
        {QStringLiteral("changelog"), debianChangelog(releases, QString::fromLocal8Bit(argv[4]))}};
    for (const auto &[name, text] : documents)
        if (!folder.mkpath(QStringLiteral(".")) || !write(folder.filePath(name), text))
            return fail(QStringLiteral("cannot write %1").arg(folder.filePath(name)));
    return EXIT_SUCCESS;
}
