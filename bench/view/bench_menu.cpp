// What it costs to build a menu anew, and what a setting read costs beside the bare query of its file.

#include "ApiProvider.h"
#include "CoreStore.h"
#include "EntryRegistry.h"
#include "MenuNode.h"
#include "MenuViewer.h"
#include "SettingHelper.h"
#include "UApplication.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <iterator>
#include <string>

namespace {

// Every entry that there is.
constexpr const char* names[] = {"CustomHomeMode",   "HowToUse",           "AddNewChannel", "Scrolling",
                                 "ManageMyChannels", "ConfigureHeadlines", "Download",      "Details",
                                 "Profile",          "SetupHeadlines"};

void rebuild(benchmark::State& state)
{
    std::string children;
    for (int64_t i = 0; i < state.range(0); ++i)
        children += std::string(names[static_cast<size_t>(i) % std::size(names)]) + ',';
    setStringSetting(GROUP_MENU, "SetupHeadlines.ChildIDs", children);
    MenuNode* node = static_cast<NodeAdapter*>(EntryRegistry::instance()->find("SetupHeadlines"))->node();
    vtmenu::MenuViewer viewer(node, true, nullptr, nullptr);
    viewer.showView();
    for (auto _ : state)
        viewer.rebuildMenuView();
    if (node->mChildren.size() != static_cast<size_t>(state.range(0)))
        state.SkipWithError("entries are missing");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(rebuild)->Arg(10)->Arg(100)->Arg(500)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oN);

// The query behind a setting, on a connection of its own.
class BareQuery
{
public:
    BareQuery()
    {
        sqlite3_open_v2(qgetenv("VISTANE_DB").constData(), &mFile, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_prepare_v3(
            mFile, "SELECT type, value FROM setting WHERE grp = ?1 AND key = ?2 ORDER BY layer DESC LIMIT 1",
            -1, SQLITE_PREPARE_PERSISTENT, &mStatement, nullptr);
    }
    ~BareQuery()
    {
        sqlite3_finalize(mStatement);
        sqlite3_close(mFile);
    }

    // `take` reads the value of the row.
    template <typename Take>
    void run(int group, const char* key, Take take)
    {
        sqlite3_bind_int(mStatement, 1, group);
        sqlite3_bind_text(mStatement, 2, key, -1, SQLITE_STATIC);
        if (sqlite3_step(mStatement) == SQLITE_ROW)
            take(mStatement);
        sqlite3_reset(mStatement);
    }

private:
    sqlite3* mFile = nullptr;
    sqlite3_stmt* mStatement = nullptr;
};

void bareInt(benchmark::State& state)
{
    BareQuery query;
    for (auto _ : state) {
        query.run(GROUP_NEWS_READER_UI, "ScrollingRate", [](sqlite3_stmt* row) {
            benchmark::DoNotOptimize(sqlite3_column_int(row, 0));
            benchmark::DoNotOptimize(sqlite3_column_int(row, 1));
        });
    }
}
BENCHMARK(bareInt);

void intSetting(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(getIntSetting(GROUP_NEWS_READER_UI, "ScrollingRate"));
}
BENCHMARK(intSetting);

void bareString(benchmark::State& state)
{
    BareQuery query;
    for (auto _ : state) {
        query.run(GROUP_MENU, "Scrolling.label", [](sqlite3_stmt* row) {
            benchmark::DoNotOptimize(sqlite3_column_int(row, 0));
            std::string text(reinterpret_cast<const char*>(sqlite3_column_text(row, 1)),
                             static_cast<size_t>(sqlite3_column_bytes(row, 1)));
            benchmark::DoNotOptimize(text);
        });
    }
}
BENCHMARK(bareString);

void stringSetting(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(getStringSetting(GROUP_MENU, "Scrolling.label"));
}
BENCHMARK(stringSetting);

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir dir;
    qputenv("VISTANE_DB", dir.filePath("core.db").toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    UApplication application(argc, argv, UApplication::GuiClient);
    ApiProvider::instance();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
