// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/PictureFormat.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_PictureFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksAtTheBytes()
    {
        const std::pair<QByteArray, QString> rows[]{{"\xff\xd8\xff\xe0", u"image/jpeg jpg"_s},
                                                    {"\x89PNG\r\n\x1a\n", u"image/png png"_s},
                                                    {"GIF89a", u"image/gif gif"_s},
                                                    {"BM", u"image/bmp bmp"_s},
                                                    {"RIFF1234WEBP", u"image/webp webp"_s},
                                                    {"RIFF1234WEB", {}},
                                                    {"RIFF1234WAVEfmt ", {}},
                                                    {"XXXX1234WEBP", {}},
                                                    {"II*\0"_ba, {}},
                                                    {"<svg xmlns='http://www.w3.org/2000/svg'/>", {}},
                                                    {QByteArray(), {}}};
        for (const auto &[bytes, expected] : rows) {
            const auto format = pictureFormat(bytes);
            QCOMPARE(format ? mimeType(*format) + u' ' + fileSuffix(*format) : QString(), expected);
        }
    }
};

QTEST_GUILESS_MAIN(tst_PictureFormat)
#include "tst_PictureFormat.moc"
