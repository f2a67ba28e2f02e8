#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/text.h"

namespace tabulon {

/// An ordered list that owns its elements. Positions count from 1; an element may have a key, whose ASCII
/// case does not count. Elements stay where they are in memory.
template <class T>
class Collection {
  public:
    /// Walks the elements in order.
    class Iterator {
      public:
        explicit Iterator(const std::unique_ptr<T>* at) : m_at(at) {}
        T& operator*() const { return **m_at; }
        Iterator& operator++() {
            ++m_at;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

      private:
        const std::unique_ptr<T>* m_at;
    };

    /// Fails with DuplicateKey, and adds nothing, when the key is taken. An empty key is none.
    T& Add(std::unique_ptr<T> element, std::string_view key) {
        if (!key.empty() && PositionOf(key) != 0) throw Failure(FailureNumber::DuplicateKey);
        m_keys.emplace_back(key);
        return *m_elements.emplace_back(std::move(element));
    }

    int Count() const { return static_cast<int>(m_elements.size()); }

    /// Fails with SubscriptOutOfRange for a position beyond the list, with InvalidCall for an unknown key.
    T& Item(int position) const { return *m_elements[Checked(position)]; }
    T& Item(std::string_view key) const { return *m_elements[Checked(key)]; }

    /// Fails as Item does.
    void Remove(int position) { Erase(Checked(position)); }
    void Remove(std::string_view key) { Erase(Checked(key)); }

    Iterator begin() const { return Iterator(m_elements.data()); }
    Iterator end() const { return Iterator(m_elements.data() + m_elements.size()); }

  private:
    std::size_t Checked(int position) const {
        const std::size_t index = static_cast<std::size_t>(position) - 1;
        if (index >= m_elements.size()) throw Failure(FailureNumber::SubscriptOutOfRange);
        return index;
    }
    std::size_t Checked(std::string_view key) const {
        const int position = PositionOf(key);
        if (key.empty() || position == 0) throw Failure(FailureNumber::InvalidCall);
        return static_cast<std::size_t>(position) - 1;
    }
    int PositionOf(std::string_view key) const {
        for (std::size_t i = 0; i < m_keys.size(); ++i)
            if (EqualNoCase(m_keys[i], key)) return static_cast<int>(i) + 1;
        return 0;
    }
    void Erase(std::size_t index) {
        m_elements.erase(m_elements.begin() + static_cast<std::ptrdiff_t>(index));
        m_keys.erase(m_keys.begin() + static_cast<std::ptrdiff_t>(index));
    }

    std::vector<std::unique_ptr<T>> m_elements;
    std::vector<std::string> m_keys;
};

}  // namespace tabulon
