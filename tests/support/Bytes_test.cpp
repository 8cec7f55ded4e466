#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <array>

#include "support/Fault.h"

namespace dorvane {
namespace {

using namespace std::string_view_literals;

ByteReader ReaderOf(std::string_view bytes) {
  return ByteReader(AsBytes(bytes));
}

TEST(Bytes, NumbersAreLittleEndian) {
  auto reader =
      ReaderOf("\x01\x02\xFE\xFF\xFF\xFF\x00\x00\x00\x00\x00\x00\xF0\x3F\x00\x00\x20\x40"sv);
  EXPECT_EQ(reader.Int16(), 0x0201);
  EXPECT_EQ(reader.Int32(), -2);
  EXPECT_EQ(reader.Float64(), 1.0);
  EXPECT_EQ(reader.Float32(), 2.5f);
  EXPECT_EQ(reader.Left(), 0u);
}

TEST(Bytes, WritersImageIsLittleEndian) {
  ByteWriter writer;
  writer.Int16(-2);
  writer.Int32(0x01020304);
  writer.Float64(-2.0);
  writer.Text("ab");
  EXPECT_EQ(AsText(writer.Bytes()),
            "\xFE\xFF\x04\x03\x02\x01\0\0\0\0\0\0\0\xC0"
            "ab"sv);
}

TEST(Bytes, ReadPastTheEndFails) {
  EXPECT_THROW(ReaderOf("a").Int16(), Fault);
  EXPECT_THROW(ReaderOf("abc").Int32(), Fault);
  EXPECT_THROW(ReaderOf("abcdefg").Float64(), Fault);
  EXPECT_THROW(ReaderOf("abc").Float32(), Fault);
  EXPECT_THROW(ReaderOf("abc").Skip(4), Fault);
  EXPECT_THROW(ReaderOf("abc").Seek(4), Fault);
  std::array<char, 4> text{};
  EXPECT_THROW(ReaderOf("abc").Copy(text), Fault);
}

TEST(Bytes, AFailedReadLeavesThePosition) {
  auto reader = ReaderOf("abc");
  reader.Skip(1);
  EXPECT_THROW(reader.Int32(), Fault);
  EXPECT_EQ(reader.Position(), 1u);
  EXPECT_EQ(reader.Int16(), 0x6362);
}

TEST(Bytes, Int32sReadsAllOrNothing) {
  std::array<std::int32_t, 2> values{7, 7};
  auto reader = ReaderOf("\x01\0\0\0\xFF\xFF\xFF\xFF"sv);
  reader.Int32s(values);
  EXPECT_EQ(values, (std::array<std::int32_t, 2>{1, -1}));
  std::array<std::int32_t, 2> untouched{7, 7};
  EXPECT_THROW(ReaderOf("\x01\0\0\0\xFF\xFF\xFF"sv).Int32s(untouched), Fault);
  EXPECT_EQ(untouched, (std::array<std::int32_t, 2>{7, 7}));
}

TEST(Bytes, SeekGoesBothWaysAndToTheEnd) {
  auto reader = ReaderOf("abcd");
  reader.Seek(4);
  EXPECT_EQ(reader.Left(), 0u);
  reader.Seek(0);
  EXPECT_EQ(reader.Int16(), 0x6261);
}

TEST(Bytes, PadToFillsWithZerosAndNeverGoesBack) {
  ByteWriter writer;
  writer.Text("a");
  writer.PadTo(3);
  EXPECT_EQ(AsText(writer.Bytes()), "a\0\0"sv);
  EXPECT_THROW(writer.PadTo(2), Fault);
}

}  // namespace
}  // namespace dorvane
