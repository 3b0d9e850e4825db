#pragma once

#include <iterator>
#include <random>

// Random numbers that are the same on every machine. Each life of a walk has dice of its own, so that one can begin at
// any of them.
class Dice
{
public:
    Dice(uint64_t seed, uint64_t number) : mBits(seed << 40 ^ number) {}

    // 0 to `limit` - 1.
    int below(size_t limit) { return static_cast<int>(mBits() % limit); }
    bool oneIn(size_t chances) { return below(chances) == 0; }

    template <typename Items>
    const auto& pick(const Items& items)
    {
        return std::data(items)[below(std::size(items))];
    }

private:
    std::mt19937_64 mBits;
};
