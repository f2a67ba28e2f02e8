#pragma once

#include "platform/failure.h"

namespace tabulon::test {

/// The number of the failure that the operation ends with; 0 when it succeeds.
template <class Operation>
int FailureOf(Operation&& operation) {
    try {
        operation();
    } catch (const Failure& failure) {
        return failure.Number();
    }
    return 0;
}

}  // namespace tabulon::test
