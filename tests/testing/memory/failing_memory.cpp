#include "tests/testing/memory/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <thread>

namespace tillora::testing {
namespace {

// Nothing here may use the heap: it runs inside allocations.
struct Plan {
  std::thread::id thread;
  long number = FailingMemory::kNever;
  FailingMemory::Mode mode = FailingMemory::Mode::once;
  long allocations = 0;
  int pauses = 0;
};
Plan plan;
std::atomic<bool> isPlanned{false};
std::atomic<long> liveBlocks{0};

bool isFailing(long allocation) {
  if (plan.number == FailingMemory::kNever) return false;
  return plan.mode == FailingMemory::Mode::once ? allocation == plan.number
                                                : allocation >= plan.number;
}

bool concernsThisThread() {
  return isPlanned.load(std::memory_order_relaxed) && plan.thread == std::this_thread::get_id();
}

void* allocate(std::size_t size) noexcept {
  if (FailingMemory::failsNext()) return nullptr;
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block != nullptr) liveBlocks.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void* allocateOrThrow(std::size_t size) {
  if (void* const block = allocate(size)) return block;
  throw std::bad_alloc();
}

void release(void* block) noexcept {
  if (block != nullptr) liveBlocks.fetch_sub(1, std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

FailingMemory::FailingMemory(long number, Mode mode) {
  plan = {std::this_thread::get_id(), number, mode, 0, 0};
  isPlanned = true;
}

FailingMemory::~FailingMemory() { isPlanned = false; }

long FailingMemory::allocations() const { return plan.allocations; }

bool FailingMemory::hasFailed() const {
  return plan.number != kNever && plan.allocations > plan.number;
}

long FailingMemory::blocks() { return liveBlocks; }

bool FailingMemory::failsNext() {
  return concernsThisThread() && plan.pauses == 0 && isFailing(plan.allocations++);
}

FailingMemory::Pause::Pause() : pauses_(concernsThisThread()) {
  if (pauses_) ++plan.pauses;
}

FailingMemory::Pause::~Pause() {
  if (pauses_) --plan.pauses;
}

}  // namespace tillora::testing

// The program's own allocation functions, in place of the library's.
void* operator new(std::size_t size) { return tillora::testing::allocateOrThrow(size); }
void* operator new[](std::size_t size) { return tillora::testing::allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return tillora::testing::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return tillora::testing::allocate(size);
}
void operator delete(void* block) noexcept { tillora::testing::release(block); }
void operator delete[](void* block) noexcept { tillora::testing::release(block); }
void operator delete(void* block, std::size_t) noexcept { tillora::testing::release(block); }
void operator delete[](void* block, std::size_t) noexcept { tillora::testing::release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept {
  tillora::testing::release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  tillora::testing::release(block);
}
