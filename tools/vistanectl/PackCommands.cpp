#include "Commands.h"

#include "CoreStore.h"
#include "Tool.h"

#include <QFile>
#include <QSaveFile>

#include <memory>

namespace {

// Reads a pack from a file; otherwise says why not and returns the exit status.
int readPack(const Tool& tool, const std::string& fileName, OperatorPack& pack)
{
    QFile file(QString::fromStdString(fileName));
    if (!file.open(QIODevice::ReadOnly))
        return tool.fail(Refused, fileName, file.errorString().toStdString());
    std::string error;
    return OperatorPack::parse(file.readAll(), pack, error) ? Done : tool.fail(Refused, fileName, error);
}

int install(const Tool& tool, CoreStore& store, const std::string& fileName)
{
    OperatorPack pack;
    if (const int exit = readPack(tool, fileName, pack); exit != Done)
        return exit;
    return tool.finish(store.installPack(pack), fileName);
}

int exportTo(const Tool& tool, CoreStore& store, const std::string& fileName)
{
    OperatorPack pack;
    if (const int status = store.exportPack(pack); status != STORE_OK)
        return tool.finish(status, "pack export");
    // A pack is for many phones, and these are one's own.
    pack.device.erase("imsi");
    pack.device.erase("msisdn");
    const QByteArray json = pack.toJson();
    if (fileName.empty()) {
        Output::line(json.trimmed().toStdString());
        return Done;
    }
    QSaveFile file(QString::fromStdString(fileName));
    if (file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit())
        return Done;
    return tool.fail(Refused, fileName, file.errorString().toStdString());
}

int check(const Tool& tool, const std::string& fileName)
{
    OperatorPack pack;
    return readPack(tool, fileName, pack);
}

} // namespace

void addPackCommands(Tool& tool)
{
    const auto fileName = std::make_shared<std::string>();
    CLI::App& group = tool.add("pack", "Operator packs");

    CLI::App& installing =
        tool.add("install", "Replace the operator's settings by a pack, all or nothing", &group);
    installing.add_option("FILE", *fileName, "The pack")->required();
    tool.onRun(installing, [&tool, fileName](CoreStore& store) { return install(tool, store, *fileName); });

    CLI::App& exporting =
        tool.add("export", "Write the operator's settings as a pack, without imsi and msisdn", &group);
    exporting.add_option("FILE", *fileName, "Where to; standard output without it");
    tool.onRun(exporting, [&tool, fileName](CoreStore& store) { return exportTo(tool, store, *fileName); });

    CLI::App& checking = tool.add("check", "Tell whether a pack could be installed", &group);
    checking.add_option("FILE", *fileName, "The pack")->required();
    tool.onRun(checking, [&tool, fileName] { return check(tool, *fileName); });
}
