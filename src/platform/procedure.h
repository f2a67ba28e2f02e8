#pragma once

#include <exception>
#include <new>
#include <string_view>

#include "platform/failure.h"

namespace tabulon {

/// The stack of the procedures now running, and the report of a failure.
class ProcedureStack {
  public:
    virtual ~ProcedureStack() = default;

    /// Enters a procedure. `name` must outlive the call: all names are literals.
    virtual void Push(std::string_view name) = 0;
    virtual void Pop() = 0;
    /// Reports the failure under the name on top of the stack.
    virtual void HandleError(const Failure& failure) = 0;
};

/// Runs the body as the procedure `name`: every failure in it is reported once, the rest of the body is
/// skipped, and the caller carries on with whatever its result variable held. A Push that fails belongs to
/// the caller. Exceptions of libraries count as failures; ProgramEnd passes through. `afterFailure` is what
/// the procedure's failure path does once the report is made.
template <class Stack, class Body, class AfterFailure>
void Procedure(Stack& stack, std::string_view name, Body&& body, AfterFailure&& afterFailure) {
    stack.Push(name);
    try {
        body();
    } catch (const Failure& failure) {
        stack.HandleError(failure);
        afterFailure();
    } catch (const std::bad_alloc&) {
        stack.HandleError(Failure(FailureNumber::OutOfMemory));
        afterFailure();
    } catch (const std::exception& other) {
        stack.HandleError(Failure(FailureNumber::InternalError, other.what()));
        afterFailure();
    }
    stack.Pop();
}

template <class Stack, class Body>
void Procedure(Stack& stack, std::string_view name, Body&& body) {
    Procedure(stack, name, body, [] {});
}

}  // namespace tabulon
