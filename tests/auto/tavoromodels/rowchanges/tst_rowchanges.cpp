#include <tavoromodels/rowchanges_p.h>

#include <QtTest>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

using namespace Tavoro::Models;

Q_DECLARE_METATYPE(std::vector<int>)
Q_DECLARE_METATYPE(std::string)

namespace {

std::string text(const std::vector<RowChange> &changes)
{
    std::string text;
    for (const auto &change : changes) {
        const std::string row = std::to_string(change.row);
        const std::string count = std::to_string(change.count);
        if (change.kind == RowChange::Remove)
            text += "remove " + count + " at " + row + "; ";
        else if (change.kind == RowChange::Insert)
            text +=
                "insert " + count + " from " + std::to_string(change.wanted) + " at " + row + "; ";
        else
            text += "move " + row + " to " + std::to_string(change.to) + "; ";
    }
    return text;
}

std::vector<int> applied(std::vector<int> rows, const std::vector<int> &wanted,
                         const std::vector<RowChange> &changes)
{
    for (const auto &change : changes) {
        const auto row = rows.begin() + change.row;
        switch (change.kind) {
        case RowChange::Remove:
            rows.erase(row, row + change.count);
            break;
        case RowChange::Insert:
            rows.insert(row, wanted.begin() + change.wanted,
                        wanted.begin() + change.wanted + change.count);
            break;
        case RowChange::Move: {
            const int value = *row;
            rows.insert(rows.begin() + change.to, value);
            rows.erase(rows.begin() + change.row + (change.to < change.row ? 1 : 0));
            break;
        }
        }
    }
    return rows;
}

} // namespace

/// The changes that make one list from another.
class tst_RowChanges : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changesAreAsFewAsPossible_data();
    void changesAreAsFewAsPossible();
    void changesMakeTheWantedList();
};

void tst_RowChanges::changesAreAsFewAsPossible_data()
{
    using List = std::vector<int>;
    QTest::addColumn<List>("present");
    QTest::addColumn<List>("wanted");
    QTest::addColumn<std::string>("changes");
    // clang-format off
    QTest::newRow("equal")           << List{1, 2, 3}       << List{1, 2, 3}       << std::string();
    QTest::newRow("first rows")      << List{}              << List{1, 2, 3}       << std::string("insert 3 from 0 at 0; ");
    QTest::newRow("all removed")     << List{1, 2, 3}       << List{}              << std::string("remove 3 at 0; ");
    QTest::newRow("two gaps")        << List{1, 2, 3, 4, 5} << List{2, 5}          << std::string("remove 2 at 2; remove 1 at 0; ");
    QTest::newRow("two insertions")  << List{2, 5}          << List{1, 2, 3, 4, 5} << std::string("insert 1 from 0 at 0; insert 2 from 2 at 2; ");
    QTest::newRow("bottom to top")   << List{1, 2, 3, 4}    << List{2, 3, 4, 1}    << std::string("move 0 to 4; ");
    QTest::newRow("top to bottom")   << List{1, 2, 3, 4}    << List{4, 1, 2, 3}    << std::string("move 3 to 0; ");
    QTest::newRow("neighbours")      << List{1, 2, 3}       << List{1, 3, 2}       << std::string("move 1 to 3; ");
    QTest::newRow("replaced")        << List{1, 2, 3}       << List{1, 4, 3}       << std::string("remove 1 at 1; insert 1 from 1 at 1; ");
    // clang-format on
}

void tst_RowChanges::changesAreAsFewAsPossible()
{
    QFETCH(std::vector<int>, present);
    QFETCH(std::vector<int>, wanted);
    QFETCH(std::string, changes);
    const auto made = rowChanges(present, wanted);
    QCOMPARE(text(made), changes);
    QCOMPARE(applied(present, wanted, made), wanted);
}

void tst_RowChanges::changesMakeTheWantedList()
{
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i) {
        const auto list = [&random] {
            std::vector<int> values(10);
            std::iota(values.begin(), values.end(), 0);
            std::shuffle(values.begin(), values.end(), random);
            values.resize(random() % 11);
            return values;
        };
        const auto present = list();
        const auto wanted = list();
        const auto changes = rowChanges(present, wanted);
        QCOMPARE(applied(present, wanted, changes), wanted);
    }
}

QTEST_APPLESS_MAIN(tst_RowChanges)
#include "tst_rowchanges.moc"
