#include "support/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr char32_t kUnknown = 0xFFFD;

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// NEC's selection of the IBM extensions: read, but written by their IBM codes (0xFA40 and up), as
// the code page's own system does.
bool IsReadOnly(std::uint16_t code) {
  return (code >> 8) == 0xED || (code >> 8) == 0xEE;
}

bool IsLead(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

void AppendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](char32_t byte) {
    out += static_cast<char>(static_cast<unsigned char>(byte));
  };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

// Takes one character off the front; kUnknown for a broken sequence, of which one byte is taken.
char32_t NextUtf8(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  const std::size_t length = lead < 0x80    ? 1
                             : lead >= 0xF0 ? 4
                             : lead >= 0xE0 ? 3
                             : lead >= 0xC2 ? 2
                                            : 0;
  char32_t c = length == 1 ? lead : lead & (0x7Fu >> length);
  bool whole = length > 0 && length <= text.size();
  for (std::size_t i = 1; whole && i < length; ++i) {
    whole = (byte(i) & 0xC0) == 0x80;
    c = (c << 6) | (byte(i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  whole = whole && c >= kSmallest[length];  // an overlong form of a shorter character is broken
  text.remove_prefix(whole ? length : 1);
  return whole ? c : kUnknown;
}

// The code page as two tables, made once from the system's converter and never changed after.
class Tables {
 public:
  static const Tables& Instance() {
    static const Tables tables;
    return tables;
  }

  char32_t Decode(std::uint16_t code) const { return decode_[code]; }

  std::optional<std::uint16_t> Encode(char32_t c) const {
    const auto found = encode_.find(c);
    return found == encode_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  Tables() : decode_(0x10000, kUnknown) {
    const iconv_t converter = iconv_open("UTF-32LE", "CP932");
    if (converter == reinterpret_cast<iconv_t>(-1)) throw Fault(FaultCode::BadArgument, "CP932");
    for (unsigned code = 0; code < 0x10000; ++code) {
      const auto lead = static_cast<unsigned char>(code >> 8);
      if (lead != 0 && !IsLead(lead)) continue;
      if (lead == 0 && IsLead(static_cast<unsigned char>(code))) continue;
      Add(converter, static_cast<std::uint16_t>(code));
    }
    iconv_close(converter);
    encode_.emplace(0x00C5, kAngstrom);
    encode_.emplace(0x301C, kWaveDash);
    encode_.emplace(0x2212, kMinus);
  }

  void Add(iconv_t converter, std::uint16_t code) {
    std::array<char, 2> in{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    char* from = code < 0x100 ? in.data() + 1 : in.data();
    std::size_t from_left = code < 0x100 ? 1 : 2;
    std::array<unsigned char, 8> out{};
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t to_left = out.size();
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &from, &from_left, &to, &to_left) == static_cast<std::size_t>(-1)) return;
    if (from_left != 0 || to_left != out.size() - 4) return;
    const char32_t c =
        out[0] | (static_cast<char32_t>(out[1]) << 8) | (static_cast<char32_t>(out[2]) << 16);
    decode_[code] = c;
    if (!IsReadOnly(code)) encode_.emplace(c, code);
  }

  static constexpr std::uint16_t kAngstrom = 0x81F0;
  static constexpr std::uint16_t kWaveDash = 0x8160;
  static constexpr std::uint16_t kMinus = 0x817C;
  std::vector<char32_t> decode_;
  std::unordered_map<char32_t, std::uint16_t> encode_;
};

}  // namespace

std::string ToCodePage(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  const Tables& tables = Tables::Instance();
  std::string bytes;
  while (!utf8.empty()) {
    const std::uint16_t code = tables.Encode(NextUtf8(utf8)).value_or('?');
    if (code >= 0x100) bytes += static_cast<char>(code >> 8);
    bytes += static_cast<char>(code & 0xFF);
  }
  return bytes;
}

std::string FromCodePage(std::string_view bytes) {
  if (IsAscii(bytes)) return std::string(bytes);
  const Tables& tables = Tables::Instance();
  std::string utf8;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    char32_t c = tables.Decode(lead);
    if (IsLead(lead) && i + 1 < bytes.size()) {
      c = tables.Decode(
          static_cast<std::uint16_t>((lead << 8) | static_cast<unsigned char>(bytes[i + 1])));
      if (c != kUnknown) ++i;
    }
    AppendUtf8(utf8, c);
  }
  return utf8;
}

std::string CutCodePage(std::string_view bytes, std::size_t size) {
  std::size_t end = 0;
  while (end < bytes.size()) {
    const std::size_t step =
        IsLead(static_cast<unsigned char>(bytes[end])) && end + 1 < bytes.size() ? 2 : 1;
    if (end + step > size) break;
    end += step;
  }
  std::string cut(bytes.substr(0, end));
  cut.resize(size, ' ');
  return cut;
}

}  // namespace dorvane
