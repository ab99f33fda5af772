#include "recorder/events/identity_words.h"

#include "base/hex_text.h"
#include "base/shown_text.h"
#include "sv/asdu.h"

namespace packetroutines {

std::string IdentityWords(std::span<const std::uint8_t> bytes, const platform::CodePage& code) {
  const sv::Frame frame = sv::ReadFrame(bytes, bytes.size());
  sv::AsduReader reader(frame);
  sv::Asdu asdu;
  const bool read = reader.Next(asdu);
  std::string text = "from " + platform::HexAddressText(frame.Source) + " to " +
                     platform::HexAddressText(frame.Destination);
  const auto add = [&](const std::string& fact) { text += ", " + fact; };
  for (std::size_t i = 0; i < frame.TagCount; ++i) {
    add("VLAN " + std::to_string(frame.Tags[i].Vlan()) + " priority " +
        std::to_string(frame.Tags[i].Priority()));
  }
  if (!read) {
    add(reader.Why() == sv::Fault::None
            ? std::string("without an ASDU")
            : std::string("no whole structure: ") + sv::Words(reader.Why()));
    return text;
  }
  add("AppID " + platform::HexWordText(frame.AppId));
  add("svID \"" + platform::Escaped(code.ToUtf8(asdu.SvId)) + "\"");
  add("ASDUs a frame " + std::to_string(frame.AsduCount));
  add("channels " + std::to_string(asdu.Channels()));
  if (asdu.ConfRev) add("confRev " + std::to_string(*asdu.ConfRev));
  if (asdu.SmpSynch) add("smpSynch " + std::to_string(*asdu.SmpSynch));
  if (frame.Simulated()) add("simulation");
  return text;
}

}  // namespace packetroutines
