#pragma once

#include <exception>
#include <string>

namespace tabulon {

/// Numbers of the run-time failures that the program itself raises.
enum class FailureNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    FileIoError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    InvalidPropertyValue = 380,
    NotSupported = 438,
    DuplicateKey = 457,
    InvalidPicture = 481,
    ItemNotFound = 3265,
    ElementNotFound = 35601,
    CustomError = -2147220504,
};

/// A run-time failure: what every procedure's failure path reports.
class Failure : public std::exception {
  public:
    /// The number with its usual description.
    explicit Failure(FailureNumber number);
    Failure(FailureNumber number, std::string description);

    int Number() const { return static_cast<int>(m_number); }
    const std::string& Description() const { return m_description; }
    const char* what() const noexcept override { return m_description.c_str(); }

  private:
    FailureNumber m_number;
    std::string m_description;
};

/// Thrown to end the program at once. It is no failure: no procedure catches or reports it.
struct ProgramEnd {};

}  // namespace tabulon
