#include "Commands.h"

#include "CoreStore.h"
#include "MenuNode.h"
#include "SettingHelper.h"
#include "SettingKey.h"
#include "SettingTable.h"
#include "Tool.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <set>

namespace {

constexpr char rootName[] = "SetupHeadlines";

using Faults = std::vector<std::string>;

std::string toText(const SettingValue& value)
{
    return toJson(value).toVariant().toString().toStdString();
}

std::string listOf(const std::vector<SettingValue>& values)
{
    std::string list;
    for (const SettingValue& value : values)
        list += (list.empty() ? "" : ", ") + toText(value);
    return list;
}

bool isBlank(const std::string& text)
{
    return QString::fromStdString(text).trimmed().isEmpty();
}

// Different ones are filled one after the other, whatever their numbers.
int placeholdersIn(const std::string& text)
{
    static const QRegularExpression placeholder(QStringLiteral("%L?([0-9]{1,2})"));
    std::set<int> numbers;
    for (const QRegularExpressionMatch& match : placeholder.globalMatch(QString::fromStdString(text)))
        numbers.insert(match.captured(1).toInt());
    return static_cast<int>(numbers.size());
}

// Looks for faults in one set of settings.
class Lint
{
public:
    explicit Lint(const std::vector<CoreStore::Listed>& settings)
    {
        for (const auto& [setting, layer] : settings)
            mValues[{setting.group, setting.key}] = setting.value;
        mShown.insert(rootName);
        walk(rootName, true);
        const SettingValue* manualRefresh = find(GROUP_UI, "ManualRefresh");
        if (mShown.contains("Details") && manualRefresh && *manualRefresh == SettingValue(true))
            mShown.insert(manualRefreshReader);
    }

    Faults faultsOf(const Setting& known) const
    {
        const SettingRule& rule = known.rule;
        const SettingValue* value = find(known.group, known.key);
        if (!value)
            return isRead(known) && !rule.mayBeMissing ? Faults{"is missing"} : Faults{};
        if (value->index() != rule.type)
            return {std::string("is of type ") + settingTypeNames[value->index()] + ", not " +
                    settingTypeNames[rule.type]};
        const auto& allowed = rule.values;
        if (!allowed.empty())
            return std::find(allowed.begin(), allowed.end(), *value) == allowed.end()
                       ? Faults{"is \"" + toText(*value) + "\", not one of " + listOf(allowed)}
                       : Faults{};
        const auto* text = std::get_if<std::string>(value);
        return text ? faultsOf(known, *text) : Faults{};
    }

private:
    Faults faultsOf(const Setting& known, const std::string& text) const
    {
        if (isBlank(text))
            return isRead(known) && !known.rule.mayBeEmpty ? Faults{"is empty"} : Faults{};
        if (known.rule.content == SettingRule::Content::EntryNames)
            return childFaults(known);
        if (known.rule.content == SettingRule::Content::TwoPlaceholders && placeholdersIn(text) != 2)
            return {"does not have two placeholders, such as %1 and %2"};
        return {};
    }

    Faults childFaults(const Setting& list) const
    {
        const std::string menu = list.readers;
        Faults faults;
        bool isShown = false;
        for (const std::string& name : childrenOf(menu)) {
            if (!isEntry(name))
                faults.push_back("names \"" + name + "\", which is no entry");
            else if (mLoops.contains({menu, name}))
                faults.push_back("names \"" + name + "\", which leads back to it");
            isShown = isShown || mShown.contains(name);
        }
        if (!isShown && mShown.contains(menu))
            faults.push_back("names no entry that is shown");
        return faults;
    }

    // Notes what is under a menu: entries that reach the screen, and names that lead back up. These are a fault
    // in a hidden menu, too, which would take effect once it is shown.
    void walk(const std::string& menu, bool isMenuShown)
    {
        mPath.push_back(menu);
        for (const std::string& name : childrenOf(menu)) {
            if (std::find(mPath.begin(), mPath.end(), name) != mPath.end()) {
                mLoops.insert({menu, name});
                continue;
            }
            const bool isShown = isMenuShown && isEntry(name) && !isHidden(name);
            if (isShown)
                mShown.insert(name);
            walk(name, isShown);
        }
        mPath.pop_back();
    }

    // The names in a menu's child list; none for an entry that reads no such list.
    std::vector<std::string> childrenOf(const std::string& menu) const
    {
        const std::string key = menu + ".ChildIDs";
        const SettingValue* value = isKnown(key) ? find(GROUP_MENU, key) : nullptr;
        const auto* list = value ? std::get_if<std::string>(value) : nullptr;
        return list ? childNames(*list) : std::vector<std::string>();
    }

    // An operator hides an entry by saying so; without a flag it is hidden by mistake.
    bool isHidden(const std::string& name) const
    {
        const SettingValue* visible = find(GROUP_MENU, name + ".visible");
        return visible && *visible == SettingValue(false);
    }

    static bool isEntry(const std::string& name) { return isKnown(name + ".visible"); }

    static bool isKnown(const std::string& menuKey)
    {
        const auto known = knownSettings();
        return std::any_of(known.begin(), known.end(), [&](const Setting& setting) {
            return setting.group == GROUP_MENU && setting.key == menuKey;
        });
    }

    bool isRead(const Setting& known) const
    {
        const std::vector<std::string> readers = childNames(known.readers);
        return std::any_of(readers.begin(), readers.end(),
                           [this](const std::string& reader) { return mShown.contains(reader); });
    }

    const SettingValue* find(int group, const std::string& key) const
    {
        const auto found = mValues.find({group, key});
        return found == mValues.end() ? nullptr : &found->second;
    }

    std::map<std::pair<int, std::string>, SettingValue> mValues;
    std::set<std::string> mShown; // entries that reach the screen
    std::set<std::pair<std::string, std::string>>
        mLoops;                     // a menu, and a name in it that leads back to the menu
    std::vector<std::string> mPath; // of walk(): the menus from the root down
};

int lint(const Tool& tool, CoreStore& store)
{
    std::vector<CoreStore::Listed> settings;
    if (const int status = store.list(settings); status != STORE_OK)
        return tool.finish(status, "lint");
    const Lint lint(settings);
    Output::Table table(tool.json());
    Exit exit = Done;
    for (const Setting& known : knownSettings()) {
        for (const std::string& fault : lint.faultsOf(known)) {
            const std::string name = SettingKey::nameOf({known.group, known.key, {}});
            table.add({{"key", Output::toJson(name)}, {"fault", Output::toJson(fault)}});
            exit = Refused;
        }
    }
    return exit;
}

} // namespace

void addLintCommand(Tool& tool)
{
    CLI::App& command = tool.add("lint", "Look for faults in the settings in force: key, fault");
    command.footer("Exit status: 0 when there is none, 1 when there is one.");
    tool.onRun(command, [&tool](CoreStore& store) { return lint(tool, store); });
}
