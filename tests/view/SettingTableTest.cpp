#include "SettingTable.h"

#include "ApiProvider.h"
#include "DetailViewer.h"
#include "Dice.h"
#include "StatusValues.h"
#include "ViewTest.h"

#include <regex>
#include <set>

namespace {

void askNode(MenuNode& node)
{
    node.title(), node.label(), node.isHidden(), node.isEnabled();
    node.warningLabel(), node.warningText(), node.needsWarning();
    node.clearChildren();
    node.loadChildren();
    for (const Entry* row : node.mChildren)
        row->isHidden(), row->label(), row->hasValue(), row->valueText();
}

void askForm(FormEntry& form)
{
    form.title(), form.label(), form.isHidden(), form.isEnabled(), form.instructText();
    form.warningLabel(), form.warningText(), form.currentIndex();
    for (int i = form.optionCount(); i-- > 0;)
        form.optionLabel(i), form.needsWarning(i);
}

// Everything that an entry can be asked.
void ask(const std::string& name)
{
    Entry* entry = EntryRegistry::instance()->find(name);
    if (!entry)
        return;
    entry->isHidden(), entry->isEnabled(), entry->label(), entry->hasValue(), entry->valueText();
    const int kind = EntryRegistry::instance()->kindOf(entry);
    if (kind == ENTRY_FORM)
        askForm(*static_cast<FormAdapter*>(entry)->form());
    else if (kind == ENTRY_NODE)
        askNode(*static_cast<NodeAdapter*>(entry)->node());
}

// Any state that a store can be in: each setting is missing, or has any value that it can have.
void installAnything(Dice& dice)
{
    OperatorPack pack;
    for (const Setting& setting : knownSettings()) {
        const SettingRule& rule = setting.rule;
        const std::string texts[] = {"SUCCESS", "FAILED", "CANCELLED", "WRONG_VERSION"};
        const SettingValue plain[] = {dice.below(4), dice.oneIn(2), dice.pick(texts)};
        if (dice.oneIn(2))
            pack.settings.push_back(
                {setting.group, setting.key, rule.values.empty() ? plain[rule.type] : dice.pick(rule.values)});
    }
    EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
    CoreStore::instance().setFact("roaming", std::to_string(dice.below(2)));
    CoreStore::instance().setFact("friendly", std::to_string(dice.below(2)));
    StatusValues::state().updateInProgress = dice.oneIn(2);
}

void showEveryPopup()
{
    using State = ManRefreshView::State;
    ManRefreshView view;
    const Await<UPopup> close([] { Screen::pressAtOnce(Qt::Key_End); });
    for (const State state : {State::CONNECTING, State::DOWNLOADING, State::CONN_ERROR})
        view.showDlg(state);
    for (const State state : {State::DOWN_SUCCESS, State::QUEUE_ERROR}) {
        Screen::later([] { Screen::pressAtOnce(Qt::Key_End); });
        view.showDlg(state);
    }
}

} // namespace

// Who reads a setting that is missing says so in the log. What is said, whatever else the store holds, is what the table
// declares; but for the links, which are read only once.
TEST(SettingTable, DeclaresWhatIsRead)
{
    const TestStore store;
    const std::string types[] = {"int ", "bool ", "string "};
    std::set<std::string> declared, read;
    for (const auto& [group, key, rule, readers, meaning] : knownSettings())
        if (!std::string(key).ends_with("URL"))
            declared.insert(types[rule.type] + std::string(settingGroupName(group)) + '.' + key);
    const std::regex miss(R"(get (\w+) setting failed for (\S+): 1$)");
    ApiProvider::instance();
    EntryRegistry::instance();
    for (uint64_t round = 0; round < 200; ++round) {
        Dice dice(1, round);
        installAnything(dice);
        const LogCapture log;
        for (const auto& section : settingTable())
            ask(section.settings[0].readers);
        if (round < 20) {
            vtmenu::DetailViewer(nodeOf("Details"), nullptr, nullptr).showView();
            showEveryPopup();
        }
        for (const std::string& line : log.lines())
            if (std::smatch found; std::regex_search(line, found, miss))
                read.insert(found.str(1) + ' ' + found.str(2));
    }
    Lines forgotten, idle;
    std::ranges::set_difference(read, declared, std::back_inserter(forgotten));
    std::ranges::set_difference(declared, read, std::back_inserter(idle));
    StatusValues::state() = {};
    EXPECT_EQ(forgotten, Lines{}) << "read, but not declared";
    EXPECT_EQ(idle, Lines{}) << "declared, but never read";
}
