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

std::vector<std::string> started;

// Every character counts, a byte order mark at the start too; what is no character is shown to have been there.
QString asText(std::string_view bytes)
{
    const std::string clean = Text::cleanUtf8(bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(QByteArrayView(clean.data(), qsizetype(clean.size())));
    return text.replace(QChar(0), QChar::ReplacementCharacter);
}

int start(const QString& program, const QStringList& arguments)
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
    if (!process.startDetached()) {
        logger(3, "cannot start %s", qUtf8Printable(program));
        return -1;
    }
    started = {program.toStdString()};
    for (const QString& argument : arguments)
        started.push_back(argument.toStdString());
    return 0;
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
    HostBus::send(BusSignals::request, {asText(operation), texts});
}

bool isOn()
{
    return qgetenv("VISTANE_HANDOVER") != "off";
}

int openLink(std::string_view link)
{
    const std::string safe = DesktopLink::checked(link);
    if (safe.empty()) {
        logger(3, "a link that may not be opened: %.200s", DesktopLink::escaped(link).c_str());
        return -1;
    }
    if (safe.size() > maxArgument) {
        logger(3, "a link of %zu bytes is too long to be opened: %.200s", safe.size(), safe.c_str());
        return -1;
    }
    return start(opener, {QString::fromStdString(safe)});
}

int startApplication(std::string_view appId, std::string_view argument)
{
    QStringList words = commandOf(appId);
    if (words.isEmpty()) {
        logger(3, "no application %.200s here", DesktopLink::escaped(appId).c_str());
        return -1;
    }
    const QString program = words.takeFirst();
    if (!argument.empty())
        words << QString::fromStdString(DesktopLink::escaped(argument));
    return start(program, words);
}

const std::vector<std::string>& lastStarted()
{
    return started;
}

} // namespace Handover
