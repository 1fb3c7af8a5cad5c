#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// Takes RapidCheck's place where the library cannot be had: the part of it that our tests use, under its
/// names. A property runs on as many cases, which grow likewise; a failing case is told by its number and not
/// made smaller. Each property has the same cases in every run.
namespace rc {

struct CaseDiscarded {};

struct CaseFailed {
    const char* Expression;
    const char* File;
    int Line;
};

inline constexpr int CasesAProperty = 100;

/// The chance that the values of the running case are drawn with.
struct CaseChance {
    std::mt19937_64 Engine;
    int Size = 0; ///< 0 to CasesAProperty: how large the values of this case may be
};

inline CaseChance& Chance() {
    thread_local CaseChance chance;
    return chance;
}

inline std::size_t DrawBelow(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(Chance().Engine);
}

/// Draws a value each time that it is asked.
template<class T>
class Gen {
  public:
    explicit Gen(std::function<T()> draw) : draw_(std::move(draw)) {}

    T operator*() const { return draw_(); }

  private:
    std::function<T()> draw_;
};

namespace gen {

/// From `least` up to the one before `end`.
template<class T>
Gen<T> inRange(T least, T end) {
    return Gen<T>([least, end] {
        const auto first = static_cast<std::int64_t>(least);
        const auto last = static_cast<std::int64_t>(end) - 1;
        return static_cast<T>(std::uniform_int_distribution<std::int64_t>(first, last)(Chance().Engine));
    });
}

template<class T>
Gen<T> elementOfVector(std::vector<T> values) {
    return Gen<T>([values = std::move(values)] { return T(values[DrawBelow(values.size())]); });
}

template<class Container>
auto elementOf(const Container& values) {
    using T = std::decay_t<decltype(*std::begin(values))>;
    return elementOfVector(std::vector<T>(std::begin(values), std::end(values)));
}

template<class T, class... Others>
Gen<T> element(T first, Others... others) {
    return elementOfVector(std::vector<T>{std::move(first), T(others)...});
}

/// Each value as often, among all, as its weight says.
template<class T>
Gen<T> weightedElement(std::initializer_list<std::pair<std::size_t, T>> weighted) {
    std::vector<T> values;
    for (const auto& [weight, value] : weighted) {
        values.insert(values.end(), weight, value);
    }
    return elementOfVector(std::move(values));
}

template<class Container, class T>
Gen<Container> container(std::size_t size, Gen<T> element) {
    return Gen<Container>([size, element = std::move(element)] {
        Container values;
        for (std::size_t index = 0; index < size; ++index) {
            values.push_back(*element);
        }
        return values;
    });
}

template<class Container, class T>
Gen<Container> container(Gen<T> element) {
    return Gen<Container>([element = std::move(element)] {
        return *container<Container>(DrawBelow(static_cast<std::size_t>(Chance().Size) + 1), element);
    });
}

template<class T>
struct Any;

/// Small numbers and those of any size: faults like both.
template<class T>
requires std::is_integral_v<T>

struct Any<T> {
    static T Draw() {
        const T any = static_cast<T>(Chance().Engine());
        return sizeof(T) > 1 && DrawBelow(2) == 0 ? static_cast<T>(any % static_cast<T>(Chance().Size + 1))
                                                  : any;
    }
};

template<>
struct Any<bool> {
    static bool Draw() { return DrawBelow(2) == 0; }
};

template<class T>

requires requires(T values) {
    values.push_back(*values.begin());
}

struct Any<T> {
    static T Draw() { return *container<T>(Gen<typename T::value_type>(Any<typename T::value_type>::Draw)); }
};

template<class T>
Gen<T> arbitrary() {
    return Gen<T>(Any<T>::Draw);
}

template<class T, class Wanted>
Gen<T> suchThat(Gen<T> values, Wanted wanted) {
    return Gen<T>([values = std::move(values), wanted = std::move(wanted)] {
        for (int tries = 0; tries < 1000; ++tries) {
            T value = *values;
            if (wanted(value)) {
                return value;
            }
        }
        throw CaseDiscarded{};
    });
}

template<class T>
Gen<T> nonZero() {
    return suchThat(arbitrary<T>(), [](T value) { return value != 0; });
}

template<class T, class Change>
auto map(Gen<T> values, Change change) {
    using Result = std::decay_t<decltype(change(*values))>;
    return Gen<Result>([values = std::move(values), change = std::move(change)] { return change(*values); });
}

template<class T, class... Others>
Gen<T> oneOf(Gen<T> first, Others... others) {
    const std::vector<Gen<T>> choices{std::move(first), std::move(others)...};
    return Gen<T>([choices] { return *choices[DrawBelow(choices.size())]; });
}

template<class... Parts>
Gen<std::tuple<Parts...>> tuple(Gen<Parts>... parts) {
    return Gen<std::tuple<Parts...>>([parts...] { return std::tuple<Parts...>{*parts...}; });
}

template<class First, class Second>
Gen<std::pair<First, Second>> pair(Gen<First> first, Gen<Second> second) {
    return Gen<std::pair<First, Second>>([first, second] {
        return std::pair<First, Second>{*first, *second};
    });
}

template<class Draw>
auto exec(Draw draw) {
    return Gen<std::decay_t<decltype(draw())>>(draw);
}

} // namespace gen
} // namespace rc

#define RC_ASSERT(...)                                                                                       \
    ((__VA_ARGS__) ? static_cast<void>(0) : throw ::rc::CaseFailed{#__VA_ARGS__, __FILE__, __LINE__})
#define RC_PRE(...) ((__VA_ARGS__) ? static_cast<void>(0) : throw ::rc::CaseDiscarded{})
#define RC_CLASSIFY(condition, ...) static_cast<void>(condition)
