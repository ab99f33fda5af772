#pragma once

#include <nlohmann/json.hpp>

#include "console/bus/stream_figures.h"
#include "platform/services/code_page.h"

namespace console {

using Json = nlohmann::ordered_json;

/// What a stream is and how it comes, with fields named as in IEC 61850-9-2 and IEC 61869-9. A
/// field that its frames do not have is left out. Times between arrivals are in microseconds.
Json ToJson(const StreamFigures& stream, const platform::CodePage& code);

/// The first channels: RMS value, mean, magnitude and angle, in the units of the wire, and degrees;
/// none where no whole second was measured.
Json ChannelsToJson(const StreamFigures& stream);

/// A text of the bus in characters that JSON may hold, control characters written out.
std::string TextOf(const std::string& octets, const platform::CodePage& code);

}  // namespace console
