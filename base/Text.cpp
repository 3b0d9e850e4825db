#include "Text.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr char32_t lastCharacter = 0x10ffff;

// What the lead byte of a sequence says: its length, its share of the character, and the smallest character
// that needs so many bytes. A byte that leads nothing has length 0.
struct Lead
{
    size_t length;
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

namespace Text {

std::string lowerCase(std::string_view text)
{
    std::string result(text);
    std::transform(text.begin(), text.end(), result.begin(), [](char c) { return lowerCase(c); });
    return result;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return lowerCase(left) == lowerCase(right); });
}

std::string withoutControls(std::string_view text, std::string_view kept)
{
    std::string result(text);
    for (size_t i = 0; i < result.size(); ++i) {
        const auto byte = static_cast<unsigned char>(result[i]);
        if ((byte < ' ' || byte == 0x7f) && !contains(kept, result[i]))
            result[i] = ' ';
        else if (byte >= 0x80 && byte <= 0x9f && i > 0 && result[i - 1] == '\xc2')
            result[i - 1] = result[i] = ' ';
    }
    return result;
}

std::string percentEncoded(std::string_view text, std::string_view kept)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (isLetter(c) || isDigit(c) || contains("-._~", c) || contains(kept, c))
            result += c;
        else
            result += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return result;
}

std::optional<char32_t> decode(std::string_view utf8, size_t& at)
{
    const Lead lead = leadOf(static_cast<unsigned char>(utf8[at]));
    if (lead.length == 0 || at + lead.length > utf8.size())
        return std::nullopt;
    char32_t character = lead.bits;
    for (size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[at + i]);
        if ((byte & 0xc0) != 0x80)
            return std::nullopt;
        character = character << 6 | (byte & 0x3f);
    }
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < lead.smallest || character > lastCharacter || isSurrogate)
        return std::nullopt;
    at += lead.length;
    return character;
}

bool isUtf8(std::string_view text)
{
    size_t at = 0;
    while (at < text.size())
        if (!decode(text, at))
            return false;
    return true;
}

std::string cleanUtf8(std::string_view text)
{
    std::string result;
    for (size_t at = 0; at < text.size();) {
        const size_t begin = at;
        if (decode(text, at)) {
            result += text.substr(begin, at - begin);
        } else {
            result += "\xef\xbf\xbd";
            ++at;
        }
    }
    return result;
}

std::optional<int> integer(std::string_view text)
{
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

} // namespace Text
