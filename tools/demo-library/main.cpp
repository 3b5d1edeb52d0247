// SPDX-License-Identifier: GPL-3.0-or-later
#include "Covers.h"
#include "Encoder.h"
#include "Mixer.h"
#include "Piece.h"
#include "Tags.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QThreadPool>

#include <atomic>
#include <cstdio>
#include <stdexcept>

namespace {

using namespace trackwise::demo;

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

void make(const QString &notation, const QDir &library)
{
    QFile source(notation);
    if (!source.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + notation.toStdString());
    const Piece piece = parsePiece(QString::fromUtf8(source.readAll()));
    const QFileInfo target(library.filePath(piece.file));
    if (!library.mkpath(target.path()))
        throw std::runtime_error("cannot make " + target.path().toStdString());

    encode(render(piece), target.filePath());
    const QByteArray cover = piece.cover.isEmpty() ? QByteArray() : drawCover(piece.cover);
    writeTags(target.filePath(), piece, piece.coverInFolder ? QByteArray() : cover);
    if (piece.coverInFolder)
        write(target.dir().filePath(QStringLiteral("cover.jpg")), cover);
    if (!piece.sidecarLyrics.isEmpty())
        write(target.path() + u'/' + target.completeBaseName() + QStringLiteral(".lrc"),
              piece.sidecarLyrics.toUtf8());
}

} // namespace

/// demo_library FOLDER [PIECE...]: makes the demo library, or only the named pieces of it.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.isEmpty()) {
        std::fputs("usage: demo_library FOLDER [PIECE...]\n", stderr);
        return 2;
    }
    const QDir library(arguments.first());
    QStringList pieces = arguments.mid(1);
    if (pieces.isEmpty())
        pieces =
            QDir(QStringLiteral(":/pieces")).entryList({QStringLiteral("*.piece")}, QDir::Files, QDir::Name);

    std::atomic<bool> failed = false;
    QThreadPool pool;
    for (const QString &piece : pieces) {
        pool.start([piece, &library, &failed] {
            try {
                make(QStringLiteral(":/pieces/") + QFileInfo(piece).completeBaseName() +
                         QStringLiteral(".piece"),
                     library);
            } catch (const std::exception &error) {
                std::fprintf(stderr, "%s: %s\n", qPrintable(piece), error.what());
                failed = true;
            }
        });
    }
    pool.waitForDone();
    return failed ? 1 : 0;
}
