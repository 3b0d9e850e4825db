#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

// Random numbers that are the same on every machine. Each life of a walk has dice of its own, so that one can begin at
// any of them.
class Dice
{
public:
    Dice(uint64_t seed, uint64_t number) : mState(seed << 40 ^ number) {}

    // 0 to `limit` - 1.
    int below(size_t limit) { return static_cast<int>(next() % limit); }
    bool oneIn(size_t chances) { return below(chances) == 0; }

    template <typename Items>
    const auto& pick(const Items& items)
    {
        return std::data(items)[below(std::size(items))];
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
