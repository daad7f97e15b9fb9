#pragma once

#include <exception>
#include <string>

namespace vk {

/// Numbers of the run-time errors that the program can raise.
enum RuntimeErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kIndexOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kInternalError = 51,  ///< whatever goes wrong inside without a number of its own
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathAccessError = 75,
  kPathNotFound = 76,
  kPrinterError = 482,
};

/// The one exception type of the program.
///
/// Where a routine has a guard, the failing statement is dropped and the next one runs (`base/Guard.h`).
/// Where it has none, the error travels to the top of the command, which tells the user and ends there.
class RuntimeError : public std::exception {
 public:
  /// `reason` is a literal that tells more than the text of the number does.
  explicit RuntimeError(int number, const char* reason = nullptr) : number_(number), reason_(reason) {}

  int number() const { return number_; }
  /// "Errore di run-time 'N':", an empty line and the Italian text of the number; lines end in LF.
  std::string message() const;
  /// What went wrong in a few words, without a number: the reason where one is known, else the text of the number.
  /// A literal: that memory is exhausted is told without any.
  const char* reason() const;
  const char* what() const noexcept override { return "run-time error"; }

 private:
  int number_;
  const char* reason_;
};

/// The exception that is being handled as a run-time error: memory that is exhausted is number 7, and what has
/// no number of its own is 51.
RuntimeError presentRuntimeError();

/// The Italian text of a run-time error number; numbers without one get the general text.
std::string runtimeErrorText(int number);

}  // namespace vk
