#pragma once

#include <vector>

namespace Tavoro::Models {

/// One change of the rows of a list.
struct RowChange {
    enum Kind {
        Remove, ///< Removes \c count rows from \c row.
        Insert, ///< Inserts the wanted rows from \c wanted before \c row.
        Move, ///< Moves the row \c row before the row \c to, both counted before the move.
    };

    Kind kind = Remove;
    int row = 0;
    int count = 1;
    int to = 0; ///< Of a move.
    int wanted = 0; ///< Of an insertion: index in the wanted list.
};

/// Returns the changes that make the list \a wanted from the list \a present, in the order in which
/// they are to be made. Rows that keep their order relative to each other are not moved. Neither
/// list has a value twice.
std::vector<RowChange> rowChanges(std::vector<int> present, const std::vector<int> &wanted);

} // namespace Tavoro::Models
