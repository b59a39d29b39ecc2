#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>

#include <cstddef>
#include <string>
#include <vector>

namespace QxXmlLib16 {

// Text built from blocks, so that appending never moves what was written before. GetText joins
// the blocks into one when there are several; the pointer it returns stays valid until the next
// modifying call.
class QX_API CStringBuffer : public CInstanceMonitor {
public:
    CStringBuffer();
    // Blocks of blockSize - 1 characters (at least one).
    explicit CStringBuffer(unsigned long blockSize);
    ~CStringBuffer() override;
    CStringBuffer(const CStringBuffer&) = delete;
    CStringBuffer& operator=(const CStringBuffer&) = delete;

    void Append(const wchar_t* text);
    // Inline while the current block has room: the writers append many short pieces.
    void Append(const wchar_t* text, size_t length) {
        if (length > m_capacity - m_used) return AppendToNewBlocks(text, length);
        wchar_t* target = m_current + m_used;
        for (size_t i = 0; i < length; ++i)
            target[i] = text[i];
        m_used += length;
        m_totalLength += length;
    }
    void Append(const std::wstring& text) { Append(text.data(), text.size()); }
    void Append(wchar_t c);
    void SetText(const wchar_t* text);
    const wchar_t* GetText();
    unsigned long GetLength() const { return m_totalLength; }
    // Calls visit(text, length) for each block in order: the text without joining it.
    template <typename Visit>
    void VisitBlocks(Visit visit) const {
        for (size_t i = 0; i + 1 < m_blocks.size(); ++i)
            visit(static_cast<const wchar_t*>(m_blocks[i]), static_cast<size_t>(m_blockSizes[i]));
        if (!m_blocks.empty()) visit(static_cast<const wchar_t*>(m_current), static_cast<size_t>(m_used));
    }
    // Keeps a single block for reuse; otherwise the same as Clear.
    void Empty();
    void Clear();

private:
    void AddNewBlock();
    void AppendToNewBlocks(const wchar_t* text, size_t length);

    std::vector<wchar_t*> m_blocks;
    std::vector<unsigned long> m_blockSizes;
    unsigned long m_blockSize;
    unsigned long m_used;
    unsigned long m_capacity;
    wchar_t* m_current;
    unsigned long m_totalLength;
};

} // namespace QxXmlLib16
