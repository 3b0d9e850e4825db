#include "vtString.h"

#include "Text.h"

#include <algorithm>
#include <optional>

namespace {

constexpr char32_t lastCharacter = 0x10ffff;

bool isSurrogate(char32_t character)
{
    return character >= 0xd800 && character <= 0xdfff;
}

} // namespace

QString vtStringToQString(const vtTypes::String& text)
{
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char32_t character) { return QChar(static_cast<char16_t>(character & 0xffff)); });
    return result;
}

std::string vtStringToUtf8(const vtTypes::String& text)
{
    return vtStringToQString(text).toStdString();
}

bool vtStringEncodeUtf8(const vtTypes::String& text, std::string& utf8)
{
    std::string result;
    result.reserve(text.size());
    for (char32_t character : text) {
        if (isSurrogate(character) || character > lastCharacter)
            return false;
        const auto tail = [character](int shift) {
            return static_cast<char>(0x80 | ((character >> shift) & 0x3f));
        };
        if (character < 0x80)
            result += static_cast<char>(character);
        else if (character < 0x800)
            result += {static_cast<char>(0xc0 | (character >> 6)), tail(0)};
        else if (character < 0x10000)
            result += {static_cast<char>(0xe0 | (character >> 12)), tail(6), tail(0)};
        else
            result += {static_cast<char>(0xf0 | (character >> 18)), tail(12), tail(6), tail(0)};
    }
    utf8 = std::move(result);
    return true;
}

bool vtStringFromUtf8(std::string_view utf8, vtTypes::String& text)
{
    vtTypes::String result;
    result.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();) {
        const std::optional<char32_t> character = Text::decode(utf8, at);
        if (!character)
            return false;
        result += *character;
    }
    text = std::move(result);
    return true;
}
