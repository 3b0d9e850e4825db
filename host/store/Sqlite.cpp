#include "Sqlite.h"

#include <sqlite3.h>

namespace Sqlite {

int Connection::open(const std::string& file, int flags)
{
    close();
    const int result = sqlite3_open_v2(file.c_str(), &mHandle, flags | SQLITE_OPEN_EXRESCODE, nullptr);
    if (result != SQLITE_OK)
        close();
    return result;
}

void Connection::close()
{
    sqlite3_close(std::exchange(mHandle, nullptr));
}

void Connection::closeUntouched()
{
    if (mHandle)
        sqlite3_db_config(mHandle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    close();
}

int Connection::execute(const char* sql)
{
    return sqlite3_exec(mHandle, sql, nullptr, nullptr, nullptr);
}

int Connection::changes() const
{
    return sqlite3_changes(mHandle);
}

Statement::~Statement()
{
    sqlite3_finalize(mHandle);
}

int Statement::prepare(Connection& connection, const char* sql)
{
    sqlite3_finalize(std::exchange(mHandle, nullptr));
    return sqlite3_prepare_v3(connection.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &mHandle, nullptr);
}

Statement::Run::~Run()
{
    sqlite3_reset(mStatement);
}

int Statement::Run::step()
{
    return sqlite3_step(mStatement);
}

int Statement::Run::number(int column) const
{
    return sqlite3_column_int(mStatement, column);
}

bool Statement::Run::isNull(int column) const
{
    return sqlite3_column_type(mStatement, column) == SQLITE_NULL;
}

std::string_view Statement::Run::text(int column) const
{
    const unsigned char* bytes = sqlite3_column_text(mStatement, column);
    if (!bytes)
        return {};
    return {reinterpret_cast<const char*>(bytes),
            static_cast<size_t>(sqlite3_column_bytes(mStatement, column))};
}

void Statement::Run::bind(int index, int value)
{
    sqlite3_bind_int(mStatement, index, value);
}

void Statement::Run::bind(int index, std::string_view value)
{
    // SQLite takes a text at address 0 for NULL, and an empty view may have that.
    const char* bytes = value.empty() ? "" : value.data();
    sqlite3_bind_text64(mStatement, index, bytes, value.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::Run::bind(int index, const std::optional<std::string>& value)
{
    if (value)
        bind(index, *value);
    else
        sqlite3_bind_null(mStatement, index);
}

} // namespace Sqlite
