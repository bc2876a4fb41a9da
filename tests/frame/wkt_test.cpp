// The WKT scanner: normalising, tokens and levels, limits, and every message.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "frame/hook_support.h"
#include "frame/wkt.h"
#include "gx_frame.h"

namespace {

struct Scan {
  gx_wkt_tokens block;
  int result;
  Scan(const char* text, const char* keyword) { result = gx_wkt_scan(&block, text, keyword); }
};

TEST(WktScan, TokensCarryTheirLevels) {
  Scan s("UNIT[\"Meter\",1.0,AUTHORITY[\"EPSG\",9001]]", "UNIT");
  ASSERT_EQ(s.result, 0);
  ASSERT_EQ(s.block.count, 6);
  const char* values[] = {"UNIT", "Meter", "1.0", "AUTHORITY", "EPSG", "9001"};
  const int levels[] = {0, 1, 1, 1, 2, 2};
  for (int i = 0; i < 6; ++i) {
    EXPECT_STREQ(s.block.tokens[i].value, values[i]) << i;
    EXPECT_EQ(s.block.tokens[i].level, levels[i]) << i;
  }
  EXPECT_EQ(s.block.severity, 0u);
}

TEST(WktScan, NormalisesBlanksQuotesAndParentheses) {
  Scan s("UNIT  ( \"  Me\tter  \" , 1.0 )", "UNIT");
  ASSERT_EQ(s.result, 0);
  EXPECT_STREQ(s.block.tokens[1].value, "Me ter");
  EXPECT_STREQ(s.block.tokens[2].value, "1.0");
}

TEST(WktScan, StartsAtKeywordAndIgnoresTextBehindTheObject) {
  Scan s("LINUNIT[\"Meter\",1.0]garbage", "UNIT");
  ASSERT_EQ(s.result, 0);
  EXPECT_STREQ(s.block.tokens[0].value, "UNIT");
  EXPECT_EQ(s.block.count, 3);
}

TEST(WktScan, EmptyQuotedValuesAndEmptyFieldsAreTokens) {
  Scan s("A[\"\",,B[1],\"x\"]", nullptr);
  ASSERT_EQ(s.result, 0);
  ASSERT_EQ(s.block.count, 6);
  EXPECT_STREQ(s.block.tokens[1].value, "");
  EXPECT_STREQ(s.block.tokens[2].value, "");
  EXPECT_STREQ(s.block.tokens[3].value, "B");
  EXPECT_STREQ(s.block.tokens[4].value, "1");
  EXPECT_EQ(s.block.tokens[4].level, 2);
  EXPECT_STREQ(s.block.tokens[5].value, "x");  // the comma behind "]" adds nothing
}

struct MessageCase {
  const char* text;
  const char* keyword;
  int result;
  uint32_t code;
  uint32_t severity;
  const char* message;
};

class WktScanMessages : public ::testing::TestWithParam<MessageCase> {};

TEST_P(WktScanMessages, ReportsExactWords) {
  const MessageCase& c = GetParam();
  Scan s(c.text, c.keyword);
  EXPECT_EQ(s.result, c.result);
  EXPECT_EQ(s.block.code, c.code);
  EXPECT_EQ(s.block.severity, c.severity);
  EXPECT_STREQ(s.block.message, c.message);
}

INSTANTIATE_TEST_SUITE_P(
    AllMessages, WktScanMessages,
    ::testing::Values(
        MessageCase{"UNIT[\"Meter\",1.0", "UNIT", 0, 464, 4,
                    "Missing 1 closing ] character in WKT string"},
        MessageCase{"A[B[C[1", nullptr, 0, 464, 4, "Missing 3 closing ] characters in WKT string"},
        MessageCase{"UNIT[\"Meter\")", "UNIT", -1, 458, 2, "Expecting ',' or ']' in WKT string"},
        MessageCase{"A[B[1]C]", nullptr, -1, 458, 2, "Expecting ',' or ']' in WKT string"},
        MessageCase{"foo[", "UNIT", -1, 466, 2,
                    "Object type keyword \"UNIT\" not found in WKT string"},
        MessageCase{"", nullptr, -1, 457, 4, "Empty WKT string"},
        MessageCase{"   \t", nullptr, -1, 457, 4, "Empty WKT string"},
        MessageCase{"1", nullptr, -1, 463, 2, "WKT string must start with a letter"},
        MessageCase{"UNIT[\"Meter,1.0]", "UNIT", -1, 469, 2, "Unbalanced quotes in WKT string"}));

TEST(WktScanLimits, TextOf1023NormalisedCharactersIsRead) {
  std::string text = "A[\"" + std::string(1023 - 5, 'x') + "\"]";
  ASSERT_EQ(text.size(), 1023u);
  Scan ok(text.c_str(), nullptr);
  EXPECT_EQ(ok.result, 0);
  // Blanks outside quotes don't count towards the limit.
  std::string spaced = "A [ \"" + std::string(1023 - 5, 'x') + "\" ]   ";
  Scan also(spaced.c_str(), nullptr);
  EXPECT_EQ(also.result, 0);
}

TEST(WktScanLimits, TextOf1024NormalisedCharactersFails) {
  std::string text = "A[\"" + std::string(1024 - 5, 'x') + "\"]";
  Scan s(text.c_str(), nullptr);
  EXPECT_EQ(s.result, -1);
  EXPECT_EQ(s.block.code, 467u);
  EXPECT_STREQ(s.block.message, "WKT string length exceeds 1023 characters");
}

std::string TextWithTokens(int tokens) {
  std::string text = "A[";  // one token for the keyword
  for (int i = 1; i < tokens; ++i) text += (i > 1 ? ",1" : "1");
  return text + "]";
}

TEST(WktScanLimits, TwoHundredFiftySixTokensAreRead) {
  Scan s(TextWithTokens(256).c_str(), nullptr);
  EXPECT_EQ(s.result, 0);
  EXPECT_EQ(s.block.count, 256);
}

TEST(WktScanLimits, The257thTokenFails) {
  Scan s(TextWithTokens(257).c_str(), nullptr);
  EXPECT_EQ(s.result, -1);
  EXPECT_EQ(s.block.code, 468u);
  EXPECT_STREQ(s.block.message, "Token count in WKT string exceeds 256");
}

TEST(WktWriteLimits, AClauseJoinsOnlyBelow1022Characters) {
  // Joined with its comma, a clause may bring the text to 1021 characters;
  // one that would reach 1022 is dropped whole.
  for (size_t total : {1020u, 1021u, 1022u, 1023u}) {
    char buffer[GX_WKT_SIZE];
    std::string head(500, 'h');
    std::string clause(total - head.size() - 1, 'c');
    std::snprintf(buffer, sizeof buffer, "%s", head.c_str());
    gx_wkt_append_clause(buffer, clause.c_str());
    EXPECT_EQ(std::strlen(buffer), total <= 1021 ? total : head.size()) << total;
  }
}

TEST(WktWalk, UnknownClausesAreSkippedAndDuplicateAuthorityFails) {
  gx_unit* unit =
      gx_unit_from_string("UNIT[\"Meter\",1.0,EXTENSION[\"x\",\"y\",AUTHORITY[\"A\",1]]]");
  ASSERT_NE(unit, nullptr);
  EXPECT_EQ(gx_unit_authority(unit), nullptr);
  gx_unit_del(unit);

  gx_errext record;
  EXPECT_EQ(gx_unit_from_string_errext(
                "UNIT[\"Meter\",1.0,AUTHORITY[\"EPSG\",9001],AUTHORITY[\"EPSG\",9001]]", &record),
            nullptr);
  EXPECT_EQ(record.code, 403u);
  EXPECT_STREQ(record.message, "Duplicate authority in WKT string");
}

TEST(WktWalk, WithoutRecordEveryFailureReachesTheHook) {
  MessageCollector hook;
  EXPECT_EQ(gx_unit_from_string("UNIT[\"M\",1,AUTHORITY[\"\",1],AUTHORITY[\"E\",0]]"), nullptr);
  // Both authorities fail on their own; with no record the walk goes on.
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{320, 311}));
}

TEST(WktWalk, WithRecordTheWalkStopsAtTheFirstFailure) {
  MessageCollector hook;
  gx_errext record;
  EXPECT_EQ(gx_unit_from_string_errext("UNIT[\"M\",1,AUTHORITY[\"\",1],AUTHORITY[\"E\",0]]",
                                       &record),
            nullptr);
  EXPECT_EQ(record.code, 320u);
  EXPECT_EQ(hook.codes(), (std::vector<uint32_t>{320}));
}

}  // namespace
