#include "OperatorPack.h"
#include "SettingGroups.h"
#include "Table.h"
#include "Vistanectl.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

// What lint says of a shipped pack in which some values are others: "key=new value/key that is taken away".
Vistanectl::Result lint(const char* packName, const std::string& edits)
{
    QFile file(QStringLiteral(SOURCE_DIR "/share/packs/") + packName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QString pack = file.readAll();
    for (const QString& edit : QString::fromStdString(edits).split('/', Qt::SkipEmptyParts)) {
        const QString key = edit.section('=', 0, 0), value = edit.section('=', 1);
        const QRegularExpression setting("\"" + QRegularExpression::escape(key) + "\": (\".*\"|\\w+)");
        EXPECT_TRUE(pack.contains(setting)) << edits;
        pack.replace(setting, value.isEmpty() ? "\"unused\": 0" : '"' + key + "\": " + value);
    }
    return Vistanectl(pack.toUtf8()).run({"lint"});
}

} // namespace

TEST(Lint, NamesEveryFaultAndNothingElse)
{
    // Edits, and what lint says, its lines joined by "^". Only entries on the screen need their texts; of a shared one,
    // any of its readers.
    const auto cases = table<2>(R"(
|
SetupHeadlines.ChildIDs=" Details,,Detials, details ,"|VtCore.Menu.SetupHeadlines.ChildIDs names "Detials", which is no entry^VtCore.Menu.SetupHeadlines.ChildIDs names "details", which is no entry
ConfigureHeadlines.ChildIDs="Scrolling, SetupHeadlines"/SetupHeadlines.visible|VtCore.Menu.ConfigureHeadlines.ChildIDs names "SetupHeadlines", which leads back to it
SetupHeadlines.ChildIDs=" "|VtCore.Menu.SetupHeadlines.ChildIDs is empty
SetupHeadlines.ChildIDs="HowToUse"/HowToUse.visible=false|VtCore.Menu.SetupHeadlines.ChildIDs names no entry that is shown
ConfigureHeadlines.visible=false/Scrolling.title/Download.HomeLabel|VtCore.Menu.Download.HomeLabel is missing
HowToUse.title=""/HowToUse.visible/AddNewChannelURL|VtCore.Menu.HowToUse.visible is missing^VtCore.Menu.HowToUse.title is empty^VtNewsReader.UI.AddNewChannelURL is missing
ManRefresh.Instruction.Retry|VtCore.Menu.ManRefresh.Instruction.Retry is missing
ManRefresh.Instruction.Retry/Details.visible=false|
ManRefresh.Instruction.Retry/ManualRefresh=false/instruction=""|
Details.visible="true"|VtCore.Menu.Details.visible is of type string, not bool
DownloadOption=3/ScrollingRate=4/EnabledMode="HIDDEN_MODE"|VtNewsReader.UI.ScrollingRate is "4", not one of 0, 1, 2, 3^VtCore.Service.DownloadOption is "3", not one of 0, 1, 2
ManRefresh.Instruction.DownloadSuccessed="%2 stories, %5 KB"|
ManRefresh.Instruction.DownloadSuccessed="%1 stories, %1 KB, 100%"|VtCore.Menu.ManRefresh.Instruction.DownloadSuccessed does not have two placeholders, such as %1 and %2
)");
    for (const char* pack : {"en.json", "ar.json"}) {
        for (const auto& [edits, out] : cases) {
            const Vistanectl::Result result = lint(pack, edits);
            const QString said =
                QString::fromStdString(result.out).replace('\t', ' ').trimmed().replace('\n', '^');
            EXPECT_EQ(said.toStdString(), out) << edits;
            EXPECT_EQ(result.exit, out.empty() ? 0 : 1) << edits;
        }
    }
}

// Of a whole pack, without a table of what is looked at.
TEST(Lint, NamesEverySettingThatIsMissingOrOfAnotherType)
{
    const QString optional =
        "SetupHeadlines.label ProfileSelected RuntimeValues.LastUpdateTime "
        "RuntimeValues.LastUpdateResult RuntimeValues.ItemsDownloaded RuntimeValues.BytesDownloaded";
    OperatorPack wrong, without;
    std::set<std::string> ofWrongType, missing;
    for (OperatorPack::Setting setting : OperatorPack::builtIn().settings) {
        const std::string name = std::string(settingGroupName(setting.group)) + '.' + setting.key;
        const bool isStructure = setting.key.ends_with("visible") || setting.key.ends_with("ChildIDs") ||
                                 setting.key == "ManualRefresh";
        if (isStructure)
            without.settings.push_back(setting);
        else if (!optional.split(' ').contains(QString::fromStdString(setting.key)))
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
