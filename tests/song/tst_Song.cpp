// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/MediaItem.h"
#include "song/PictureFormat.h"
#include "support/Test.h"

class tst_Song : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAnIdentifierOfExactlySixteenDigits()
    {
        const QString digits = u"123456789ABCDEF"_s;
        std::vector<std::pair<QString, quint64>> rows{{u'0' + digits, 0x0123456789abcdef},
                                                      {u"fedcba9876543210"_s, 0xfedcba9876543210},
                                                      {u"0000000000000001"_s, 1},
                                                      {u"0000000000000000"_s, 0}, // 0: none
                                                      {digits, 0},
                                                      {u"00"_s + digits, 0},
                                                      {QString(), 0}};
        for (const QChar stranger : u"/:@Gg`+ "_s) {
            rows.emplace_back(digits + stranger, 0);
            rows.emplace_back(stranger + digits, 0);
        }
        for (const auto &[text, value] : rows) {
            const auto id = PersistentID::fromString(text);
            QCOMPARE(std::pair(text, id ? quint64(id->value) : 0), std::pair(text, value));
            QCOMPARE(id ? id->toString() : QString(), value ? text.toUpper() : QString());
        }
    }

    void knowsASongAgain()
    {
        // The identifiers of two songs, how often the second was played (the first never), and whether they
        // are the same.
        const std::tuple<quint64, quint64, unsigned, bool> rows[]{{1, 1, 1, true},  {1, 2, 0, false},
                                                                  {1, 0, 0, false}, {0, 1, 0, false},
                                                                  {0, 0, 0, true},  {0, 0, 1, false}};
        for (const auto &[one, other, plays, isSame] : rows) {
            const MediaItem first{.persistentID = {one}};
            const MediaItem second{.playCount = plays, .persistentID = {other}};
            QCOMPARE(std::tuple(one, other, plays, isSameSong(first, second)),
                     std::tuple(one, other, plays, isSame));
        }
    }

    void tellsPicturesByTheirBytes()
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

QTEST_GUILESS_MAIN(tst_Song)
#include "tst_Song.moc"
