// The message hook, its masks, and the record's clearing rule.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "frame/diagnostics.h"
#include "frame/hook_support.h"
#include "gx_frame.h"

namespace {

int Ignore(void*, const gx_errext*) { return 0; }

TEST(MessageHook, SetAndGetKeepsMasksUnlessMinusOne) {
  int user = 7;
  gx_msg_setrtn(&user, GX_SEV_ERROR, GX_CAT_WKT, Ignore);
  void* got_user = nullptr;
  int32_t sev = 0, cat = 0;
  gx_msg_callback cb = nullptr;
  gx_msg_getrtn(&got_user, &sev, &cat, &cb);
  EXPECT_EQ(got_user, &user);
  EXPECT_EQ(sev, 2);
  EXPECT_EQ(cat, 16);
  EXPECT_EQ(cb, &Ignore);

  // -1 keeps both masks even while the callback and user pointer are cleared.
  gx_msg_setrtn(&user, -1, -1, nullptr);
  gx_msg_getrtn(&got_user, &sev, &cat, &cb);
  EXPECT_EQ(got_user, nullptr);
  EXPECT_EQ(cb, nullptr);
  EXPECT_EQ(sev, 2);
  EXPECT_EQ(cat, 16);

  // Explicit masks with a null callback are stored as 0.
  gx_msg_setrtn(nullptr, 2, 16, nullptr);
  gx_msg_getrtn(nullptr, &sev, &cat, nullptr);
  EXPECT_EQ(sev, 0);
  EXPECT_EQ(cat, 0);
}

TEST(MessageHook, MasksSelectSeverityAndCategory) {
  {
    MessageCollector errors_only(GX_SEV_ERROR, 0xFF);
    gx_unit* unit = gx_unit_from_string("UNIT[\"Meter\",1.0");  // warning 464 only
    ASSERT_NE(unit, nullptr);
    gx_unit_del(unit);
    EXPECT_EQ(errors_only.size(), 0u);
    EXPECT_EQ(gx_unit_new("x", 0.0), nullptr);  // error 304, category argument
    ASSERT_EQ(errors_only.size(), 1u);
    EXPECT_EQ(errors_only.last().code, 304u);
  }
  {
    MessageCollector wkt_only(GX_SEV_ERROR | GX_SEV_WARNING, GX_CAT_WKT);
    EXPECT_EQ(gx_unit_new("x", -1.0), nullptr);
    EXPECT_EQ(wkt_only.size(), 0u);
  }
  {
    MessageCollector none(0, 0);  // masks at 0: nothing reaches the callback
    EXPECT_EQ(gx_unit_new("x", 0.0), nullptr);
    EXPECT_EQ(none.size(), 0u);
  }
}

TEST(ErrextRecord, ClearResetsFieldsAndToleratesNull) {
  gx_errext record;
  record.severity = 2;
  record.category = 8;
  record.code = 304;
  std::strcpy(record.function, "f");
  std::strcpy(record.message, "m");
  gx_errext_clear(&record);
  EXPECT_EQ(record.severity, 0u);
  EXPECT_EQ(record.category, 0u);
  EXPECT_EQ(record.code, 0u);
  EXPECT_STREQ(record.function, "");
  EXPECT_STREQ(record.message, "");
  gx_errext_clear(nullptr);
}

TEST(ErrextRecord, SuccessfulParseLeavesCallersRecordClearWhileHookSawWarning) {
  MessageCollector hook;
  gx_errext record;
  gx_unit* unit = gx_unit_from_string_errext("UNIT[\"Meter\",1.0", &record);
  ASSERT_NE(unit, nullptr);
  gx_unit_del(unit);
  EXPECT_EQ(record.severity, 0u);
  ASSERT_EQ(hook.size(), 1u);
  EXPECT_EQ(hook.last().code, 464u);
  EXPECT_EQ(hook.last().severity, GX_SEV_WARNING);
  EXPECT_EQ(hook.last().message, "Missing 1 closing ] character in WKT string");
  EXPECT_EQ(hook.last().function, "gx_unit_from_string");
}

TEST(ErrextRecord, LongMessagesAreCut) {
  gx_errext record;
  std::string long_text(3000, 'x');
  gx_errext_set(&record, GX_SEV_ERROR, GX_CAT_ARGUMENT, 1, long_text.c_str(), long_text.c_str());
  EXPECT_EQ(std::strlen(record.message), 1279u);
  EXPECT_EQ(std::strlen(record.function), 255u);
}

TEST(MessageTable, SecondWordingsAreKept) {
  gx_errext record;
  gx_report_alt(&record, 459, "gx_projcs_from_string");
  EXPECT_STREQ(record.message, "insufficient tokens");
  gx_report_alt(&record, 462, "gx_array_from_string", 5);
  EXPECT_STREQ(record.message, "Token start (5) int WKT string is out of range");
  gx_report(&record, 301, "gx_primem_new", "200.0");
  EXPECT_STREQ(record.message, "Longitude argument (200.0) is < -180 or < 180");
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  gx_report(&record, 432, "gx_vertcs_from_string");
  EXPECT_EQ(record.severity, GX_SEV_WARNING);
}

}  // namespace
