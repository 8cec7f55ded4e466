// Little-endian byte images: one bounds-checked reader and one writer for all binary formats.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace dorvane {

using ByteVector = std::vector<std::byte>;

// Reads an image from front to back. Every read throws Fault(EndOfFile) instead of passing the end.
class ByteReader {
 public:
  explicit ByteReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

  std::int16_t Int16();
  std::int32_t Int32();
  double Float64();
  float Float32();
  void Copy(std::span<char> out);
  void Skip(std::size_t count);
  void Seek(std::size_t offset);
  std::size_t Position() const { return position_; }
  std::size_t Left() const { return bytes_.size() - position_; }

  // The next 4 * out.size() bytes as signed 32-bit numbers.
  void Int32s(std::span<std::int32_t> out);

 private:
  const std::byte* Take(std::size_t count);

  std::span<const std::byte> bytes_;
  std::size_t position_ = 0;
};

// Builds an image from front to back.
class ByteWriter {
 public:
  void Int16(std::int16_t value);
  void Int32(std::int32_t value);
  void Float64(double value);
  void Text(std::string_view bytes);
  void Int32s(std::span<const std::int32_t> values);
  // Zero bytes up to `position`; throws Fault(Subscript) when the image is longer already.
  void PadTo(std::size_t position);
  const ByteVector& Bytes() const { return bytes_; }
  ByteVector Take() { return std::move(bytes_); }

 private:
  void Put(std::uint64_t value, int size);

  ByteVector bytes_;
};

// View of text as bytes and back.
std::span<const std::byte> AsBytes(std::string_view text);
std::string_view AsText(std::span<const std::byte> bytes);

}  // namespace dorvane
