#pragma once

#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/foundation/Types.h>
#include <QxXmlLib16/xml/XmlWriter.h>

#include <cstddef>
#include <string>

namespace QxXmlLib16 {

// What the text encodings of the writer interface share: a stream they do not own, line ends,
// indentation, and flushing whenever 4096 or more characters wait.
class QX_API CTextWriterBase : public CXmlWriter {
public:
    ~CTextWriterBase() override;

    void Open() override;
    // Closes the stream, then throws "An Element has not been closed." if one is still open.
    void Close() override;

    // Line ends and indentation (default on).
    bool GetFormat() const { return m_format; }
    void SetFormat(bool format) { m_format = format; }
    EOLType GetEOLType() const { return m_eolType; }
    // Throws "Invalid EOL type." for a value other than eolCRLF and eolLF.
    void SetEOLType(EOLType type);
    const std::wstring& GetIndentChars() const { return m_indentChars; }
    // Written once per level; null counts as empty.
    void SetIndentChars(const wchar_t* indent);

protected:
    CTextWriterBase(const wchar_t* className, CTextStream& stream);

    // The indent characters depth times.
    void WriteIndent(int depth);
    void WriteEol() { m_stream.Append(m_eol); }
    void FlushIfFull();

    // Appends text, copying the runs of ordinary characters in one piece each and handing every
    // character for which isSpecial holds to escape.
    template <class IsSpecial, class Escape>
    void AppendEscaped(const wchar_t* text, size_t length, IsSpecial isSpecial, Escape escape) {
        const wchar_t* end = text + length;
        while (text < end) {
            const wchar_t* run = text;
            while (text < end && !isSpecial(*text))
                ++text;
            if (text > run) m_stream.Append(run, static_cast<size_t>(text - run));
            if (text == end) break;
            escape(*text++);
        }
    }

    CTextStream& m_stream;

private:
    std::wstring m_indentChars;
    std::wstring m_indentRun; // the indentation repeated, so that any depth is one append
    std::wstring m_eol;
    EOLType m_eolType;
    bool m_format;
};

} // namespace QxXmlLib16
