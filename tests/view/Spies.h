#pragma once

#include "ActionEntry.h"
#include "EntryRegistry.h"
#include "FormAdapter.h"
#include "MenuNode.h"

#include <string>
#include <utility>
#include <vector>

// What the viewers asked, in order: each question and a blank.
inline std::string trace;

// Empties the trace.
inline std::string takeTrace()
{
    return std::exchange(trace, {});
}

template <class Answer>
Answer traced(const std::string& question, Answer answer)
{
    trace += question + ' ';
    return answer;
}

// An entry that answers what it is told.
class EntrySpy : public ActionEntry
{
public:
    explicit EntrySpy(const std::string& label, int kind = ENTRY_ACTION) : ActionEntry("", label)
    {
        EntryRegistry::instance()->add("EntrySpy " + label, this, kind);
    }

    bool isHidden() const override { return traced("isHidden", hidden); }
    bool isEnabled() const override { return traced("isEnabled", enabled); }
    std::string label() const override { return traced("label", mLabel); }
    bool hasValue() const override { return traced("hasValue", !value.empty()); }
    std::string valueText() const override { return traced("valueText", value); }
    void invoke() override { trace += "invoke:" + mLabel + ' '; }
    void invoke(int v) override { trace += "invoke:" + mLabel + ':' + std::to_string(v) + ' '; }

    bool hidden = false;
    bool enabled = true;
    std::string value;
};

// A node with the children that it is told.
class NodeSpy : public MenuNode
{
public:
    explicit NodeSpy(std::vector<Entry*> entries) : MenuNode("NodeSpy", 0), children(std::move(entries)) {}

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return traced("node.isEnabled", enabled); }
    std::string title() const override { return traced("title", std::string("Title")); }
    std::string label() const override { return traced("node.label", std::string("Node")); }
    void clearChildren() override
    {
        trace += "clearChildren ";
        MenuNode::clearChildren();
    }
    void loadChildren() override
    {
        trace += "loadChildren ";
        mChildren = children;
    }
    std::string warningLabel() const override { return traced("warningLabel", std::string("Off")); }
    std::string warningText() const override { return traced("warningText", std::string("Turn on?")); }
    bool needsWarning() const override { return traced("needsWarning", true); }
    void acceptWarning() override { trace += "acceptWarning "; }

    std::vector<Entry*> children;
    bool enabled = true;
};

// A form with the choices that it is told; the first one in force.
class FormSpy : public FormEntry
{
public:
    explicit FormSpy(std::vector<std::string> labels) : choices(std::move(labels)) {}

    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string title() const override { return traced("title", std::string("Caption")); }
    std::string instructText() const override { return traced("instructText", std::string("Choose:")); }
    int optionCount() const override { return traced("optionCount", static_cast<int>(choices.size())); }
    std::string label() const override { return "Form"; }
    std::string optionLabel(int i) const override { return choices.at(static_cast<size_t>(i)); }
    std::string warningLabel() const override { return traced("warningLabel", std::string("Sure")); }
    std::string warningText() const override { return traced("warningText", std::string("Really?")); }
    bool needsWarning(int i) const override { return traced("needsWarning:" + std::to_string(i), warns); }
    int currentIndex() const override { return traced("currentIndex", current); }
    bool setValue(int i) override { return traced("setValue:" + std::to_string(i), i != current); }

    std::vector<std::string> choices;
    int current = 0;
    bool warns = false;
};
