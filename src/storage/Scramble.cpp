#include "storage/Scramble.h"

#include "base/Text.h"

namespace cb {
namespace {

// 256 - c for codes 1..255; NUL (which would give 256) has none.
bool Flip(char c, char& out) {
  const auto code = static_cast<unsigned char>(c);
  if (code == 0) return false;
  out = static_cast<char>(256 - code);
  return true;
}

}  // namespace

std::string ScrambleField(std::string_view input) {
  const auto n = Trim(input).size();
  std::string out;
  out.reserve(n);
  for (char c : input.substr(0, n)) {
    char s;
    if (Flip(c, s)) out += s;
  }
  return out;
}

std::string UnscrambleField(std::string_view input) {
  std::string out;
  out.reserve(input.size());
  for (char c : input) {
    char s;
    if (c != ' ' && Flip(c, s)) out += s;
  }
  return out;
}

}  // namespace cb
