#include "SettingTable.h"

#include "ApiProvider.h"
#include "DetailViewer.h"
#include "Dice.h"
#include "StatusValues.h"
#include "ViewTest.h"

#include <regex>
#include <set>

namespace {

// Everything that an entry can be asked.
void ask(Entry* entry)
{
    entry->isHidden(), entry->isEnabled(), entry->label(), entry->hasValue(), entry->valueText();
    if (const auto* line = dynamic_cast<FormAdapter*>(entry)) {
        FormEntry& form = *line->form();
        form.title(), form.instructText(), form.warningLabel(), form.warningText(), form.currentIndex();
        for (int i = form.optionCount(); i-- > 0;)
            form.optionLabel(i), form.needsWarning(i);
    } else if (const auto* line = dynamic_cast<NodeAdapter*>(entry)) {
        MenuNode& node = *line->node();
        node.title(), node.warningLabel(), node.warningText(), node.needsWarning();
        node.clearChildren();
        node.loadChildren();
        std::ranges::for_each(node.mChildren, ask);
    }
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
    using enum ManRefreshView::State;
    ManRefreshView view;
    for (const auto state : {CONNECTING, DOWNLOADING, CONN_ERROR, DOWN_SUCCESS, QUEUE_ERROR}) {
        Screen::later([] { press("End"); }); // the last two wait for that
        view.showDlg(state);
    }
}

} // namespace

// Who reads a setting that is missing says so in the log. Whatever else the store holds, that is what the table
// declares, but for the links, which are read only once.
TEST(SettingTable, DeclaresWhatIsRead)
{
    const TestStore store;
    const std::string types[] = {"int ", "bool ", "string "};
    const std::regex optional(R"(^SetupHeadlines\.(visible|label)$|^ProfileSelected$|^RuntimeValues)");
    std::set<std::string> declared, read;
    for (const auto& [group, key, rule, readers, meaning] : knownSettings()) {
        EXPECT_EQ(rule.mayBeMissing, std::regex_search(key, optional)) << key;
        if (!std::string(key).ends_with("URL"))
            declared.insert(types[rule.type] + std::string(settingGroupName(group)) + '.' + key);
    }
    const std::regex miss(R"(get (\w+) setting failed for (\S+): 1\n)");
    ApiProvider::instance();
    EntryRegistry::instance();
    for (uint64_t round = 0; round < 200; ++round) {
        Dice dice(1, round);
        installAnything(dice);
        const LogCapture log;
        for (const auto& section : settingTable())
            if (Entry* entry = EntryRegistry::instance()->find(section.settings[0].readers))
                ask(entry);
        if (round < 20) {
            vtmenu::DetailViewer(nodeOf("Details"), nullptr, nullptr).showView();
            showEveryPopup();
        }
        const std::string said = log.text();
        for (std::sregex_iterator found(said.begin(), said.end(), miss), end; found != end; ++found)
            read.insert(found->str(1) + ' ' + found->str(2));
    }
    StatusValues::state() = {};
    Lines odd;
    std::ranges::set_symmetric_difference(read, declared, std::back_inserter(odd));
    EXPECT_EQ(odd, Lines{}) << "read, but not declared, or declared, but never read";
}
