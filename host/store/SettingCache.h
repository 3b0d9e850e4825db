#pragma once

#include "SettingValue.h"
#include "StoreStatus.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Sqlite {
class Connection;
}

// What was read of the settings, for as long as nobody has written to the file since, in this program or another. To ask
// the file costs system calls for its locks each time, and a menu asks for the same few settings again and again.
class SettingCache
{
public:
    struct Answer
    {
        StoreStatus status;
        SettingValue value;
    };

    // The connection has to outlive this. Of a file that has no write-ahead log, nothing is ever known.
    explicit SettingCache(Sqlite::Connection& connection) : mConnection(connection) {}

    // Null when it has to be read; add() then takes what came of that. Not to be asked inside a write transaction, whose
    // changes nobody has been told of.
    const Answer* find(int group, std::string_view key);
    void add(int group, std::string_view key, Answer answer);

private:
    // The beginning of the index that SQLite shares between all programs which have the file open: every commit changes
    // it. There are two copies, which differ while it is being written.
    using Header = std::array<uint32_t, 12>;

    void findIndex();
    std::optional<Header> header() const;

    Sqlite::Connection& mConnection;
    bool mLooked = false;
    const volatile uint32_t* mIndex = nullptr; // SQLite's, for as long as the connection is open
    std::optional<Header> mAsOf;               // when what is known was read
    std::map<int, std::map<std::string, Answer, std::less<>>> mKnown;
};
