#pragma once

#include "Log.h"
#include "OperatorPack.h"
#include "Scene.h"
#include "Sqlite.h"
#include "StoreStatus.h"

#include <sqlite3.h>

#include <limits>

// How rows of the store's queries become what the store answers.
namespace StoreRows {

using Sqlite::Run;

inline const Log logger("VistaneStore");

inline StoreStatus readStatus(Sqlite::Result result)
{
    if (result.isOk() || result.isRow())
        return STORE_OK;
    return result.primary() == SQLITE_BUSY ? STORE_BUSY : STORE_FAILED;
}

inline StoreStatus writeStatus(Sqlite::Result result)
{
    switch (result.primary()) {
    case SQLITE_READONLY:
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return STORE_UNWRITABLE;
    default:
        return readStatus(result);
    }
}

// Calls `readRow` with each row of a run, until it answers another status than STORE_OK.
template <typename ReadRow>
StoreStatus forEachRow(Sqlite::Query& query, ReadRow readRow)
{
    Run run = query.run();
    Sqlite::Result result = run.step();
    for (; result.isRow(); result = run.step())
        if (const StoreStatus status = readRow(run); status != STORE_OK)
            return status;
    return readStatus(result);
}

// Calls `readRow` with the only row of a run.
template <typename ReadRow, typename... Values>
StoreStatus onlyRow(Sqlite::Query& query, ReadRow readRow, const Values&... values)
{
    Run run = query.run(values...);
    const Sqlite::Result result = run.step();
    if (result.isRow())
        return readRow(run);
    return result.isOk() ? STORE_NOT_FOUND : readStatus(result);
}

// A value out of the columns 0, its type, and 1. A text goes into the string that `value` may hold.
inline StoreStatus readValue(const Run& run, SettingValue& value)
{
    using Limits = std::numeric_limits<int>;
    const int64_t number = run.number(1);
    const bool isInt = run.isNumber(1) && number >= Limits::min() && number <= Limits::max();
    if (run.number(0) == 0 && isInt)
        value = static_cast<int>(number);
    else if (run.number(0) == 1 && isInt)
        value = number != 0;
    else if (run.number(0) != 2 || !run.isText(1))
        return STORE_WRONG_TYPE;
    else if (auto* text = std::get_if<std::string>(&value))
        *text = run.text(1);
    else
        value = std::string(run.text(1));
    return STORE_OK;
}

// Columns as of listPack and listSettings. What no setting can hold is not listed.
template <typename Add>
StoreStatus forEachSetting(Sqlite::Query& query, Add add)
{
    return forEachRow(query, [&](const Run& row) {
        OperatorPack::Setting setting = {static_cast<int>(row.number(2)), std::string(row.text(3)), {}};
        if (readValue(row, setting.value) == STORE_OK)
            add(std::move(setting), row);
        else
            logger(3, "%d.%s is of a wrong type", setting.group, setting.key.c_str());
        return STORE_OK;
    });
}

// Columns as of listChannels and readChannel.
inline Scene::Channel channelOf(const Run& row)
{
    return {std::string(row.text(0)), row.textOrNull(1)};
}

// Columns as of listProfiles and readProfile.
inline OperatorPack::Profile profileOf(const Run& row)
{
    return {std::string(row.text(0)), std::string(row.text(1)), row.number(2) != 0};
}

// Hands over what was read, unless the reading failed.
template <typename Result>
StoreStatus answer(StoreStatus status, Result& result, Result& output)
{
    if (status == STORE_OK)
        output = std::move(result);
    return status;
}

template <typename Item, typename ReadItem>
StoreStatus readAll(Sqlite::Query& query, ReadItem readItem, std::vector<Item>& items)
{
    std::vector<Item> result;
    const StoreStatus status = forEachRow(query, [&](const Run& row) {
        result.push_back(readItem(row));
        return STORE_OK;
    });
    return answer(status, result, items);
}

// For onlyRow(): what a row says goes into `output`.
template <typename Output, typename ReadItem>
auto into(Output& output, ReadItem readItem)
{
    return [&output, readItem](const Run& row) {
        output = readItem(row);
        return STORE_OK;
    };
}

inline std::string firstText(const Run& row)
{
    return std::string(row.text(0));
}

} // namespace StoreRows
