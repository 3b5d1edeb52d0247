// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/Preferences.h"
#include "preferences/UserDefaultsStore.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace trackwise;

class tst_Preferences : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("defaults.ini")); }

private Q_SLOTS:
    void cleanup() { QFile::remove(file()); }

    void keepsDatesThroughAFile()
    {
        const QDateTime launched(QDate(2026, 11, 20), QTime(21, 14, 5), Qt::UTC);
        {
            Preferences preferences(file());
            preferences.setFirstLaunchDate(launched);
            for (int count = 1; count <= 20; ++count)
                preferences.setSoundsViewedCount(count);
            QCOMPARE(preferences.soundsViewedCount(), 20);
        }
        const Preferences preferences(file());
        QCOMPARE(preferences.firstLaunchDate(), std::optional(launched));
        QCOMPARE(preferences.lastReviewRequestDate(), std::nullopt);
        QCOMPARE(preferences.soundsViewedCount(), 20);
    }

    void takesOnlyADateForADate_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("text of a date") << QVariant(QStringLiteral("2026-11-20T21:14:05Z"));
        QTest::newRow("number") << QVariant(1700000000);
        QTest::newRow("invalid date") << QVariant(QDateTime());
    }
    void takesOnlyADateForADate()
    {
        QFETCH(QVariant, stored);
        {
            QSettings defaults(file(), QSettings::IniFormat);
            defaults.setValue(QStringLiteral("FirstLaunchDate"), stored);
            defaults.setValue(QStringLiteral("LastReviewRequestDate"), stored);
        }
        const Preferences preferences(file());
        QCOMPARE(preferences.firstLaunchDate(), std::nullopt);
        QCOMPARE(preferences.lastReviewRequestDate(), std::nullopt);
    }

    void togglesInOrderAndOnlyForItsOwnList()
    {
        Preferences preferences(file());
        UserDefaultsStore one(preferences);
        UserDefaultsStore other(preferences);
        QVERIFY(!one.showMoreInformation());

        QStringList order;
        connect(&one, &UserDefaultsStore::willChange, this, [&] {
            order << QStringLiteral("will %1 %2")
                         .arg(one.showMoreInformation())
                         .arg(preferences.showMoreInformation());
        });
        connect(&one, &UserDefaultsStore::didChange, this,
                [&] { order << QStringLiteral("did %1").arg(one.showMoreInformation()); });
        one.toggleShowMoreInformation();

        QCOMPARE(order, QStringList({QStringLiteral("will 0 1"), QStringLiteral("did 1")}));
        QVERIFY(!other.showMoreInformation());
        QVERIFY(UserDefaultsStore(preferences).showMoreInformation());
    }
};

QTEST_GUILESS_MAIN(tst_Preferences)
#include "tst_Preferences.moc"
