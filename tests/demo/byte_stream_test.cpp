#include "byte_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

namespace quindle::demo {
namespace {

std::size_t Write(ByteStream* stream, std::string_view text) {
  return SDL_RWwrite(stream->Get(), text.data(), 1, text.size());
}

std::string TextIn(const ByteStream& stream) {
  return {stream.Bytes().begin(), stream.Bytes().end()};
}

TEST(ByteStream, WritesOneBehindTheOther) {
  ByteStream stream;
  EXPECT_EQ(Write(&stream, "disk"), 4U);
  EXPECT_EQ(Write(&stream, "image"), 5U);
  EXPECT_EQ(TextIn(stream), "diskimage");
}

TEST(ByteStream, CountsWholeItems) {
  ByteStream stream;
  EXPECT_EQ(SDL_RWwrite(stream.Get(), "abcdef", 3, 2), 2U);
  EXPECT_EQ(TextIn(stream), "abcdef");
}

TEST(ByteStream, TellsItsSizeAndPlace) {
  ByteStream stream;
  EXPECT_EQ(SDL_RWsize(stream.Get()), 0);
  EXPECT_EQ(SDL_RWtell(stream.Get()), 0);
  Write(&stream, "disk");
  EXPECT_EQ(SDL_RWsize(stream.Get()), 4);
  EXPECT_EQ(SDL_RWtell(stream.Get()), 4);
}

TEST(ByteStream, WritesOverAndBeyondWhereItSeeks) {
  ByteStream stream;
  Write(&stream, "disk");
  EXPECT_EQ(SDL_RWseek(stream.Get(), 2, RW_SEEK_SET), 2);
  Write(&stream, "p");
  EXPECT_EQ(TextIn(stream), "dipk");
  Write(&stream, "ped");
  EXPECT_EQ(TextIn(stream), "dipped");
}

TEST(ByteStream, SeeksFromStartPlaceAndEnd) {
  ByteStream stream;
  Write(&stream, "0123456789");
  EXPECT_EQ(SDL_RWseek(stream.Get(), 4, RW_SEEK_SET), 4);
  EXPECT_EQ(SDL_RWseek(stream.Get(), 3, RW_SEEK_CUR), 7);
  EXPECT_EQ(SDL_RWseek(stream.Get(), -2, RW_SEEK_CUR), 5);
  EXPECT_EQ(SDL_RWseek(stream.Get(), -1, RW_SEEK_END), 9);
  EXPECT_EQ(SDL_RWseek(stream.Get(), 0, RW_SEEK_END), 10);
}

TEST(ByteStream, StaysWhereItIsWhenThePlaceIsOutside) {
  constexpr Sint64 kFarthest = std::numeric_limits<Sint64>::max();
  ByteStream stream;
  Write(&stream, "0123456789");
  SDL_RWseek(stream.Get(), 4, RW_SEEK_SET);
  for (const Sint64 offset : {Sint64{-5}, Sint64{7}, kFarthest, -kFarthest - 1}) {
    EXPECT_EQ(SDL_RWseek(stream.Get(), offset, RW_SEEK_CUR), -1) << offset;
    EXPECT_EQ(SDL_RWtell(stream.Get()), 4) << offset;
  }
}

TEST(ByteStream, GivesNothingToRead) {
  ByteStream stream;
  Write(&stream, "disk");
  SDL_RWseek(stream.Get(), 0, RW_SEEK_SET);
  char byte = 'x';
  EXPECT_EQ(SDL_RWread(stream.Get(), &byte, 1, 1), 0U);
  EXPECT_EQ(byte, 'x');
}

TEST(ByteStream, KeepsItsBytesWhenSdlClosesIt) {
  ByteStream stream;
  Write(&stream, "disk");
  EXPECT_EQ(SDL_RWclose(stream.Get()), 0);
  EXPECT_EQ(TextIn(stream), "disk");
}

}  // namespace
}  // namespace quindle::demo
