#include "adapters/vlan_term.h"

#include <cctype>
#include <charconv>
#include <cstddef>

namespace adapters {

namespace {

// Tests of the length, not constants: the compiler folds a constant and may then refuse the whole
// expression as one that selects nothing.
constexpr std::string_view AlwaysTrue = " greater 0 ";
constexpr std::string_view AlwaysFalse = " less 0 ";

bool IsSpace(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/// What may stand in a name or a number of the filter language.
bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || c == '.';
}

std::size_t SkipSpaces(std::string_view text, std::size_t at) {
  while (at < text.size() && IsSpace(text[at])) ++at;
  return at;
}

std::size_t WordEnd(std::string_view text, std::size_t at) {
  while (at < text.size() && IsWordCharacter(text[at])) ++at;
  return at;
}

/// A whole number as the filter language writes it: decimal, 0x hexadecimal or 0 octal.
std::optional<std::uint32_t> NumberOf(std::string_view word) {
  int base = 10;
  if (word.starts_with("0x") || word.starts_with("0X")) {
    base = 16;
    word.remove_prefix(2);
  } else if (word.size() > 1 && word.front() == '0') {
    base = 8;
  }
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number, base);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return number;
}

/// The identifier that follows the keyword, also in parentheses; moves `at` behind it.
std::optional<std::uint32_t> TakeId(std::string_view text, std::size_t& at) {
  std::size_t here = SkipSpaces(text, at);
  std::size_t open = 0;
  while (here < text.size() && text[here] == '(') {
    ++open;
    here = SkipSpaces(text, here + 1);
  }
  const std::size_t end = WordEnd(text, here);
  const std::optional<std::uint32_t> id = NumberOf(text.substr(here, end - here));
  if (!id) return std::nullopt;
  here = end;
  for (; open > 0; --open) {
    here = SkipSpaces(text, here);
    if (here == text.size() || text[here] != ')') return std::nullopt;
    ++here;
  }
  at = here;
  return id;
}

/// Where the keyword stands; a name that only contains it or is marked by a backslash is none.
std::optional<std::size_t> FindKeyword(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    if (!IsWordCharacter(text[at])) {
      ++at;
      continue;
    }
    const std::size_t end = WordEnd(text, at);
    const bool escaped = at > 0 && text[at - 1] == '\\';
    if (text.substr(at, end - at) == "vlan" && !escaped) return at;
    at = end;
  }
  return std::nullopt;
}

std::string Joined(std::string_view head, std::string_view middle, std::string_view tail) {
  return std::string(head).append(middle).append(tail);
}

}  // namespace

std::optional<VlanTerm> FindVlanTerm(std::string_view expression) {
  const std::optional<std::size_t> begin = FindKeyword(expression);
  if (!begin) return std::nullopt;
  std::size_t end = WordEnd(expression, *begin);
  VlanTerm term;
  term.Id = TakeId(expression, end);
  const std::string_view head = expression.substr(0, *begin);
  const std::string_view tail = expression.substr(end);
  term.WherePassed = Joined(head, AlwaysTrue, tail);
  term.WhereFailed = Joined(head, AlwaysFalse, tail);
  return term;
}

}  // namespace adapters
