#include "Allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> blocks = 0;
thread_local long allocations_left = -1;
thread_local bool fails_from_there_on = false;

}  // namespace

void* operator new(std::size_t size) {
    if (allocations_left == 0) {
        allocations_left = fails_from_there_on ? 0 : -1;
        throw std::bad_alloc();
    }
    allocations_left -= allocations_left > 0 ? 1 : 0;
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++blocks;
    return block;
}

void operator delete(void* block) noexcept {
    blocks -= block == nullptr ? 0 : 1;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

// A sanitizer would replace these otherwise.
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t) noexcept { operator delete(block); }

long num_blocks() { return blocks; }

Starvation::Starvation(long allocations, bool from_there_on) {
    fails_from_there_on = from_there_on;
    allocations_left = allocations;
}

Starvation::~Starvation() { allocations_left = -1; }
