#include "Handover.h"

#include "DesktopLink.h"
#include "DesktopProgram.h"
#include "HostBus.h"
#include "Log.h"
#include "PortalRequest.h"
#include "Text.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <QStringDecoder>

#include <memory>

namespace {

const Log logger("Handover");

// What Linux lets one argument of a program be, the zero at its end counted.
constexpr size_t maxArgument = 128 * 1024 - 1;

constexpr size_t mostSaid = 200; // of what came from outside

struct Request
{
    QVariantList announced;
    Handover::Outcome outcome;
};
using RequestPtr = std::shared_ptr<Request>; // whoever carries it out may do so after the next one has come

RequestPtr lastRequest = std::make_shared<Request>();

// Every character counts, a byte order mark at the start too; what is no character is shown to have been there.
QString asText(std::string_view bytes)
{
    const std::string clean = Text::cleanUtf8(bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(QByteArrayView(clean.data(), qsizetype(clean.size())));
    return text.replace(QChar(0), QChar::ReplacementCharacter);
}

std::vector<std::string> asWords(const QStringList& texts)
{
    std::vector<std::string> words;
    for (const QString& text : texts)
        words.push_back(text.toStdString());
    return words;
}

void refuse(Request& request, Failure::Kind kind, std::string_view about, const std::string& reason)
{
    request.outcome = {Handover::Outcome::Refused, {}, reason};
    logger(3, "%s", reason.c_str());
    QVariantList arguments = request.announced;
    HostBus::send(BusSignals::refused, arguments << asText(reason));
    Failure::tell(kind, about);
}

// Nobody knows that it came to nothing either, so the bus hears nothing.
void leaveOpen(Request& request, std::string_view scheme, const std::string& reason)
{
    request.outcome.what = Handover::Outcome::Unknown;
    request.outcome.reason = reason;
    logger(3, "%s", reason.c_str());
    Failure::tell(Failure::Kind::NotKnown, scheme);
}

void settle(Request& request, const std::string& scheme, const LinkAnswer& answer)
{
    const std::string link = "a " + scheme.substr(0, mostSaid) + " link";
    switch (answer.what) {
    case LinkAnswer::Opened:
        request.outcome.what = Handover::Outcome::Done;
        return;
    case LinkAnswer::Cancelled:
        request.outcome.what = Handover::Outcome::Cancelled;
        request.outcome.reason = answer.reason;
        return;
    case LinkAnswer::Unknown:
        return leaveOpen(request, scheme, "nobody says whether " + link + " was opened: " + answer.reason);
    case LinkAnswer::Absent:
    case LinkAnswer::Refused:
        return refuse(request, Failure::Kind::NotOpened, scheme, link + " was not opened: " + answer.reason);
    }
}

void openByGio(const RequestPtr& request, const QString& link, const std::string& scheme)
{
    const QStringList command = {QStringLiteral("gio"), QStringLiteral("open"), QStringLiteral("--"), link};
    request->outcome.started = asWords(command);
    DesktopProgram::open(command,
                         [request, scheme](const LinkAnswer& answer) { settle(*request, scheme, answer); });
}

void openByPortal(const RequestPtr& request, const QString& link, const std::string& scheme)
{
    request->outcome.started = {"portal", link.toStdString()};
    new PortalRequest(link, [request, link, scheme](const LinkAnswer& answer) {
        if (answer.what != LinkAnswer::Absent)
            return settle(*request, scheme, answer);
        if (!answer.reason.empty())
            logger(3, "the desktop portal is of no use: %s", answer.reason.c_str());
        openByGio(request, link, scheme);
    });
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
    lastRequest = std::make_shared<Request>();
    lastRequest->announced = {asText(operation), texts};
    HostBus::send(BusSignals::request, lastRequest->announced);
}

int refuse(Failure::Kind kind, std::string_view about, const std::string& reason)
{
    ::refuse(*lastRequest, kind, about, reason);
    return -1;
}

bool isOn()
{
    return qgetenv("VISTANE_HANDOVER") != "off";
}

int openLink(std::string_view link)
{
    const std::string safe = DesktopLink::checked(link);
    const std::string scheme(link.substr(0, link.find(':') + 1));
    const auto refused = [&](const std::string& reason) {
        return refuse(Failure::Kind::NotOpened, scheme, reason);
    };
    if (safe.empty())
        return refused("a link that may not be opened: " + DesktopLink::escaped(link).substr(0, mostSaid));
    if (safe.size() > maxArgument)
        return refused("a link of " + std::to_string(safe.size()) +
                       " bytes is too long to be opened: " + safe.substr(0, mostSaid));
    lastRequest->outcome.what = Outcome::UnderWay;
    openByPortal(lastRequest, QString::fromStdString(safe), scheme);
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
    if (!argument.empty())
        words << QString::fromStdString(DesktopLink::escaped(argument));
    if (!DesktopProgram::start(words))
        return refused("cannot start " + words.first().toStdString());
    lastRequest->outcome = {Outcome::Done, asWords(words), {}};
    return 0;
}

const Outcome& lastOutcome()
{
    while (lastRequest->outcome.what == Outcome::UnderWay)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return lastRequest->outcome;
}

} // namespace Handover
