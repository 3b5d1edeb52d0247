// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/HeardMusic.h"
#include "device/recognizer/LibraryRecognition.h"
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/Pieces.h"
#include "fingerprint/SegmentBuilder.h"
#include "support/Test.h"

#include <QSignalSpy>
#include <QThread>

#include <atomic>
#include <span>
#include <utility>

using fingerprint::Sound;

namespace {

/// A session over three pieces, and what it told. They are its own at the first attempt, of an added catalog
/// from then on.
struct Listener
{
    Listener()
    {
        QObject::connect(&session, &RecognitionSession::didFind, &here,
                         [this](const std::vector<MatchedMediaItem> &items) { found.push_back(items); });
        QObject::connect(&session, &RecognitionSession::didNotFind, &here,
                         [this](const std::optional<QString> &error) { notFound.push_back(error); });
    }
    [[nodiscard]] std::size_t answers() const { return found.size() + notFound.size(); }

    Result<std::shared_ptr<const fingerprint::Catalog>> catalog()
    {
        if (isBroken)
            return Failure{};
        isWaitedFor = isWaitedFor || QThread::currentThread() == here.thread();
        fingerprint::SegmentBuilder builder;
        for (unsigned seed = 0; seed < 3; ++seed)
            builder.add(fingerprint::peaksOf(fingerprint::piece(seed, 25), fingerprint::songDensity),
                        {.persistentID = 70 + seed,
                         .catalogID = seed == 2 ? "1440857781" : "",
                         .title = "Piece " + std::to_string(seed)});
        return std::make_shared<const fingerprint::Catalog>(std::vector<fingerprint::Catalog::Part>{
            {std::move(builder).build(), std::exchange(origin, "added"), {}}});
    }

    QObject here;
    std::atomic<bool> isWaitedFor = false;
    std::atomic<bool> isBroken = false;
    std::string origin;
    LibraryRecognition session{{.catalog = [this] { return catalog(); },
                                .naming = [](fingerprint::CatalogSong &song) { song.artist = "Today’s"; },
                                .input = [] { return defaultInputChoice; }}};
    std::vector<std::vector<MatchedMediaItem>> found;
    std::vector<std::optional<QString>> notFound;
};

} // namespace

class tst_LibraryRecognition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesWhatTheMicrophoneHears()
    {
        PrivateSound sound;
        QVERIFY(sound.start());
        putUpMicrophone(sound);
        Listener listener;
        const Sound song = fingerprint::piece(2, 25);
        for (std::size_t attempt = 1; attempt <= 2; ++attempt) {
            const HeardMusic music(std::span<const float>(song).subspan(48000));
            QVERIFY(!listener.session.start());
            QVERIFY(listener.session.isRunning());
            QTRY_VERIFY_WITH_TIMEOUT(listener.answers() == attempt, 60'000);
            listener.session.stop();
            QVERIFY(!listener.session.isRunning());
        }
        QCOMPARE(listener.found.size(), 2U);
        QCOMPARE(listener.found.front(), (std::vector<MatchedMediaItem>{{u"1440857781"_s, u"Piece 2"_s,
                                                                         u"Today’s"_s, PersistentID{72}}}));
        QCOMPARE(listener.found.back(), (std::vector<MatchedMediaItem>{
                                            {u"1440857781"_s, u"Piece 2"_s, std::nullopt, std::nullopt}}));
        QVERIFY(!listener.isWaitedFor);
        listener.isBroken = true;
        QVERIFY(!listener.session.start());
        QTRY_COMPARE(listener.notFound, std::vector{std::optional(u"Couldn't read known songs"_s)});
    }

    void findsNothingInNoise()
    {
        PrivateSound sound;
        QVERIFY(sound.start());
        putUpMicrophone(sound);
        Listener listener;
        const HeardMusic music(fingerprint::noise(5, 25 * std::size_t(fingerprint::sampleRateHz), 0.01));
        QVERIFY(!listener.session.start());
        QTRY_VERIFY_WITH_TIMEOUT(listener.answers() == 1, 60'000);
        QCOMPARE(listener.notFound, std::vector{std::optional<QString>()});
    }

    void saysWhyItCannotListen()
    {
        qputenv("PULSE_SERVER", "unix:/nowhere/at/all");
        Listener listener;
        const auto why = [&listener] { return listener.session.start().value_or(Failure{}).detail; };
        QCOMPARE(why(), u"No sound on this device"_s);
        PrivateSound sound;
        QVERIFY(sound.start());
        QCOMPARE(why(), u"No microphone found"_s);
        QVERIFY(!listener.session.isRunning());
        putUpMicrophone(sound);
        QSignalSpy ends(&listener.session, &LibraryRecognition::didBreakOff);
        QSignalSpy hears(&listener.session, &RecognitionSession::didHear);
        QVERIFY(!listener.session.start());
        QTRY_VERIFY(!hears.empty());
        sound.stop();
        QTRY_COMPARE(ends.size(), 1);
        QVERIFY(!listener.session.isRunning());
        QCOMPARE(listener.answers(), 0U);
    }
};

QTEST_GUILESS_MAIN(tst_LibraryRecognition)
#include "tst_LibraryRecognition.moc"
