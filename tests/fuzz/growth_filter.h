// Texts that ask for results whose size grows combinatorially by design: expansion (a power of
// a sum of 28 terms to the 5th has 201,376 products, and a mode with both expand and factor
// does the whole expansion before factoring), and derivatives of higher order: @deriv by several
// variables, @derivx (n derivatives with n^2 / 2 variables in them) and @taylor, built on
// @derivx, whose k-th derivative of a product, or by a variable that is no symbol, grows by a
// factor with every order. That is slow rather than wrong, so the fuzz targets leave such texts
// out; they take first derivatives through the exports. Names of the language don't depend on
// case, nor does the test.
#pragma once

#include <algorithm>
#include <cctype>
#include <string>

inline bool AsksForCombinatorialGrowth(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  for (const char* name : {"expand", "deriv", "taylor"})
    if (text.find(name) != std::string::npos) return true;
  return false;
}
