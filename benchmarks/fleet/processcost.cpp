#include "processcost.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <malloc.h>
#include <unistd.h>

namespace Bench {

namespace {

int countThreads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<int>(std::distance(begin(tasks), end(tasks)));
}

std::size_t residentBytes()
{
    std::ifstream pages("/proc/self/statm");
    std::size_t size = 0, resident = 0;
    pages >> size >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

ProcessCost ProcessCost::now()
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    malloc_trim(0); // returns freed memory, which is not a cost of the present state
    const auto heap = mallinfo2();
    return {static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9,
            countThreads(), heap.uordblks + heap.hblkhd, residentBytes()};
}

} // namespace Bench
