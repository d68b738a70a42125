#include "menufile/value.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>

namespace menufile {
namespace {

std::string TextOfBare(std::string_view characters) { return Value::Bare(characters).Text(); }

TEST(Value, DefaultIsEmpty) {
  const Value value;
  EXPECT_EQ(Value::Kind::Empty, value.kind());
  EXPECT_TRUE(value.IsEmpty());
  EXPECT_EQ("", value.Text());
  EXPECT_EQ(0, value.Number());
  EXPECT_EQ(0, value.Integer());
}

TEST(Value, BareWithoutCharactersIsEmpty) { EXPECT_EQ(Value::Kind::Empty, Value::Bare("").kind()); }

TEST(Value, QuotedWithoutCharactersIsTextThatEqualsTheEmptyText) {
  const Value value = Value::Quoted("");
  EXPECT_EQ(Value::Kind::Text, value.kind());
  EXPECT_TRUE(value.IsEmpty());
  EXPECT_EQ(0, value.Number());
}

TEST(Value, QuotedStaysAsItWas) {
  for (const char* text : {"007", "8.250", " 1 ", "+5", "1e3", "-0", "Tahoma"}) {
    EXPECT_EQ(Value::Kind::Text, Value::Quoted(text).kind());
    EXPECT_EQ(text, Value::Quoted(text).Text());
  }
}

TEST(Value, EveryByteStaysInQuotedText) {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) {
    text += static_cast<char>(byte);
  }
  EXPECT_EQ(text, Value::Quoted(text).Text());
  EXPECT_EQ(text, TextOfBare(text));
}

TEST(Value, BareNumbersGoBackInShortestForm) {
  const std::pair<const char*, const char*> kNumbers[] = {
      {"0", "0"},
      {"1", "1"},
      {"-1", "-1"},
      {"007", "7"},
      {"00", "0"},
      {"-0", "0"},
      {"-007", "-7"},
      {"+5", "5"},
      {"+0", "0"},
      {"8.25", "8.25"},
      {"8.250", "8.25"},
      {"8.0", "8"},
      {"8.", "8"},
      {".5", "0.5"},
      {"-.5", "-0.5"},
      {"+.50", "0.5"},
      {"1e3", "1000"},
      {"1E3", "1000"},
      {"1e+3", "1000"},
      {"25e-1", "2.5"},
      {"-1.5E2", "-150"},
      {"0e99", "0"},
      {"0.0001", "0.0001"},
      {"0.00001", "1e-05"},
      {"1e15", "1000000000000000"},
      {"9999999999999998", "9999999999999998"},
      {"1e16", "1e+16"},
      {"1e20", "1e+20"},
      {"123456789012345", "123456789012345"},
      {"1234567890123456", "1234567890123456"},
      {"12345678901234567890", "1.2345678901234567e+19"},
      {"0.1000000000000000055511151231257827", "0.1"},
      {"5e-324", "5e-324"},
      {"1.7976931348623157e308", "1.7976931348623157e+308"}};
  for (const auto& [written, text] : kNumbers) {
    EXPECT_EQ(Value::Kind::Number, Value::Bare(written).kind()) << written;
    EXPECT_EQ(text, TextOfBare(written)) << written;
  }
}

TEST(Value, WhatDoesNotReadAsANumberIsText) {
  for (const char* text :
       {"abc",   "1a",   "1 2",   "nan",    "NaN",    "inf",    "-inf", "infinity", "0x10",
        "1e",    "1e+",  "e5",    ".",      "+",      "-",      "--1",  "+-1",      "-+1",
        "1.2.3", "1,5 ", "1e999", "-1e999", "1e-999", "#TRUE#", "\t1",  "1\t"}) {
    EXPECT_EQ(Value::Kind::Text, Value::Bare(text).kind()) << text;
    EXPECT_EQ(text, TextOfBare(text)) << text;
  }
}

TEST(Value, AppendToAddsTheText) {
  std::string out = "a";
  Value::Bare("07").AppendTo(out);
  Value::Quoted("07").AppendTo(out);
  Value().AppendTo(out);
  EXPECT_EQ("a707", out);
}

TEST(Value, NumberIsTheNumberThatTextBeginsWith) {
  EXPECT_EQ(12, Value::Quoted("12 points").Number());
  EXPECT_EQ(-0.5, Value::Quoted("  -.5x").Number());
  EXPECT_EQ(1, Value::Quoted("1e").Number());
  EXPECT_EQ(1000, Value::Quoted("1e3").Number());
  EXPECT_EQ(5, Value::Quoted("+5").Number());
  EXPECT_EQ(8.25, Value::Bare("8.250").Number());
  EXPECT_EQ(1, Value::Bare("1x").Number());
}

TEST(Value, NumberOfTextThatBeginsWithNoneIs0) {
  for (const char* text : {"", " ", "x1", "-", "+", ".", "nan", "inf", "-inf", "\t1", "1e999"}) {
    EXPECT_EQ(0, Value::Quoted(text).Number()) << text;
  }
}

TEST(Value, IntegerRoundsHalvesToEven) {
  EXPECT_EQ(0, Value::Bare("0.5").Integer());
  EXPECT_EQ(2, Value::Bare("1.5").Integer());
  EXPECT_EQ(2, Value::Bare("2.5").Integer());
  EXPECT_EQ(3, Value::Bare("2.51").Integer());
  EXPECT_EQ(-2, Value::Bare("-1.5").Integer());
}

TEST(Value, IntegerStaysInRange) {
  EXPECT_EQ(std::numeric_limits<int>::max(), Value::Bare("2147483648").Integer());
  EXPECT_EQ(std::numeric_limits<int>::max(), Value::Bare("1e300").Integer());
  EXPECT_EQ(std::numeric_limits<int>::min(), Value::Bare("-2147483649").Integer());
  EXPECT_EQ(std::numeric_limits<int>::min(), Value::Bare("-1e300").Integer());
}

TEST(NumberText, ReadsBackEqual) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double number;
    static_assert(sizeof number == sizeof bits);
    std::memcpy(&number, &bits, sizeof number);
    if (!std::isfinite(number)) {
      continue;
    }
    const std::string text = NumberText(number);
    EXPECT_EQ(number, std::strtod(text.c_str(), nullptr)) << text;
    EXPECT_EQ(Value::Kind::Number, Value::Bare(text).kind()) << text;
    EXPECT_EQ(text, TextOfBare(text));
  }
}

