#pragma once

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Export.h>
#include <QxXmlLib16/foundation/InstanceMonitor.h>
#include <QxXmlLib16/foundation/Types.h>

namespace QxXmlLib16 {

// gzip and zlib compression at level 1 over zlib's deflate. Buffers are malloc'ed.
class QX_API CQxZip : public CInstanceMonitor {
public:
    CQxZip()
        : CInstanceMonitor(L"CQxZip") {}

    // Replaces *data and *length by their compressed form. The output must be smaller than the
    // input: data that does not shrink throws "Failed to compress data. [Error Code: %d]".
    static void Compress(unsigned char** data, unsigned long* length, CompressionType type);
    // Inflates gzip or zlib data in place. Anything that does not inflate (plain text, for one) is
    // left exactly as it was, silently: every loaded document passes through here. A stream that
    // inflates to nothing leaves *data null and *length 0.
    static void Decompress(unsigned char** data, unsigned long* length);
    // Compress on a CBinaryData; an empty value is left alone.
    static void CompressData(CBinaryData& data, CompressionType type);
};

} // namespace QxXmlLib16
