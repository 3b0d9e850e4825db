#include "OperatorPack.h"
#include "SettingGroups.h"
#include "Vistanectl.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using Edits = std::vector<std::pair<const char*, const char*>>; // a key, and its new value; null takes it away

// What lint says of a shipped pack in which some values are others.
Vistanectl::Result lint(const char* packName, const Edits& edits)
{
    QFile file(QStringLiteral(SOURCE_DIR "/share/packs/") + packName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QString pack = file.readAll();
    for (const auto& [key, value] : edits) {
        const QRegularExpression setting("\"" + QRegularExpression::escape(key) + "\": (\".*\"|\\w+)");
        EXPECT_TRUE(pack.contains(setting)) << key;
        pack.replace(setting, value ? QStringLiteral("\"%1\": %2").arg(key, value) : "\"unused\": 0");
    }
    return Vistanectl(pack.toUtf8()).run({"lint"});
}

} // namespace

TEST(Lint, NamesEveryFaultAndNothingElse)
{
    const char* const rootList = "SetupHeadlines.ChildIDs";
    const char* const subList = "ConfigureHeadlines.ChildIDs";
    const char* const success = "ManRefresh.Instruction.DownloadSuccessed";
    const std::pair<Edits, std::string> cases[] = {
        {{}, ""},
        {{{rootList, R"(" Details,,Detials, details ,")"}},
         "VtCore.Menu.SetupHeadlines.ChildIDs\tnames \"Detials\", which is no entry\n"
         "VtCore.Menu.SetupHeadlines.ChildIDs\tnames \"details\", which is no entry\n"},
        {{{subList, R"("Scrolling, SetupHeadlines")"}, {"SetupHeadlines.visible", nullptr}},
         "VtCore.Menu.ConfigureHeadlines.ChildIDs\tnames \"SetupHeadlines\", which leads back to it\n"},
        {{{rootList, R"(" ")"}}, "VtCore.Menu.SetupHeadlines.ChildIDs\tis empty\n"},
        {{{rootList, R"("HowToUse")"}, {"HowToUse.visible", "false"}},
         "VtCore.Menu.SetupHeadlines.ChildIDs\tnames no entry that is shown\n"},
        // Only entries on the screen need their texts; of a shared one, any of its readers.
        {{{"ConfigureHeadlines.visible", "false"},
          {"Scrolling.title", nullptr},
          {"Download.HomeLabel", nullptr}},
         "VtCore.Menu.Download.HomeLabel\tis missing\n"},
        {{{"HowToUse.title", R"("")"}, {"HowToUse.visible", nullptr}, {"AddNewChannelURL", nullptr}},
         "VtCore.Menu.HowToUse.visible\tis missing\nVtCore.Menu.HowToUse.title\tis empty\n"
         "VtNewsReader.UI.AddNewChannelURL\tis missing\n"},
        {{{"ManRefresh.Instruction.Retry", nullptr}}, "VtCore.Menu.ManRefresh.Instruction.Retry\tis missing\n"},
        {{{"ManRefresh.Instruction.Retry", nullptr}, {"ManualRefresh", "false"}, {"instruction", R"("")"}}, ""},
        {{{"Details.visible", R"("true")"}}, "VtCore.Menu.Details.visible\tis of type string, not bool\n"},
        {{{"DownloadOption", "3"}, {"ScrollingRate", "4"}, {"EnabledMode", R"("HIDDEN_MODE")"}},
         "VtNewsReader.UI.ScrollingRate\tis \"4\", not one of 0, 1, 2, 3\n"
         "VtCore.Service.DownloadOption\tis \"3\", not one of 0, 1, 2\n"},
        {{{success, R"("%2 stories, %5 KB")"}}, ""},
        {{{success, R"("%1 stories, %1 KB, 100%")"}},
         "VtCore.Menu.ManRefresh.Instruction.DownloadSuccessed\tdoes not have two placeholders, such as %1 and "
         "%2\n"},
    };
    for (const char* pack : {"en.json", "ar.json"}) {
        for (const auto& [edits, out] : cases) {
            const Vistanectl::Result result = lint(pack, edits);
            EXPECT_EQ(result.out, out);
            EXPECT_EQ(result.exit, out.empty() ? 0 : 1);
        }
    }
}

// Of a whole pack, without a table of what is looked at.
TEST(Lint, NamesEverySettingThatIsMissingOrOfAnotherType)
{
    const std::string optional[] = {"SetupHeadlines.label",          "ProfileSelected",
                                    "RuntimeValues.LastUpdateTime",  "RuntimeValues.LastUpdateResult",
                                    "RuntimeValues.ItemsDownloaded", "RuntimeValues.BytesDownloaded"};
    OperatorPack wrong, without;
    std::set<std::string> ofWrongType, missing;
    for (OperatorPack::Setting setting : OperatorPack::builtIn().settings) {
        const std::string name = std::string(settingGroupName(setting.group)) + '.' + setting.key;
        const bool isStructure = setting.key.ends_with("visible") || setting.key.ends_with("ChildIDs") ||
                                 setting.key == "ManualRefresh";
        if (isStructure)
            without.settings.push_back(setting);
        else if (std::find(std::begin(optional), std::end(optional), setting.key) == std::end(optional))
            missing.insert(name);
        ofWrongType.insert(name);
        setting.value = setting.value.index() == 0 ? SettingValue(true) : SettingValue(7);
        wrong.settings.push_back(setting);
    }
    const auto named = [](const OperatorPack& pack, const QString& fault) {
        std::set<std::string> names;
        for (const QString& line :
             QString::fromStdString(Vistanectl(pack.toJson()).run({"lint"}).out).split('\n')) {
            if (line.contains('\t' + fault))
                names.insert(line.section('\t', 0, 0).toStdString());
        }
        return names;
    };
    EXPECT_EQ(named(wrong, "is of type "), ofWrongType);
    EXPECT_EQ(named(without, "is missing"), missing);
}
