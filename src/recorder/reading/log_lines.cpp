#include "recorder/reading/log_lines.h"

#include "base/failure.h"
#include "base/number_text.h"
#include "platform/services/dialogs.h"
#include "platform/stream_format.h"
#include "recorder/reading/log_text.h"

namespace packetroutines {

using platform::Crlf;

void LogLines::Heading(const LogHeading& heading) {
  Line("Error log for file               : " + heading.Path);
  Line("Measurement started              : " + (heading.Start ? Date(*heading.Start) : NotKnown));
  Line("Measurement stopped              : " + Date(heading.Stop));
  Line("Duration time of data aquisition : " +
       (heading.Start
            ? platform::TimeOfDayText(platform::SecondsBetween(*heading.Start, heading.Stop)) +
                  " hh:mm:ss;"
            : NotKnown));
  Line("");
  Line("MAC adress sender                : " + heading.Frame.Sender);
  Line("MAC adress receiver              : " + heading.Frame.Receiver);
  // The ID is in the code page already.
  log_.Write("Station ID                       : " + heading.Frame.Id + Crlf);
  Line("Filter were set to               : " + heading.Filters);
  Line("");
}

void LogLines::Counts(const GapSearch& gaps, const LongestRun& run, double frequency) {
  const platform::NumberText& numbers = texts_.Numbers;
  Line("Count of received samples        : " + numbers.General(gaps.Lines()));
  Line("Count of lost samples            : " + numbers.General(gaps.Lost()));
  const double sent = static_cast<double>(gaps.Lost()) + gaps.Lines();
  Line("Percentage of captured samples   : " + numbers.Format(gaps.Lines() / sent * 100, "0.0") +
       " %");
  const double waves = static_cast<double>(run.Longest) / platform::SamplesAPeriod;
  if (frequency == 0) throw platform::Failure(platform::failure::DivisionByZero);
  Line("Longest continous data           : " + numbers.General(run.Longest) +
       " samples; start: " + numbers.General(run.First) + ", end: " + numbers.General(run.Last) +
       "; (acc. ~" + numbers.General(waves / frequency) + "s)");
  Line("Count of received full waves     : " +
       numbers.General(run.Longest / platform::SamplesAPeriod));
}

void LogLines::Line(const std::string& text) {
  log_.Write(LogText(texts_.Code, text) + Crlf);
}

std::string LogLines::Date(const platform::LocalTime& moment) const {
  return LogDate(texts_.Code, texts_.Calendar, moment);
}

}  // namespace packetroutines
