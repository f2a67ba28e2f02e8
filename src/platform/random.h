#pragma once

#include <cmath>

namespace tabulon {

/// The program's one source of chance.
class Random {
  public:
    virtual ~Random() = default;

    /// A uniform single-precision number in [0, 1).
    virtual float Rnd() = 0;
    /// Seeds the generator from the clock. A generator with a fixed course takes no notice.
    virtual void Randomize() = 0;

    /// floor(range * Rnd + offset), formed in double precision: in single precision the greatest draws of a
    /// wide range would round up to one above it. The product is exact, so the whole offset may come last.
    int Draw(int range, int offset) {
        const double drawn = static_cast<double>(Rnd()) * range;
        return static_cast<int>(range < 0 ? std::floor(drawn) : drawn) + offset;
    }
};

}  // namespace tabulon
