#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

// Stands in for the programs of a desktop while it lives: they come first in PATH, and record how they were started.
// For links of the scheme "nobody" they know nobody.
class DesktopStandIn
{
public:
    struct Call
    {
        std::vector<std::string> words; // its name and its arguments, to the byte
        // Its folder, what its descriptors are open on, the signals it ignores, its session, one a line.
        std::string state;
    };

    explicit DesktopStandIn(const std::vector<std::string>& programs = {"gio"})
    {
        for (const std::string& program : programs) {
            const std::string path = mDir.filePath(QString::fromStdString(program)).toStdString();
            std::ofstream(path) << script;
            chmod(path.c_str(), 0700);
        }
        qputenv("PATH", mDir.path().toLocal8Bit() + ":/usr/bin:/bin");
        qputenv("VISTANE_HANDOVER", "desktop");
    }
    ~DesktopStandIn()
    {
        qputenv("PATH", mPath);
        qunsetenv("VISTANE_HANDOVER");
    }

    // The calls since the last take(), as soon as there are `count` of them or after five seconds.
    std::vector<Call> take(size_t count)
    {
        const QDir dir(mDir.path());
        const auto names = [&] { return dir.entryList({"*.call"}); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return size_t(names().size()) >= count; }));
        std::vector<Call> calls;
        for (const QString& name : names()) {
            std::ifstream record(dir.filePath(name).toStdString());
            Call& call = calls.emplace_back();
            std::getline(record, call.state, '\0');
            for (std::string word; std::getline(record, word, '\0');)
                call.words.push_back(word);
            QFile::remove(dir.filePath(name));
        }
        return calls;
    }

private:
    // One file a call, whose last name says that it is whole: the state and the words, each ended by a zero.
    static constexpr char script[] = R"(#!/bin/sh
record=${0%/*}/$$
(
    pwd
    for descriptor in 0 1 2 3 4 5 6 7 8 9; do readlink /proc/$$/fd/$descriptor; done
    grep SigIgn /proc/$$/status
    cut -d ' ' -f 6 /proc/$$/stat
    printf '%s\0' '' "${0##*/}" "$@"
) > "$record.part"
mv "$record.part" "$record.call"
case "$*" in *nobody:*) exit 2 ;; esac
)";

    QTemporaryDir mDir;
    const QByteArray mPath = qgetenv("PATH");
};
