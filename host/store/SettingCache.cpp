#include "SettingCache.h"

#include "Sqlite.h"

#include <sqlite3.h>

#include <atomic>

namespace {

constexpr size_t mostOfAGroup = 1000; // more than a menu asks for

} // namespace

const SettingCache::Answer* SettingCache::find(int group, std::string_view key)
{
    if (!mLooked)
        findIndex();
    const std::optional<Header> now = header();
    if (!now || now != mAsOf) {
        mKnown.clear();
        mAsOf = now;
        return nullptr;
    }
    const auto& known = mKnown[group];
    const auto found = known.find(key);
    return found == known.end() ? nullptr : &found->second;
}

void SettingCache::add(int group, std::string_view key, Answer answer)
{
    if (mAsOf && mKnown[group].size() < mostOfAGroup)
        mKnown[group].emplace(key, std::move(answer));
}

// In any other mode, SQLite would make the index to show it.
void SettingCache::findIndex()
{
    mLooked = true;
    Sqlite::Query mode(mConnection, "PRAGMA journal_mode");
    Sqlite::Run run = mode.run();
    if (!run.step().isRow() || run.text(0) != "wal")
        return;
    sqlite3_file* file = nullptr;
    sqlite3_file_control(mConnection.handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (!file || !file->pMethods || file->pMethods->iVersion < 2)
        return;
    constexpr int regionSize = 32768; // as SQLite maps it
    void volatile* index = nullptr;
    if (file->pMethods->xShmMap(file, 0, regionSize, 0, &index) == SQLITE_OK)
        mIndex = static_cast<const volatile uint32_t*>(index);
}

std::optional<SettingCache::Header> SettingCache::header() const
{
    if (!mIndex)
        return std::nullopt;
    Header first, second;
    for (size_t i = 0; i < first.size(); ++i) // a commit writes the second copy first
        first[i] = mIndex[i];
    std::atomic_thread_fence(std::memory_order_acquire);
    for (size_t i = 0; i < second.size(); ++i)
        second[i] = mIndex[first.size() + i];
    return first == second ? std::optional(first) : std::nullopt;
}
