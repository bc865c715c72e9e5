// Fuzz target: the input is a program of export calls over four handle slots, so that handles
// shared by clone, assign and child walks meet wildcards, rules and evaluation in every order a
// host could call them. Empty slots are passed as NULL on purpose: every export must take it.
// Whatever the order, no call may crash, leak or trip a sanitizer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "growth_filter.h"
#include "quillon.h"

namespace {

constexpr int kSlots = 4;
constexpr int kMaxCalls = 64;

// The bytes of the input, read front to back; zeros past the end.
class Program {
 public:
  Program(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  bool Done() const { return position_ >= size_; }
  uint8_t Next() { return Done() ? 0 : data_[position_++]; }
  std::string Text() {
    std::string text;
    for (uint8_t n = Next(); n > 0 && !Done(); --n) text += static_cast<char>(Next());
    return text;
  }

 private:
  const uint8_t* data_;
  size_t size_;
  size_t position_ = 0;
};

// Modes a host passes: the stages alone and together, and each bit that acts with simplify but
// expansion, whose growth is combinatorial by design (see growth_filter.h).
constexpr uint32_t kModes[] = {3, 1, 2, 4, 7, 0x10003, 0x40003, 0x80003, 0x100003};

// Each order of a derivative may multiply the size of a tree by the tree's own size (the product
// rule copies a product once per factor) times the variable's (a derivative by a variable that is
// no symbol stays as notation that holds a copy of it, and the next order differentiates that
// anew). So orders stay low, and a call whose bound on that growth passes kMaxWrapperWork is not
// made: that is the host's request, not a fault. A wrapper given one handle twice may double a
// tree, and a program of them would ask for 2^64 nodes, so the trees a wrapper takes are also
// bounded in plain size.
constexpr int32_t kMaxOrder = 2;
constexpr int64_t kMaxWrapperWork = int64_t{1} << 20;
constexpr int64_t kMaxWrapperNodes = 4096;

using Wrapper = mathexpr* (*)(mathexpr* a, mathexpr* b, mathexpr* c, int32_t n);
struct WrapperCall {
  Wrapper call;
  int order;  // of the derivatives it takes, or 1 for a function of two trees
};
constexpr WrapperCall kWrappers[] = {
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_deriv(a, b); }, 1},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_deriv2(a, b, b); }, 2},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t n) { return mathexpr_derivx(a, b, n % (kMaxOrder + 1)); },
     kMaxOrder},
    {[](mathexpr* a, mathexpr* b, mathexpr* c, int32_t n) { return mathexpr_taylor(a, b, c, n % (kMaxOrder + 1)); },
     kMaxOrder},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_lincoefs(a, b); }, 1},
    {[](mathexpr* a, mathexpr*, mathexpr*, int32_t n) { return mathexpr_symlist(a, n); }, 0},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_normalize(a, b); }, 1},
    {[](mathexpr* a, mathexpr*, mathexpr*, int32_t) { return mathexpr_sort(a); }, 0},
    {[](mathexpr* a, mathexpr*, mathexpr*, int32_t) { return mathexpr_distinct(a); }, 0},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_join(a, b); }, 1},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_union(a, b); }, 1},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_intersection(a, b); }, 1},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t) { return mathexpr_complement(a, b); }, 1},
    {[](mathexpr* a, mathexpr* b, mathexpr*, int32_t n) { return mathexpr_find(a, b, static_cast<uint8_t>(n)); }, 1},
};

// Exports that read an expression (or two) and give plain values.
void Inspect(mathexpr* a, mathexpr* b) {
  int32_t count = 0, low = 0, high = 0, low2 = 0, high2 = 0;
  uint32_t attributes = 0, symbolBits = 0;
  mathexpr_is_error(a);
  mathexpr_is_void(a);
  mathexpr_is_symbol(a);
  mathexpr_is_number(a);
  mathexpr_as_number(a);
  mathexpr_get_children(a);
  mathexpr_is_numeric(a);
  mathexpr_get_attributes(a, &count, &attributes, &symbolBits);
  mathexpr_get_priority(a);
  mathexpr_is_constant(a, b);
  mathexpr_is_linear(a, b);
  mathexpr_irange1d(a, b, &low, &high);
  mathexpr_irange2d(a, b, &low, &high, &low2, &high2);
}

int64_t NodesOf(mathexpr* e) {
  int32_t nodes = 0;
  mathexpr_get_attributes(e, &nodes, nullptr, nullptr);
  return nodes;
}

// Whether the trees are small enough and the call's growth bound stays within kMaxWrapperWork.
bool WithinWork(const WrapperCall& wrapper, mathexpr* a, mathexpr* b) {
  const int64_t nodesA = NodesOf(a), nodesB = NodesOf(b);
  if (nodesA + nodesB > kMaxWrapperNodes) return false;
  const int64_t perOrder = std::max<int64_t>(nodesA, 1) * (4 * nodesB + 1);
  int64_t work = 1;
  for (int k = 0; k < wrapper.order && work <= kMaxWrapperWork; ++k) work *= perOrder;
  return work <= kMaxWrapperWork;
}

// Stores a new handle in a slot, letting go of the one it held.
void Put(mathexpr*& slot, mathexpr* e) {
  mathexpr_destroy(slot);
  slot = e;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static mathsymtable* everything = mathsymtable_create(nullptr, 1);
  mathexpr* slots[kSlots] = {};
  Program program(data, size);
  char buffer[64];
  for (int calls = 0; calls < kMaxCalls && !program.Done(); ++calls) {
    const uint8_t op = program.Next() % 10;
    mathexpr*& target = slots[program.Next() % kSlots];
    mathexpr* source = slots[program.Next() % kSlots];
    switch (op) {
      case 0: {
        const std::string text = program.Text();
        if (!AsksForCombinatorialGrowth(text)) Put(target, mathexpr_create(everything, text.c_str()));
        break;
      }
      case 1: Put(target, mathexpr_clone(source)); break;
      case 2: mathexpr_assign(target, source); break;
      case 3: Put(target, mathexpr_first_child(source)); break;
      case 4: mathexpr_next_child(&target); break;
      case 5: mathexpr_evaluate(target, kModes[program.Next() % (sizeof kModes / sizeof kModes[0])]); break;
      case 6: {
        const WrapperCall& wrapper = kWrappers[program.Next() % (sizeof kWrappers / sizeof kWrappers[0])];
        mathexpr* third = slots[program.Next() % kSlots];
        const int32_t n = program.Next() % 8;
        if (WithinWork(wrapper, source, third)) Put(target, wrapper.call(source, third, source, n));
        break;
      }
      case 7: {
        int32_t length = 0;
        mathexpr_as_text(target, buffer, program.Next() % sizeof buffer, &length, program.Next() & 1);
        break;
      }
      case 8: Put(target, nullptr); break;
      default:
        if (program.Next() & 1)
          mathexpr_make_implicit(target);
        else
          Inspect(target, source);
        break;
    }
  }
  for (mathexpr*& slot : slots) Put(slot, nullptr);
  return 0;
}
