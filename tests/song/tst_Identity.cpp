// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/MediaItem.h"

#include <QTest>

using namespace trackwise;

class tst_Identity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAnIdentifierOfExactlySixteenDigits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint64>("value"); ///< 0: none
        const auto row = [](const char *name, const char *text, quint64 value) {
            QTest::newRow(name) << QString::fromLatin1(text) << value;
        };
        row("as it is written", "0123456789ABCDEF", 0x0123456789abcdef);
        row("lower case", "fedcba9876543210", 0xfedcba9876543210);
        row("smallest", "0000000000000001", 1);
        row("zero", "0000000000000000", 0);
        row("fifteen digits", "123456789ABCDEF", 0);
        row("seventeen digits", "00123456789ABCDEF", 0);
        row("nothing", "", 0);
        for (const char stranger : {'/', ':', '@', 'G', 'g', '`', '+', ' '}) {
            const QByteArray text = QByteArray("123456789ABCDEF") + stranger;
            row(text, text, 0);
            row(QByteArray("in front: ") + stranger, stranger + QByteArray("123456789ABCDEF"), 0);
        }
    }
    void readsAnIdentifierOfExactlySixteenDigits()
    {
        QFETCH(QString, text);
        QFETCH(quint64, value);
        const auto id = PersistentID::fromString(text);
        QCOMPARE(id.has_value(), value != 0);
        QCOMPARE(id.value_or(PersistentID{}).value, value);
        if (id)
            QCOMPARE(id->toString(), text.toUpper());
    }

    void knowsASongAgain_data()
    {
        QTest::addColumn<quint64>("firstID");
        QTest::addColumn<quint64>("secondID");
        QTest::addColumn<bool>("sameValues");
        QTest::addColumn<bool>("isSame");
        QTest::newRow("played since") << quint64(1) << quint64(1) << false << true;
        QTest::newRow("another of the same texts") << quint64(1) << quint64(2) << true << false;
        QTest::newRow("one not in the library") << quint64(1) << quint64(0) << true << false;
        QTest::newRow("the other not in the library") << quint64(0) << quint64(1) << true << false;
        QTest::newRow("neither, the same values") << quint64(0) << quint64(0) << true << true;
        QTest::newRow("neither, other values") << quint64(0) << quint64(0) << false << false;
    }
    void knowsASongAgain()
    {
        QFETCH(quint64, firstID);
        QFETCH(quint64, secondID);
        QFETCH(bool, sameValues);
        MediaItem first;
        first.persistentID = {firstID};
        MediaItem second;
        second.persistentID = {secondID};
        second.playCount = sameValues ? 0 : 1;
        QTEST(isSameSong(first, second), "isSame");
    }
};

QTEST_GUILESS_MAIN(tst_Identity)
#include "tst_Identity.moc"
