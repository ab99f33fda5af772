#pragma once

#include <QString>
#include <memory>

#include "platform/services/file_system.h"

namespace desktop {

/// Opens files through the C library without a buffer of its own: the one portable way that tells
/// why a write or a close failed.
std::unique_ptr<platform::OutputFile> OpenToAppend(const QString& place);
std::unique_ptr<platform::OutputFile> OpenAnew(const QString& place);
std::unique_ptr<platform::InputFile> OpenToRead(const QString& place);

}  // namespace desktop
