#pragma once

#include <cstdint>
#include <string>

#include "console/bus/bus_streams.h"
#include "platform/services/code_page.h"

namespace console {

/// What a bus is at the end of a second, in the text format that a Prometheus node exporter reads
/// (version 0.0.4): totals since the command began, and the figures of the last second. Currents
/// and voltages are in the units of the wire. Each series bears the adapter that was listened to,
/// so that the files of two watches on a computer, of one stream even, stand beside each other.
std::string MetricsText(const BusStreams& bus, const std::string& adapter, std::uint64_t dropped,
                        const platform::CodePage& code);

}  // namespace console
