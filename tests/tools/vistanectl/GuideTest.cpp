#include "KnownSettings.h"
#include "SettingGroups.h"
#include "SettingKey.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

QByteArray jsonOf(const SettingValue& value)
{
    const auto* text = std::get_if<std::string>(&value);
    const QJsonArray array = {text                                  ? QJsonValue(QString::fromStdString(*text))
                              : std::holds_alternative<bool>(value) ? QJsonValue(std::get<bool>(value))
                                                                    : QJsonValue(std::get<int>(value))};
    return QJsonDocument(array).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
}

} // namespace

// The guide has a row for each setting: name, type, default, readers; and its meaning, which is for people
// only.
TEST(OperatorsGuide, ListsTheSettingsThatLintKnows)
{
    QFile file(QStringLiteral(SOURCE_DIR "/docs/operators.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::multiset<std::string> documented, known;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("| `"))
            documented.insert(line.split('|').mid(1, 4).join('|').toStdString());
    }
    std::map<std::pair<int, std::string>, SettingValue> defaults;
    for (const auto& [group, key, value] : OperatorPack::builtIn().settings)
        defaults[{group, key}] = value;
    for (const auto& [group, key, rule, readers] : knownSettings()) {
        known.insert(" `" + std::string(settingGroupName(group)) + '.' + key + "` | " +
                     settingTypeNames[rule.type] + " | `" + jsonOf(defaults[{group, key}]).toStdString() +
                     "` | " + readers + ' ');
    }
    EXPECT_EQ(documented, known);
    EXPECT_EQ(known.size(), defaults.size());
}
