#include "DesktopStandIn.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include <sstream>

namespace {

// Four files a call; the last one's name says that all are there.
const char script[] = R"(#!/bin/sh
record=${0%/*}/$$
printf '%s\0' "${0##*/}" "$@" > "$record.words"
pwd > "$record.folder"
(for descriptor in 0 1 2 3 4 5 6 7 8 9; do readlink /proc/$$/fd/$descriptor; done) > "$record.files"
read -r _ _ _ _ _ session _ < /proc/$$/stat
echo "$session" > "$record.part"
mv "$record.part" "$record.session"
)";

std::string contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace

DesktopStandIn::DesktopStandIn(const std::vector<std::string>& programs) : mPath(qgetenv("PATH"))
{
    for (const std::string& program : programs) {
        QFile file(mDir.filePath(QString::fromStdString(program)));
        if (file.open(QIODevice::WriteOnly))
            file.write(script);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    qputenv("PATH", mDir.path().toLocal8Bit() + ":/usr/bin:/bin");
    qputenv("VISTANE_HANDOVER", "desktop");
}

DesktopStandIn::~DesktopStandIn()
{
    qputenv("PATH", mPath);
    qunsetenv("VISTANE_HANDOVER");
}

std::vector<DesktopStandIn::Call> DesktopStandIn::take(size_t count)
{
    const QDir dir(mDir.path());
    QElapsedTimer waited;
    waited.start();
    QStringList done;
    for (;;) {
        done = dir.entryList({"*.session"}, QDir::Files);
        if (size_t(done.size()) >= count || waited.elapsed() > 5000)
            break;
        QThread::msleep(1);
    }

    std::vector<Call> calls;
    for (const QString& name : done) {
        const QString record = dir.filePath(name.section(u'.', 0, 0));
        Call call{{},
                  contentOf(record + ".files"),
                  contentOf(record + ".folder"),
                  std::stoi(contentOf(record + ".session"))};
        std::istringstream words(contentOf(record + ".words"));
        for (std::string word; std::getline(words, word, '\0');)
            call.words.push_back(word);
        calls.push_back(call);
        QFile::remove(dir.filePath(name));
    }
    return calls;
}
