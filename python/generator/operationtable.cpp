// Writes the table of operations for generate.py: {"operations": [...], "records": ...}, with
// records.json as the latter. An operation is described as by Operations::describe(). The filters
// of a read whose answer the model keeps have the key "default": the value that reads all objects.

#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>
#include <tavorooperations/schema.h>
#include <tavorooperations/scope.h>

#include <QJsonArray>
#include <QJsonObject>

#include <fstream>
#include <iostream>

using namespace Tavoro::Operations;

namespace {

/// The filters with which this operation reads all objects; empty for other operations.
std::vector<int> filtersOf(const QString &operation)
{
    for (const Scope &all :
         {Scope::interfaces(), Scope::files(), Scope::screens(), Scope::layers()}) {
        if (all.readOperation() == operation)
            return all.filters();
    }
    return {};
}

QJsonObject rowOf(const Operation &operation)
{
    QJsonObject row = describe(operation);
    row.remove(QStringLiteral("$defs"));
    QJsonArray arguments = row.value(QStringLiteral("arguments")).toArray();
    const std::vector<int> filters = filtersOf(operation.name());
    for (std::size_t i = 0; i < filters.size(); ++i) {
        QJsonObject argument = arguments.at(int(i)).toObject();
        argument.insert(QStringLiteral("default"), filters[i]);
        arguments.replace(int(i), argument);
    }
    row.insert(QStringLiteral("arguments"), arguments);
    return row;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: tavoropythontable FILE\n";
        return 2;
    }
    QJsonArray operations;
    for (const Operation &operation : all())
        operations += rowOf(operation);
    std::ofstream file(argv[1], std::ios::binary);
    // The document of the records is copied as text, which keeps the order of the keys and long
    // numbers.
    file << R"({"operations":)" << jsonText(operations).toStdString() << R"(,"records":)"
         << recordsDocument() << "}\n";
    file.close();
    if (file)
        return 0;
    std::cerr << "Could not write " << argv[1] << ".\n";
    return 1;
}
