#include "Fonts.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>

namespace {

constexpr char rulesFolder[] = "/etc/fonts/conf.d";

// The system's rules that a phone screen's texts depend on, by the names they begin with: hinting, antialiasing and
// scaling, the display's subpixels, which family is the main one, no bitmaps, and bold where a font has none.
constexpr const char* ruleNames[] = {"10-", "11-", "60-latin", "70-", "90-"};

// Variables by which somebody says what is to be read.
constexpr const char* choices[] = {"FONTCONFIG_FILE", "FONTCONFIG_PATH", "FONTCONFIG_SYSROOT"};

bool isWanted(const std::string& name)
{
    return std::any_of(std::begin(ruleNames), std::end(ruleNames),
                       [&name](const char* begin) { return name.starts_with(begin); });
}

// In the order of their numbers, in which later rules build on earlier ones.
std::string includesOfRules()
{
    std::set<std::string> names;
    std::error_code error;
    for (const auto& file : std::filesystem::directory_iterator(rulesFolder, error))
        names.insert(file.path().filename());
    std::string includes;
    for (const std::string& name : names)
        if (isWanted(name))
            includes +=
                "<include ignore_missing=\"yes\">" + std::string(rulesFolder) + '/' + name + "</include>";
    return includes;
}

std::string configuration()
{
    return R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd"><fontconfig>)"
           "<dir>/usr/share/fonts</dir><dir>/usr/local/share/fonts</dir>"
           "<cachedir>/var/cache/fontconfig</cachedir><cachedir prefix=\"xdg\">fontconfig</cachedir>"
           // What Qt calls the main family.
           "<match target=\"pattern\"><test qual=\"any\" name=\"family\"><string>Sans Serif</string></test>"
           "<edit name=\"family\" mode=\"assign\" binding=\"same\"><string>sans-serif</string></edit></match>" +
           includesOfRules() + "</fontconfig>";
}

bool hasFonts(FcConfig* config)
{
    const FcFontSet* fonts = FcConfigGetFonts(config, FcSetSystem);
    return fonts && fonts->nfont > 0;
}

} // namespace

void Fonts::configure()
{
    if (std::any_of(std::begin(choices), std::end(choices), [](const char* name) { return std::getenv(name); }))
        return;
    FcConfig* config = FcConfigCreate();
    const std::string text = configuration();
    const auto* bytes = reinterpret_cast<const FcChar8*>(text.c_str());
    if (FcConfigParseAndLoadFromMemory(config, bytes, FcFalse) && FcConfigBuildFonts(config) &&
        hasFonts(config))
        FcConfigSetCurrent(config);
    FcConfigDestroy(config); // the current one stays
}