TEST(NumberText, PlainDigitsInTheMiddleAndExponentsOutside) {
  EXPECT_EQ("0", NumberText(0.0));
  EXPECT_EQ("0", NumberText(-0.0));
  EXPECT_EQ("0.0001", NumberText(0.0001));
  EXPECT_EQ("9.9e-05", NumberText(0.000099));
  EXPECT_EQ("9999999999999998", NumberText(9999999999999998));
  EXPECT_EQ("1e+16", NumberText(1e16));
}

TEST(FontSizeText, IsAFixedPointNumberWithAtMostFourFractionalDigits) {
  const std::pair<double, std::string> kSizes[] = {{8.25, "8.25"},
                                                   {10, "10"},
                                                   {8.00001, "8"},
                                                   {25.0 / 3, "8.3333"},
                                                   {20.0 / 3, "6.6667"},
                                                   {0.0001, "0.0001"},
                                                   {0.00015, "0.0002"},
                                                   {0.00025, "0.0002"},
                                                   {0.00025000001, "0.0003"},
                                                   {0.00004, "0"},
                                                   {-0.00004, "0"},
                                                   {-8.5, "-8.5"},
                                                   {9.99995, "10"},
                                                   {99.99996, "100"},
                                                   {1638.35, "1638.35"},
                                                   {123456789012345, "123456789012345"},
                                                   {1e16, "10000000000000000"},
                                                   {5e-324, "0"}};
  for (const auto& [points, text] : kSizes) {
    EXPECT_EQ(text, FontSizeText(points)) << points;
  }
}

TEST(FontSizeText, OfEveryFiniteNumberIsReadable) {
  for (const double points : {1e305, 1.7976931348623157e308, 1e15, 4503599627370497.5}) {
    const std::string text = FontSizeText(points).value();
    EXPECT_EQ(points, Value::Bare(text).Number()) << text;
    EXPECT_EQ(std::string::npos, text.find_first_not_of("0123456789.")) << text;
  }
}

TEST(FontSizeText, OfInfinityOrNanThereIsNone) {
  EXPECT_EQ(std::nullopt, FontSizeText(std::numeric_limits<double>::infinity()));
  EXPECT_EQ(std::nullopt, FontSizeText(std::numeric_limits<double>::quiet_NaN()));
}

TEST(FontSizeText, ReadsBackAsTheSameText) {
  for (int tenThousandths = 1; tenThousandths < 200000; tenThousandths += 37) {
    const std::string text = FontSizeText(tenThousandths / 10000.0).value();
    EXPECT_EQ(text, TextOfBare(text));
    EXPECT_LE(text.size() - std::min(text.find('.'), text.size() - 1), 5u) << text;
  }
}

}  // namespace
}  // namespace menufile
