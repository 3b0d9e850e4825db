#pragma once

#include <string>
#include <string_view>

// Links as a desktop's opener may be given them: a scheme of their own first and only bytes that a link may
// have, so that such a link is never taken for an option, a file name or two arguments.
namespace DesktopLink {

// `text` with every byte that a link can't have percent-encoded; escapes it already has stay as they are.
std::string escaped(std::string_view text);

// `link`, escaped. Empty when it may not be opened at all: it has no scheme right at its start, or the scheme
// file, javascript or data.
std::string checked(std::string_view link);

// A mailto: link of the given values, none of which can bring a header of its own. `to` is still
// percent-encoded, as it stood in a link; the others are plain text. Commas separate addresses.
std::string mail(std::string_view to, std::string_view cc, std::string_view bcc, std::string_view subject,
                 std::string_view text);

// An sms: link to `address`, which is still percent-encoded like `to` above, its text preset to `text` unless
// that is empty.
std::string message(std::string_view address, std::string_view text);

// A tel: link to `number`.
std::string call(std::string_view number);

} // namespace DesktopLink
