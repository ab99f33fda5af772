#include "base/failure.h"

#include <utility>

namespace platform {

namespace {

std::string StandardText(std::int32_t number) {
  switch (number) {
    case failure::InvalidProcedureCall:
      return "Invalid procedure call or argument";
    case failure::Overflow:
      return "Overflow";
    case failure::OutOfMemory:
      return "Out of memory";
    case failure::SubscriptOutOfRange:
      return "Subscript out of range";
    case failure::DivisionByZero:
      return "Division by zero";
    case failure::TypeMismatch:
      return "Type mismatch";
    case failure::BadFileNumber:
      return "Bad file name or number";
    case failure::FileNotFound:
      return "File not found";
    case failure::FileAlreadyOpen:
      return "File already open";
    case failure::DeviceIo:
      return "Device I/O error";
    case failure::DiskFull:
      return "Disk full";
    case failure::TooManyFiles:
      return "Too many files";
    case failure::PermissionDenied:
      return "Permission denied";
    case failure::PathFileAccess:
      return "Path/File access error";
    case failure::PathNotFound:
      return "Path not found";
    case failure::ObjectNotSet:
      return "Object variable not set";
    case failure::InvalidPropertyValue:
      return "Invalid property value";
    case failure::WindowSizing:
      return "A minimized or maximized window cannot be sized";
    case failure::WindowMoving:
      return "A minimized or maximized window cannot be moved";
    case failure::PrinterError:
      return "Printer error";
    case failure::NoPrinter:
      return "There is no printer";
    case failure::HarmlessStop:
      return "The capture was stopped already";
    case failure::FilterRefused:
      return "The filter expression was refused";
    default:
      return "Application-defined error";
  }
}

}  // namespace

Failure::Failure(std::int32_t number) : Failure(number, StandardText(number)) {}

Failure::Failure(std::int32_t number, std::string text) : number_(number), text_(std::move(text)) {}

}  // namespace platform
