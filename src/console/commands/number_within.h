#pragma once

#include <CLI/CLI.hpp>

namespace console {

/// Accepts a number in decimal digits, with a point perhaps, between two bounds; what an option is
/// given otherwise, such as "nan", "1e300" or "0x32", is refused with both bounds in words.
CLI::Validator NumberWithin(double least, double most);

/// The bounds of the options that several commands have: a length of time in seconds, and the
/// nominal frequency of the mains in Hz.
CLI::Validator SomeSeconds();
CLI::Validator MainsFrequency();

}  // namespace console
