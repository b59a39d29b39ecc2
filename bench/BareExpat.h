#pragma once

// The reference of the XML benchmarks: a namespace-aware parse by the same wide expat build that
// the library uses, with empty callbacks.

#include <expat.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

namespace bench {

inline void XMLCALL NoStart(void*, const XML_Char*, const XML_Char**) {}
inline void XMLCALL NoEnd(void*, const XML_Char*) {}
inline void XMLCALL NoText(void*, const XML_Char*, int) {}

inline void BareParse(const std::vector<unsigned char>& bytes) {
    XML_Parser parser = XML_ParserCreateNS(nullptr, '|');
    XML_SetElementHandler(parser, NoStart, NoEnd);
    XML_SetCharacterDataHandler(parser, NoText);
    if (XML_Parse(parser, reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()),
                  XML_TRUE) != XML_STATUS_OK)
        std::fprintf(stderr, "bare parse failed\n");
    XML_ParserFree(parser);
}

// The whole file, or nothing when it cannot be read.
inline std::vector<unsigned char> ReadFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return std::vector<unsigned char>((std::istreambuf_iterator<char>(file)),
                                      std::istreambuf_iterator<char>());
}

} // namespace bench
