// The tree printer behind RenderText. Leaves print by their own Print; function nodes take the
// shape of their operator class. A stack of open nodes on the heap stands in for recursion, so
// a chain of any length prints.
#include "core/text_rendering.h"

#include <cstring>
#include <vector>

#include "core/function_node.h"
#include "core/op_code.h"
#include "core/tree_walk.h"
#include "shared/text_builder.h"

namespace quillon {
namespace {

// How an open function node goes on: its next child, what stands between two children, the
// priority and depth its children are printed with, and what closes it.
struct OpenNode {
  const ENode* nextChild = nullptr;
  bool first = true;
  const char* separator = "";
  bool blankBefore = false;  // around the separator
  bool blankAfter = false;
  int32_t childPriority = 0;
  int32_t childDepth = 0;
  const char* closing = "";
  bool closeParen = false;  // after closing
};

class TreePrinter {
 public:
  TreePrinter(SharedText& text, bool spaced) : text_(text), spaced_(spaced) {}

  int32_t Run(const ENode* root);

 private:
  // Writes a leaf, or opens a function node: writes what stands before its first child.
  void Visit(const ENode* node, int32_t parentPriority, int32_t depth);
  void OpenCall(const FunctionENode* node);
  void OpenBinary(const FunctionENode* node, int32_t parentPriority, int32_t depth);
  void OpenPrefix(const FunctionENode* node, int32_t parentPriority, int32_t depth);
  void OpenPostfix(const FunctionENode* node, int32_t parentPriority, int32_t depth);
  void OpenBracket(const FunctionENode* node);
  void Open(const ENode* node, const OpenNode& shape);
  void Write(const char* text) { AppendRunAt(text_, &position_, text, static_cast<int32_t>(std::strlen(text))); }
  void Write(const SharedText& text) { AppendRunAt(text_, &position_, text.c_str(), text.TextLength()); }
  void WriteByte(char c) { AppendByteAt(text_, &position_, c); }

  SharedText& text_;
  bool spaced_;
  int32_t position_ = 0;
  std::vector<OpenNode> open_;
};

int32_t TreePrinter::Run(const ENode* root) {
  Visit(root, 0, 0);
  while (!open_.empty()) {
    OpenNode& top = open_.back();
    if (top.nextChild == nullptr) {
      Write(top.closing);
      if (top.closeParen) WriteByte(')');
      open_.pop_back();
      continue;
    }
    const ENode* child = top.nextChild;
    top.nextChild = child->next;
    if (!top.first) {
      if (top.blankBefore) WriteByte(' ');
      Write(top.separator);
      if (top.blankAfter) WriteByte(' ');
    }
    top.first = false;
    // Visit may open the child and so move the stack: top is not used after this.
    Visit(child, top.childPriority, top.childDepth);
  }
  return position_;
}

void TreePrinter::Visit(const ENode* node, int32_t parentPriority, int32_t depth) {
  if (node->GetType() != FunctionType) {
    // A leaf never gets parentheses: -1 under ^ prints as -1^x.
    Write(node->Print());
    return;
  }
  const auto* call = static_cast<const FunctionENode*>(node);
  // A derivative has no operator form: @plus[1,0](x,y).
  if (call->derivative != 0) return OpenCall(call);
  switch (call->def->opClass) {
    case OpPlain:
      return OpenCall(call);
    case OpBinary:
      return OpenBinary(call, parentPriority, depth);
    case OpPrefix:
      return OpenPrefix(call, parentPriority, depth);
    case OpPostfix:
      return OpenPostfix(call, parentPriority, depth);
    case OpBracket:
      return OpenBracket(call);
    default:
      return;  // no text form
  }
}

// name(a,b): each argument starts afresh at priority 0 and depth 0.
void TreePrinter::OpenCall(const FunctionENode* node) {
  Write(node->Print());
  WriteByte('(');
  Open(node, {.separator = ",", .blankAfter = spaced_, .closing = ")"});
}

// Parentheses when the node binds more loosely than its parent, or as tightly on the side where
// the grouping would change. A chain of one priority keeps the depth of its head, so that under
// spaced `a + b + c` is blanked throughout while `a + b*c` is blanked only at the outer level.
void TreePrinter::OpenBinary(const FunctionENode* node, int32_t parentPriority, int32_t depth) {
  const FunctionDef* def = node->def;
  const int32_t p = def->priority;
  bool parens = p < parentPriority;
  if (p == parentPriority) {
    if (def->rightAssoc == 1) parens = node->prev == nullptr;
    if (def->rightAssoc == 0) parens = node->next == nullptr;
  }
  int32_t inner = depth;
  if (parens || (depth == 1 && p == parentPriority)) inner = 0;
  const char* op = TokenSpelling(def->token);
  const bool wordOp = (op[0] >= 'a' && op[0] <= 'z') || (op[0] >= 'A' && op[0] <= 'Z');
  const bool blanks = (spaced_ && inner == 0) || wordOp;
  if (parens) WriteByte('(');
  Open(node, {.separator = op,
              .blankBefore = blanks,
              .blankAfter = blanks,
              .childPriority = p,
              .childDepth = inner + 1,
              .closeParen = parens});
}

void TreePrinter::OpenPrefix(const FunctionENode* node, int32_t parentPriority, int32_t depth) {
  const int32_t p = node->def->priority;
  const bool parens = p < parentPriority;
  if (parens) WriteByte('(');
  Write(TokenSpelling(node->def->token));
  Open(node, {.childPriority = p, .childDepth = depth + 1, .closeParen = parens});
}

void TreePrinter::OpenPostfix(const FunctionENode* node, int32_t parentPriority, int32_t depth) {
  const int32_t p = node->def->priority;
  const bool parens = p < parentPriority;
  if (parens) WriteByte('(');
  Open(node, {.childPriority = p,
              .childDepth = depth + 1,
              .closing = TokenSpelling(node->def->token),
              .closeParen = parens});
}

// {1,2}: the items start afresh, as arguments do.
void TreePrinter::OpenBracket(const FunctionENode* node) {
  Write(TokenSpelling(node->def->token));
  Open(node, {.separator = ",", .blankAfter = spaced_, .closing = TokenSpelling(node->def->closeToken)});
}

void TreePrinter::Open(const ENode* node, const OpenNode& shape) {
  open_.push_back(shape);
  open_.back().nextChild = node->firstChild;
}

}  // namespace

// Room for five characters a node covers most trees; the text grows when it does not.
SharedText RenderText(const ENode* root, bool spaced) {
  SharedText text = SharedText::WithRoom(5 * CountNodes(root));
  const int32_t length = TreePrinter(text, spaced).Run(root);
  text.Resize(length + 1);
  text.Set<char>(length, 0);
  return text;
}

}  // namespace quillon
