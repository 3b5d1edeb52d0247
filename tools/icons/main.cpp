// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws an SVG picture into a square PNG picture. Runs while the project is built.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char *argv[])
{
    if (argc != 4) {
        std::fputs("usage: icon_maker SVG POINTS PNG\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer picture(QFile::decodeName(argv[1]));
    QImage image(QSize(1, 1) * QByteArray(argv[2]).toInt(), QImage::Format_ARGB32);
    if (!picture.isValid() || image.isNull()) {
        std::fprintf(stderr, "icon_maker: no picture, or no size: %s %s\n", argv[1], argv[2]);
        return EXIT_FAILURE;
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter);
    painter.end();
    if (!image.save(QFile::decodeName(argv[3]), "PNG")) {
        std::fprintf(stderr, "icon_maker: cannot write %s\n", argv[3]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
