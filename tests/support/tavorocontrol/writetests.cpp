#include "writetests.h"

#include <utility>

WriteTests::WriteTests(std::vector<CheckedWrite> writes) : m_writes(std::move(writes)) { }

const CheckedWrite &WriteTests::write() const
{
    QFETCH(int, row);
    return m_writes[std::size_t(row)];
}
