#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

// Random numbers that are the same on every machine. Each event of a stream has dice of its own, so that a stream can
// be entered at any event.
class Dice
{
public:
    Dice(uint64_t seed, uint64_t event) : mState(seed << 40 ^ event) {}

    // 0 to `limit` - 1.
    int below(int limit) { return static_cast<int>(next() % static_cast<uint64_t>(limit)); }

    template <typename Items>
    const auto& pick(const Items& items)
    {
        return std::data(items)[below(static_cast<int>(std::size(items)))];
    }

private:
    uint64_t next()
    {
        uint64_t bits = mState += 0x9e3779b97f4a7c15;
        bits = (bits ^ bits >> 30) * 0xbf58476d1ce4e5b9;
        bits = (bits ^ bits >> 27) * 0x94d049bb133111eb;
        return bits ^ bits >> 31;
    }

    uint64_t mState;
};
