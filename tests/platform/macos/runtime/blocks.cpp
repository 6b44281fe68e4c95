// SPDX-License-Identifier: MIT
#include "runtime/abi.h"

#include <cstdlib>
#include <cstring>
#include <new>

using namespace chimewell::objc;

extern "C" Object* objc_retain(Object*);
extern "C" void objc_release(Object*);

namespace {

/// A block: a function and, behind these fields, what it captured.
struct Block {
    Class* isa;
    std::atomic<std::int32_t> flags; ///< The low bits count references once the block is on the heap.
    std::int32_t reserved;
    void* invoke;
    struct Descriptor {
        std::uint64_t reserved;
        std::uint64_t size;
        void (*copy)(Block* to, const Block* from); ///< These two only if the flags say so.
        void (*dispose)(const Block* block);
    }* descriptor;
};

// Flags of a block and of a `__block` variable.
constexpr std::int32_t referenceMask = 0xfffe;
constexpr std::int32_t oneReference = 2;
constexpr std::int32_t onHeap = 1 << 24;
constexpr std::int32_t hasCopyAndDispose = 1 << 25;
constexpr std::int32_t isGlobal = 1 << 28;

/// A `__block` variable: blocks and function share it through `current`, which moves with it to the heap.
struct SharedVariable {
    Class* isa;
    SharedVariable* current;
    std::atomic<std::int32_t> flags;
    std::int32_t size;
    void (*keep)(SharedVariable* to, SharedVariable* from); ///< These two only if the flags say so.
    void (*dispose)(SharedVariable* variable);
};

// What a captured value is, said by the compiler's copy and dispose functions.
constexpr int capturedObject = 3;
constexpr int capturedBlock = 7;
constexpr int capturedVariable = 8;
constexpr int fromVariable = 128; ///< Inside a `__block` variable: the helper itself keeps the count.

SharedVariable* keepVariable(SharedVariable* variable)
{
    SharedVariable* const current = variable->current;
    if ((current->flags & onHeap) != 0) {
        current->flags += oneReference;
        return current;
    }
    const auto size = static_cast<std::size_t>(current->size);
    auto* const kept = static_cast<SharedVariable*>(std::malloc(size));
    std::memcpy(static_cast<void*>(kept), static_cast<const void*>(current), size);
    kept->isa = nullptr;
    kept->flags = current->flags | onHeap | (2 * oneReference); // the function's frame and the block
    kept->current = kept;
    current->current = kept;
    if ((kept->flags & hasCopyAndDispose) != 0) kept->keep(kept, current);
    return kept;
}

void releaseVariable(SharedVariable* variable)
{
    SharedVariable* const current = variable->current;
    if ((current->flags & onHeap) == 0) return;
    const std::int32_t left = current->flags -= oneReference;
    if ((left & referenceMask) != 0) return;
    if ((left & hasCopyAndDispose) != 0) current->dispose(current);
    std::free(current);
}

}

/// Class objects of blocks, defined with the root class.
extern "C" Class chimewell_heap_block_class;

extern "C" {

/// Blocks are born on the stack. The first copy moves one to the heap; later ones count.
Object* _Block_copy(Object* object)
{
    auto* const block = reinterpret_cast<Block*>(object);
    if (!block || (block->flags & isGlobal) != 0) return object;
    if ((block->flags & onHeap) != 0) {
        block->flags += oneReference;
        return object;
    }
    void* const memory = std::malloc(block->descriptor->size);
    std::memcpy(memory, static_cast<const void*>(block), block->descriptor->size);
    auto* const copy = static_cast<Block*>(memory);
    copy->isa = &chimewell_heap_block_class;
    copy->flags = (block->flags & ~referenceMask) | onHeap | oneReference;
    ++copy->isa->record->liveInstances;
    if ((copy->flags & hasCopyAndDispose) != 0) block->descriptor->copy(copy, block);
    return reinterpret_cast<Object*>(copy);
}

/// Retaining alone does not move a block off the stack.
Object* chimewell_retain_block(Object* object)
{
    auto* const block = reinterpret_cast<Block*>(object);
    if ((block->flags & onHeap) != 0) block->flags += oneReference;
    return object;
}

void _Block_release(Object* object)
{
    auto* const block = reinterpret_cast<Block*>(object);
    if (!block || (block->flags & onHeap) == 0) return;
    const std::int32_t left = block->flags -= oneReference;
    if ((left & referenceMask) != 0) return;
    if ((left & hasCopyAndDispose) != 0) block->descriptor->dispose(block);
    --block->isa->record->liveInstances;
    std::free(block);
}

Object* objc_retainBlock(Object* block)
{
    return _Block_copy(block);
}

void _Block_object_assign(void* place, void* captured, int kind)
{
    auto* const to = static_cast<void**>(place);
    switch (kind) {
    case capturedObject:
        *to = objc_retain(static_cast<Object*>(captured));
        break;
    case capturedBlock:
        *to = _Block_copy(static_cast<Object*>(captured));
        break;
    case capturedVariable:
        *to = keepVariable(static_cast<SharedVariable*>(captured));
        break;
    case fromVariable | capturedObject:
    case fromVariable | capturedBlock:
        *to = captured;
        break;
    default:
        std::abort();
    }
}

void _Block_object_dispose(void* captured, int kind)
{
    switch (kind) {
    case capturedObject:
        objc_release(static_cast<Object*>(captured));
        break;
    case capturedBlock:
        _Block_release(static_cast<Object*>(captured));
        break;
    case capturedVariable:
        releaseVariable(static_cast<SharedVariable*>(captured));
        break;
    case fromVariable | capturedObject:
    case fromVariable | capturedBlock:
        break;
    default:
        std::abort();
    }
}
}
