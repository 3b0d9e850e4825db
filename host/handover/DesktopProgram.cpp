#include "DesktopProgram.h"

#include <QProcess>
#include <QTimer>

#include <linux/close_range.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace {

// The command that has systemd start another one, as a unit of its own, where this process is one: what it may not do,
// nobody whom it starts may, and a browser needs more. With "--wait" it ends as the other one does.
QStringList asOwnUnit(QStringList command, const QStringList& options)
{
    if (qgetenv("SYSTEMD_EXEC_PID") != QByteArray::number(getpid()))
        return command;
    command.replaceInStrings(QStringLiteral("$"), QStringLiteral("$$")); // or it would put variables in
    // A browser outlives its opener.
    const QStringList run = {QStringLiteral("systemd-run"), QStringLiteral("--user"), QStringLiteral("--quiet"),
                             QStringLiteral("--collect"), QStringLiteral("--property=KillMode=process")};
    return run + options + QStringList{QStringLiteral("--")} + command;
}

void prepare(QProcess& process, const QStringList& command)
{
    // No file that we, or a library of ours, have open is anything to the program.
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);

    process.setProgram(command.first());
    process.setArguments(command.mid(1));
    // An opener may look whether a link names a file; here none does by chance.
    process.setWorkingDirectory(QStringLiteral("/"));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
}

LinkAnswer answerOf(const QProcess& process)
{
    const std::string program = process.program().toStdString();
    if (process.error() == QProcess::FailedToStart)
        return {LinkAnswer::Refused, "cannot start " + program};
    if (process.exitStatus() == QProcess::CrashExit)
        return {LinkAnswer::Unknown, program + " has crashed"};
    if (process.exitCode() == 0)
        return {LinkAnswer::Opened};
    return {LinkAnswer::Refused,
            program + " knows nobody who does: exit status " + std::to_string(process.exitCode())};
}

} // namespace

namespace DesktopProgram {

bool start(const QStringList& command)
{
    QProcess process;
    prepare(process, asOwnUnit(command, {}));
    return process.startDetached();
}

void open(const QStringList& command, LinkAnswered answered, int milliseconds)
{
    static auto* const nobody = new QObject; // never deleted: who deletes a process ends the program
    auto* process = new QProcess(nobody);
    prepare(*process, asOwnUnit(command, {QStringLiteral("--wait")}));
    process->setChildProcessModifier([] { setsid(); });
    const auto settle = [once = std::make_shared<LinkAnswered>(std::move(answered))](const LinkAnswer& answer) {
        if (const LinkAnswered first = std::exchange(*once, {}))
            first(answer);
    };
    const auto end = [process, settle] {
        process->deleteLater();
        settle(answerOf(*process));
    };
    QObject::connect(process, &QProcess::finished, process, end);
    QObject::connect(
        process, &QProcess::errorOccurred, process,
        [end](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                end();
        },
        Qt::QueuedConnection);
    QTimer::singleShot(milliseconds, process, [settle] {
        settle({LinkAnswer::Unknown, "its opener does not end"});
    });
    process->start();
}

} // namespace DesktopProgram
