#pragma once

#include <exception>
#include <string>

namespace vk {

/// Numbers of the run-time errors that the program can raise.
enum RuntimeErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kIndexOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
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
/// Where it has none, the error travels to the top of the command, which tells the user and ends the program.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(int number) : number_(number) {}

  int number() const { return number_; }
  /// "Errore di run-time 'N':", an empty line and the Italian text of the number; lines end in LF.
  std::string message() const;
  const char* what() const noexcept override { return "run-time error"; }

 private:
  int number_;
};

/// The Italian text of a run-time error number; numbers without one get the general text.
std::string runtimeErrorText(int number);

}  // namespace vk
