#pragma once

#include <filesystem>
#include <memory>

#include "platform/services/file_system.h"

namespace host {

/// Opens files through the C library without a buffer of its own: the one portable way that tells
/// why a write or a close failed.
std::unique_ptr<platform::OutputFile> OpenToAppend(const std::filesystem::path& place);
std::unique_ptr<platform::OutputFile> OpenAnew(const std::filesystem::path& place);
/// Fails where there is a file of that name.
std::unique_ptr<platform::OutputFile> OpenNew(const std::filesystem::path& place);
std::unique_ptr<platform::OutputFile> OpenToAmend(const std::filesystem::path& place);
std::unique_ptr<platform::InputFile> OpenToRead(const std::filesystem::path& place);

}  // namespace host
