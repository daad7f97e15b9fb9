#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace vk {
namespace {

TEST(RuntimeError, TellsItsNumberAndItalianText) {
  EXPECT_EQ(RuntimeError(kDivisionByZero).message(), "Errore di run-time '11':\n\nDivisione per zero");
  EXPECT_STREQ(RuntimeError(kDivisionByZero).reason(), "Divisione per zero");
  EXPECT_STREQ(RuntimeError(kDeviceIoError, "Disco pieno").reason(), "Disco pieno");
  EXPECT_EQ(RuntimeError(kDeviceIoError, "Disco pieno").message(),
            "Errore di run-time '57':\n\nErrore di I/O della periferica");
}

template <class Thrown>
RuntimeError presentErrorOf(const Thrown& thrown) {
  try {
    throw thrown;
  } catch (...) {
    return presentRuntimeError();
  }
}

TEST(RuntimeError, EveryExceptionHasANumber) {
  EXPECT_EQ(presentErrorOf(RuntimeError(kOverflow)).number(), 6);
  EXPECT_EQ(presentErrorOf(std::bad_alloc()).message(), "Errore di run-time '7':\n\nMemoria esaurita");
  EXPECT_EQ(presentErrorOf(std::runtime_error("")).number(), 51);
}

}  // namespace
}  // namespace vk
