// The authority family: its checks, its three text forms, its equality.
#include <gtest/gtest.h>

#include "gx_objects.h"

namespace {

TEST(AuthorityNew, ChecksNameAndCode) {
  gx_errext record;
  EXPECT_EQ(gx_authority_new_errext(nullptr, 1, "", &record), nullptr);
  EXPECT_EQ(record.code, 320u);
  EXPECT_EQ(gx_authority_new_errext("", 1, "", &record), nullptr);
  EXPECT_EQ(record.code, 320u);
  EXPECT_EQ(gx_authority_new_errext("EPSG", 0, "", &record), nullptr);
  EXPECT_EQ(record.code, 311u);
  EXPECT_STREQ(record.message, "Invalid authority code argument (0)");
  EXPECT_STREQ(record.function, "gx_authority_new");
}

TEST(AuthorityNew, VersionIsCutTo15Characters) {
  gx_authority* a = gx_authority_new("EPSG", 4326, "0123456789abcdefghij");
  char version[16];
  EXPECT_STREQ(gx_authority_version(a, version), "0123456789abcde");
  gx_authority_del(a);
  gx_authority* b = gx_authority_new("EPSG", 4326, nullptr);
  EXPECT_STREQ(gx_authority_version(b, version), "");
  gx_authority_del(b);
}

TEST(AuthorityText, ThreeFormsAreRead) {
  const char* texts[] = {"AUTHORITY[\"EPSG\",4326]", "AUTHORITY[\"EPSG\",\"4326\"]",
                         "AUTHORITY[\"EPSG\",\"6.5\",4326]", "AUTHORITY[\"EPSG\",4326,\"6.5\"]"};
  const char* versions[] = {"", "", "6.5", "6.5"};
  for (int i = 0; i < 4; ++i) {
    gx_authority* a = gx_authority_from_string(texts[i]);
    ASSERT_NE(a, nullptr) << texts[i];
    EXPECT_EQ(gx_authority_authcode(a), 4326) << texts[i];
    char version[16];
    EXPECT_STREQ(gx_authority_version(a, version), versions[i]) << texts[i];
    EXPECT_EQ(gx_authority_status(a), GX_STATUS_STRING);
    gx_authority_del(a);
  }
}

TEST(AuthorityText, VersionIsNotWrittenAndOptionsHaveNoEffect) {
  gx_authority* a = gx_authority_new("EPSG", 4326, "6.5");
  char text[GX_WKT_SIZE];
  EXPECT_STREQ(gx_authority_to_string(a, text), "AUTHORITY[\"EPSG\",4326]");
  EXPECT_STREQ(gx_authority_to_string_ext(a, 2, text), "AUTHORITY[\"EPSG\",4326]");
  gx_authority_del(a);
}

TEST(AuthorityText, BadCodesAndNamesFail) {
  gx_errext record;
  EXPECT_EQ(gx_authority_from_string_errext("AUTHORITY[\"EPSG\",0]", &record), nullptr);
  EXPECT_EQ(record.code, 311u);
  EXPECT_EQ(gx_authority_from_string_errext("AUTHORITY[\"\",4326]", &record), nullptr);
  EXPECT_EQ(record.code, 320u);
  EXPECT_EQ(gx_authority_from_string_errext("AUTHORITY[\"EPSG\"]", &record), nullptr);
  EXPECT_EQ(record.code, 459u);
}

TEST(AuthorityEquality, NameAndCodeButNotVersion) {
  gx_authority* a = gx_authority_new("EPSG", 4326, "6.5");
  gx_authority* b = gx_authority_new("epsg", 4326, "7.0");
  gx_authority* c = gx_authority_new("EPSG", 4327, "6.5");
  EXPECT_EQ(gx_authority_eq(a, b), 1);
  EXPECT_EQ(gx_authority_eq(a, c), 0);
  EXPECT_EQ(gx_object_eq(a, b), 1);
  gx_authority* copy = gx_authority_clone(a);
  char version[16];
  EXPECT_STREQ(gx_authority_version(copy, version), "6.5");
  EXPECT_EQ(gx_authority_eq(a, copy), 1);
  gx_authority_del(copy);
  gx_authority_del(a);
  gx_authority_del(b);
  gx_authority_del(c);
}

TEST(AuthorityTable, HasNoCodeOrAuthorityOperations) {
  gx_authority* a = gx_authority_new("EPSG", 4326, "");
  EXPECT_EQ(gx_object_authority(a), nullptr);
  EXPECT_EQ(gx_object_authority_set(a, nullptr), 0);
  EXPECT_EQ(gx_object_type(a), GX_TYPE_AUTHORITY);
  gx_authority_del(a);
}

}  // namespace
