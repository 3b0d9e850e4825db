#include "vtString.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr char32_t lastCharacter = 0x10ffff;

bool isSurrogate(char32_t character)
{
    return character >= 0xd800 && character <= 0xdfff;
}

// What the lead byte of a sequence says: its length, its share of the character, and the smallest character
// that needs so many bytes. A byte that leads nothing has length 0.
struct Lead
{
    int length;
    char32_t bits;
    char32_t smallest;
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {1, byte, 0};
    if (byte < 0xc0)
        return {0, 0, 0};
    if (byte < 0xe0)
        return {2, byte & 0x1fU, 0x80};
    if (byte < 0xf0)
        return {3, byte & 0x0fU, 0x800};
    if (byte < 0xf8)
        return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
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
        const Lead lead = leadOf(static_cast<unsigned char>(utf8[at]));
        if (lead.length == 0 || at + lead.length > utf8.size())
            return false;
        char32_t character = lead.bits;
        for (int i = 1; i < lead.length; ++i) {
            const auto byte = static_cast<unsigned char>(utf8[at + i]);
            if ((byte & 0xc0) != 0x80)
                return false;
            character = character << 6 | (byte & 0x3f);
        }
        if (character < lead.smallest || character > lastCharacter || isSurrogate(character))
            return false;
        result += character;
        at += lead.length;
    }
    text = std::move(result);
    return true;
}

std::optional<int> vtIntegerFromText(std::string_view text)
{
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}
