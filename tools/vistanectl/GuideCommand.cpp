#include "Commands.h"

#include "OperatorPack.h"
#include "SettingKey.h"
#include "SettingTable.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

// As a pack would say it.
std::string defaultOf(const Setting& setting)
{
    const auto& settings = OperatorPack::builtIn().settings;
    const auto found = std::find_if(settings.begin(), settings.end(), [&](const OperatorPack::Setting& one) {
        return one.group == setting.group && one.key == setting.key;
    });
    if (found == settings.end())
        return {};
    const QByteArray list = QJsonDocument(QJsonArray{toJson(found->value)}).toJson(QJsonDocument::Compact);
    return list.sliced(1).chopped(1).toStdString();
}

// The part of the operator's guide that lists the settings.
int printGuide()
{
    for (const auto& [title, settings] : settingTable()) {
        Output::line(std::string("### ") + title + "\n\n| Setting | Type | Default | Read by | Meaning |\n" +
                     "|---|---|---|---|---|");
        for (const Setting& setting : settings)
            Output::line("| `" + SettingKey::nameOf({setting.group, setting.key, {}}) + "` | " +
                         settingTypeNames[setting.rule.type] + " | `" + defaultOf(setting) + "` | " +
                         setting.readers + " | " + setting.meaning + " |");
        Output::line("");
    }
    return Done;
}

} // namespace

void addGuideCommand(Tool& tool)
{
    tool.onRun(tool.add("guide", "Print the operator's tables of settings, as Markdown"),
               [] { return printGuide(); });
}
