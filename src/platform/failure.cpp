#include "platform/failure.h"

#include <utility>

namespace tabulon {

namespace {

const char* UsualDescription(FailureNumber number) {
    switch (number) {
        case FailureNumber::InvalidCall: return "Invalid procedure call or argument";
        case FailureNumber::Overflow: return "Overflow";
        case FailureNumber::OutOfMemory: return "Out of memory";
        case FailureNumber::SubscriptOutOfRange: return "Subscript out of range";
        case FailureNumber::DivisionByZero: return "Division by zero";
        case FailureNumber::TypeMismatch: return "Type mismatch";
        case FailureNumber::InternalError: return "Internal error";
        case FailureNumber::FileNotFound: return "File not found";
        case FailureNumber::FileIoError: return "Device I/O error";
        case FailureNumber::DiskFull: return "Disk full";
        case FailureNumber::PermissionDenied: return "Permission denied";
        case FailureNumber::PathNotFound: return "Path not found";
        case FailureNumber::ObjectNotSet: return "Object variable not set";
        case FailureNumber::InvalidUseOfNull: return "Invalid use of null";
        case FailureNumber::InvalidPropertyValue: return "Invalid property value";
        case FailureNumber::NotSupported: return "Object does not support this property or method";
        case FailureNumber::DuplicateKey: return "This key is already in the collection";
        case FailureNumber::InvalidPicture: return "Invalid picture";
        case FailureNumber::ItemNotFound: return "Item not found";
        case FailureNumber::ElementNotFound: return "Element not found";
        case FailureNumber::CustomError: return "Application-defined error";
    }
    return "Unknown error";
}

}  // namespace

Failure::Failure(FailureNumber number) : Failure(number, UsualDescription(number)) {}

Failure::Failure(FailureNumber number, std::string description)
    : m_number(number), m_description(std::move(description)) {}

}  // namespace tabulon
