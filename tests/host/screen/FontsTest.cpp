#include "Fonts.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

// The font that `config` has for a pattern, and how it wants it drawn.
std::string answer(FcConfig* config, const char* name)
{
    FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>(name));
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(config, pattern, &result);
    EXPECT_TRUE(match) << name;
    FcChar8* text = FcPatternFormat(match, reinterpret_cast<const FcChar8*>(
                                               "%{file} %{index} %{weight} %{embolden} %{antialias} %{hinting} "
                                               "%{hintstyle} %{autohint} %{rgba} %{lcdfilter} %{pixelsize}"));
    const std::string found = reinterpret_cast<const char*>(text);
    FcStrFree(text);
    FcPatternDestroy(match);
    FcPatternDestroy(pattern);
    return found;
}

TEST(Fonts, AreTheSystemsAndDrawnAsItWantsUnlessSomebodyNamesOthers)
{
    FcConfig* system = FcInitLoadConfigAndFonts();
    FcConfigSetCurrent(system);
    for (const char* variable : {"FONTCONFIG_FILE", "FONTCONFIG_PATH", "FONTCONFIG_SYSROOT"}) {
        setenv(variable, "/nowhere", 1);
        Fonts::configure();
        unsetenv(variable);
        EXPECT_EQ(FcConfigGetCurrent(), system) << variable;
    }
    Fonts::configure();
    FcConfig* ours = FcConfigGetCurrent();
    EXPECT_NE(ours, system);
    for (const char* name : {"Sans Serif:pixelsize=15", "Sans Serif:pixelsize=13:bold", "sans-serif:lang=ar",
                             "Sans Serif:lang=zh-cn", "Sans Serif:lang=hi:bold"})
        EXPECT_EQ(answer(ours, name), answer(system, name)) << name;
    FcConfigDestroy(system);
    FcFini(); // lets go of the current one, too
}

} // namespace
