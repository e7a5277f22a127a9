// tavoroschema FOLDER: writes records.json and commands.json into FOLDER.

#include "schema.h"

#include <tavorooperations/schema.h>

#include <fstream>
#include <iostream>

namespace {

bool save(const std::string &path, const std::string &text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (file)
        return true;
    std::cerr << "Could not write " << path << ".\n";
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: tavoroschema FOLDER\n";
        return 2;
    }
    const std::string folder = argv[1];
    const bool isSaved = save(folder + "/records.json", Tavoro::Operations::recordsDocument())
        && save(folder + "/commands.json", Tavoro::Schema::commandsDocument());
    return isSaved ? 0 : 1;
}
