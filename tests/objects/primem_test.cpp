// The prime meridian family: the range check in both entries, text.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "frame/object.h"
#include "objects/object_support.h"

namespace {

using PrimemPtr = ObjectPtr<gx_primem>;

// Paris, 2.5969213 grads east of Greenwich (EPSG 8903), is 2.33722917
// degrees; a prime meridian is in degrees whatever unit its system uses.
constexpr double kParis = 2.33722917;

TEST(PrimemNew, LongitudeInDegreesBothEndsIncluded) {
  for (double longitude : {0.0, kParis, -180.0, 180.0}) {
    PrimemPtr primem(gx_primem_new("P", longitude));
    ASSERT_TRUE(primem) << longitude;
    EXPECT_EQ(gx_primem_longitude(primem.get()), longitude);
    EXPECT_EQ(gx_primem_status(primem.get()), GX_STATUS_NEW);
    EXPECT_EQ(gx_object_code(primem.get()), -1);
  }
}

struct BadLongitude {
  double longitude;
  const char* message;
};

class PrimemNewErrors : public ::testing::TestWithParam<BadLongitude> {};

// The words of 301 stay as they are, with "<" twice.
TEST_P(PrimemNewErrors, NullAndExactMessage) {
  gx_errext record;
  EXPECT_EQ(gx_primem_new_errext("P", GetParam().longitude, &record), nullptr);
  EXPECT_EQ(record.code, 301u);
  EXPECT_EQ(record.category, GX_CAT_ARGUMENT);
  EXPECT_STREQ(record.function, "gx_primem_new");
  EXPECT_STREQ(record.message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Bad, PrimemNewErrors,
    ::testing::Values(
        BadLongitude{-180.0001, "Longitude argument (-180.0001) is < -180 or < 180"},
        BadLongitude{180.5, "Longitude argument (180.5) is < -180 or < 180"},
        BadLongitude{NAN, "Longitude argument (nan) is < -180 or < 180"},
        BadLongitude{-INFINITY, "Longitude argument (-inf) is < -180 or < 180"}));

TEST(PrimemInvalid, NeutralValues) {
  EXPECT_EQ(gx_primem_longitude(nullptr), 0.0);
  double longitude = 9.0;
  gx_primem_longitude_w(nullptr, &longitude);
  EXPECT_EQ(longitude, 0.0);
  gx_primem_longitude_w(nullptr, nullptr);
  EXPECT_EQ(gx_primem_p(nullptr), 0);
  EXPECT_EQ(gx_primem_eq(nullptr, nullptr), 0);
}

TEST(PrimemWide, NewAndLongitude) {
  const gx_wchar name[] = {'P', 'a', 'r', 'i', 's', 0};
  PrimemPtr primem(gx_primem_new_w(name, kParis));
  ASSERT_TRUE(primem);
  EXPECT_EQ(Name(primem.get()), "Paris");
  double longitude = 0.0;
  gx_primem_longitude_w(primem.get(), &longitude);
  EXPECT_EQ(longitude, kParis);
  EXPECT_EQ(gx_primem_new_w(nullptr, 0.0), nullptr);
}

TEST(PrimemEquality, NameAndLongitude) {
  PrimemPtr a(gx_primem_new("Greenwich", 0.0));
  PrimemPtr b(gx_primem_new("GREENWICH", 1e-16));
  PrimemPtr c(gx_primem_new("Greenwich", 1e-13));
  PrimemPtr d(gx_primem_new("Paris", 0.0));
  EXPECT_EQ(gx_primem_eq(a.get(), b.get()), 1);
  EXPECT_EQ(gx_primem_eq(a.get(), c.get()), 0);
  EXPECT_EQ(gx_primem_eq(a.get(), d.get()), 0);
}

TEST(PrimemText, RoundTripAndAuthorityOptions) {
  PrimemPtr primem(gx_primem_from_string("PRIMEM[\"Paris\",2.33722917,AUTHORITY[\"EPSG\",8903]]"));
  ASSERT_TRUE(primem);
  EXPECT_EQ(gx_primem_status(primem.get()), GX_STATUS_STRING);
  EXPECT_EQ(gx_primem_longitude(primem.get()), kParis);
  EXPECT_EQ(Wkt(primem.get(), 0), "PRIMEM[\"Paris\",2.33722917]");
  EXPECT_EQ(Wkt(primem.get(), 1), "PRIMEM[\"Paris\",2.33722917,AUTHORITY[\"EPSG\",8903]]");
  EXPECT_EQ(Wkt(primem.get(), 2), Wkt(primem.get(), 1));
  PrimemPtr back(gx_primem_from_string(Wkt(primem.get(), 2).c_str()));
  EXPECT_EQ(gx_primem_eq(primem.get(), back.get()), 1);
  PrimemPtr copy(gx_primem_clone(primem.get()));
  EXPECT_EQ(Wkt(copy.get(), 1), Wkt(primem.get(), 1));
}

TEST(PrimemText, EndsOfTheRangeAndANonNumberReadAsTheyAre) {
  PrimemPtr east(gx_primem_from_string("PRIMEM[\"P\",180.0]"));
  EXPECT_EQ(gx_primem_longitude(east.get()), 180.0);
  PrimemPtr west(gx_primem_from_string("PRIMEM[\"P\",-180]"));
  EXPECT_EQ(gx_primem_longitude(west.get()), -180.0);
  // Numbers are read as atof reads them: a word is 0.
  PrimemPtr word(gx_primem_from_string("PRIMEM[\"P\",east]"));
  ASSERT_TRUE(word);
  EXPECT_EQ(gx_primem_longitude(word.get()), 0.0);
}

TEST(PrimemText, ObjectLayerPicksTheFamily) {
  ObjectPtr<void> obj(gx_object_from_string("PRIMEM[\"Greenwich\",0]"));
  EXPECT_EQ(gx_object_type(obj.get()), GX_TYPE_PRIMEM);
  ObjectPtr<void> by_type(gx_object_from_string_by_type(GX_TYPE_PRIMEM, "PRIMEM[\"G\",0]"));
  EXPECT_EQ(gx_object_type(by_type.get()), GX_TYPE_PRIMEM);
}

class PrimemTextErrors : public ::testing::TestWithParam<ReadFailure> {};

TEST_P(PrimemTextErrors, NullAndExactMessage) {
  ExpectReadFailure(gx_primem_from_string_errext, GetParam());
}

constexpr const char* kReader = "gx_primem_from_string";

INSTANTIATE_TEST_SUITE_P(
    Bad, PrimemTextErrors,
    ::testing::Values(
        ReadFailure{"PRIMEM[\"P\"]", 459, kReader, "Insufficient tokens in WKT string"},
        ReadFailure{"PRIMEM[P[1],2]", 449, kReader, "Missing longitude in WKT string"},
        ReadFailure{"PRIMEM[\"P\",180.1]", 419, kReader,
                    "Longitude (180.1) in WKT string is < -180 or > 180"},
        ReadFailure{"PRIMEM[\"P\",-180.0001]", 419, kReader,
                    "Longitude (-180.0001) in WKT string is < -180 or > 180"},
        ReadFailure{"PRIMEM[\"P\",nan]", 419, kReader,
                    "Longitude (nan) in WKT string is < -180 or > 180"},
        ReadFailure{"PRIMEM[\"P\",inf]", 419, kReader,
                    "Longitude (inf) in WKT string is < -180 or > 180"},
        ReadFailure{"PRIMEM[\"P\",0,AUTHORITY[\"EPSG\",8901],AUTHORITY[\"EPSG\",8901]]", 403,
                    kReader, "Duplicate authority in WKT string"},
        ReadFailure{"PRIMEM[\"P\",0,AUTHORITY[\"EPSG\"]]", 459, "gx_authority_from_string",
                    "Insufficient tokens in WKT string"},
        ReadFailure{"PRIMEM(\"P\"\t,0,\"x\")", 458, kReader, "Expecting ',' or ']' in WKT string"},
        ReadFailure{"SPHEROID[\"P\",0]", 466, kReader,
                    "Object type keyword \"PRIMEM\" not found in WKT string"}));

TEST(PrimemText, CutAnywhereIsSafe) {
  ExpectEveryPrefixIsSafe("PRIMEM[\"Paris\",2.33722917,AUTHORITY[\"EPSG\",8903]]",
                          GX_TYPE_PRIMEM);
}

}  // namespace
