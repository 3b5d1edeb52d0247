// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "support/ViewWindow.h"
#include "ui/Alert.h"

#include <QQmlContext>
#include <QQmlProperty>

class tst_AlertButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standSideBySideWhereTheyFit()
    {
        const QString brief = u"No"_s, lengthy = u"Afficher la démonstration"_s;
        const std::tuple<QStringList, bool, bool> rows[]{
            // The titles, whether letters are large, whether the buttons are in a row.
            {{u"Yes"_s, brief}, false, true}, {{lengthy, brief}, false, false},
            {{brief, lengthy}, false, false}, {{u"Yes"_s, u"Perhaps"_s, brief}, false, false},
            {{u"Yes"_s, brief}, true, false},
        };
        for (const auto &[titles, hasLargeLetters, areInRow] : rows) {
            std::vector<AlertAction> actions;
            for (const QString &title : titles)
                actions.push_back({title, AlertAction::Style::Default, {}});
            Alert alert(u"Well?"_s, {}, std::move(actions), 0);
            ViewWindow buttons({290, 400}, {.isAccessibilitySize = hasLargeLetters});
            buttons.show("Ui/AlertButtons.qml", "alert", QVariant::fromValue(&alert));
            const QRectF first = buttons.place(titles.first()), last = buttons.place(titles.last());
            QCOMPARE(first.top() == last.top(), areInRow);
            QCOMPARE(last.right() <= first.left(), areInRow); // the one that cancels leads in a row
            QCOMPARE(last.top() >= first.bottom(), !areInRow);
            QQuickItem *root = buttons.window.rootObject();
            QVERIFY(QQmlProperty(root, u"LayoutMirroring.enabled"_s, qmlContext(root)).write(true));
            waitForLayout(buttons.window);
            QCOMPARE(buttons.place(titles.last()).left() >= buttons.place(titles.first()).right(), areInRow);
        }
    }
};

QTEST_MAIN(tst_AlertButtons)
#include "tst_AlertButtons.moc"
