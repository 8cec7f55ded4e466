// The fields of a record in a binary image: one list of (offset, field) calls serves both the
// reader and the writer of a record.
#pragma once

#include <array>
#include <cstdint>

#include "support/Bytes.h"
#include "support/FixedText.h"

namespace dorvane {

// Fills fields from the image of one record, which begins at the reader's position. Throws
// Fault(EndOfFile) at the first field that the image does not hold whole.
class FieldReader {
 public:
  explicit FieldReader(ByteReader& image) : image_(image), base_(image.Position()) {}

  void operator()(std::size_t offset, std::int16_t& field) { field = At(offset).Int16(); }
  void operator()(std::size_t offset, std::int32_t& field) { field = At(offset).Int32(); }
  void operator()(std::size_t offset, double& field) { field = At(offset).Float64(); }
  template <std::size_t Size>
  void operator()(std::size_t offset, std::array<char, Size>& field) {
    At(offset).Copy(field);
  }
  template <std::size_t Size>
  void operator()(std::size_t offset, FixedText<Size>& field) {
    At(offset).Copy(field.Raw());
  }

 private:
  ByteReader& At(std::size_t offset) {
    image_.Seek(base_ + offset);
    return image_;
  }

  ByteReader& image_;
  std::size_t base_;
};

// Appends the image of one record; offsets rise.
class FieldWriter {
 public:
  explicit FieldWriter(ByteWriter& image) : image_(image), base_(image.Bytes().size()) {}

  void operator()(std::size_t offset, std::int16_t field) { At(offset).Int16(field); }
  void operator()(std::size_t offset, std::int32_t field) { At(offset).Int32(field); }
  void operator()(std::size_t offset, double field) { At(offset).Float64(field); }
  template <std::size_t Size>
  void operator()(std::size_t offset, const std::array<char, Size>& field) {
    At(offset).Text({field.data(), Size});
  }
  template <std::size_t Size>
  void operator()(std::size_t offset, const FixedText<Size>& field) {
    At(offset).Text(field.Bytes());
  }

 private:
  ByteWriter& At(std::size_t offset) {
    image_.PadTo(base_ + offset);
    return image_;
  }

  ByteWriter& image_;
  std::size_t base_;
};

}  // namespace dorvane
