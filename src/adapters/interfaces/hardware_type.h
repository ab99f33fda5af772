#pragma once

#include <string>

namespace adapters {

/// Whether an interface carries Ethernet frames, or frames that look like them, as the loop's do.
/// True also where the system does not tell: who opens the interface learns it then.
bool CarriesEthernet(const std::string& name);

}  // namespace adapters
