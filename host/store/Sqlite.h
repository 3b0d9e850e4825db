#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

// The little of SQLite that the store needs, owned properly.
namespace Sqlite {

// SQLite's own result code, which must not be taken for any other number.
class [[nodiscard]] Result
{
public:
    explicit Result(int code) : mCode(code) {}

    bool isOk() const; // also of a statement that ran to its end
    bool isRow() const;
    // Without the details of an extended code.
    int primary() const { return mCode & 0xff; }
    const char* text() const;

private:
    int mCode;
};

// One open database file. It is open for as long as a query made from it is there.
class Connection
{
public:
    Connection() = default;
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Closes what was open. `file` is a path, or with SQLITE_OPEN_URI in `flags` a "file:" link. The file's schema is
    // not trusted: it can bring no triggers, no views and no functions with effects.
    Result open(const std::string& file, int flags);
    void close();
    // Closes without moving into the file what its companion files hold, and without removing them.
    void closeUntouched();

    // How long a statement waits for another program's lock. Not at all: 0.
    void setPatience(int milliseconds);

    // Runs statements that give no rows.
    Result execute(const char* sql);
    // Rows that the last statement changed.
    int changes() const;

    sqlite3* handle() const { return mHandle; }

private:
    sqlite3* mHandle = nullptr;
};

// One run of a query: resets it at the end of its life, so that no read transaction and no lock outlives it. Columns
// count from 0.
class Run
{
public:
    explicit Run(sqlite3_stmt* statement) : mStatement(statement) {}
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    // A row while there are rows, then the end, which is ok.
    Result step();

    bool isNumber(int column) const;
    bool isText(int column) const;
    int64_t number(int column) const;
    std::string_view text(int column) const; // valid until the next step()
    std::optional<std::string> textOrNull(int column) const;

private:
    sqlite3_stmt* mStatement;
};

// A statement together with its text. It is prepared when it first runs: a menu that opens needs only two of many.
class Query
{
public:
    // The connection, and the text, have to outlive this. Parameters are ?1, ?2 and so on.
    Query(Connection& connection, const char* sql) : mConnection(connection), mSql(sql) {}
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    // Binds every argument in order: int, bool, text, or a text that may be NULL. Texts are not copied: they must
    // outlive the run. A statement that can't be prepared fails in its first step.
    template <typename... Values>
    Run run(const Values&... values)
    {
        prepare();
        int index = 0;
        (bind(++index, values), ...);
        return Run(mStatement);
    }

private:
    void prepare();
    void bind(int index, int value);
    void bind(int index, std::string_view value);
    void bind(int index, const std::string& value) { bind(index, std::string_view(value)); }
    void bind(int index, const std::optional<std::string>& value);

    Connection& mConnection;
    const char* mSql;
    sqlite3_stmt* mStatement = nullptr;
};

// A write transaction: everything until commit() happens, or nothing when it isn't reached.
class Transaction
{
public:
    explicit Transaction(Connection& connection)
        : mConnection(connection), mBegun(connection.execute("BEGIN IMMEDIATE")), mOpen(mBegun.isOk())
    {
    }
    ~Transaction()
    {
        if (mOpen)
            (void)mConnection.execute("ROLLBACK");
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Of the beginning; when it is not ok, there is no transaction.
    Result begun() const { return mBegun; }

    Result commit()
    {
        const Result result = mConnection.execute("COMMIT");
        mOpen = !result.isOk();
        return result;
    }

private:
    Connection& mConnection;
    const Result mBegun;
    bool mOpen;
};

} // namespace Sqlite
