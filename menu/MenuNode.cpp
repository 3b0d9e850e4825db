#include "MenuNode.h"

#include "EntryRegistry.h"
#include "MenuSettings.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace {

// The nodes whose children are being loaded, outermost first.
std::vector<const MenuNode*> loading;

bool isLoading(const MenuNode* node)
{
    return std::find(loading.begin(), loading.end(), node) != loading.end();
}

// The entry that stands in a menu for `entry`: an only child for its sub-menu, all the way down. Null when that
// child is null.
Entry* collapsed(Entry* entry)
{
    const EntryRegistry& registry = *EntryRegistry::instance();
    const size_t depth = loading.size();
    while (registry.kindOf(entry) == ENTRY_NODE) {
        MenuNode* node = static_cast<NodeAdapter*>(entry)->node();
        if (isLoading(node))
            break;
        node->clearChildren();
        node->loadChildren();
        if (node->mChildren.size() != 1)
            break;
        entry = node->mChildren.front();
        loading.push_back(node); // the way down may lead back here
    }
    loading.resize(depth);
    return entry;
}

} // namespace

MenuNode::MenuNode(const std::string& name, int detailsFlag) : mName(name), mDetailsFlag(detailsFlag) {}

void MenuNode::clearChildren()
{
    mChildren.clear();
}

void MenuNode::loadChildren()
{
    std::map<Entry*, Entry*> seen; // a list that repeats itself must not load what is below it each time
    loading.push_back(this);
    for (const std::string& name : childNames(MenuSettings::text(mName + ".ChildIDs"))) {
        Entry* entry = EntryRegistry::instance()->find(name);
        if (!entry || entry->isHidden())
            continue;
        const auto [known, isNew] = seen.try_emplace(entry, nullptr);
        if (isNew)
            known->second = collapsed(entry);
        entry = known->second;
        if (entry && !entry->isHidden())
            mChildren.push_back(entry);
    }
    loading.pop_back();
}

std::vector<std::string> childNames(const std::string& list)
{
    std::vector<std::string> names;
    // The list is read as C text: a zero character ends all of it, not only the name in which it stands.
    const std::string_view text = list.c_str();
    for (size_t begin = 0, end; begin < text.size(); begin = end + 1) {
        end = std::min(text.find(',', begin), text.size());
        std::string name(text.substr(begin, end - begin));
        trimSpaces(name.data());
        name.resize(std::strlen(name.data()));
        if (!name.empty())
            names.push_back(name);
    }
    return names;
}

void trimSpaces(char* text)
{
    if (!text)
        return;
    const char* first = text + std::strspn(text, " ");
    size_t length = std::strlen(first);
    while (length > 0 && first[length - 1] == ' ')
        --length;
    std::memmove(text, first, length);
    text[length] = '\0';
}
