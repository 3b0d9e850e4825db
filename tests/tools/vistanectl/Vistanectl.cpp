#include "Vistanectl.h"

#include "CoreStore.h"

#include <QProcess>

#include <gtest/gtest.h>

const QString Vistanectl::program = QStringLiteral(VISTANECTL);

Vistanectl::Vistanectl(const QByteArray& pack)
{
    environment.insert("VISTANE_DB", file("core.db"));
    environment.remove("VISTANE_LOG");
    OperatorPack content;
    std::string error;
    EXPECT_TRUE(OperatorPack::parse(pack, content, error)) << error;
    if (!content.channels)
        content.channels.emplace();
    if (!content.profiles)
        content.profiles.emplace();
    EXPECT_EQ(CoreStore(file("core.db").toStdString()).installPack(content), STORE_OK);
}

Vistanectl::Result Vistanectl::run(const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}
