#pragma once

#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <string>

#include <vector>

// Results on standard output.
namespace Output {

// One fact about a result. Its name is only for machines, its text only for people.
struct Column
{
    const char* name;
    QJsonValue value;
    std::optional<std::string> text = {}; // the value, unless something else reads better
    bool forMachines = false;             // people see it otherwise
};
using Row = std::vector<Column>;

QJsonValue toJson(const std::string& text);

// `text` in one line: tabs, line feeds and other control characters, and the backslash, become escapes.
std::string escaped(const std::string& text);

// Writes one line at once.
void line(const std::string& text);
void line(const QJsonObject& object);

// The results of one command: tab-separated lines, or one JSON list.
class Table
{
public:
    explicit Table(bool json);
    ~Table();
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    void add(const Row& row);

private:
    bool mJson;
    bool mEmpty = true;
};

} // namespace Output
