#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/integer.h"

namespace tabulon {

/// An array of play: indices run from 0 to UBound(), and any other index fails with SubscriptOutOfRange.
/// A new array has no bounds yet, so every index fails.
template <class T>
class Array {
  public:
    Array() = default;
    Array(std::initializer_list<T> values) {
        for (const T& value : values) m_slots.push_back({value});
    }

    T& operator[](int index) { return m_slots[Checked(index)].value; }
    const T& operator[](int index) const { return m_slots[Checked(index)].value; }
    T& operator[](Integer index) { return (*this)[index.Value()]; }
    const T& operator[](Integer index) const { return (*this)[index.Value()]; }

    /// How many slots hold the value.
    int Count(const T& value) const {
        int count = 0;
        for (const Slot& slot : m_slots) count += slot.value == value;
        return count;
    }

    /// How many slots hold what the slot at the index holds: all of them, and those before it.
    struct Likes {
        int All = 0;
        int Before = 0;
    };
    Likes CountLike(int index) const {
        const Slot& own = m_slots[Checked(index)];
        Likes likes;
        for (const Slot& slot : m_slots) {
            const bool same = slot.value == own.value;
            likes.All += same;
            likes.Before += same && &slot < &own;
        }
        return likes;
    }

    /// -1 for an array without bounds.
    int UBound() const { return static_cast<int>(m_slots.size()) - 1; }

    /// Makes the array anew with empty slots 0 to upper; fails for an upper bound below 0.
    void ReDim(int upper) {
        CheckBound(upper);
        m_slots.assign(static_cast<std::size_t>(upper) + 1, Slot{});
    }
    void ReDim(Integer upper) { ReDim(upper.Value()); }

    /// As ReDim, but what stands in the slots that remain is kept.
    void ReDimPreserve(int upper) {
        CheckBound(upper);
        m_slots.resize(static_cast<std::size_t>(upper) + 1);
    }

    bool operator==(const Array&) const = default;

  private:
    struct Slot {
        T value{};
        bool operator==(const Slot&) const = default;
    };

    std::size_t Checked(int index) const {
        if (static_cast<std::size_t>(index) >= m_slots.size())
            throw Failure(FailureNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }
    static void CheckBound(int upper) {
        if (upper < 0) throw Failure(FailureNumber::SubscriptOutOfRange);
    }

    std::vector<Slot> m_slots;
};

}  // namespace tabulon
