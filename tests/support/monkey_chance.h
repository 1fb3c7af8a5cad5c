#pragma once

#include <iterator>
#include <random>

namespace brindle {

/// What a random user's decisions are drawn from: the same seed, the same user.
class MonkeyChance {
  public:
    explicit MonkeyChance(unsigned seed) : random_(seed) {}

    /// A number from `first` to `last`, both included.
    int Number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }

    /// True once in `times` on the average.
    bool OneIn(int times) { return Number(1, times) == 1; }

    /// An element of a list that is not empty.
    template<class List>
    auto& Pick(List& list) {
        using std::begin;
        using std::size;
        return *std::next(begin(list), Number(0, static_cast<int>(size(list)) - 1));
    }

  private:
    std::mt19937 random_;
};

} // namespace brindle
