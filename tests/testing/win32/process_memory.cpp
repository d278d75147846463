#include "tests/testing/win32/process_memory.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace tillora::testing {
namespace {

constexpr std::size_t kMostHeaps = 64;

// Nothing here may use a heap: they are locked.
class Search {
 public:
  explicit Search(std::span<const Canary> canaries) : canaries_(canaries) {}

  void heap(HANDLE heap) {
    ++seen.heaps;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
      if ((entry.wFlags & (PROCESS_HEAP_REGION | PROCESS_HEAP_UNCOMMITTED_RANGE)) != 0) continue;
      ++seen.blocks;
      // A free block may have pages that the heap gave back.
      readable(static_cast<const unsigned char*>(entry.lpData), entry.cbData, seen.inHeaps);
    }
  }

  /// Everything that the program may write and does not share with others, including heaps.
  void everything() {
    std::size_t found = 0;
    const unsigned char* at = nullptr;
    for (MEMORY_BASIC_INFORMATION region{}; VirtualQuery(at, &region, sizeof region) != 0;
         at = static_cast<const unsigned char*>(region.BaseAddress) + region.RegionSize) {
      if (isOwn(region)) search(region.BaseAddress, region.RegionSize, found);
    }
    seen.elsewhere = found > seen.inHeaps ? found - seen.inHeaps : 0;
  }

  MemorySearch seen;

 private:
  static bool isOwn(const MEMORY_BASIC_INFORMATION& region) {
    constexpr DWORD kWritable =
        PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return region.State == MEM_COMMIT && region.Type != MEM_MAPPED &&
           (region.Protect & kWritable) != 0 && (region.Protect & PAGE_GUARD) == 0;
  }

  // A block lies in one allocation, whatever size the walk gives for it.
  void readable(const unsigned char* at, std::size_t size, std::size_t& found) {
    const void* allocation = nullptr;
    while (size > 0) {
      MEMORY_BASIC_INFORMATION region{};
      if (VirtualQuery(at, &region, sizeof region) == 0) return;
      if (allocation == nullptr) allocation = region.AllocationBase;
      if (region.AllocationBase != allocation) return;
      const auto* end = static_cast<const unsigned char*>(region.BaseAddress) + region.RegionSize;
      const std::size_t part = std::min(size, static_cast<std::size_t>(end - at));
      if (isOwn(region)) count(at, part, found);
      at += part;
      size -= part;
    }
  }

  void search(const void* at, std::size_t size, std::size_t& found) {
    seen.bytes += size;
    count(static_cast<const unsigned char*>(at), size, found);
  }

  void count(const unsigned char* at, std::size_t size, std::size_t& found) const {
    for (const Canary& canary : canaries_) found += canary.partsIn(at, size);
  }

  std::span<const Canary> canaries_;
};

}  // namespace

MemorySearch searchMemory(std::span<const Canary> canaries) {
  std::array<HANDLE, kMostHeaps> heaps{};
  const DWORD count =
      std::min(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()), DWORD{kMostHeaps});
  Search search(canaries);
  for (DWORD i = 0; i < count; ++i) HeapLock(heaps[i]);
  for (DWORD i = 0; i < count; ++i) search.heap(heaps[i]);
  search.everything();
  for (DWORD i = count; i > 0; --i) HeapUnlock(heaps[i - 1]);
  return search.seen;
}

}  // namespace tillora::testing
