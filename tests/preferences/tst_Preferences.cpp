// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/Preferences.h"
#include "preferences/UserDefaultsStore.h"
#include "support/Test.h"

#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimeZone>

class tst_Preferences : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    [[nodiscard]] QString file() const { return m_folder.filePath(u"defaults.ini"_s); }

private Q_SLOTS:
    void cleanup() { QFile::remove(file()); }

    void keepsDatesInUtc()
    {
        const QDateTime launched(QDate(2026, 11, 20), QTime(21, 14, 5), QTimeZone("Asia/Tokyo"));
        const QDateTime asked(QDate(2026, 7, 1), QTime(12, 0)); // local, as stored before
        QSettings(file(), QSettings::IniFormat).setValue(u"LastReviewRequestDate"_s, asked);
        Preferences(file()).setFirstLaunchDate(launched);
        const Preferences preferences(file());
        QCOMPARE(preferences.lastReviewRequestDate(), std::optional(asked));
        const QDateTime stored =
            QSettings(file(), QSettings::IniFormat).value(u"FirstLaunchDate"_s).toDateTime();
        QCOMPARE(QSettings(file(), QSettings::IniFormat).allKeys(),
                 QStringList({u"FirstLaunchDate"_s, u"LastReviewRequestDate"_s}));
        for (const QDateTime &kept : {preferences.firstLaunchDate().value_or(QDateTime()), stored})
            QCOMPARE(std::pair(kept, kept.timeSpec()), std::pair(launched, Qt::UTC));
    }

    // As two processes do.
    void sharesItsFile()
    {
        {
            Preferences one(file());
            Preferences other(file());
            one.countViewedSound();
            QCOMPARE(one.soundsViewedCount(), 1);
            other.countViewedSound();
            QTRY_COMPARE(one.soundsViewedCount(), 2);
            for (int count = 1; count <= 20; ++count) {
                one.countViewedSound();
                other.countViewedSound();
                QVERIFY(one.soundsViewedCount() >= count);
            }
            QTRY_COMPARE(QSettings(file(), QSettings::IniFormat).value(u"SoundsViewedCount"_s).toInt(), 42);
            QLockFile counting(file() + u".counting"_s);
            QVERIFY(counting.lock());
            one.countViewedSound(); // once the other has counted
            QSettings(file(), QSettings::IniFormat).setValue(u"SoundsViewedCount"_s, 100);
            counting.unlock();
            QTRY_VERIFY(other.soundsViewedCount() > 100);
            one.setShowMoreInformation(true);
            QVERIFY(one.showMoreInformation());
            QTRY_VERIFY(other.showMoreInformation());
            other.setShowMoreInformation(false);
            QTRY_VERIFY(!one.showMoreInformation());
            one.setLastReviewRequestDate(QDateTime::currentDateTime());
        }
        const Preferences preferences(file());
        QCOMPARE(preferences.soundsViewedCount(), 101);
        QVERIFY(!preferences.showMoreInformation());
        QVERIFY(preferences.lastReviewRequestDate());
    }

    void takesOnlyADateForADate()
    {
        for (const QVariant &stored :
             {QVariant(u"2026-11-20T21:14:05Z"_s), QVariant(1700000000), QVariant(QDateTime())}) {
            {
                QSettings defaults(file(), QSettings::IniFormat);
                defaults.setValue(u"FirstLaunchDate"_s, stored);
                defaults.setValue(u"LastReviewRequestDate"_s, stored);
            }
            const Preferences preferences(file());
            QCOMPARE(preferences.firstLaunchDate(), std::nullopt);
            QCOMPARE(preferences.lastReviewRequestDate(), std::nullopt);
        }
    }

    void togglesInOrderAndOnlyForItsOwnList()
    {
        Preferences preferences(file());
        UserDefaultsStore one(preferences);
        UserDefaultsStore other(preferences);
        QVERIFY(!one.showMoreInformation());

        QStringList order;
        connect(&one, &UserDefaultsStore::willChange, this, [&] {
            order << u"will %1 %2"_s.arg(one.showMoreInformation()).arg(preferences.showMoreInformation());
        });
        connect(&one, &UserDefaultsStore::didChange, this,
                [&] { order << u"did %1"_s.arg(one.showMoreInformation()); });
        one.toggleShowMoreInformation();

        QCOMPARE(order, QStringList({u"will 0 1"_s, u"did 1"_s}));
        QVERIFY(!other.showMoreInformation());
        QVERIFY(UserDefaultsStore(preferences).showMoreInformation());
    }
};

QTEST_GUILESS_MAIN(tst_Preferences)
#include "tst_Preferences.moc"
