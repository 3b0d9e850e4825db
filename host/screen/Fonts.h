#pragma once

// The fonts that the screen's texts are drawn with.
namespace Fonts {

// Gives this process a small font configuration of its own: the system's font folders and caches, its main fonts and
// how it wants them drawn. Reading all of the system's rules takes half of the instructions of a start, and none of
// the others changes what a phone screen shows. To be called before the application object is made.
//
// Whoever sets FONTCONFIG_FILE, FONTCONFIG_PATH or FONTCONFIG_SYSROOT has a configuration in mind, the user's own
// fonts among it: then this does nothing, and the whole of it is read. So it is when no font is found.
void configure();

} // namespace Fonts
