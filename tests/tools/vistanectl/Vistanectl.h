#pragma once

#include "TestStore.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <fstream>

// Runs the built program on a store of its own, which starts from `pack` and holds nothing else.
class Vistanectl
{
public:
    struct Result
    {
        int exit;
        std::string out, err;
    };

    explicit Vistanectl(const QByteArray& pack = "{}") : mStore(pack) {}

    Result run(const QStringList& arguments) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(mDir.path());
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    // A file where the program runs.
    QString file(const char* name) const { return mDir.filePath(name); }
    void write(const char* name, const char* content) const
    {
        std::ofstream(file(name).toStdString()) << content;
    }

    static inline const QString program = QStringLiteral(VISTANECTL);

private:
    QTemporaryDir mDir;
    TestStore mStore;

public:
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment(); // names the store
};
