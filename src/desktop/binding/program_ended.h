#pragma once

namespace desktop {

/// Unwinds a scene whose program has ended. The real program never sees it, since it leaves the
/// process instead; a scene that lives on throws it from its way of leaving.
struct ProgramEnded {};

}  // namespace desktop
