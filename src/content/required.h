#pragma once

#include "platform/failure.h"

namespace tabulon {

/// What the pointer points to; fails with ObjectNotSet when it is null.
template <class Pointer>
auto& Required(const Pointer& pointer) {
    if (!pointer) throw Failure(FailureNumber::ObjectNotSet);
    return *pointer;
}

}  // namespace tabulon
