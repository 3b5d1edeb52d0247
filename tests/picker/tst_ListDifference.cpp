// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ListDifference.h"
#include "picker/SectionLabels.h"
#include "support/Test.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace {

using Keys = std::vector<std::uint64_t>;

/// What a list that follows the edits ends with: kept rows are those of @p before.
Keys followed(const std::vector<ListEdit> &edits, const Keys &before, const Keys &after)
{
    using enum ListEdit::Kind;
    Keys result;
    std::ptrdiff_t taken = 0;
    for (const auto &[kind, count] : edits) {
        const auto from = kind == Keep ? before.begin() + taken : after.begin() + std::ssize(result);
        if (kind != Remove)
            result.insert(result.end(), from, from + count);
        if (kind != Insert)
            taken += count;
    }
    return taken == std::ssize(before) ? result : Keys{};
}

int rowsOf(const std::vector<ListEdit> &edits, ListEdit::Kind kind)
{
    return std::accumulate(edits.begin(), edits.end(), 0, [kind](int sum, const ListEdit &edit) {
        return edit.kind == kind ? sum + edit.count : sum;
    });
}

} // namespace

class tst_ListDifference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leadsFromOneOrderToTheOther()
    {
        using Case = std::tuple<Keys, Keys, int>;
        for (const auto &[before, after, kept] :
             {Case{{}, {}, 0}, Case{{}, {1, 2}, 0}, Case{{1, 2}, {}, 0}, Case{{1, 2, 3}, {1, 2, 3}, 3},
              Case{{1, 4}, {1, 2, 3, 4}, 2}, Case{{2, 3}, {1, 2, 3, 4}, 2}, Case{{1, 2, 3, 4}, {1, 5, 4}, 2},
              Case{{1, 2, 3, 4}, {4, 1, 2, 3}, 3}, Case{{1, 2, 3}, {3, 2, 1}, 1}, Case{{9, 1, 2}, {1, 2}, 2},
              Case{{1, 2}, {1, 2, 1}, 2}}) {
            const auto edits = difference(before, after);
            QCOMPARE(followed(edits, before, after), after);
            QCOMPARE(rowsOf(edits, ListEdit::Kind::Keep), kept);
        }
    }

    void coarseEditsLeadThereTooAndSpareTheVisibleRows()
    {
        std::mt19937 random(1);
        for (int round = 0; round < 200; ++round) {
            Keys all(120);
            std::iota(all.begin(), all.end(), 1);
            Keys before;
            Keys after;
            std::ranges::copy_if(all, std::back_inserter(before), [&](auto) { return random() % 3 != 0; });
            std::ranges::copy_if(all, std::back_inserter(after), [&](auto) { return random() % 3 != 0; });
            if (round % 2 == 1)
                std::swap(after[random() % after.size()], after[random() % after.size()]);
            const auto first = static_cast<int>(random() % before.size());
            const int last = std::min(first + 9, static_cast<int>(before.size()) - 1);

            const auto precise = difference(before, after);
            const auto coarse = coarsened(precise, first, last);
            QCOMPARE(followed(coarse, before, after), after);
            QVERIFY(coarse.size() <= 2 * 10 + 6);

            // Every visible row that the precise edits keep is kept.
            int oldRow = 0;
            int keptVisible = 0;
            for (const ListEdit &edit : precise) {
                if (edit.kind == ListEdit::Kind::Keep)
                    keptVisible +=
                        std::max(0, std::min(oldRow + edit.count - 1, last) - std::max(oldRow, first) + 1);
                if (edit.kind != ListEdit::Kind::Insert)
                    oldRow += edit.count;
            }
            QVERIFY(rowsOf(coarse, ListEdit::Kind::Keep) >= keptVisible);
        }
    }

    void whatComesAboveTheFirstVisibleRowStaysAbove()
    {
        using enum ListEdit::Kind;
        const std::vector<ListEdit> coarse = coarsened({{Keep, 5}, {Insert, 1}, {Keep, 20}}, 5, 9);
        QVERIFY(coarse == (std::vector<ListEdit>{{Insert, 1}, {Replace, 5}, {Keep, 20}}));
    }

    void fitsLettersIntoTheIndex()
    {
        const auto shown = [](int places) {
            return fittedLabels(u"A B C D E F G"_s.split(u' '), places).join(QString());
        };
        QCOMPARE(shown(7), u"ABCDEFG"_s);
        QCOMPARE(shown(6), u"A•D•G"_s);
        QCOMPARE(shown(3), u"A•G"_s);
        QCOMPARE(shown(2), QString());
        QCOMPARE(shown(-1), QString());
    }
};

QTEST_GUILESS_MAIN(tst_ListDifference)
#include "tst_ListDifference.moc"
