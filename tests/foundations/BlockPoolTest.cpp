// Memory of pools: blocks apart, used again, and told from those of the global operator new.
#include "kalve/foundations/BlockPool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <vector>

namespace {

constexpr std::size_t blockSize = 48;

/// Fills a block to its end, so that overlaps and short blocks show.
void Fill(void* block, std::size_t size, std::size_t value) {
  std::memset(block, static_cast<int>(value % 251), size);
}

bool Holds(const void* block, std::size_t size, std::size_t value) {
  const auto* const bytes = static_cast<const unsigned char*>(block);
  for (std::size_t i = 0; i < size; ++i)
    if (bytes[i] != value % 251) return false;
  return true;
}

TEST(BlockPool, KeepsBlocksApartInSlabsAndAcrossPools) {
  BlockPool pool(blockSize);
  BlockPool other(2 * blockSize);
  std::vector<void*> blocks;
  for (std::size_t i = 0; i < 5000; ++i) {  // several slabs
    const std::size_t size = i % 2 == 0 ? blockSize : 2 * blockSize;
    blocks.push_back(i % 2 == 0 ? pool.Take(size) : other.Take(size));
    Fill(blocks.back(), size, i);
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    ASSERT_TRUE(Holds(blocks[i], i % 2 == 0 ? blockSize : 2 * blockSize, i)) << i;
    (i % 2 == 0 ? pool : other).Give(blocks[i]);
  }
}

TEST(BlockPool, TakesBackBlocksOfTheGlobalOperatorNew) {
  BlockPool pool(blockSize);
  void* const own = pool.Take(blockSize);
  void* const larger = pool.Take(blockSize + 16);  // as for an object of a derived class
  Fill(larger, blockSize + 16, 7);
  void* const foreign = ::operator new(blockSize);
  pool.Give(nullptr);
  pool.Give(larger);
  pool.Give(foreign);
  pool.Give(own);
  std::vector<void*> blocks;
  for (int i = 0; i < 3; ++i) blocks.push_back(pool.Take(blockSize));
  EXPECT_EQ(std::set<void*>(blocks.begin(), blocks.end()).size(), blocks.size());
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_EQ(blocks.front(), own);  // the block given last
#endif
  for (void* block : blocks) pool.Give(block);
}

}  // namespace
