// The steps of @normalize; see normalize_rules.h. L and R below are the two sides of the
// equation, and to depend is DependsOn(., v).
#include "timeseries/normalize_rules.h"

#include "calculus/depends_on.h"
#include "core/function_node.h"
#include "core/int_node.h"
#include "core/node_order.h"
#include "core/symbol_node.h"
#include "core/tree_walk.h"
#include "core/well_known.h"
#include "rewrite/surgery.h"
#include "timeseries/difference_rules.h"
#include "timeseries/function_inverses.h"
#include "timeseries/moving_rules.h"
#include "timeseries/percent_change_rules.h"

namespace quillon {
namespace {

// The equation of @normalize(L := R, v), or null when the call has another shape.
ENode* EquationOf(const ENode* call) {
  if (call->childCount != 2 || call->lastChild->GetType() != SymbolType) return nullptr;
  ENode* equation = call->firstChild;
  return IsCallOf(equation, fnAssign) && equation->childCount == 2 ? equation : nullptr;
}

void Unsettle(ENode* node) { node->flags &= ~FlagSettled; }

// A step was made and the @normalize node stays: it must be passed over again.
uint32_t Stepped(ENode* call) {
  Unsettle(call);
  return 1;
}

ENode* FirstDependent(const ENode* parent, const ENode* v) {
  for (ENode* c : Children(parent))
    if (DependsOn(c, v)) return c;
  return nullptr;
}

// Takes the first term (or factor) of L that depends and makes it the left side. Returns the rest
// of L, now free and unsettled, or null when no term depends.
ENode* TakeDependentPart(ENode* equation, const ENode* v) {
  ENode* lhs = equation->firstChild;
  ENode* part = FirstDependent(lhs, v);
  if (part == nullptr) return nullptr;
  part->Unlink();
  lhs->SwapPlaces(part);
  Unsettle(lhs);
  return lhs;
}

// e --> @pow(e, -1), in e's place when e is linked.
ENode* WrapInInverse(ENode* e) {
  ENode* power = WrapIn(fnPow, e);
  power->AppendChild(new IntENode(-1));
  return power;
}

// R --> @plus(@times(-1, rest), R)
void SubtractFromRight(ENode* equation, ENode* rest) {
  ENode* sum = WrapIn(fnPlus, equation->lastChild);
  ENode* negated = NewCall(fnTimes);
  sum->PrependChild(negated);
  negated->AppendChild(new IntENode(-1));
  negated->AppendChild(rest);
}

// R --> @times(@pow(rest, -1), R)
void DivideRight(ENode* equation, ENode* rest) {
  ENode* product = WrapIn(fnTimes, equation->lastChild);
  product->PrependChild(WrapInInverse(rest));
}

// The first term or factor of L that depends becomes the left side, and carryOver takes the rest
// to the right.
uint32_t PeelPart(ENode* equation, const ENode* v, void (*carryOver)(ENode* equation, ENode* rest)) {
  ENode* rest = TakeDependentPart(equation, v);
  if (rest == nullptr) return 0;
  carryOver(equation, rest);
  Unsettle(equation);
  return 1;
}

}  // namespace

uint32_t NormalizeRule1::Apply(ENode** node) {
  ENode* call = *node;
  ENode* equation = EquationOf(call);
  if (equation == nullptr) return 0;
  const ENode* v = call->lastChild;
  const ENode* lhs = equation->firstChild;
  if (NodeEqual(lhs, v)) {
    *node = ReplaceByChild(call, equation);
    return 1;
  }
  uint32_t stepped = 0;
  if (IsCallOf(lhs, fnPlus))
    stepped = PeelPart(equation, v, SubtractFromRight);
  else if (IsCallOf(lhs, fnTimes))
    stepped = PeelPart(equation, v, DivideRight);
  else if (IsCallOf(lhs, fnPow) && lhs->childCount == 2)
    stepped = PeelPower(equation, v);
  return stepped != 0 ? Stepped(call) : 0;
}

uint32_t NormalizeRule1::PeelPower(ENode* equation, const ENode* v) {
  ENode* power = equation->firstChild;
  ENode* base = power->firstChild;
  ENode* exponent = power->lastChild;
  const bool baseDepends = DependsOn(base, v);
  if (!baseDepends && !DependsOn(exponent, v)) return 0;
  ENode* side = baseDepends ? base : exponent;
  side->Unlink();
  power->SwapPlaces(side);
  Unsettle(power);
  if (!baseDepends) {
    // b^p := R --> p := log(R) * log(b)^-1, reusing the power for log(b)^-1
    WrapIn(fnLog, base);
    power->AppendChild(new IntENode(-1));
    ENode* product = WrapIn(fnTimes, WrapIn(fnLog, equation->lastChild));
    product->AppendChild(power);
    return 1;
  }
  // b^p := R --> b := R^(p^-1), reusing the power for R^(p^-1)
  WrapInInverse(exponent);
  ENode* rhs = equation->lastChild;
  rhs->SwapPlaces(power);
  power->PrependChild(rhs);
  Unsettle(equation);
  return 1;
}

uint32_t NormalizeRule2::Apply(ENode** node) {
  ENode* call = *node;
  ENode* equation = EquationOf(call);
  if (equation == nullptr) return 0;
  ENode* lhs = equation->firstChild;
  const FunctionDef* def = DefOf(lhs);
  if (def == nullptr || lhs->childCount == 0 || !DependsOn(lhs->firstChild, call->lastChild)) return 0;
  FunctionDef* inverse = InverseOf(def);
  if (inverse == nullptr) return 0;
  ENode* argument = lhs->firstChild;
  argument->Unlink();
  lhs->SwapPlaces(argument);
  static_cast<FunctionENode*>(lhs)->def = inverse;
  ENode* rhs = equation->lastChild;
  rhs->SwapPlaces(lhs);
  lhs->PrependChild(rhs);
  Unsettle(lhs);
  Unsettle(equation);
  return Stepped(call);
}

namespace {

template <class WritingOut>
void WriteOutWith(ENode** slot) {
  WritingOut rule(ModeTimeExpand);
  rule.Apply(slot);
}

// The series functions that normalizing writes out, each with the rule that does it.
struct WrittenOutForm {
  FunctionDef** def;
  void (*writeOut)(ENode** slot);
};

const WrittenOutForm kWrittenOutForms[] = {
    {&fnD, WriteOutWith<DifferenceRule7>},
    {&fnPch, WriteOutWith<PchRule1>},
    {&fnMovsum, WriteOutWith<MovsumRule1>},
    {&fnMovav, WriteOutWith<MovavRule1>},
};

}  // namespace

uint32_t NormalizeRule3::Apply(ENode** node) {
  ENode* call = *node;
  ENode* equation = EquationOf(call);
  if (equation == nullptr) return 0;
  const FunctionDef* def = DefOf(equation->firstChild);
  for (const WrittenOutForm& form : kWrittenOutForms) {
    if (def == nullptr || def != *form.def) continue;
    ENode* slot = equation->firstChild;
    form.writeOut(&slot);
    Unsettle(slot);
    Unsettle(equation);
    return Stepped(call);
  }
  return 0;
}

uint32_t NormalizeRule4::Apply(ENode** node) {
  ENode* call = *node;
  ENode* equation = EquationOf(call);
  if (equation == nullptr) return 0;
  const ENode* v = call->lastChild;
  ENode* lhs = equation->firstChild;
  if (DependsOn(lhs, v) || !DependsOn(equation->lastChild, v)) return 0;
  MoveToEnd(equation, lhs);
  return Stepped(call);
}

namespace {

// The first symbol of tree in pre-order whose class is one of classes, or null.
const ENode* FirstSymbolOfClass(const ENode* tree, uint32_t classes) {
  for (const ENode* n = tree; n != nullptr; n = NextInPreorder(n, tree))
    if (n->GetType() == SymbolType && (static_cast<const SymbolENode*>(n)->def->bits & classes) != 0) return n;
  return nullptr;
}

}  // namespace

uint32_t NormalizeRule5::Apply(ENode** node) {
  ENode* call = *node;
  if (call->childCount != 1) return 0;
  const ENode* v = FirstSymbolOfClass(call->firstChild, SymbolSeries);
  if (v == nullptr) v = FirstSymbolOfClass(call->firstChild, kClassBits);
  if (v == nullptr) return 0;
  call->AppendChild(v->Clone());
  return Stepped(call);
}

}  // namespace quillon
