#include "AM_ActionData.h"

#include "DesktopLink.h"
#include "Handover.h"
#include "PrivateFile.h"

namespace {

std::string messageLink(const AM_ActionData& data)
{
    const std::string file(data.value("Files"));
    return DesktopLink::message(data.value("ContactList"),
                                file.empty() ? std::string() : PrivateFile::read(file.c_str()));
}

std::string mailLink(const AM_ActionData& data)
{
    return DesktopLink::mail(data.value("To"), data.value("Cc"), data.value("Bcc"), data.value("Subject"),
                             data.value("Body"));
}

const struct
{
    std::string_view action;
    std::string (*link)(const AM_ActionData&);
} actions[] = {
    {"SendMMSSMS", messageLink},
    {"SendEmail", mailLink},
};

} // namespace

void AM_ActionData::setAction(std::string action)
{
    mAction = std::move(action);
}

void AM_ActionData::setValue(std::string name, std::string value)
{
    mValues.emplace_back(std::move(name), std::move(value));
}

int AM_ActionData::invoke() const
{
    std::vector<std::string> arguments{mAction};
    for (const auto& [name, value] : mValues) {
        arguments.push_back(name);
        arguments.push_back(value);
    }
    Handover::announce("invoke", arguments);
    if (!Handover::isOn())
        return 0;
    for (const auto& known : actions) {
        if (known.action == mAction)
            return Handover::openLink(known.link(*this));
    }
    return Handover::refuse(Failure::Kind::NoApplication, mAction,
                            "no action " + DesktopLink::escaped(mAction) + " here");
}

std::string_view AM_ActionData::value(std::string_view name) const
{
    for (const auto& [known, value] : mValues) {
        if (known == name)
            return value;
    }
    return {};
}
