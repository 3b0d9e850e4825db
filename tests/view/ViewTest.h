#pragma once

#include "FormEntry.h"
#include "HostBus.h"
#include "LogCapture.h"
#include "ManRefreshView.h"
#include "MenuStore.h"
#include "NR_Constants.h"
#include "Screen.h"
#include "SettingHelper.h"
#include "TextBlock.h"
#include "UListBox.h"
#include "UListItem.h"
#include "UProgressDlg.h"
#include "USoftKey.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QApplication>

// What the tests of the viewers share: spies that note what they are asked, and looks at the screen.

using Lines = std::vector<std::string>;

// What the viewers asked, in order: each question and a blank.
inline std::string trace;

// Empties the trace.
inline std::string takeTrace()
{
    return std::exchange(trace, {});
}

template <class Answer = std::string>
Answer traced(const std::string& question, Answer answer)
{
    trace += question + ' ';
    return answer;
}

struct EntrySpy : ActionEntry
{
    explicit EntrySpy(const std::string& label, std::string text = {}, int kind = ENTRY_ACTION)
        : ActionEntry("", label), value(std::move(text))
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

    bool hidden = false, enabled = true;
    const std::string value;
};

struct NodeSpy : MenuNode
{
    explicit NodeSpy(std::vector<Entry*> entries) : MenuNode("NodeSpy", 0), children(std::move(entries)) {}
    bool isHidden() const override { return false; }
    bool isEnabled() const override { return traced("node.isEnabled", enabled); }
    std::string title() const override { return traced("title", caption); }
    std::string label() const override { return {}; }
    void clearChildren() override { MenuNode::clearChildren(), trace += "clearChildren "; }
    void loadChildren() override { mChildren = traced("loadChildren", children); }
    std::string warningLabel() const override { return traced<>("warningLabel", "Off"); }
    std::string warningText() const override { return traced<>("warningText", "Turn on?"); }
    bool needsWarning() const override { return traced("needsWarning", true); }
    void acceptWarning() override { trace += "acceptWarning "; }

    std::vector<Entry*> children;
    std::string caption = "Title";
    bool enabled = true;
};

struct FormSpy : FormEntry
{
    explicit FormSpy(Lines labels) : choices(std::move(labels)) {}
    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string title() const override { return traced<>("title", "Caption"); }
    std::string instructText() const override { return traced<>("instructText", "Choose:"); }
    int optionCount() const override { return traced("optionCount", static_cast<int>(choices.size())); }
    std::string label() const override { return "Form"; }
    std::string optionLabel(int i) const override { return choices.at(static_cast<size_t>(i)); }
    std::string warningLabel() const override { return traced<>("warningLabel", "Sure"); }
    std::string warningText() const override { return traced<>("warningText", "Really?"); }
    bool needsWarning(int i) const override { return traced("needsWarning:" + std::to_string(i), warns); }
    int currentIndex() const override { return traced("currentIndex", current); }
    bool setValue(int i) override { return traced("setValue:" + std::to_string(i), i != current); }

    Lines choices;
    int current = 1;
    bool warns = false;
};

// The layer of this kind that has the keys, or null.
template <class Layer>
Layer* onTop()
{
    for (auto* layer : PhoneScreen::instance()->findChildren<Layer*>())
        if (PhoneScreen::instance()->isOnTop(layer))
            return layer;
    return nullptr;
}

// While it lives, runs `action` once, as soon as a layer of this kind comes up.
template <class Layer>
struct Await : QTimer
{
    explicit Await(const std::function<void()>& action)
    {
        callOnTimeout([this, action] {
            if (onTop<Layer>())
                stop(), action();
        });
        start(1);
    }
};

// Presses keys by their names, each at once. "Close" stands for the message that closes the menu.
inline void press(const std::string& keys, QWidget* menu = nullptr)
{
    for (const QString& key : QString::fromStdString(keys).split(' ')) {
        if (key == "Close")
            QMetaObject::invokeMethod(menu, "hideAndDelete");
        else
            Screen::pressAtOnce(QKeySequence(key)[0].key());
    }
}

// The rows of the list in a layer as "label|value", a greyed one in brackets.
inline Lines rowsOf(const QWidget& layer)
{
    Lines rows;
    const auto* list = layer.findChild<UListBox*>();
    for (int row = 0; row < list->count(); ++row) {
        const UListItem* item = list->item(row);
        const std::string text = item->lines().join(u'|').toStdString();
        rows.push_back((item->isEnabled() ? "" : "[") + text + (item->isSelectable() ? "" : "]"));
    }
    return rows;
}

// The pop-ups on the screen, bottom to top: their texts, the progress where there is a bar, and their soft
// keys.
inline Lines popups()
{
    Lines shown;
    for (const UPopup* popup : PhoneScreen::instance()->findChildren<UPopup*>(Qt::FindDirectChildrenOnly)) {
        if (popup->isHidden())
            continue;
        QString look;
        for (const TextBlock* text : popup->findChildren<TextBlock*>())
            look += text->accessibleName() + u' ';
        if (const auto* progress = qobject_cast<const UProgressDlg*>(popup))
            look += QStringLiteral("%1% ").arg(progress->progress());
        const auto* keys = popup->findChild<USoftKey*>();
        look += QStringLiteral("(%1 | %2)").arg(keys->text(USoftKey::Left), keys->text(USoftKey::Right));
        shown.push_back(look.toStdString());
    }
    return shown;
}

// Most texts are their own keys, a retry does not pause, and there is a service.
class RefreshTest : public testing::Test
{
protected:
    void SetUp() override
    {
        EXPECT_TRUE(HostBus::ownServiceName());
        ManRefreshView::retryPause = 0;
        setStringSetting(GROUP_MENU, "ManRefresh.Instruction.DownloadSuccessed", "%1 stories, %2 KB");
    }
    void TearDown() override
    {
        Screen::pressAtOnce(Qt::Key_End);
        Screen::settle();
    }

    MenuStore mStore{MenuStore::KEYS};
    LogCapture mLog;
};
