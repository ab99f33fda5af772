#include "console/comtrade/comtrade_head.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/number_text.h"
#include "config/program_facts.h"
#include "platform/services/dialogs.h"

namespace console {

namespace {

using platform::Crlf;

/// Numbers with a decimal point, whatever the locale.
const platform::NumberText Numbers;

struct FormFacts {
  const char* Name = nullptr;
  StoredRange Range;
};

/// 99999 is left out of the numbers in text, and the least integer of its bits out of the binary
/// ones: they stand for missing values. A float holds its value as it is.
const FormFacts& FactsOf(ComtradeForm form) {
  static constexpr std::array<FormFacts, 4> Facts = {
      {{"ASCII", {-99'999, 99'998}},
       {"BINARY", {-32'767, 32'767}},
       {"BINARY32", {-2'147'483'647, 2'147'483'647}},
       {"FLOAT32", {-3.4028234663852886e38, 3.4028234663852886e38}}}};
  return Facts[static_cast<std::size_t>(form)];
}

/// A limit of a channel. The field takes 13 characters, which all digits of a small float exceed:
/// such a limit is one that lies a little farther out, below with -1 and above with 1.
std::string LimitText(double limit, ComtradeForm form, int side) {
  if (form != ComtradeForm::Float32) return Numbers.General(limit);
  constexpr std::size_t FieldLength = 13;
  std::string text = Numbers.General(static_cast<float>(limit));
  if (text.size() <= FieldLength) return text;
  constexpr int DigitsBehindPoint = 5;
  constexpr double LastDigit = 1e-5;
  const double farther = limit + side * std::abs(limit) * LastDigit;
  std::array<char, 32> digits{};
  char* const begin = digits.data();
  char* const end = std::to_chars(begin, begin + digits.size(), farther,
                                  std::chars_format::scientific, DigitsBehindPoint)
                        .ptr;
  std::replace(begin, end, 'e', 'E');
  return {begin, end};
}

std::string ChannelLine(std::size_t number, const ComtradeChannel& channel, ComtradeForm form) {
  // Behind the phase stands the circuit that is watched, which nobody tells; behind the factor the
  // offset and the channel's delay; at the end the ratio of the transformer, of values that are
  // primary ones already.
  return std::to_string(number) + ',' + channel.Name + ',' + channel.Phase + ",," + channel.Unit +
         ',' + Numbers.General(channel.Factor) + ",0,0," + LimitText(channel.Least, form, -1) +
         ',' + LimitText(channel.Greatest, form, 1) + ",1,1,P" + Crlf;
}

/// "dd/mm/yyyy,hh:mm:ss.ssssss"
std::string MomentText(const ComtradeHead& head) {
  std::string text = platform::DottedText(head.Start);
  std::replace(text.begin(), text.end(), '.', '/');
  std::replace(text.begin(), text.end(), ' ', ',');
  const std::string behind = std::to_string(1'000'000 + head.StartMicroseconds);
  return text + '.' + behind.substr(1);
}

/// "+5h30", "-4", "0"
std::string AheadText(std::chrono::minutes ahead) {
  if (ahead.count() == 0) return "0";
  const auto whole = std::abs(ahead.count());
  std::string text = (ahead.count() < 0 ? "-" : "+") + std::to_string(whole / 60);
  if (whole % 60 == 0) return text;
  return text + 'h' + std::to_string(100 + whole % 60).substr(1);
}

/// The time code of the moments and of the place; the quality of the clock and the leap second.
/// Nobody has asked the computer's clock how well it is set, nor whether it knows of leap seconds:
/// F is a time that is not to be relied upon, 3 a source without leap seconds.
std::string ClockLines(const ComtradeHead& head) {
  const std::string ahead = AheadText(head.AheadOfGreenwich);
  return ahead + ',' + ahead + Crlf + "F,3" + Crlf;
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

}  // namespace

StoredRange RangeOf(ComtradeForm form) {
  return FactsOf(form).Range;
}

std::string ComtradeDevice() {
  return std::string(config::ProgramName) + ' ' + config::ProgramVersion;
}

double WrittenFactor(double factor) {
  return Numbers.ToDouble(Numbers.General(factor));
}

double UsualFrequency(double rate) {
  // Rates of 60 Hz, by their samples a period: 80, 96 and 256 (IEC 61850-9-2LE, IEC 61869-9).
  return rate == 4800 || rate == 5760 || rate == 15360 ? 60 : 50;
}

std::string ConfigurationText(const ComtradeHead& head) {
  const bool of1999 = head.Edition == ComtradeEdition::Of1999;
  const std::string count = std::to_string(head.Channels.size());
  std::string text =
      head.Station + ',' + ComtradeDevice() + ',' + (of1999 ? "1999" : "2013") + Crlf;
  text += count + ',' + count + "A,0D" + Crlf;
  for (std::size_t k = 0; k < head.Channels.size(); ++k) {
    text += ChannelLine(k + 1, head.Channels[k], head.Form);
  }
  text += Numbers.General(head.Frequency) + Crlf + "1" + Crlf;
  text += Numbers.General(head.Rate) + ',' + std::to_string(head.Samples) + Crlf;
  // Nothing has triggered the recording, so its first sample stands for the trigger, too.
  text += MomentText(head) + Crlf + MomentText(head) + Crlf;
  // Time stamps count samples, so that they are whole and exact at any rate, and fit for days.
  constexpr double Second = 1'000'000;
  text += std::string(FactsOf(head.Form).Name) + Crlf + Numbers.General(Second / head.Rate) + Crlf;
  if (!of1999) text += ClockLines(head);
  return text;
}

std::string UnfitComtradeName(std::string_view name, ComtradeEdition edition) {
  const auto isWide = [](char c) { return static_cast<unsigned char>(c) > '\x7F'; };
  if (name.find(',') != std::string_view::npos) return "It holds a comma, which separates names.";
  if (std::any_of(name.begin(), name.end(), IsControl)) return "It holds a control character.";
  if (name.size() > LongestComtradeName) {
    return "It has more than " + std::to_string(LongestComtradeName) + " characters.";
  }
  if (edition == ComtradeEdition::Of1999 && std::any_of(name.begin(), name.end(), isWide)) {
    return "The edition of 1999 knows only plain letters, of ASCII; that of 2013 knows all.";
  }
  return {};
}

std::string FitComtradeName(std::string_view name) {
  std::size_t length = std::min(name.size(), LongestComtradeName);
  // A character of several bytes stays whole or goes.
  const auto goesOn = [&] { return (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U; };
  while (length > 0 && length < name.size() && goesOn()) --length;
  std::string fit(name.substr(0, length));
  std::replace_if(
      fit.begin(), fit.end(), [](char c) { return c == ',' || IsControl(c); }, '_');
  return fit;
}

}  // namespace console
