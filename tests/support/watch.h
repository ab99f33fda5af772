#pragma once

#include <sstream>
#include <string>

#include "platform/controls/property.h"
#include "support/journal.h"

namespace support {

/// Writes each assignment of a property into the journal, as "name value".
template <typename T>
void Watch(Journal& journal, platform::Property<T>& property, const std::string& name) {
  property.Observe([&journal, &property, name] {
    std::ostringstream line;
    line << name << " " << std::boolalpha << property.Get();
    journal.push_back(line.str());
  });
}

}  // namespace support
