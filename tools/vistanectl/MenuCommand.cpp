#include "Commands.h"

#include "ApiProvider.h"
#include "EntryRegistry.h"
#include "MenuNode.h"
#include "Tool.h"

#include <memory>
#include <set>

namespace {

const char* kindName(int kind)
{
    switch (kind) {
    case ENTRY_ACTION:
        return "action";
    case ENTRY_FORM:
        return "form";
    case ENTRY_NODE:
        return "node";
    case ENTRY_LINK:
        return "link";
    default:
        return "row";
    }
}

// Prints a menu as the viewers build it, and what is under it.
class MenuPrinter
{
public:
    explicit MenuPrinter(bool json) : mTable(json) {}

    void print(MenuNode* node)
    {
        node->clearChildren();
        node->loadChildren();
        mOpen.insert(node);
        ++mDepth;
        // Copied: a menu further down may load the same node anew.
        const std::vector<Entry*> children = node->mChildren;
        for (Entry* child : children) {
            if (!child->isHidden())
                print(child);
        }
        --mDepth;
        mOpen.erase(node);
    }

private:
    void print(Entry* entry)
    {
        const int kind = EntryRegistry::instance()->kindOf(entry);
        const std::string label = entry->label();
        const std::string value = entry->hasValue() ? entry->valueText() : std::string();
        const bool greyed = !entry->isEnabled();
        mTable.add({{"depth", mDepth, {}, true},
                    {"label", Output::toJson(label), std::string(static_cast<size_t>(mDepth) * 2, ' ') + label},
                    {"value", Output::toJson(value)},
                    {"greyed", greyed, greyed ? "greyed" : ""},
                    {"kind", kindName(kind)}});
        // A menu that stands below itself is listed but not entered.
        if (kind != ENTRY_NODE)
            return;
        MenuNode* node = static_cast<NodeAdapter*>(entry)->node();
        if (!mOpen.contains(node))
            print(node);
    }

    Output::Table mTable;
    std::set<const MenuNode*> mOpen;
    int mDepth = -1;
};

int printMenu(const Tool& tool, const std::string& name)
{
    ApiProvider::instance();
    EntryRegistry* registry = EntryRegistry::instance();
    Entry* entry = registry->find(name);
    if (registry->kindOf(entry) != ENTRY_NODE)
        return tool.fail(Refused, name, "is no menu");
    MenuPrinter(tool.json()).print(static_cast<NodeAdapter*>(entry)->node());
    return Done;
}

} // namespace

void addMenuCommand(Tool& tool)
{
    const auto node = std::make_shared<std::string>("SetupHeadlines");
    CLI::App& command = tool.add("menu", "Show the menu as the user sees it now: label, value, greyed, kind");
    command.add_option("NODE", *node, "The menu to show, SetupHeadlines without it");
    tool.onRun(command, [&tool, node](CoreStore&) { return printMenu(tool, *node); });
}
