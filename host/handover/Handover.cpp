#include "Handover.h"

#include "DesktopLink.h"
#include "HostBus.h"
#include "Log.h"
#include "Text.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringDecoder>

#include <linux/close_range.h>
#include <unistd.h>

namespace {

const Log logger("Handover");

const char opener[] = "xdg-open";

// What Linux lets one argument of a program be, the zero at its end counted.
constexpr size_t maxArgument = 128 * 1024 - 1;

constexpr size_t mostSaid = 200; // of what is refused

std::vector<std::string> started;
QVariantList announced; // the last request
std::string lastRefusal;

// Every character counts, a byte order mark at the start too; what is no character is shown to have been there.
QString asText(std::string_view bytes)
{
    const std::string clean = Text::cleanUtf8(bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(QByteArrayView(clean.data(), qsizetype(clean.size())));
    return text.replace(QChar(0), QChar::ReplacementCharacter);
}

bool start(const QString& program, const QStringList& arguments)
{
    // No file that we, or a library of ours, have open is anything to the program.
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);

    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    // An opener may look whether a link names a file; here none does by chance.
    process.setWorkingDirectory(QStringLiteral("/"));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached())
        return false;
    started = {program.toStdString()};
    for (const QString& argument : arguments)
        started.push_back(argument.toStdString());
    return true;
}

// The words of the first command for `appId` that is installed, or none.
QStringList commandOf(std::string_view appId)
{
    QFile table(QStringLiteral(":/desktop/applications.tsv"));
    if (!table.open(QIODevice::ReadOnly))
        return {};
    const QByteArray begin = QByteArray(appId.data(), qsizetype(appId.size())) + '\t';
    while (!table.atEnd()) {
        const QByteArray line = table.readLine();
        if (line.startsWith('#') || !line.startsWith(begin))
            continue;
        QStringList words = QString::fromUtf8(line.mid(begin.size())).simplified().split(u' ');
        if (!QStandardPaths::findExecutable(words.first()).isEmpty())
            return words;
    }
    return {};
}

} // namespace

namespace Handover {

void announce(std::string_view operation, const std::vector<std::string>& arguments)
{
    QStringList texts;
    for (const std::string& argument : arguments)
        texts << asText(argument);
    announced = {asText(operation), texts};
    HostBus::send(BusSignals::request, announced);
}

int refuse(Failure::Kind kind, std::string_view about, const std::string& reason)
{
    lastRefusal = reason;
    logger(3, "%s", reason.c_str());
    QVariantList arguments = announced;
    HostBus::send(BusSignals::refused, arguments << asText(reason));
    Failure::tell(kind, about);
    return -1;
}

bool isOn()
{
    return qgetenv("VISTANE_HANDOVER") != "off";
}

int openLink(std::string_view link)
{
    const std::string safe = DesktopLink::checked(link);
    const std::string_view scheme = link.substr(0, link.find(':') + 1);
    const auto refused = [&](const std::string& reason) {
        return refuse(Failure::Kind::NotOpened, scheme, reason);
    };
    if (safe.empty())
        return refused("a link that may not be opened: " + DesktopLink::escaped(link).substr(0, mostSaid));
    if (safe.size() > maxArgument)
        return refused("a link of " + std::to_string(safe.size()) +
                       " bytes is too long to be opened: " + safe.substr(0, mostSaid));
    if (!start(opener, {QString::fromStdString(safe)}))
        return refused(std::string("cannot start ") + opener);
    return 0;
}

int startApplication(std::string_view appId, std::string_view argument)
{
    QStringList words = commandOf(appId);
    const auto refused = [&](const std::string& reason) {
        return refuse(Failure::Kind::NoApplication, appId, reason);
    };
    if (words.isEmpty())
        return refused("no application " + DesktopLink::escaped(appId).substr(0, mostSaid) + " here");
    const QString program = words.takeFirst();
    if (!argument.empty())
        words << QString::fromStdString(DesktopLink::escaped(argument));
    return start(program, words) ? 0 : refused("cannot start " + program.toStdString());
}

const std::vector<std::string>& lastStarted()
{
    return started;
}

const std::string& lastReason()
{
    return lastRefusal;
}

} // namespace Handover
