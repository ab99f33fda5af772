#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace host {

/// Why a file or a folder cannot be opened for a reason of its own, as one of
/// `platform::open_code`; nothing where it can be handed to a viewer.
std::optional<std::int32_t> InTheWay(const std::filesystem::path& place);

}  // namespace host
