#pragma once

/// Runs the scenes of a test program. Gives 0 when all passed, `SkipCode` when none failed and one
/// or more could not run on this computer, and 1 when one failed.
int RunScenes();

/// What a test program ends with where scenes were skipped; CTest reports the suite as skipped
/// then.
inline constexpr int SkipCode = 77;
