#pragma once

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

// The rows of a test's table, "name|value|what comes of it", each ended by a ";" or a line feed; without empty ones.
template <size_t columns>
std::vector<std::array<std::string, columns>> table(std::string text)
{
    std::replace(text.begin(), text.end(), ';', '\n');
    std::vector<std::array<std::string, columns>> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream cells(line);
        for (size_t i = 0; !line.empty() && i < columns; ++i)
            std::getline(cells, i == 0 ? rows.emplace_back()[0] : rows.back()[i], '|');
    }
    return rows;
}
