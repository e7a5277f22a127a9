#pragma once

#include "operationtest.h"

#include <QObject>

#include <functional>
#include <vector>

/// The checks of one row of a table of writes, whatever its control class is.
struct CheckedWrite {
    const char *name;
    std::function<void()> reachesTheDevice;
    std::function<void()> sendsTwoBracketsIfEmpty;
    std::function<void()> failsIfRefused;
    std::function<void()> isDoneWithoutChannel;
    std::function<void()> failsWithoutDevice;
};

template <class Control>
std::vector<CheckedWrite> checked(const std::vector<WriteRow<Control>> &rows)
{
    std::vector<CheckedWrite> writes;
    for (const WriteRow<Control> &row : rows)
        writes.push_back({row.name, [&] { verifyWrite<Control>(row.write, row.code, row.body); },
                          [&] { verifyWrite<Control>(row.writeEmpty, row.code, "[]"); },
                          [&] { verifyRefusedWrite(row); }, [&] { verifyWriteWithoutChannel(row); },
                          [&] {
                              verifyWriteOfAGoneDevice(row);
                          }});
    return writes;
}

/// Base of the tests of a control class: the tests that each of its writes must pass.
class WriteTests : public QObject {
    Q_OBJECT

protected:
    /// The rows from which \a writes were made must outlive the tests.
    explicit WriteTests(std::vector<CheckedWrite> writes);

    void addWrites() const { addRows(m_writes); }
    /// The write that the test data names.
    const CheckedWrite &write() const;

private Q_SLOTS:
    void writeReachesTheDevice_data() { addWrites(); }
    void writeReachesTheDevice() { write().reachesTheDevice(); }
    void refusedWriteFails_data() { addWrites(); }
    void refusedWriteFails() { write().failsIfRefused(); }
    void writeWithoutChannelIsDone_data() { addWrites(); }
    void writeWithoutChannelIsDone() { write().isDoneWithoutChannel(); }
    void writeOfAGoneDeviceFails_data() { addWrites(); }
    void writeOfAGoneDeviceFails() { write().failsWithoutDevice(); }

private:
    const std::vector<CheckedWrite> m_writes;
};

/// The same for a class whose writes take lists.
class ListWriteTests : public WriteTests {
    Q_OBJECT

protected:
    using WriteTests::WriteTests;

private Q_SLOTS:
    void emptyListSendsTwoBrackets_data() { addWrites(); }
    void emptyListSendsTwoBrackets() { write().sendsTwoBracketsIfEmpty(); }
};
