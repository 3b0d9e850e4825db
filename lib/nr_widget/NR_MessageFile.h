#pragma once

#include <string_view>

// The file through which the text of an SMS or MMS reaches the messaging application. There is one, shared by
// all: the next message's text replaces it. It is never removed.
namespace NR_MessageFile {

inline constexpr char path[] = "/tmp/vtsms.txt";

// Puts exactly `text` there, readable by the user alone. Where the file can't be written, or is not the user's own,
// it stays as it is and nobody is told: the message is composed all the same, with the text that is there.
void write(std::string_view text);

} // namespace NR_MessageFile
