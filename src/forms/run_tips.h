#pragma once

namespace forms {

/// The design tips of the run buttons: of a live view, and of one that runs until it is stopped.
inline constexpr const char* RunTip =
    "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view";
inline constexpr const char* RunUntilStopTip =
    "'RUN' starts recording samples acc. to time base; 'STOP' stops it";

/// What a press of the run button of Values and Phasor does next.
inline constexpr const char* StopTip = "'Stop' quit actual measurements";
inline constexpr const char* RunValuesTip = "'Run' starts aquiring samples to calculate RMS";
inline constexpr const char* RunPhasesTip = "'Run' starts aquiring samples estimate phase values";

}  // namespace forms
