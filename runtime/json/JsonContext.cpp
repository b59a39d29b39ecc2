#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/json/JsonContext.h>

namespace QxXmlLib16 {

CJsonContext::CJsonContext()
    : m_supportRoundtrip(jrtFull)
    , m_allowComments(true)
    , m_rfc8259Escaping(false) {}

CJsonContext::~CJsonContext() = default;

void CJsonContext::CheckRoundtrip(JsonRoundTrip level) {
    if (level < jrtNone || level > jrtFull)
        throw CQxInvalidParamException(
            FormatString(L"Invalid JSON round-trip level [%d].", static_cast<int>(level)));
}

void CJsonContext::SetSupportRoundtrip(JsonRoundTrip level) {
    CheckRoundtrip(level);
    m_supportRoundtrip = level;
}

} // namespace QxXmlLib16
