// What descriptors and arguments own by pointer and may come to share: an assignment shares domain and
// tables, and what is shared dies with its last holder.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "kalve/foundations/Tableau.h"

/// The domain of a descriptor. One that is replaced lives on until its descriptor dies, so that a descriptor
/// can go from one domain to another and back.
template <class Spec>
class HeldDomain {
 public:
  HeldDomain() = default;
  HeldDomain& operator=(const HeldDomain&) = delete;
  HeldDomain(const HeldDomain& other) {
    if (other.mpDomain != nullptr) Take(new Spec(*other.mpDomain));
  }

  Spec* Get() const { return mpDomain; }
  /// Takes ownership; null for none.
  void Take(Spec* domain) {
    if (domain != nullptr && !Holds(domain)) mHeld.emplace_back(domain);
    mpDomain = domain;
  }
  void Share(const HeldDomain& other) {
    for (const std::shared_ptr<Spec>& held : other.mHeld)
      if (held.get() == other.mpDomain && !Holds(held.get())) mHeld.push_back(held);
    mpDomain = other.mpDomain;
  }

 private:
  bool Holds(const Spec* domain) const {
    for (const std::shared_ptr<Spec>& held : mHeld)
      if (held.get() == domain) return true;
    return false;
  }

  Spec* mpDomain = nullptr;
  std::vector<std::shared_ptr<Spec>> mHeld;
};

/// How a held table is freed and duplicated: what pointers point to stays, but texts belong to
/// their table and come from `malloc`.
struct OwnedTable {
  template <class Item>
  void operator()(Tableau<Item>* table) const {
    delete table;
  }
  void operator()(Tableau<char*>* table) const {
    for (int i = table->size() - 1; i >= 0; --i) std::free(table->get_nth(i));
    delete table;
  }
  template <class Item>
  static Tableau<Item>* Duplicate(const Tableau<Item>& table) {
    return new Tableau<Item>(table);
  }
  static Tableau<char*>* Duplicate(const Tableau<char*>& table) {
    auto* copy = new Tableau<char*>(table.size());
    for (const char* text : table) copy->push_back(text != nullptr ? strdup(text) : nullptr);
    return copy;
  }
};

/// A table, or none.
template <class Item>
class HeldTable {
 public:
  using Table = Tableau<Item>;

  HeldTable() = default;
  explicit HeldTable(Table* table) { Take(table); }
  HeldTable(const HeldTable& other) { TakeCopy(other); }
  HeldTable& operator=(const HeldTable&) = delete;

  /// Null for none.
  Table* Get() const { return mHold != nullptr ? mHold->get() : nullptr; }
  /// Takes ownership; giving back the held table does nothing.
  void Take(Table* table) {
    if (table == Get()) return;
    mHold = table != nullptr ? std::make_shared<Hold>(table) : nullptr;
  }
  void TakeCopy(const HeldTable& other) {
    const Table* table = other.Get();
    Take(table != nullptr ? OwnedTable::Duplicate(*table) : nullptr);
  }
  void Share(const HeldTable& other) { mHold = other.mHold; }
  /// The table itself, made with room for `capacity` items when there is none.
  Table& Made(int capacity = 0) {
    if (Get() == nullptr) Take(new Table(capacity));
    return *Get();
  }
  /// Lets the table go without freeing it; other holders keep it.
  void Release() {
    if (mHold.use_count() == 1) static_cast<void>(mHold->release());
    mHold = nullptr;
  }

 private:
  using Hold = std::unique_ptr<Table, OwnedTable>;
  std::shared_ptr<Hold> mHold;
};
