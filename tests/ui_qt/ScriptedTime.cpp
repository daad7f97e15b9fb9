#include "ui_qt/ScriptedTime.h"

#include <poll.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <ctime>

// The clocks and waits of the toolkit are those of the C library. A program that defines them itself has its own.

namespace vk {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;             // ns
constexpr std::int64_t kTick = 20'000;                      // ns
constexpr std::int64_t kPeriod = 2 * kSecond;               // ns
constexpr std::int64_t kMorning = 1'740'988'800 * kSecond;  // 3 March 2025, 8:00 UTC

bool scripted = false;
pthread_t walkingThread;
std::int64_t passed = 0;   // ns since the morning
std::int64_t started = 0;  // ns, on the clock that is never set

bool isScripted() {
  return scripted && pthread_equal(pthread_self(), walkingThread) != 0;
}

std::int64_t look() {
  return passed += kTick;
}

timespec asTimespec(std::int64_t time) {
  return {static_cast<std::time_t>(time / kSecond), static_cast<long>(time % kSecond)};
}

std::int64_t nanoseconds(const timespec& time) {
  return time.tv_sec * kSecond + time.tv_nsec;
}

bool isTimeOfDay(clockid_t clock) {
  return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
}

/// `most` is none where the wait has no end.
int waitFor(pollfd* files, nfds_t count, const timespec* most, const sigset_t* masked) {
  const bool skips = most != nullptr && isScripted();
  timespec left = most == nullptr || skips ? timespec{} : *most;  // the system counts it down
  const auto found = syscall(SYS_ppoll, files, count, most == nullptr ? nullptr : &left, masked,
                             static_cast<std::size_t>(_NSIG / 8));
  if (found == 0 && skips) passed += nanoseconds(*most);
  return static_cast<int>(found);
}

}  // namespace

ScriptedTime::ScriptedTime() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  walkingThread = pthread_self();
  started = nanoseconds(now);
  passed = 0;
  scripted = true;
}

ScriptedTime::~ScriptedTime() {
  scripted = false;
}

void ScriptedTime::settle() {
  passed = (passed / kPeriod + 1) * kPeriod;
}

}  // namespace vk

extern "C" {

[[gnu::visibility("default")]] int clock_gettime(clockid_t clock, timespec* time) noexcept {
  if (!vk::isScripted() || clock == CLOCK_PROCESS_CPUTIME_ID || clock == CLOCK_THREAD_CPUTIME_ID)
    return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  *time = vk::asTimespec(vk::look() + (vk::isTimeOfDay(clock) ? vk::kMorning : vk::started));
  return 0;
}

[[gnu::visibility("default")]] int gettimeofday(timeval* time, void* zone) noexcept {
  if (!vk::isScripted()) return static_cast<int>(syscall(SYS_gettimeofday, time, zone));
  const timespec now = vk::asTimespec(vk::look() + vk::kMorning);
  *time = {now.tv_sec, now.tv_nsec / 1000};
  return 0;
}

[[gnu::visibility("default")]] int poll(pollfd* files, nfds_t count, int milliseconds) {
  const timespec most = vk::asTimespec(milliseconds * vk::kSecond / 1000);
  return vk::waitFor(files, count, milliseconds < 0 ? nullptr : &most, nullptr);
}

[[gnu::visibility("default")]] int ppoll(pollfd* files, nfds_t count, const timespec* most,
                                         const sigset_t* masked) {
  return vk::waitFor(files, count, most, masked);
}

[[gnu::visibility("default")]] int nanosleep(const timespec* most, timespec* left) {
  if (!vk::isScripted()) return static_cast<int>(syscall(SYS_nanosleep, most, left));
  vk::passed += vk::nanoseconds(*most);
  return 0;
}
}
