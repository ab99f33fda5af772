#include "sv/asdu_words.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/hex_text.h"
#include "base/local_time.h"

namespace sv {

namespace {

using Lines = std::vector<WordLine>;

constexpr std::array<const char*, 4> Validities{"good", "invalid", "reserved validity",
                                                "questionable"};
/// From bit 2 on.
constexpr std::array<const char*, 12> Details{
    "overflow",        "outOfRange",   "badReference", "oscillatory",        "failure",
    "oldData",         "inconsistent", "inaccurate",   "source substituted", "test",
    "operatorBlocked", "derived"};
constexpr unsigned ValidityBits = 2;
constexpr unsigned KnownBits = ValidityBits + Details.size();

std::string Digits(Octets octets) {
  std::string digits;
  platform::WriteHexText(octets, digits);
  return digits;
}

std::string HexWord(std::uint32_t word) {
  const std::array<std::uint8_t, 4> octets{
      static_cast<std::uint8_t>(word >> 24U), static_cast<std::uint8_t>(word >> 16U & 0xFFU),
      static_cast<std::uint8_t>(word >> 8U & 0xFFU), static_cast<std::uint8_t>(word & 0xFFU)};
  return "0x" + Digits(octets);
}

/// UtcTime: seconds since 1970, a fraction of 24 bits, and the quality of the clock.
std::string UtcWords(Octets utcTime) {
  const std::chrono::sys_seconds moment{
      std::chrono::seconds(static_cast<std::int64_t>(Number(utcTime.first(4))))};
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  const auto number = [](auto part) { return static_cast<std::int32_t>(part); };
  std::string words = platform::NumericText(
      {static_cast<int>(date.year()), number(static_cast<unsigned>(date.month())),
       number(static_cast<unsigned>(date.day())), number(time.hours().count()),
       number(time.minutes().count()), number(time.seconds().count())});
  const std::string micros = std::to_string(Number(utcTime.subspan(4, 3)) * 1'000'000 >> 24U);
  words += '.' + std::string(6 - micros.size(), '0') + micros + " UTC";
  const std::uint8_t quality = utcTime[7];
  constexpr unsigned NotTold = 31;
  const unsigned accuracy = quality & 0x1FU;
  if ((quality & 0x80U) != 0) words += ", leap seconds known";
  if ((quality & 0x40U) != 0) words += ", clock failure";
  if ((quality & 0x20U) != 0) words += ", clock not synchronised";
  return words + (accuracy == NotTold ? std::string(", accuracy not told")
                                      : ", accuracy of " + std::to_string(accuracy) + " bits");
}

std::string ModeWords(std::uint16_t smpMod) {
  constexpr std::array<const char*, 3> Modes{"samples a nominal period", "samples a second",
                                             "seconds a sample"};
  return std::to_string(smpMod) + ", " + (smpMod < Modes.size() ? Modes[smpMod] : "reserved");
}

void TellValues(const Asdu& asdu, Lines& lines) {
  for (std::size_t k = 0; k < asdu.Channels(); ++k) {
    lines.push_back({"Value " + std::to_string(k + 1),
                     std::to_string(asdu.Value(k)) + ", " + QualityWords(asdu.Quality(k))});
  }
  const std::size_t rest = asdu.Samples.size() % 8;
  if (rest > 0) {
    lines.push_back({"Behind the values", Digits(asdu.Samples.last(rest)) + ", no whole value"});
  }
}

}  // namespace

std::string QualityWords(std::uint32_t word) {
  std::string words = Validities[word % Validities.size()];
  for (unsigned i = 0; i < Details.size(); ++i) {
    if ((word >> (ValidityBits + i) & 1U) != 0) words += std::string(", ") + Details[i];
  }
  if (word >> KnownBits != 0) words += ", unknown bits";
  return word == 0 ? words : words + " (" + HexWord(word) + ")";
}

std::string SynchWords(std::uint8_t smpSynch) {
  constexpr std::array<const char*, 3> States{"not synchronised",
                                              "synchronised by a local area clock",
                                              "synchronised by a global area clock"};
  constexpr std::uint8_t FirstIdentity = 5;
  constexpr std::uint8_t LastIdentity = 254;
  const std::string number = std::to_string(smpSynch) + ", ";
  if (smpSynch < States.size()) return number + States[smpSynch];
  return number + (smpSynch < FirstIdentity || smpSynch > LastIdentity
                       ? "reserved"
                       : "synchronised by the local area clock of this identity");
}

void TellAsdu(const Asdu& asdu, std::uint32_t number, Lines& lines) {
  const std::size_t head = lines.size();
  lines.push_back({"ASDU " + std::to_string(number), ""});
  if (asdu.SvId.data() != nullptr) lines.push_back({"svID", std::string(asdu.SvId), true});
  if (asdu.Datset) lines.push_back({"datset", std::string(*asdu.Datset), true});
  if (asdu.SmpCnt) lines.push_back({"smpCnt", std::to_string(*asdu.SmpCnt)});
  if (asdu.ConfRev) lines.push_back({"confRev", std::to_string(*asdu.ConfRev)});
  if (asdu.RefrTm.size() == 8) lines.push_back({"refrTm", UtcWords(asdu.RefrTm)});
  if (asdu.SmpSynch) lines.push_back({"smpSynch", SynchWords(*asdu.SmpSynch)});
  if (asdu.SmpRate) lines.push_back({"smpRate", std::to_string(*asdu.SmpRate)});
  if (asdu.SmpMod) lines.push_back({"smpMod", ModeWords(*asdu.SmpMod)});
  if (!asdu.GmIdentity.empty()) lines.push_back({"gmIdentity", Digits(asdu.GmIdentity)});
  TellValues(asdu, lines);
  if (lines.size() == head + 1) lines.pop_back();
}

}  // namespace sv
