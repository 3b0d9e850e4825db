#pragma once

#include <string_view>

// The file through which the text of an SMS or MMS reaches the messaging application. There is one, shared by
// all: the next message's text replaces it.
namespace NR_MessageFile {

inline constexpr char path[] = "/tmp/vtsms.txt";

// Puts exactly `text` there, readable by the user alone. When that can't be done the file is removed, unless it is
// not the user's own: the text of an earlier message must not go to another address. Nobody is told: the message
// is composed all the same, without a text.
void write(std::string_view text);

} // namespace NR_MessageFile
