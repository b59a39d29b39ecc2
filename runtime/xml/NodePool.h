#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

namespace QxXmlLib16 {
namespace internal {

// Fixed-size blocks for the nodes of one document, carved from large pages and recycled through
// one free list per size. Every block, pooled or not, is preceded by a word naming its pool (null
// for a plain heap block), so a single Release serves both and a caller can delete a node without
// knowing where it came from. Pooled blocks must be released before their pool is destroyed.
class CNodePool {
public:
    CNodePool() = default;
    CNodePool(const CNodePool&) = delete;
    CNodePool& operator=(const CNodePool&) = delete;
    ~CNodePool() {
        for (char* page : m_pages)
            std::free(page);
    }

    void* Allocate(size_t size) {
        const size_t sizeClass = ClassOf(size);
        if (sizeClass >= kClasses) return AllocateUnpooled(size);
        char* block;
        if (FreeBlock* head = m_free[sizeClass]) {
            m_free[sizeClass] = head->next;
            block = reinterpret_cast<char*>(head);
        } else {
            const size_t bytes = sizeClass * kGrain;
            if (static_cast<size_t>(m_end - m_cursor) < bytes) NewPage();
            block = m_cursor;
            m_cursor += bytes;
        }
        *reinterpret_cast<CNodePool**>(block) = this;
        return block + kHeader;
    }

    static void* AllocateUnpooled(size_t size) {
        char* block = static_cast<char*>(std::malloc(size + kHeader));
        if (!block) throw std::bad_alloc();
        *reinterpret_cast<CNodePool**>(block) = nullptr;
        return block + kHeader;
    }

    // The size must be the one the block was allocated with.
    static void Release(void* object, size_t size) {
        if (!object) return;
        char* block = static_cast<char*>(object) - kHeader;
        CNodePool* pool = *reinterpret_cast<CNodePool**>(block);
        if (!pool) {
            std::free(block);
            return;
        }
        const size_t sizeClass = ClassOf(size);
        FreeBlock* freed = reinterpret_cast<FreeBlock*>(block);
        freed->next = pool->m_free[sizeClass];
        pool->m_free[sizeClass] = freed;
    }

private:
    struct FreeBlock {
        FreeBlock* next;
    };
    static constexpr size_t kHeader = sizeof(void*);
    static constexpr size_t kGrain = 8; // the nodes hold pointers and strings, nothing wider
    static constexpr size_t kClasses = 64;
    static constexpr size_t kPageBytes = 256 * 1024;

    static size_t ClassOf(size_t size) { return (size + kHeader + kGrain - 1) / kGrain; }

    void NewPage() {
        char* page = static_cast<char*>(std::malloc(kPageBytes));
        if (!page) throw std::bad_alloc();
        m_pages.push_back(page);
        m_cursor = page;
        m_end = page + kPageBytes;
    }

    std::vector<char*> m_pages;
    char* m_cursor = nullptr;
    char* m_end = nullptr;
    FreeBlock* m_free[kClasses] = {};
};

} // namespace internal
} // namespace QxXmlLib16
