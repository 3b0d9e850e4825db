#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

// One event of the service: its name (NR_Constants), an integer, named parameters and a text.
class Vt_Event
{
public:
    using Parameters = std::map<std::string, std::string>;

    // A null `parameters` means that the event carries no map, which is not the same as an empty one.
    explicit Vt_Event(std::string name, int value = 0, std::shared_ptr<const Parameters> parameters = nullptr,
                      std::string text = {})
        : mName(std::move(name)), mValue(value), mParameters(std::move(parameters)), mText(std::move(text))
    {
    }

    const std::string& name() const { return mName; }
    int value() const { return mValue; }
    const std::shared_ptr<const Parameters>& parameters() const { return mParameters; }
    const std::string& text() const { return mText; }

private:
    std::string mName;
    int mValue;
    std::shared_ptr<const Parameters> mParameters;
    std::string mText;
};
