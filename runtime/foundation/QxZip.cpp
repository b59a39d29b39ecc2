#include <QxXmlLib16/foundation/QxZip.h>

#include <QxXmlLib16/foundation/Exceptions.h>
#include <QxXmlLib16/foundation/Functions.h>

#include <zlib.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <new>

namespace QxXmlLib16 {

namespace {

constexpr int kCompressionLevel = 1;
constexpr int kGzipWindowBits = 15 + 16;       // 32 KiB window with the gzip wrapper
constexpr int kAutoDetectWindowBits = 15 + 32; // gzip or zlib wrapper, whichever is found
constexpr int kMemoryLevel = 8;
constexpr unsigned kInflateChunk = 65536;

struct FreeDeleter {
    void operator()(unsigned char* data) const { std::free(data); }
};

} // namespace

void CQxZip::Compress(unsigned char** data, unsigned long* length, CompressionType type) {
    if (type == ctNone) return;
    // zlib counts in 32 bits; a larger input cannot go through the single deflate call.
    if (*length > UINT_MAX)
        throw CQxException(FormatString(L"Failed to compress data. [Error Code: %d]", Z_BUF_ERROR));
    z_stream stream{};
    int status = type == ctGzip ? deflateInit2(&stream, kCompressionLevel, Z_DEFLATED, kGzipWindowBits,
                                               kMemoryLevel, Z_DEFAULT_STRATEGY)
                                : deflateInit(&stream, kCompressionLevel);
    if (status != Z_OK)
        throw CQxException(FormatString(L"Failed to compress data. [Error Code: %d]", status));

    // The output gets no more room than the input: data that does not shrink is refused.
    std::unique_ptr<unsigned char, FreeDeleter> output(
        static_cast<unsigned char*>(std::malloc(*length ? *length : 1)));
    if (!output) {
        deflateEnd(&stream);
        throw std::bad_alloc();
    }
    const uInt size = static_cast<uInt>(*length);
    stream.next_in = *data;
    stream.avail_in = size;
    stream.next_out = output.get();
    stream.avail_out = size;
    status = deflate(&stream, Z_NO_FLUSH);
    if (status == Z_OK) status = deflate(&stream, Z_FINISH);
    const unsigned long compressedLength = stream.total_out;
    deflateEnd(&stream);
    if (status != Z_STREAM_END)
        throw CQxException(FormatString(L"Failed to compress data. [Error Code: %d]", status));

    std::free(*data);
    *data = output.release();
    *length = compressedLength;
}

void CQxZip::Decompress(unsigned char** data, unsigned long* length) {
    if (!*data || *length == 0 || *length > UINT_MAX) return;
    z_stream stream{};
    if (inflateInit2(&stream, kAutoDetectWindowBits) != Z_OK) return;
    stream.next_in = *data;
    stream.avail_in = static_cast<uInt>(*length);

    CBinaryData inflated;
    std::unique_ptr<unsigned char[]> chunk(new unsigned char[kInflateChunk]);
    int status = Z_OK;
    while (status == Z_OK) {
        stream.next_out = chunk.get();
        stream.avail_out = kInflateChunk;
        status = inflate(&stream, Z_NO_FLUSH);
        if (status == Z_OK || status == Z_STREAM_END)
            inflated.Append(chunk.get(), kInflateChunk - stream.avail_out);
    }
    inflateEnd(&stream);
    // Anything short of a complete stream (plain text, truncated data) passes through untouched.
    if (status != Z_STREAM_END) return;

    std::free(*data);
    *length = inflated.GetLength();
    *data = inflated.ReleaseData();
}

void CQxZip::CompressData(CBinaryData& data, CompressionType type) {
    if (data.GetLength() == 0 || type == ctNone) return;
    unsigned long length = data.GetLength();
    unsigned char* bytes = data.ReleaseData();
    try {
        Compress(&bytes, &length, type);
    } catch (...) {
        data = CBinaryData(bytes, length, true);
        throw;
    }
    data = CBinaryData(bytes, length, true);
}

} // namespace QxXmlLib16
