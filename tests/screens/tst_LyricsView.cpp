// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "support/ViewWindow.h"
#include "ui/Engine.h"

#include <QClipboard>

namespace {

struct LyricsWindow : ViewWindow
{
    explicit LyricsWindow(const QString &lyrics, const ThemeSettings &settings = {})
        : ViewWindow({360, 400}, settings)
    {
        show("Screens/LyricsView.qml", "lyrics", lyrics);
    }
    [[nodiscard]] QQuickItem *text() const
    {
        for (QQuickItem *item : window.rootObject()->findChildren<QQuickItem *>()) {
            if (item->inherits("QQuickTextEdit"))
                return item;
        }
        return nullptr;
    }
    [[nodiscard]] QRectF place() { return ViewWindow::place(text()); }
};

QString verses(int count)
{
    return u"Paper satellites over the town,\n  <i>writing</i> their lines\n\n"_s.repeated(count);
}

} // namespace

class tst_LyricsView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTextIsAnElementThatScreenReadersCanWalkAndSelect()
    {
        LyricsWindow lyrics(verses(2));
        QAccessibleInterface *element = QAccessible::queryAccessibleInterface(lyrics.text());
        QCOMPARE(element->role(), QAccessible::EditableText);
        QVERIFY(element->state().readOnly && !element->state().editable);
        QCOMPARE(element->text(QAccessible::Name), u"Lyrics"_s);
        QVERIFY(element->textInterface());
        QCOMPARE(element->textInterface()->text(0, 31), u"Paper satellites over the town,"_s);
        QCOMPARE(element->textInterface()->characterCount(), verses(2).size());
    }

    void selectsWithTheMouseAndCopiesTheSelectionOrElseEverything()
    {
        LyricsWindow lyrics(verses(2));
        lyrics.text()->forceActiveFocus(Qt::TabFocusReason);
        lyrics.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), verses(2));
        QMetaObject::invokeMethod(lyrics.text(), "select", Q_ARG(int, 0), Q_ARG(int, 5));
        lyrics.press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Paper"_s);

        QGuiApplication::clipboard()->clear();
        QMetaObject::invokeMethod(lyrics.text(), "deselect");
        const QPoint start = lyrics.place().topLeft().toPoint() + QPoint(1, 5);
        QTest::mouseDClick(&lyrics.window, Qt::LeftButton, {}, start);
        QCOMPARE(lyrics.text()->property("selectedText").toString(), u"Paper"_s);
        QTest::mouseClick(&lyrics.window, Qt::RightButton, {}, start);
        lyrics.press({Qt::Key_Down, Qt::Key_Return});
        QTRY_COMPARE(QGuiApplication::clipboard()->text(), u"Paper"_s);
    }

    void marginsFollowTheWidthAndTheScrollPositionStays()
    {
        LyricsWindow lyrics(verses(100), {.reducesMotion = true}); // scrolls at once
        QCOMPARE(lyrics.place().left(), 18.0);
        QCOMPARE(lyrics.place().top(), 16.0 + 9.0);
        lyrics.press(Qt::Key_PageDown);
        QTRY_VERIFY(lyrics.place().top() < -300);
        const qreal top = lyrics.place().top();
        lyrics.window.resize(700, 400);
        QTRY_COMPARE(lyrics.place().left(), 22.0);
        QCOMPARE(lyrics.place().top(), top);
        QCOMPARE(lyrics.place().width(), 700.0 - 44);
    }

    void everyParagraphFollowsTheTextSize()
    {
        const ThemeSettings large{.textScale = 2};
        LyricsWindow lyrics(verses(5));
        themeOf(*lyrics.window.engine()).setSettings(large);
        LyricsWindow other(verses(5), large);
        QTRY_COMPARE(lyrics.place().height(), other.place().height());
    }

    void veryLongLyricsComeInPiecesAndKeysReachBothEnds()
    {
        const QString text = u"\U0001F3B5 in one line "_s.repeated(1500) + u'\n' + verses(300);
        LyricsWindow lyrics{QString()};
        QCOMPARE(lyrics.window.rootObject()->property("title").toString(), u"Lyrics"_s);
        QCOMPARE(lyrics.text()->property("text").toString(), QString());
        const auto length = [&] { return lyrics.text()->property("length").toLongLong(); };
        lyrics.window.rootObject()->setProperty("lyrics", text);
        QVERIFY(length() > 0 && length() < text.size());
        QCOMPARE(lyrics.text()->property("cursorPosition").toInt(), 0);
        lyrics.text()->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(&lyrics.window, Qt::Key_End); // wherever that will be
        QTRY_COMPARE(length(), text.size());
        QCOMPARE(lyrics.text()->property("text").toString(), text);
        QTRY_COMPARE(lyrics.place().bottom(), 400 - 9 - 16.0);
        QTest::keyClick(&lyrics.window, Qt::Key_PageUp);
        QTRY_VERIFY(lyrics.place().bottom() > 700);
        QTest::keyClick(&lyrics.window, Qt::Key_Home);
        QTRY_COMPARE(lyrics.place().top(), 16 + 9.0);
        QCOMPARE(lyrics.text()->property("selectedText").toString(), QString());
        lyrics.window.rootObject()->setProperty("lyrics", u"Other words"_s);
        QCOMPARE(lyrics.text()->property("text").toString(), u"Other words"_s);
    }
};

QTEST_MAIN(tst_LyricsView)
#include "tst_LyricsView.moc"
