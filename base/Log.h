#pragma once

// The one-line log of a module, written to the platform log:
//
//     const Log logger("SettingHelper");
//     logger(7, "get int setting failed for %s: group %d not found", key, group);
//
// prints "(SettingHelper:12)[~~~~vistane~~~~]get int ...", 12 being the line of the call.
class Log
{
public:
    // Level of a line and the source line it is printed with. An integer literal converts to it at the place
    // of the call, so that nobody has to pass the line by hand.
    struct At
    {
        int level;
        int line;
        constexpr At(int level, int line = __builtin_LINE()) : level(level), line(line) {}
    };

    // Lines above this level are dropped.
    static constexpr int maxLevel = 7;

    // `module` is kept, not copied.
    constexpr explicit Log(const char* module) : mModule(module) {}

    // Writes one line, `format` and its arguments as for printf. The line ends with exactly the line feed
    // that the message brings, or with one that is added when it brings none.
    [[gnu::format(printf, 3, 4)]] void operator()(At at, const char* format, ...) const;

private:
    const char* mModule;
};
