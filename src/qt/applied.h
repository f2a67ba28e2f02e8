#pragma once

#include <optional>

namespace tabulon {

/// A value as it was last applied to a widget.
template <class T>
class Applied {
  public:
    /// True when the value differs from the last one, which it then replaces.
    bool Take(const T& value) {
        if (m_value == value) return false;
        m_value = value;
        return true;
    }

  private:
    std::optional<T> m_value;
};

}  // namespace tabulon
