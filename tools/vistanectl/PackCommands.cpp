#include "Commands.h"

#include "CoreStore.h"
#include "Tool.h"

#include <QFile>
#include <QSaveFile>

#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>

namespace {

// A hundred times the largest pack that was seen.
constexpr qint64 largestFile = 16 * 1024 * 1024;

// Reads a plain file: a pipe might never end, and a device does not. Otherwise says why not and returns the exit
// status.
int readFile(const Tool& tool, const std::string& fileName, QByteArray& content)
{
    QFile file;
    struct stat status = {};
    const int descriptor = open(fileName.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) ||
        fstat(descriptor, &status) != 0)
        return tool.fail(Refused, fileName, std::strerror(errno));
    if (!S_ISREG(status.st_mode))
        return tool.fail(Refused, fileName, "is no plain file");
    content = file.read(largestFile + 1);
    return content.size() <= largestFile ? Done : tool.fail(Refused, fileName, "is larger than 16 MB");
}

// Reads a pack or a scene from a file; otherwise says why not and returns the exit status.
template <typename Document>
int read(const Tool& tool, const std::string& fileName, Document& document)
{
    QByteArray json;
    std::string error;
    if (const int exit = readFile(tool, fileName, json); exit != Done)
        return exit;
    return Document::parse(json, document, error) ? Done : tool.fail(Refused, fileName, error);
}

int install(const Tool& tool, CoreStore& store, const std::string& fileName)
{
    OperatorPack pack;
    if (const int exit = read(tool, fileName, pack); exit != Done)
        return exit;
    return finishProfiles(tool, store, store.installPack(pack), fileName);
}

int loadScene(const Tool& tool, CoreStore& store, const std::string& fileName)
{
    Scene scene;
    if (const int exit = read(tool, fileName, scene); exit != Done)
        return exit;
    return tool.finish(store.loadScene(scene), fileName);
}

bool writeAll(QFileDevice& file, const QByteArray& content)
{
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush();
}

// Writes a plain file whole or not at all; a device or a pipe is written to, not replaced by a file.
int writeFile(const Tool& tool, const std::string& fileName, const QByteArray& content)
{
    std::error_code none;
    const std::filesystem::file_status target = std::filesystem::status(fileName, none);
    if (exists(target) && !is_regular_file(target)) {
        QFile file(QString::fromStdString(fileName));
        return writeAll(file, content) ? Done : tool.fail(Refused, fileName, file.errorString().toStdString());
    }
    QSaveFile file(QString::fromStdString(fileName));
    return writeAll(file, content) && file.commit()
               ? Done
               : tool.fail(Refused, fileName, file.errorString().toStdString());
}

int exportTo(const Tool& tool, CoreStore& store, const std::string& fileName)
{
    OperatorPack pack;
    if (const int status = store.exportPack(pack); status != STORE_OK)
        return tool.finish(status, "pack export");
    const QByteArray json = pack.toJson();
    if (!fileName.empty() && fileName != "-")
        return writeFile(tool, fileName, json);
    Output::line(json.trimmed().toStdString());
    return Done;
}

int check(const Tool& tool, const std::string& fileName)
{
    OperatorPack pack;
    return read(tool, fileName, pack);
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

    CLI::App& exporting = tool.add("export", "Write the operator's settings and profiles as a pack", &group);
    exporting.add_option("FILE", *fileName, "Where to; standard output without it, or when it is \"-\"");
    tool.onRun(exporting, [&tool, fileName](CoreStore& store) { return exportTo(tool, store, *fileName); });

    CLI::App& checking = tool.add("check", "Tell whether a pack could be installed", &group);
    checking.add_option("FILE", *fileName, "The pack")->required();
    tool.onRun(checking, [&tool, fileName] { return check(tool, *fileName); });

    CLI::App& scenes = tool.add("scene", "States of the phone, for trying");
    CLI::App& loading =
        tool.add("load", "Bring about a state: device, channels, figures; all or nothing", &scenes);
    loading.add_option("FILE", *fileName, "The scene")->required();
    tool.onRun(loading, [&tool, fileName](CoreStore& store) { return loadScene(tool, store, *fileName); });
}
