#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/xml/TextWriterBase.h>

namespace QxXmlLib16 {

namespace {
const unsigned long kFlushThreshold = 4096;
} // namespace

CTextWriterBase::CTextWriterBase(const wchar_t* className, CTextStream& stream)
    : CXmlWriter(className)
    , m_stream(stream)
    , m_indentChars(L"\t")
    , m_eol(L"\n")
    , m_eolType(eolLF)
    , m_format(true) {}

CTextWriterBase::~CTextWriterBase() = default;

void CTextWriterBase::Open() {
    CXmlWriter::Open();
    m_stream.Open();
}

void CTextWriterBase::Close() {
    m_stream.Close();
    CXmlWriter::Close();
}

void CTextWriterBase::SetEOLType(EOLType type) {
    if (type != eolCRLF && type != eolLF) throw CQxException(L"Invalid EOL type.");
    m_eolType = type;
    m_eol = type == eolCRLF ? L"\r\n" : L"\n";
}

void CTextWriterBase::SetIndentChars(const wchar_t* indent) {
    m_indentChars = indent ? indent : L"";
    m_indentRun.clear();
}

void CTextWriterBase::WriteIndent(int depth) {
    if (depth <= 0) return;
    const size_t length = static_cast<size_t>(depth) * m_indentChars.size();
    while (m_indentRun.size() < length)
        m_indentRun += m_indentChars;
    m_stream.Append(m_indentRun.data(), length);
}

void CTextWriterBase::FlushIfFull() {
    if (m_stream.GetLength() >= kFlushThreshold) m_stream.Flush();
}

} // namespace QxXmlLib16
