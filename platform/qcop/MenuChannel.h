#pragma once

// The channel on which the setup menu is told to close, by the message "close".
inline constexpr char menuChannel[] = "/Vistane/MenuListener";
