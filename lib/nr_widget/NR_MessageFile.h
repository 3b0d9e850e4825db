#pragma once

#include <string_view>

// The file through which the text of an SMS or MMS reaches the messaging application. There is one, shared by
// all: the next message's text replaces it. It is never removed.
namespace NR_MessageFile {

inline constexpr char path[] = "/tmp/vtsms.txt";

// Puts exactly `text` there, readable by the user alone. A file that can't be opened for writing, or is not the
// user's own, stays as it is; when the disk is full, as much of `text` is left as fitted. Nobody is told: the
// message is composed all the same, with the text that is there.
void write(std::string_view text);

} // namespace NR_MessageFile
