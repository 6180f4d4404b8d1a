// BlockPool: freed blocks of one size, kept for the next object of that size.
//
// For classes whose objects come and go by the million. Their operator delete hands a block over, their
// operator new takes one back. Each block comes from the global operator new and may go back to the global
// operator delete, so that objects of derived classes may be freed through a base. Under the address
// sanitizer nothing is kept: every fault shows.
#pragma once

#include <cstddef>
#include <new>

class BlockPool {
 public:
  /// For objects of `size` bytes, at least a pointer's.
  constexpr explicit BlockPool(std::size_t size) : mSize(size) {}
  BlockPool(const BlockPool&) = delete;
  BlockPool& operator=(const BlockPool&) = delete;

  /// A block of at least `size` bytes; another size than the pool's goes past it.
  void* Take(std::size_t size) {
    if (size != mSize || mFirst == nullptr) return ::operator new(size);
    Link* const block = mFirst;
    mFirst = block->next;
    --mCount;
    return block;
  }
  /// The block has at least the pool's size.
  void Give(void* block) {
#if defined(__SANITIZE_ADDRESS__)
    ::operator delete(block);
#else
    if (block == nullptr) return;
    if (mCount == mostKept) return ::operator delete(block);
    mFirst = ::new (block) Link{mFirst};
    ++mCount;
#endif
  }

 private:
  struct Link {
    Link* next;
  };
  static constexpr int mostKept = 4096;

  std::size_t mSize;
  Link* mFirst = nullptr;
  int mCount = 0;
};
