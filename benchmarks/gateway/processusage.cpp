#include "processusage.h"

#include <fstream>
#include <limits>
#include <string>

#include <unistd.h>

namespace Bench {

namespace {

double processorSeconds(const std::string &folder)
{
    std::ifstream file(folder + "/stat");
    file.ignore(std::numeric_limits<std::streamsize>::max(), ')'); // the name may contain spaces
    std::string skipped;
    for (int field = 3; field < 14; ++field)
        file >> skipped;
    double user = 0, system = 0;
    file >> user >> system;
    return (user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

double residentMebibytes(const std::string &folder)
{
    std::ifstream file(folder + "/statm");
    double size = 0, resident = 0;
    file >> size >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

} // namespace

ProcessUsage ProcessUsage::of(qint64 pid)
{
    const std::string folder = "/proc/" + std::to_string(pid);
    return {processorSeconds(folder), residentMebibytes(folder)};
}

} // namespace Bench
