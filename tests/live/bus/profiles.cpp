#include "profiles.h"

#include <functional>
#include <stdexcept>

namespace bus {

namespace {

std::string TwoDigits(int number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

/// A sender as most are. No ID is a part of another one, and no digits of an address spell a tag.
Sender Usual(int number) {
  Sender sender;
  sender.Number = number;
  sender.Id = "BAY-" + TwoDigits(number + 1);
  const auto last = static_cast<std::uint8_t>(number + 1);
  sender.Destination = {0x01, 0x0C, 0xCD, 0x04, 0x00, last};
  sender.Source = {0x02, 0x00, 0x50, 0x00, 0x00, last};
  return sender;
}

template <typename List>
const auto& At(const List& list, int number) {
  return list[static_cast<std::size_t>(number) % std::size(list)];
}

Sender Tagged(int number) {
  // Priorities and VLANs, also those whose digits are the digits of another field, those with the
  // drop bit, and those of priority alone.
  static const std::optional<std::uint16_t> Tags[] = {0x8001, std::nullopt, 0x8000, 0x8002,
                                                      0x0000, 0x8001,       0xE00A, 0x9001,
                                                      0x8801, 0x1800,       0xEFFE, 0x0001};
  Sender sender = Usual(number);
  sender.Tag = At(Tags, number);
  // What is taken for the ID of such a frame depends on its length.
  if (number == 5) sender.Id = "LINE-" + sender.Id;
  return sender;
}

Sender Addressed(int number) {
  Sender sender = Usual(number);
  const auto nibble = static_cast<unsigned>(number) % 16U;
  const auto pair = [](unsigned high, unsigned low) {
    return static_cast<std::uint8_t>((high % 16U) << 4U | low % 16U);
  };
  sender.Destination[4] = static_cast<std::uint8_t>(number % 2);
  sender.Destination[5] = pair(nibble, 15 - nibble);
  sender.Source = {0x02,
                   pair(nibble, nibble),
                   pair(nibble, nibble + 1),
                   pair(15 - nibble, nibble),
                   pair(nibble + 7, nibble),
                   static_cast<std::uint8_t>(number)};
  // Addresses that hold the digits 8001, of two bytes, across bytes, and from one address into the
  // other.
  if (number == 2) sender.Source = {0x02, 0x00, 0x80, 0x01, 0x00, 0x05};
  if (number == 4) {
    sender.Id = "LINE-" + sender.Id;
    sender.Source = {0x02, 0x18, 0x00, 0x1A, 0x00, 0x06};
  }
  if (number == 6) {
    sender.Destination[5] = 0x08;
    sender.Source = {0x00, 0x1B, 0x44, 0x11, 0x3A, 0xB7};
  }
  return sender;
}

Sender Named(int number) {
  const std::string bay = TwoDigits(number + 1);
  const auto padded = [&](std::size_t length) {
    std::string id = "STATION-" + bay + "/MERGING-UNIT/LLN0";
    while (id.size() < length) id += static_cast<char>('a' + id.size() % 26);
    return id;
  };
  Sender sender = Usual(number);
  switch (number) {
    case 0:
      sender.Id = padded(34);
      break;
    case 1:
      sender.Id = padded(65);
      break;
    case 2:
      sender.Id = "UNIT-OF-THE-LAST-A";
      break;
    case 3:
      sender.Id = "UNIT-OF-THE-LAST-B";
      break;
    case 4:
      sender.Id = "Z";
      break;
    case 5:
      sender.Id = std::string("MU-PADDED\0\0\0", 12);
      break;
    case 6:
      sender.Id = "MU-LINE\n";
      break;
    default:
      sender.Id = padded(34);
  }
  return sender;
}

Sender WithOptionalFields(int number) {
  Sender sender = Usual(number);
  const int kind = number % 5;
  sender.DataSet = kind == 1 || kind == 4;
  sender.RefreshTime = kind == 2 || kind == 4;
  sender.SampleRate = kind == 3 || kind == 4;
  sender.SampleMode = kind == 3 || kind == 4;
  return sender;
}

Sender OfManyAsdus(int number) {
  constexpr int Asdus[] = {1, 2, 6, 8};
  Sender sender = Usual(number);
  sender.Asdus = At(Asdus, number);
  return sender;
}

Sender OfManyChannels(int number) {
  constexpr int Channels[] = {4, 8, 12, 20};
  Sender sender = Usual(number);
  sender.Channels = At(Channels, number);
  return sender;
}

Sender Redundant(int number) {
  Sender sender = Usual(number);
  sender.Doubled = true;
  return sender;
}

/// How a profile is told: its senders, how many show all of it, and what else is special.
struct Kind {
  const char* Name = nullptr;
  Sender (*Make)(int number) = nullptr;
  int Senders = 0;
  int Rate = 4000;
  bool Swapped = false;
  bool Others = false;
};

constexpr Kind Kinds[] = {
    {"locked", Usual, 7},
    {"locked60", Usual, 7, 4800},
    {"tags", Tagged, 12},
    {"addresses", Addressed, 16},
    {"ids", Named, 7},
    {"doubled", Redundant, 2, 4000, true},
    {"optional", WithOptionalFields, 5},
    {"asdus", OfManyAsdus, 4},
    {"channels", OfManyChannels, 4},
    {"mixed", Usual, 2, 4000, false, true},
};

}  // namespace

Profile ProfileOf(const std::string& name, int senders) {
  std::string known;
  for (const Kind& kind : Kinds) {
    known += std::string(" ") + kind.Name;
    if (name != kind.Name) continue;
    Profile profile{{}, kind.Rate, kind.Swapped, kind.Others};
    const int count = senders == 0 ? kind.Senders : senders;
    for (int number = 0; number < count; ++number) profile.Senders.push_back(kind.Make(number));
    return profile;
  }
  throw std::invalid_argument("no profile " + name + " among" + known);
}

}  // namespace bus
