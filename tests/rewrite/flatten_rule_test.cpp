// @flatten: nesting of any depth dissolves with one argument; with a count, each pass dissolves
// one level and leaves what it spliced in for the next.
#include <gtest/gtest.h>

#include "support/expression_test.h"

namespace quillon::testing {

using Flatten = ExpressionTest;

TEST_F(Flatten, DissolvesNestedCallsOfTheArgumentsFunction) {
  const StructureRow rows[] = {
      {"@flatten(@pmax(a, @pmax(u, @pmax(v, w))))", 3, "@pmax(a,u,v,w)"},
      {"@flatten(@pmax(@pmax(@pmax(a, u), v), w))", 3, "@pmax(a,u,v,w)"},
      {"@flatten(@pmax(a, @pmax(u, @pmax(v, w))), 1)", 3, "@pmax(a,u,@pmax(v,w))"},
      {"@flatten(@pmax(a, @pmax(u, @pmax(v, w))), 2)", 3, "@pmax(a,u,v,w)"},
      {"@flatten(@pmax(a, @pmax(u, @pmax(v, w))), 0)", 3, "@pmax(a,@pmax(u,@pmax(v,w)))"},
      {"@flatten(@pmax(a, @pmax(u, @pmax(v, w))), -3)", 3, "@pmax(a,@pmax(u,@pmax(v,w)))"},
      // A call without arguments vanishes; other functions and derivative notation stay.
      {"@flatten(@pmax(a, @pmax(), u))", 3, "@pmax(a,u)"},
      {"@flatten(@pmax(a, @pmin(@pmax(u))))", 3, "@pmax(a,@pmin(@pmax(u)))"},
      {"@flatten(@pmax(a, @pmax[1,0](u, v)))", 3, "@pmax(a,@pmax[1,0](u,v))"},
      {"@flatten(a)", 3, "a"},
      {"@flatten(@pmax(a, u), v)", 3, "@flatten(@pmax(a,u),v)"},
      {"@flatten()", 3, "@flatten()"},
  };
  ExpectStructures(rows);
}

}  // namespace quillon::testing
