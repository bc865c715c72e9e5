// NameTable: the hash-chained table of named records under the function catalogue and the
// symbol tables. Records never move once added: the table grows by relinking its entries.
#pragma once

#include <cstdint>
#include <vector>

#include "shared/names.h"

namespace quillon {

// Record has `char name[kNameLimit]` and `uint32_t hash` (NameHash of the name, seed 0) and is
// copied once, when it is added. Names compare case-blind over kNameLimit bytes, so the first
// spelling of a name is the one kept.
template <class Record>
class NameTable {
 public:
  static constexpr uint32_t kInitialBuckets = 8;
  static constexpr uint32_t kMaxBuckets = 65536;  // from here on the chains just grow

  struct AddResult {
    Record* record;  // the entry that stands under the name, new or old
    bool added;
  };

  NameTable() : buckets_(kInitialBuckets, nullptr) {}
  ~NameTable();
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;

  // The record named `name`, whose NameHash is `hash`; null when there is none.
  Record* Find(const char* name, uint32_t hash) const;

  // Adds a copy of `record` at the head of its chain unless one of that name is there, in which
  // case the old entry stands unchanged.
  AddResult Add(const Record& record);

  uint32_t BucketCount() const { return static_cast<uint32_t>(buckets_.size()); }
  uint32_t Count() const { return count_; }

  // Calls visit(Record&) for each record, bucket by bucket, each chain from its head.
  template <class Visit>
  void ForEach(Visit visit) const {
    for (Entry* head : buckets_)
      for (Entry* entry = head; entry != nullptr; entry = entry->link) visit(entry->record);
  }

 private:
  struct Entry {
    Entry* link;
    Record record;
  };

  uint32_t BucketOf(uint32_t hash) const { return hash & (BucketCount() - 1); }
  void Double();

  std::vector<Entry*> buckets_;
  uint32_t count_ = 0;
};

template <class Record>
NameTable<Record>::~NameTable() {
  for (Entry* entry : buckets_) {
    while (entry != nullptr) {
      Entry* link = entry->link;
      delete entry;
      entry = link;
    }
  }
}

template <class Record>
Record* NameTable<Record>::Find(const char* name, uint32_t hash) const {
  for (Entry* entry = buckets_[BucketOf(hash)]; entry != nullptr; entry = entry->link)
    if (entry->record.hash == hash && NameEqual(entry->record.name, name)) return &entry->record;
  return nullptr;
}

template <class Record>
typename NameTable<Record>::AddResult NameTable<Record>::Add(const Record& record) {
  if (Record* old = Find(record.name, record.hash)) return {old, false};
  if (count_ >= BucketCount() && BucketCount() != kMaxBuckets) Double();
  Entry*& head = buckets_[BucketOf(record.hash)];
  head = new Entry{head, record};
  ++count_;
  return {&head->record, true};
}

// Each entry that no longer belongs in bucket i goes to the head of bucket i + old size, so
// the entries that stay keep their order and the movers are reversed.
template <class Record>
void NameTable<Record>::Double() {
  const uint32_t oldSize = BucketCount();
  buckets_.resize(oldSize * 2, nullptr);
  const uint32_t mask = oldSize * 2 - 1;
  for (uint32_t i = 0; i < oldSize; ++i) {
    Entry** link = &buckets_[i];
    while (*link != nullptr) {
      Entry* entry = *link;
      if ((entry->record.hash & mask) == i) {
        link = &entry->link;
        continue;
      }
      *link = entry->link;
      entry->link = buckets_[i + oldSize];
      buckets_[i + oldSize] = entry;
    }
  }
}

}  // namespace quillon
