#include "support/Bytes.h"

#include <algorithm>
#include <bit>

#include "support/Fault.h"

namespace dorvane {
namespace {

template <typename Unsigned>
Unsigned LittleEndian(const std::byte* bytes) {
  Unsigned value = 0;
  for (std::size_t i = sizeof(Unsigned); i-- > 0;) {
    value = static_cast<Unsigned>((static_cast<std::uint64_t>(value) << 8) |
                                  std::to_integer<std::uint8_t>(bytes[i]));
  }
  return value;
}

}  // namespace

const std::byte* ByteReader::Take(std::size_t count) {
  if (count > Left()) throw Fault(FaultCode::EndOfFile);
  const std::byte* at = bytes_.data() + position_;
  position_ += count;
  return at;
}

std::int16_t ByteReader::Int16() {
  return std::bit_cast<std::int16_t>(LittleEndian<std::uint16_t>(Take(2)));
}
std::int32_t ByteReader::Int32() {
  return std::bit_cast<std::int32_t>(LittleEndian<std::uint32_t>(Take(4)));
}
double ByteReader::Float64() {
  return std::bit_cast<double>(LittleEndian<std::uint64_t>(Take(8)));
}
float ByteReader::Float32() {
  return std::bit_cast<float>(LittleEndian<std::uint32_t>(Take(4)));
}

void ByteReader::Copy(std::span<char> out) {
  const std::byte* at = Take(out.size());
  std::transform(at, at + out.size(), out.begin(),
                 [](std::byte b) { return static_cast<char>(b); });
}

void ByteReader::Skip(std::size_t count) {
  Take(count);
}

void ByteReader::Seek(std::size_t offset) {
  if (offset > bytes_.size()) throw Fault(FaultCode::EndOfFile);
  position_ = offset;
}

void ByteReader::Int32s(std::span<std::int32_t> out) {
  if (out.size() > Left() / 4) throw Fault(FaultCode::EndOfFile);
  const std::byte* at = Take(4 * out.size());
  for (std::int32_t& value : out) {
    value = std::bit_cast<std::int32_t>(LittleEndian<std::uint32_t>(at));
    at += 4;
  }
}

void ByteWriter::Put(std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes_.push_back(static_cast<std::byte>((value >> (8 * i)) & 0xFF));
}

void ByteWriter::Int16(std::int16_t value) {
  Put(std::bit_cast<std::uint16_t>(value), 2);
}
void ByteWriter::Int32(std::int32_t value) {
  Put(std::bit_cast<std::uint32_t>(value), 4);
}
void ByteWriter::Float64(double value) {
  Put(std::bit_cast<std::uint64_t>(value), 8);
}

void ByteWriter::Text(std::string_view bytes) {
  const auto view = AsBytes(bytes);
  bytes_.insert(bytes_.end(), view.begin(), view.end());
}

void ByteWriter::Int32s(std::span<const std::int32_t> values) {
  bytes_.reserve(bytes_.size() + 4 * values.size());
  for (const std::int32_t value : values) Int32(value);
}

void ByteWriter::PadTo(std::size_t position) {
  if (position < bytes_.size()) throw Fault(FaultCode::Subscript);
  bytes_.resize(position);
}

std::span<const std::byte> AsBytes(std::string_view text) {
  return std::as_bytes(std::span(text));
}

std::string_view AsText(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace dorvane
