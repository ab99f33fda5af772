#pragma once

#include <string>

namespace config {

inline constexpr const char* ProgramName = "Vornik";
/// The version of the build, as the build names it.
extern const char* const ProgramVersion;
inline constexpr const char* SupportAddress = "support@vornik.example";
inline constexpr const char* WebSite = "https://www.vornik.example/";

/// The title of the main window.
inline std::string ProgramCaption() {
  return std::string(ProgramName) +
         ": for Real-Time Communication on IEC 61850 Process Bus Based Distributed Sampled "
         "Measured Values Transmission; Version: " +
         ProgramVersion;
}

}  // namespace config
