#pragma once

#include <ostream>

#include "console/bus/bus_streams.h"
#include "platform/services/code_page.h"

namespace console {

/// Writes two tables: what each stream is, and how it comes. A number in front of each row joins
/// them.
void WriteTables(const BusStreams& bus, const platform::CodePage& code, std::ostream& out);

}  // namespace console
