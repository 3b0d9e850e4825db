#include "Sqlite.h"

#include <sqlite3.h>

namespace Sqlite {

bool Result::isOk() const
{
    return mCode == SQLITE_OK || mCode == SQLITE_DONE;
}

bool Result::isRow() const
{
    return mCode == SQLITE_ROW;
}

const char* Result::text() const
{
    return sqlite3_errstr(mCode);
}

Result Connection::open(const std::string& file, int flags)
{
    constexpr std::pair<int, int> settings[] = {
        {SQLITE_DBCONFIG_DEFENSIVE, 1},
        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    };
    close();
    const int result = sqlite3_open_v2(file.c_str(), &mHandle, flags | SQLITE_OPEN_EXRESCODE, nullptr);
    if (result != SQLITE_OK)
        close();
    else
        for (const auto& [setting, value] : settings)
            sqlite3_db_config(mHandle, setting, value, nullptr);
    return Result(result);
}

void Connection::close()
{
    sqlite3_close_v2(std::exchange(mHandle, nullptr)); // now, or when the last query is gone
}

void Connection::closeUntouched()
{
    if (mHandle)
        sqlite3_db_config(mHandle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    close();
}

void Connection::setPatience(int milliseconds)
{
    sqlite3_busy_timeout(mHandle, milliseconds);
}

Result Connection::execute(const char* sql)
{
    return Result(sqlite3_exec(mHandle, sql, nullptr, nullptr, nullptr));
}

int Connection::changes() const
{
    return sqlite3_changes(mHandle);
}

Run::~Run()
{
    sqlite3_reset(mStatement);
}

Result Run::step()
{
    return Result(sqlite3_step(mStatement));
}

bool Run::isNumber(int column) const
{
    return sqlite3_column_type(mStatement, column) == SQLITE_INTEGER;
}

bool Run::isText(int column) const
{
    return sqlite3_column_type(mStatement, column) == SQLITE_TEXT;
}

int64_t Run::number(int column) const
{
    return sqlite3_column_int64(mStatement, column);
}

std::string_view Run::text(int column) const
{
    const unsigned char* bytes = sqlite3_column_text(mStatement, column);
    if (!bytes)
        return {};
    return {reinterpret_cast<const char*>(bytes),
            static_cast<size_t>(sqlite3_column_bytes(mStatement, column))};
}

std::optional<std::string> Run::textOrNull(int column) const
{
    if (sqlite3_column_type(mStatement, column) == SQLITE_NULL)
        return std::nullopt;
    return std::string(text(column));
}

Query::~Query()
{
    sqlite3_finalize(mStatement);
}

void Query::prepare()
{
    if (!mStatement)
        sqlite3_prepare_v3(mConnection.handle(), mSql, -1, SQLITE_PREPARE_PERSISTENT, &mStatement, nullptr);
}

void Query::bind(int index, int value)
{
    sqlite3_bind_int(mStatement, index, value);
}

void Query::bind(int index, std::string_view value)
{
    // SQLite takes a text at address 0 for NULL, and an empty view may have that.
    const char* bytes = value.empty() ? "" : value.data();
    sqlite3_bind_text64(mStatement, index, bytes, value.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void Query::bind(int index, const std::optional<std::string>& value)
{
    if (value)
        bind(index, *value);
    else
        sqlite3_bind_null(mStatement, index);
}

} // namespace Sqlite
