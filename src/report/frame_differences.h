#pragma once

#include <string>
#include <vector>

#include "platform/services/code_page.h"
#include "report/searched_frame.h"
#include "sv/frame.h"

namespace packetroutines {

/// Where the rows of the report, which come from searches, tell something else than the structure
/// of the frame: one sentence each, in the order of the rows. What the structure does not tell is
/// not compared.
std::vector<std::string> Differences(const SearchedFrame& searched, const sv::Frame& frame,
                                     const platform::CodePage& code);

/// Octets of the bus as they are shown.
std::string ShownOctets(std::string_view octets, const platform::CodePage& code);

/// The sentence of these for the station ID; empty where the search has found it.
std::string MisreadId(const SearchedFrame& searched, const sv::Frame& frame,
                      const platform::CodePage& code);

}  // namespace packetroutines
