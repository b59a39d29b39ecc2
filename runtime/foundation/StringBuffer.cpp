#include <QxXmlLib16/foundation/StringBuffer.h>

#include <algorithm>
#include <cwchar>
#include <memory>

namespace QxXmlLib16 {

namespace {
constexpr unsigned long kDefaultBlockSize = 4095;
} // namespace

CStringBuffer::CStringBuffer()
    : CStringBuffer(kDefaultBlockSize + 1) {}

// A block of at least one character keeps Append from looping without progress.
CStringBuffer::CStringBuffer(unsigned long blockSize)
    : CInstanceMonitor(L"CStringBuffer")
    , m_blockSize(std::max(blockSize, 2UL) - 1)
    , m_used(0)
    , m_capacity(0)
    , m_current(nullptr)
    , m_totalLength(0) {}

CStringBuffer::~CStringBuffer() {
    Clear();
}

void CStringBuffer::AddNewBlock() {
    if (m_current) m_blockSizes.back() = m_used;
    // One more character than the block holds, so that GetText can terminate a single block and
    // hand it out directly. Not zero-filled: only the terminator is ever read past the text.
    std::unique_ptr<wchar_t[]> block(new wchar_t[m_blockSize + 1]);
    m_blockSizes.push_back(0);
    m_blocks.push_back(block.get());
    m_current = block.release();
    m_used = 0;
    m_capacity = m_blockSize;
}

void CStringBuffer::Append(const wchar_t* text) {
    if (text) Append(text, std::wcslen(text));
}

void CStringBuffer::AppendToNewBlocks(const wchar_t* text, size_t length) {
    while (length > 0) {
        if (m_used == m_capacity) AddNewBlock();
        const size_t count = std::min<size_t>(length, m_capacity - m_used);
        std::wmemcpy(m_current + m_used, text, count);
        m_used += count;
        m_totalLength += count;
        text += count;
        length -= count;
    }
}

void CStringBuffer::Append(wchar_t c) {
    if (m_used == m_capacity) AddNewBlock();
    m_current[m_used++] = c;
    ++m_totalLength;
}

void CStringBuffer::SetText(const wchar_t* text) {
    Clear();
    Append(text);
}

const wchar_t* CStringBuffer::GetText() {
    if (m_blocks.empty()) return L"";
    if (m_blocks.size() == 1) {
        m_current[m_used] = L'\0';
    } else {
        m_blockSizes.back() = m_used;
        wchar_t* joined = new wchar_t[m_totalLength + 1];
        wchar_t* end = joined;
        for (size_t i = 0; i < m_blocks.size(); ++i) {
            end = std::wmemcpy(end, m_blocks[i], m_blockSizes[i]) + m_blockSizes[i];
            delete[] m_blocks[i];
        }
        *end = L'\0';
        m_blocks.assign(1, joined);
        m_blockSizes.assign(1, m_totalLength);
        // The joined block is full: the next append opens a new one.
        m_current = joined;
        m_used = m_capacity = m_totalLength;
    }
    return m_blocks.front();
}

void CStringBuffer::Empty() {
    if (m_blocks.size() != 1) {
        Clear();
        return;
    }
    m_used = 0;
    m_blockSizes.front() = 0;
    m_totalLength = 0;
}

void CStringBuffer::Clear() {
    for (wchar_t* block : m_blocks)
        delete[] block;
    m_blocks.clear();
    m_blockSizes.clear();
    m_current = nullptr;
    m_used = 0;
    m_capacity = 0;
    m_totalLength = 0;
}

} // namespace QxXmlLib16
