#pragma once

#include <string>
#include <vector>

// One case of a table: its columns, with the bytes that they stand for.
struct LinkRow
{
    std::string where; // file, line and text, for the message of a failure
    std::vector<std::string> columns;

    // A column, or "" when the row has fewer.
    std::string at(size_t column) const { return column < columns.size() ? columns[column] : std::string(); }
};

// The cases of a table beside the tests; the notation is explained at the top of links.tsv.
std::vector<LinkRow> linkTable(const char* name);
