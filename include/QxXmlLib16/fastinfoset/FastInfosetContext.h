#pragma once

#include <QxXmlLib16/fastinfoset/FIVocabulary.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/Types.h>

#include <cstdint>
#include <string>

namespace QxXmlLib16 {

// The Fast Infoset settings of a serialization context, shared by writer and reader: how text of
// each item type is encoded, which strings are worth indexing, and an optional vocabulary known to
// both ends in advance.
class QX_API CFastInfosetContext : public CInstanceMonitor {
public:
    // How the text of one item type is encoded.
    struct EncodedCharacterString {
        enum Kind : uint8_t {
            ekDefault = 0,            // the default string encoding
            ekRestrictedAlphabet = 1, // index: alphabet 1 (numeric), 2 (date and time), or a generated one
            ekEncodingAlgorithm = 2,  // index: built-in algorithm 1 to 10
        };
        uint8_t kind;
        uint8_t index;
    };

    enum StringEncoding : uint8_t {
        seUTF8 = 0,
        seUTF16BE = 1, // read, but not written
    };

    // The built-in encoding algorithms.
    enum Algorithm : uint8_t {
        eaHexadecimal = 1,
        eaBase64 = 2,
        eaShort = 3,
        eaInt = 4,
        eaLong = 5,
        eaBoolean = 6,
        eaFloat = 7,
        eaDouble = 8,
        eaUuid = 9,
        eaCdata = 10,
    };
    enum Alphabet : uint8_t {
        raNumeric = 1,
        raDateAndTime = 2,
    };

    static constexpr int kItemTypeCount = 29;
    // Named in the header when the generated vocabulary is used and no URI was set.
    static constexpr const wchar_t* kDefaultExternalVocabularyURI = L"urn:qxxmllib16:fastinfoset:vocabulary";

    // UTF-8 for every item type, attribute values and chunks of fewer than 6 characters indexed,
    // no generated vocabulary.
    CFastInfosetContext();

    StringEncoding GetDefaultStringEncoding() const { return m_defaultStringEncoding; }
    void SetDefaultStringEncoding(StringEncoding encoding) { m_defaultStringEncoding = encoding; }
    // Throws CQxInvalidParamException for a type outside the enumeration.
    EncodedCharacterString GetEncoding(ItemType type) const;
    void SetEncoding(ItemType type, EncodedCharacterString encoding);
    // Values of this many characters or more are written literally and never indexed.
    uint64_t GetAttributeMaxAddLength() const { return m_attributeMaxAddLength; }
    void SetAttributeMaxAddLength(uint64_t length) { m_attributeMaxAddLength = length; }
    uint64_t GetElementMaxAddLength() const { return m_elementMaxAddLength; }
    void SetElementMaxAddLength(uint64_t length) { m_elementMaxAddLength = length; }
    // When set, writer and reader start from a copy of GetVocabulary() and the header names the
    // external vocabulary URI.
    bool GetUseGeneratedVocabulary() const { return m_useGeneratedVocabulary; }
    void SetUseGeneratedVocabulary(bool use) { m_useGeneratedVocabulary = use; }
    CFIVocabulary& GetVocabulary() { return m_vocabulary; }
    const CFIVocabulary& GetVocabulary() const { return m_vocabulary; }
    std::wstring GetExternalVocabularyURI() const { return m_externalVocabularyURI; }
    void SetExternalVocabularyURI(const wchar_t* uri) { m_externalVocabularyURI = uri ? uri : L""; }

    // Binary numbers, booleans and binary data through the built-in algorithms, decimals and
    // date/time values in the built-in alphabets, strings and durations as UTF-8. The date-and-time
    // alphabet holds neither "+" nor ".": a time with an offset other than Z or with fractional
    // seconds cannot be written under these settings.
    void SetSuggestedValues();

private:
    StringEncoding m_defaultStringEncoding;
    EncodedCharacterString m_encodings[kItemTypeCount];
    uint64_t m_attributeMaxAddLength;
    uint64_t m_elementMaxAddLength;
    bool m_useGeneratedVocabulary;
    CFIVocabulary m_vocabulary;
    std::wstring m_externalVocabularyURI;
};

} // namespace QxXmlLib16
