// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/LinuxAudioSession.h"
#include "device/integration/StoredDeviceSettings.h"
#include "support/Test.h"

#include <QSettings>
#include <QTemporaryDir>

class tst_LinuxAudioSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksUntilTheUserHasDecided()
    {
        const QTemporaryDir folder;
        QSettings file(folder.filePath(u"device.ini"_s), QSettings::IniFormat);
        StoredDeviceSettings settings(file);
        LinuxAudioSession session(settings);
        QString told;
        const auto request = [&] {
            session.requestRecordPermission([&told](bool isGranted) { told += isGranted ? u'+' : u'-'; });
            return std::exchange(told, {});
        };
        QCOMPARE(request(), u"-"_s); // nobody can ask
        std::vector<LinuxAudioSession::Answer> questions;
        session.setQuestion([&questions](auto answer) { questions.push_back(std::move(answer)); });
        const std::tuple<AccessChoice, std::optional<bool>, AccessChoice> rows[]{
            {AccessChoice::NotDetermined, std::nullopt, AccessChoice::NotDetermined},
            {AccessChoice::NotDetermined, false, AccessChoice::Denied},
            {AccessChoice::NotDetermined, true, AccessChoice::Allowed},
        };
        for (const auto &[before, answer, after] : rows) {
            settings.setMicrophoneAccess(before);
            QCOMPARE(request() + request(), QString());
            QCOMPARE(questions.size(), 1u); // for both
            questions.front()(answer);
            QCOMPARE(settings.microphoneAccess(), after);
            QCOMPARE(std::exchange(told, {}), answer.value_or(false) ? u"++"_s : u"--"_s);
            questions.clear();
        }
        QCOMPARE(request(), u"+"_s);
        settings.setMicrophoneAccess(AccessChoice::Denied);
        QCOMPARE(request(), u"-"_s);
        QVERIFY(questions.empty());
    }
};

QTEST_GUILESS_MAIN(tst_LinuxAudioSession)
#include "tst_LinuxAudioSession.moc"
