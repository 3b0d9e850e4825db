#pragma once

#include "TestStore.h"

#include <QProcess>

#include <gtest/gtest.h>

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
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    QString file(const char* name) const { return mDir.filePath(name); }

    static inline const QString program = QStringLiteral(VISTANECTL);

private:
    QTemporaryDir mDir;
    TestStore mStore;

public:
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment(); // names the store
};
