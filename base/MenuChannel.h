#pragma once

// The channel on which the setup menu is told to close, by any message.
inline constexpr char menuChannel[] = "/Vistane/MenuListener";
