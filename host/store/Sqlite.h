#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

// The little of SQLite that the store needs, owned properly. Results are SQLite's own result codes.
namespace Sqlite {

// One open database file. Statements made from it must be gone before it is.
class Connection
{
public:
    Connection() = default;
    ~Connection() { close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Closes what was open. `file` is a path, or with SQLITE_OPEN_URI in `flags` a "file:" link.
    int open(const std::string& file, int flags);
    void close();
    // Closes without moving into the file what its companion files hold.
    void closeUntouched();

    // Runs statements that give no rows.
    int execute(const char* sql);
    // Rows that the last statement changed.
    int changes() const;

    sqlite3* handle() const { return mHandle; }

private:
    sqlite3* mHandle = nullptr;
};

// A prepared statement. Parameters count from 1, columns from 0.
class Statement
{
public:
    Statement() = default;
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    int prepare(Connection& connection, const char* sql);
    bool isPrepared() const { return mHandle; }

    // One run of the statement: binds every argument in order (int, bool, text, or a text that may be NULL) and
    // resets the statement at the end of its life, so that no read transaction and no lock outlives it. Texts
    // are not copied: they must outlive the run.
    class Run
    {
    public:
        template <typename... Values>
        explicit Run(Statement& statement, const Values&... values) : mStatement(statement.mHandle)
        {
            int index = 0;
            (bind(++index, values), ...);
        }
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        // SQLITE_ROW while there are rows, then SQLITE_DONE.
        int step();

        int number(int column) const;
        bool isNull(int column) const;
        std::string_view text(int column) const; // valid until the next step()

    private:
        void bind(int index, int value);
        void bind(int index, std::string_view value);
        void bind(int index, const std::string& value) { bind(index, std::string_view(value)); }
        void bind(int index, const std::optional<std::string>& value);

        sqlite3_stmt* mStatement;
    };

private:
    sqlite3_stmt* mHandle = nullptr;
};

} // namespace Sqlite
