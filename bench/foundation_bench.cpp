// Hot paths of the foundation on 50 MB of text, each against a plain reference measured in the same
// run: appending text to a CStringBuffer against std::wstring, encoding with CEncoder against a
// naive per-character encoder, and appending octets to a CBinaryData against std::vector.
#include "BenchTiming.h"

#include <QxXmlLib16/values/BinaryData.h>
#include <QxXmlLib16/foundation/Encoder.h>
#include <QxXmlLib16/foundation/StringBuffer.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

using namespace QxXmlLib16;

namespace {

constexpr size_t kCharacters = 50u << 20;

void Report(const char* name, double measured, double reference) {
    std::printf("%-44s %8.3f s  reference %8.3f s  ratio %5.2f\n", name, measured, reference,
                measured / reference);
}

// Text as the writers produce it: runs of 5 to 40 characters.
std::wstring SampleText(bool nonAscii) {
    std::wstring text;
    text.reserve(kCharacters);
    for (size_t i = 0; text.size() < kCharacters; ++i)
        text +=
            (nonAscii && i % 7 == 0) ? L"<name>Zürich–Genève</name>" : L"<trkpt lat=\"47.1\" lon=\"8.5\">";
    return text;
}

// The obvious encoder: one character at a time into a growing string.
std::string NaiveUtf8(const std::wstring& text) {
    std::string out;
    for (const wchar_t c : text) {
        const auto u = static_cast<unsigned>(c);
        if (u < 0x80) {
            out += static_cast<char>(u);
        } else if (u < 0x800) {
            out += static_cast<char>(0xC0 | u >> 6);
            out += static_cast<char>(0x80 | (u & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | u >> 12);
            out += static_cast<char>(0x80 | (u >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (u & 0x3F));
        }
    }
    return out;
}

} // namespace

int main() {
    const std::wstring ascii = SampleText(false);
    const std::wstring mixed = SampleText(true);

    size_t sink = 0;
    const size_t piece = 28;
    Report("CStringBuffer::Append(ptr, len) vs wstring", MedianSeconds([&] {
               CStringBuffer buffer;
               for (size_t i = 0; i + piece <= ascii.size(); i += piece)
                   buffer.Append(ascii.data() + i, piece);
               sink += buffer.GetLength();
           }),
           MedianSeconds([&] {
               std::wstring text;
               for (size_t i = 0; i + piece <= ascii.size(); i += piece)
                   text.append(ascii.data() + i, piece);
               sink += text.size();
           }));

    for (const auto* text : {&ascii, &mixed}) {
        Report(text == &ascii ? "UnicodeToUtf8Binary ASCII vs naive"
                              : "UnicodeToUtf8Binary non-ASCII vs naive",
               MedianSeconds([&] { sink += CEncoder::UnicodeToUtf8Binary(text->c_str()).GetLength(); }),
               MedianSeconds([&] { sink += NaiveUtf8(*text).size(); }));
    }

    const std::string bytes(kCharacters, 'x');
    const auto* octets = reinterpret_cast<const unsigned char*>(bytes.data());
    Report("CBinaryData::Append(ptr, len) vs vector", MedianSeconds([&] {
               CBinaryData data;
               for (size_t i = 0; i + piece <= bytes.size(); i += piece)
                   data.Append(octets + i, piece);
               sink += data.GetLength();
           }),
           MedianSeconds([&] {
               std::vector<unsigned char> data;
               for (size_t i = 0; i + piece <= bytes.size(); i += piece)
                   data.insert(data.end(), octets + i, octets + i + piece);
               sink += data.size();
           }));
    std::printf("(checksum %zu)\n", sink);
    return 0;
}
