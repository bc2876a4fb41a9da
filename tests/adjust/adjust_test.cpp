// Adjusted systems: the two fits against hand-computed maps, their
// inverses, singular fits refused, and the text forms with their errors.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "orvamobilegx.h"
#include "support/definitions.h"

namespace {

struct Pt {
  double x, y;
};

gx_adjhcs* Adjusted(const char* method, int32_t count, const double* values) {
  return gx_adjhcs_new("Site", gx_geogcs_from_string(gx_test::kWgs84Geogcs),
                       gx_htmethod_from_string((std::string("HTMETHOD[\"") + method + "\"]").c_str()),
                       gx_array_new("Fit", count, values), gx_unit_new("Meter", 1.0));
}

TEST(AdjustedSystems, AffineFitMapsAndReturns) {
  // A turn of 30 degrees, a scale of 2 and a shift of (100, -50).
  const double c = 2 * std::cos(M_PI / 6), s = 2 * std::sin(M_PI / 6);
  const double values[6] = {c, -s, 100, s, c, -50};
  gx_adjhcs* adjhcs = Adjusted("Affine_Parametric", 6, values);
  ASSERT_NE(adjhcs, nullptr);
  double points[10] = {0, 0, 1, 0, 0, 1, -3.5, 7.25, 1e6, -2e6};
  const double start[10] = {0, 0, 1, 0, 0, 1, -3.5, 7.25, 1e6, -2e6};
  ASSERT_EQ(gx_coordsys_to_adjhcs(adjhcs, 5, points), 5);
  for (int i = 0; i < 5; ++i) {
    EXPECT_NEAR(points[2 * i], c * start[2 * i] - s * start[2 * i + 1] + 100, 1e-6);
    EXPECT_NEAR(points[2 * i + 1], s * start[2 * i] + c * start[2 * i + 1] - 50, 1e-6);
  }
  ASSERT_EQ(gx_adjhcs_to_coordsys(adjhcs, 5, points), 5);
  for (int i = 0; i < 10; ++i) EXPECT_NEAR(points[i], start[i], 1e-9 * (1 + std::fabs(start[i])));
  gx_adjhcs_del(adjhcs);
}

TEST(AdjustedSystems, ProjectiveFitTakesTheUnitSquareToAQuadrilateralAndBack) {
  // The square-to-quadrilateral map: corners (0,0) (1,0) (1,1) (0,1) to q.
  const Pt q[4] = {{10, 20}, {50, 15}, {60, 70}, {5, 55}};
  double dx1 = q[1].x - q[2].x, dx2 = q[3].x - q[2].x, dx3 = q[0].x - q[1].x + q[2].x - q[3].x;
  double dy1 = q[1].y - q[2].y, dy2 = q[3].y - q[2].y, dy3 = q[0].y - q[1].y + q[2].y - q[3].y;
  double den = dx1 * dy2 - dx2 * dy1;
  double g = (dx3 * dy2 - dx2 * dy3) / den, h = (dx1 * dy3 - dx3 * dy1) / den;
  const double values[8] = {q[1].x - q[0].x + g * q[1].x, q[3].x - q[0].x + h * q[3].x, q[0].x,
                            q[1].y - q[0].y + g * q[1].y, q[3].y - q[0].y + h * q[3].y, q[0].y,
                            g, h};
  gx_adjhcs* adjhcs = Adjusted("2D_Projective_Parametric", 8, values);
  ASSERT_NE(adjhcs, nullptr);
  double corners[8] = {0, 0, 1, 0, 1, 1, 0, 1};
  ASSERT_EQ(gx_coordsys_to_adjhcs(adjhcs, 4, corners), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(corners[2 * i], q[i].x, 1e-12);
    EXPECT_NEAR(corners[2 * i + 1], q[i].y, 1e-12);
  }
  ASSERT_EQ(gx_adjhcs_to_coordsys(adjhcs, 4, corners), 4);
  const double square[8] = {0, 0, 1, 0, 1, 1, 0, 1};
  for (int i = 0; i < 8; ++i) EXPECT_NEAR(corners[i], square[i], 1e-13);
  gx_adjhcs_del(adjhcs);
}

TEST(AdjustedSystems, SingularFitsAreRefusedAndLeaveThePointsAlone) {
  const double flat_affine[6] = {1, 2, 3, 2, 4, 5};              // det 0
  const double flat_projective[8] = {1, 2, 0, 2, 4, 0, 0, 0};  // adjugate det 0
  for (auto [method, count, values] : {std::tuple{"Affine_Parametric", 6, flat_affine},
                                       std::tuple{"2D_Projective_Parametric", 8, flat_projective}}) {
    gx_adjhcs* adjhcs = Adjusted(method, count, values);
    double points[2] = {3, 4};
    EXPECT_EQ(gx_adjhcs_to_coordsys(adjhcs, 1, points), 0) << method;
    EXPECT_EQ(points[0], 3);
    EXPECT_EQ(points[1], 4);
    gx_adjhcs_del(adjhcs);
  }
}

TEST(AdjustedSystems, DefaultCoefficientsAreTheIdentity) {
  for (const char* method : {"Affine_Parametric", "2D_Projective_Parametric"}) {
    gx_htmethod* htmethod = gx_htmethod_from_string((std::string("HTMETHOD[\"") + method + "\"]").c_str());
    gx_array* array = gx_array_htmethod_default(htmethod);
    ASSERT_NE(array, nullptr);
    char name[GX_NAME_SIZE];
    EXPECT_STREQ(gx_array_name(array, name), "Coefficients");
    double points[4] = {12.5, -3, 1e5, 7};
    gx_htmethod_forward(htmethod)(gx_array_num_values(array), gx_array_values_pointer(array), 2, points);
    gx_htmethod_inverse(htmethod)(gx_array_num_values(array), gx_array_values_pointer(array), 2, points);
    EXPECT_EQ(points[0], 12.5);
    EXPECT_EQ(points[3], 7);
    gx_array_del(array);
    gx_htmethod_del(htmethod);
  }
  EXPECT_EQ(gx_array_htmethod_default(nullptr), nullptr);
}

TEST(AdjustedSystems, TextReadsPrintsBackAndClones) {
  const std::string text = std::string("ADJHCS[\"Site\",") + gx_test::kWgs84Geogcs +
                           ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"Fit\",6,1.5,0,100,0,1.5,-50],"
                           "UNIT[\"Meter\",1.0]]";
  void* obj = gx_object_from_string(text.c_str());
  ASSERT_NE(obj, nullptr);
  EXPECT_EQ(gx_object_type(obj), static_cast<uint32_t>(GX_TYPE_ADJHCS));
  char printed[GX_WKT_SIZE], again[GX_WKT_SIZE];
  gx_object_to_string(obj, printed);
  void* back = gx_object_from_string(printed);
  ASSERT_NE(back, nullptr) << printed;
  EXPECT_STREQ(gx_object_to_string(back, again), printed);
  EXPECT_EQ(gx_object_eq(obj, back), 1);
  void* copy = gx_object_clone(obj);
  EXPECT_EQ(gx_object_eq(obj, copy), 1);
  double point[2] = {2, 4};
  gx_coordsys_to_adjhcs(static_cast<gx_adjhcs*>(copy), 1, point);
  EXPECT_EQ(point[0], 103);
  EXPECT_EQ(point[1], -44);
  for (void* o : {obj, back, copy}) gx_object_del(o);
}

TEST(AdjustedSystems, BadTextAndArgumentsAreToldAsStated) {
  const std::string geogcs = gx_test::kWgs84Geogcs;
  struct Case {
    std::string text;
    const char* message;
  } cases[] = {
      {"ARRAY[\"A\",3,1,2]", "Num_values (3) in WKT string is != number of values (2)"},
      {"ARRAY[\"A\"]", "Insufficient tokens in WKT string"},
      {"HTMETHOD[\"Bilinear\"]", "Invalid htmethod name \"Bilinear\""},
      {"ADJHCS[\"S\"," + geogcs + ",HTMETHOD[\"Affine_Parametric\"],UNIT[\"Meter\",1]]",
       "Missing array in WKT string"},
      {"ADJHCS[\"S\"," + geogcs + ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"A\",1,1],UNIT[\"Meter\",1],"
       "UNIT[\"Foot\",0.3048]]",
       "Duplicate unit in WKT string"},
      {"ADJHCS[\"S\"," + geogcs + "," + geogcs + ",HTMETHOD[\"Affine_Parametric\"],ARRAY[\"A\",1,1],"
       "UNIT[\"Meter\",1]]",
       "Duplicate coordsys in WKT string"},
  };
  for (const Case& c : cases) {
    gx_errext why;
    void* obj = gx_object_from_string_errext(c.text.c_str(), &why);
    EXPECT_EQ(obj, nullptr) << c.text;
    EXPECT_STREQ(why.message, c.message) << c.text;
  }
  gx_errext why;
  double one = 1;
  EXPECT_EQ(gx_array_new_errext("A", 0, &one, &why), nullptr);
  EXPECT_STREQ(why.message, "Invalid num_values argument (0) for array");
  EXPECT_EQ(gx_htmethod_new_errext("H", nullptr, nullptr, &why), nullptr);
  EXPECT_STREQ(why.message, "Null forward or inverse function arument");
  EXPECT_EQ(gx_adjhcs_new_errext("S", nullptr, nullptr, nullptr, nullptr, &why), nullptr);
  EXPECT_STREQ(why.message, "Null or invalid coordsys object argument");
  double points[2] = {1, 2};
  EXPECT_EQ(gx_coordsys_to_adjhcs(nullptr, 1, points), 0);
}

}  // namespace
