#include "LinkTable.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

std::string bytesOf(const std::string& text)
{
    if (text == "\"\"")
        return {};
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
            continue;
        }
        switch (text.at(++i)) {
        case 'n':
            bytes += '\n';
            break;
        case 't':
            bytes += '\t';
            break;
        case '0':
            bytes += '\0';
            break;
        case 'x':
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
            break;
        default:
            bytes += text[i];
        }
    }
    return bytes;
}

} // namespace

std::vector<LinkRow> linkTable(const char* name)
{
    std::ifstream file(std::string(VISTANE_TABLES "/") + name);
    EXPECT_TRUE(file) << name;
    std::vector<LinkRow> rows;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.empty() || line.starts_with('#'))
            continue;
        LinkRow row{std::string(name) + ":" + std::to_string(number) + ": " + line, {}};
        std::istringstream columns(line);
        for (std::string column; std::getline(columns, column, '\t');)
            row.columns.push_back(bytesOf(column));
        rows.push_back(row);
    }
    return rows;
}
