#pragma once

#include <string>
#include <string_view>

namespace vk {

/// An open file of the system; closed at the end of the scope. What a signal breaks off goes on.
class OpenFile {
 public:
  /// Opens with these flags of the system; a file that is made gets the process's default permissions.
  OpenFile(const std::string& path, int flags);
  /// Opens what the process has open under this number once more: position and rights are shared.
  explicit OpenFile(int descriptor);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  /// Otherwise the system's error number tells why, right after the opening.
  bool isOpen() const { return handle_ >= 0; }
  /// False for pipes, devices and the like.
  bool isRegular() const;
  int handle() const { return handle_; }

  /// Locks the file until it is closed. False when somebody else holds the lock.
  bool lock() const;

  /// All bytes from here to the end. One that breaks off, or is longer than `limit`, is run-time error 57; a folder 75.
  std::string readToEnd(std::size_t limit) const;

  /// The number of the system's error, 0 when all bytes were taken.
  int write(std::string_view bytes) const;
  /// The same for the wait until all is on the disk; 0 also where the file system knows no such wait.
  int sync() const;
  /// The same for taking the space of so many bytes.
  int reserve(std::size_t size) const;
  /// The same for the change of the length: bytes beyond go, missing ones are zeros.
  int resize(std::size_t size) const;
  /// The same for the closing: some devices report a full disk only here.
  int close();

 private:
  int handle_;
};

}  // namespace vk
