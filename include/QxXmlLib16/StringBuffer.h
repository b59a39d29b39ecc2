#pragma once

#include <QxXmlLib16/Export.h>
#include <QxXmlLib16/InstanceMonitor.h>

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
    void Append(const wchar_t* text, size_t length);
    void Append(const std::wstring& text) { Append(text.data(), text.size()); }
    void Append(wchar_t c);
    void SetText(const wchar_t* text);
    const wchar_t* GetText();
    unsigned long GetLength() const { return m_totalLength; }
    // Keeps a single block for reuse; otherwise the same as Clear.
    void Empty();
    void Clear();

private:
    void AddNewBlock();

    std::vector<wchar_t*> m_blocks;
    std::vector<unsigned long> m_blockSizes;
    unsigned long m_blockSize;
    unsigned long m_used;
    unsigned long m_capacity;
    wchar_t* m_current;
    unsigned long m_totalLength;
};

} // namespace QxXmlLib16
