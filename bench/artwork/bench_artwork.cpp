// SPDX-License-Identifier: GPL-3.0-or-later
//
// What decoding a cover at the tile's size costs: photographs, and pictures that are refused or nearly so.
#include "artwork/ArtworkDecoder.h"
#include "support/Covers.h"
#include "support/Figures.h"
#include "support/Photographs.h"

#include <QElapsedTimer>
#include <QGuiApplication>

using namespace trackwise;

namespace {

void measure(const std::string &name, const QByteArray &bytes)
{
    constexpr int turns = 5;
    constexpr int side = 384; // pixels
    std::vector<double> times;
    for (int i = 0; i < turns; ++i) {
        QElapsedTimer timer;
        timer.start();
        const Result<QImage> image = decodeSquare(bytes, side);
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        if (i == 0 && !image)
            std::printf("# %s: %s\n", name.c_str(), qPrintable(image.failure().detail));
    }
    printFigure("decode_" + name, percentile(times, 0.5), "ms");
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    std::mt19937 random(1);
    for (const int megabytes : {1, 3, 5}) {
        const std::string size = std::to_string(megabytes) + "_mb";
        measure("jpeg_" + size, photograph(megabytes, Qt::darkBlue, "jpg", random));
        measure("png_" + size, photograph(megabytes, Qt::darkBlue, "png", random));
    }
    measure("jpeg_10000x10000", coverBytes({10'000, 10'000}, Qt::red, "jpg"));
    measure("png_10000x10000", coverBytes({10'000, 10'000}, Qt::red, "png"));
    return 0;
}
