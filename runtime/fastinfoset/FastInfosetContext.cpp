#include <QxXmlLib16/fastinfoset/FastInfosetContext.h>
#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

namespace QxXmlLib16 {

namespace {
size_t Slot(ItemType type) {
    if (type < 0 || type >= CFastInfosetContext::kItemTypeCount)
        throw CQxInvalidParamException(FormatString(L"Invalid item type [%d]", static_cast<int>(type)));
    return static_cast<size_t>(type);
}
} // namespace

CFastInfosetContext::CFastInfosetContext()
    : CInstanceMonitor(L"CFastInfosetContext")
    , m_defaultStringEncoding(seUTF8)
    , m_encodings()
    , m_attributeMaxAddLength(6)
    , m_elementMaxAddLength(6)
    , m_useGeneratedVocabulary(false) {}

CFastInfosetContext::EncodedCharacterString CFastInfosetContext::GetEncoding(ItemType type) const {
    return m_encodings[Slot(type)];
}

void CFastInfosetContext::SetEncoding(ItemType type, EncodedCharacterString encoding) {
    m_encodings[Slot(type)] = encoding;
}

void CFastInfosetContext::SetSuggestedValues() {
    typedef EncodedCharacterString E;
    const E algorithm[] = {{},
                           {E::ekEncodingAlgorithm, eaHexadecimal},
                           {E::ekEncodingAlgorithm, eaBase64},
                           {E::ekEncodingAlgorithm, eaShort},
                           {E::ekEncodingAlgorithm, eaInt},
                           {E::ekEncodingAlgorithm, eaLong},
                           {E::ekEncodingAlgorithm, eaBoolean},
                           {E::ekEncodingAlgorithm, eaFloat},
                           {E::ekEncodingAlgorithm, eaDouble}};
    const E numeric = {E::ekRestrictedAlphabet, raNumeric};
    const E dateAndTime = {E::ekRestrictedAlphabet, raDateAndTime};
    for (E& encoding : m_encodings)
        encoding = E{E::ekDefault, 0};
    m_encodings[itHexBinary] = algorithm[eaHexadecimal];
    m_encodings[itBase64Binary] = algorithm[eaBase64];
    m_encodings[itI1] = m_encodings[itI2] = m_encodings[itUi1] = algorithm[eaShort];
    m_encodings[itI4] = m_encodings[itUi2] = algorithm[eaInt];
    // An unsigned 64-bit value above the signed range does not fit; the writer sends such a value
    // as text instead.
    m_encodings[itI8] = m_encodings[itUi4] = m_encodings[itUi8] = algorithm[eaLong];
    m_encodings[itR4] = algorithm[eaFloat];
    m_encodings[itR8] = algorithm[eaDouble];
    m_encodings[itBoolean] = algorithm[eaBoolean];
    for (ItemType type : {itYearMonth, itMonthDay, itYear, itMonth, itDay, itDate, itDateTime, itTime})
        m_encodings[type] = dateAndTime;
    m_encodings[itDecimal] = m_encodings[itInteger] = numeric;
}

} // namespace QxXmlLib16
