#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace platform {

/// The one exception of the program: a number that traps compare, and a text for the user.
///
/// The numbers are those that the routines' traps are written against; adapters, files, printers
/// and the checked conversions map what they meet to them.
class Failure : public std::exception {
 public:
  /// The failure with the runtime's standard text for its number.
  explicit Failure(std::int32_t number);
  Failure(std::int32_t number, std::string text);

  std::int32_t Number() const { return number_; }
  const std::string& Text() const { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::int32_t number_;
  std::string text_;
};

namespace failure {

inline constexpr std::int32_t InvalidProcedureCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t DivisionByZero = 11;
inline constexpr std::int32_t TypeMismatch = 13;
/// A file number under which no file is open.
inline constexpr std::int32_t BadFileNumber = 52;
inline constexpr std::int32_t FileNotFound = 53;
/// A file number under which another file is open still.
inline constexpr std::int32_t FileAlreadyOpen = 55;
inline constexpr std::int32_t DeviceIo = 57;
inline constexpr std::int32_t DiskFull = 61;
inline constexpr std::int32_t TooManyFiles = 67;
inline constexpr std::int32_t PermissionDenied = 70;
/// The path leads to something that is no file.
inline constexpr std::int32_t PathFileAccess = 75;
inline constexpr std::int32_t PathNotFound = 76;
inline constexpr std::int32_t ObjectNotSet = 91;
inline constexpr std::int32_t InvalidPropertyValue = 380;
/// A member of a control array that the form has not.
inline constexpr std::int32_t NoSuchControl = 340;
/// A minimised or maximised window refuses to be sized.
inline constexpr std::int32_t WindowSizing = 384;
inline constexpr std::int32_t WindowMoving = 385;
/// The printer, or the file that it prints to, refuses the page.
inline constexpr std::int32_t PrinterError = 482;
inline constexpr std::int32_t NoPrinter = 484;
/// The capture control may report this when it is stopped; it does no harm.
inline constexpr auto HarmlessStop = static_cast<std::int32_t>(0x8004022BU);
/// The capture control refused the filter expression.
inline constexpr auto FilterRefused = static_cast<std::int32_t>(0x80040231U);

}  // namespace failure

}  // namespace platform
