#include "config/program_facts.h"

namespace config {

const char* const ProgramVersion = VORNIK_VERSION;

}  // namespace config
