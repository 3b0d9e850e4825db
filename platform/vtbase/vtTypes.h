#pragma once

#include <string>
#include <utility>

// Value types of the service core.
namespace vtTypes {

// The core's wide string: one 32-bit character per element.
using String = std::u32string;

// Identifier of a content object: a channel, a container, or a link.
class ID
{
public:
    ID() = default;
    explicit ID(std::string text) : mText(std::move(text)) {}

    // The identifier as the narrow string it was built from.
    const std::string& text() const { return mText; }

    bool operator==(const ID&) const = default;

private:
    std::string mText;
};

} // namespace vtTypes
