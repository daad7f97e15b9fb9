#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <new>

namespace vk {
namespace {

struct Text {
  int number;
  const char* text;
};

constexpr std::array kTexts{
    Text{kInvalidCall, "Chiamata di routine o argomento non validi"},
    Text{kOverflow, "Overflow"},
    Text{kOutOfMemory, "Memoria esaurita"},
    Text{kIndexOutOfRange, "Indice non incluso nell'intervallo"},
    Text{kDivisionByZero, "Divisione per zero"},
    Text{kTypeMismatch, "Tipo non corrispondente"},
    Text{kFileNotFound, "Impossibile trovare il file"},
    Text{kDeviceIoError, "Errore di I/O della periferica"},
    Text{kInputPastEnd, "Input oltre la fine del file"},
    Text{kPermissionDenied, "Autorizzazione negata"},
    Text{kPathAccessError, "Errore di accesso al percorso/file"},
    Text{kPathNotFound, "Impossibile trovare il percorso"},
    Text{kPrinterError, "Errore della stampante"},
};

const char* textOf(int number) {
  const auto* found =
      std::find_if(kTexts.begin(), kTexts.end(), [&](const Text& t) { return t.number == number; });
  return found == kTexts.end() ? "Errore definito dall'applicazione" : found->text;
}

}  // namespace

std::string runtimeErrorText(int number) {
  return textOf(number);
}

std::string RuntimeError::message() const {
  return "Errore di run-time '" + std::to_string(number_) + "':\n\n" + runtimeErrorText(number_);
}

const char* RuntimeError::reason() const {
  return reason_ != nullptr ? reason_ : textOf(number_);
}

RuntimeError presentRuntimeError() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RuntimeError(kOutOfMemory);
  } catch (...) {
    return RuntimeError(kInternalError);
  }
}

}  // namespace vk
