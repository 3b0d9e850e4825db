#pragma once

#include "OperatorPack.h"
#include "Scene.h"
#include "Sqlite.h"
#include "StoreStatus.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The one SQLite file of the service core: settings in two layers, the facts of the device, the channels and
// the operator profiles. Strings are UTF-8. All operations run on the calling thread and return a StoreStatus
// unless they say otherwise; what they were to read is left alone unless that is STORE_OK.
class CoreStore
{
public:
    enum class Layer { Pack, User };

    struct Listed
    {
        OperatorPack::Setting setting;
        Layer layer;
    };

    // The store named by VISTANE_DB, else $XDG_DATA_HOME/vistane/core.db; opened on the first call.
    static CoreStore& instance();

    // Makes instance() use `path` from now on; for programs that serve several stores in a row, as tests do.
    static void use(const std::string& path);

    // Opens `path`, creating the file (0600) and its folder (0700) from the built-in pack. A file that can't
    // be used is renamed to a free name beside it, which is logged, and a new one takes its place; when the
    // disk refuses that, the store lives in memory, holds the built-in pack, and every write answers
    // STORE_UNWRITABLE. A file that is replaced or removed meanwhile is noticed at the next write, which goes to the one
    // that is there then. So does a question for a fact that is not there, since who waits for a fact writes nothing; it also
    // tries a file that could not be used again, once a second at most.
    explicit CoreStore(const std::string& path);
    ~CoreStore();
    CoreStore(const CoreStore&) = delete;
    CoreStore& operator=(const CoreStore&) = delete;

    // How many milliseconds instance() waits for another program's write, 500 when nobody says so: a menu stands still
    // meanwhile. After it was in vain, it does not wait again for a moment. To be called before instance().
    static void setPatience(int milliseconds);

    // Has `listener` called after every commit of this process with the names of what was written: a setting's group, a dot
    // and its key, "device." and a fact, "channels", "profiles". None stands for everything. For one at a time.
    using Listener = std::function<void(const std::vector<std::string>& names)>;
    static void onChanged(Listener listener);

    // False when the store lives in memory because its file can't be used.
    bool isOnDisk() const;

    // Settings. read() answers with the user's value, else the pack's; a value in the file that no setting can have is of
    // a wrong type. write() sets the user's value;
    // reset() takes it away, STORE_NOT_FOUND when there is none.
    StoreStatus read(int group, std::string_view key, SettingValue& value);
    StoreStatus write(int group, std::string_view key, const SettingValue& value);
    StoreStatus reset(int group, std::string_view key);
    // The settings in force, ordered by group and key.
    StoreStatus list(std::vector<Listed>& settings);

    // The operator's layer, all or nothing. Installing replaces the settings of the pack layer, and the profiles
    // where the pack brings them; the user's values stay. With new profiles, the one in force stays in force when
    // it is among them, else the first that can be chosen comes into force.
    StoreStatus installPack(const OperatorPack& pack);
    StoreStatus exportPack(OperatorPack& pack);

    // Brings about a state of the phone, all or nothing: sets the facts that the scene names, replaces the channels
    // where it brings them, and writes its figures as the service does.
    StoreStatus loadScene(const Scene& scene);

    // The facts of the device that were set by hand, by the names of Scene::factNames(). An empty value means the device
    // can't tell. Reading or unsetting one that nobody has set answers STORE_NOT_FOUND.
    StoreStatus fact(std::string_view name, std::string& value);
    StoreStatus setFact(std::string_view name, std::string_view value);
    StoreStatus unsetFact(std::string_view name);

    // Channels in the order of the container that holds them. One without a title is named by the container
    // but is not in the cache. Adding an existing one sets its title; reading or removing an unknown one
    // answers STORE_NOT_FOUND.
    StoreStatus channels(std::vector<Scene::Channel>& channels);
    StoreStatus channel(std::string_view id, Scene::Channel& channel);
    StoreStatus addChannel(const Scene::Channel& channel);
    StoreStatus removeChannel(std::string_view id);

    // Profiles in the operator's order, and the one in force: empty when none is, which is so only when none
    // can be chosen. When adding or removing one leaves none in force, the first that can be chosen comes into
    // force. Reading, removing or choosing an unknown one answers STORE_NOT_FOUND.
    StoreStatus profiles(std::vector<OperatorPack::Profile>& profiles);
    StoreStatus profile(std::string_view id, OperatorPack::Profile& profile);
    StoreStatus addProfile(const OperatorPack::Profile& profile);
    StoreStatus removeProfile(std::string_view id);
    StoreStatus currentProfile(std::string& id);
    StoreStatus setCurrentProfile(std::string_view id);

private:
    struct Database;

    void open(int patience);
    bool reopen();
    Database& forWriting();
    void afterWriting(StoreStatus status);
    template <typename... Values>
    StoreStatus change(std::string name, Sqlite::Query Database::*query, const Values&... values);
    void tellChanges();
    template <typename Work>
    StoreStatus inTransaction(Work work);
    template <typename Work>
    StoreStatus changeProfiles(Work work);

    const std::string mPath;
    std::vector<std::string> mChanged; // names of what was written and is not told yet
    std::string mReason;               // why the store lives in memory
    std::unique_ptr<Database> mDatabase;
};
