// Raw types the program gives to the names it declares; every other name is taken as a series.
#pragma once

#include <cstdint>

constexpr int32_t kSeriesType = 15;  // class 4: series, any lag or lead
constexpr int32_t kScalarType = 35;  // class 8: no index
constexpr int32_t kMatrixType = 40;  // class 8: two indices, both above 0
constexpr int32_t kVectorType = 42;  // class 8: one index, above 0
