#pragma once

#include <QxXmlLib16/foundation/WhitespaceUtils.h>
#include <QxXmlLib16/xml/ExpatReader.h>

#include "xml/NameTable.h"
#include "xml/NodePool.h"
#include "xml/SourceIndex.h"

#include <memory>
#include <string>

namespace QxXmlLib16 {

namespace internal {

// What a document keeps for its nodes beyond the tree itself. It lives as long as the document,
// across reloads, so that names and blocks of nodes a caller detached stay valid.
struct CDocumentStore {
    CNameTable names;
    // Texts that repeat throughout a document: indentation and other whitespace-only runs, and
    // short values. One copy serves every element.
    CNameTable texts;
    CNodePool pool;
    // The positions of the loaded tree, once asked for; dropped with the tree.
    std::unique_ptr<CSourceIndex> sourceIndex;
    bool sourceIndexBuilt = false;
    // Set for a bound load: a parse of XML text stops at the document element and goes on as the
    // binding reads the tree (stream), which drops each part once read (streamed).
    bool streamLoads = false;
    std::unique_ptr<CExpatReader> stream;
    bool streamed = false;
    // The XML text last parsed, not owned: the caller's bytes or the document's input. Valid only
    // inside the entry point that loaded it, where errors are located in it (CErrorLocator).
    const unsigned char* text = nullptr;
    unsigned long textLength = 0;
    bool textIsUtf16 = false;

    static constexpr size_t kShortText = 8;
    static bool IsShared(const wchar_t* text, size_t length) {
        if (length <= kShortText) return true;
        for (size_t i = 0; i < length; ++i)
            if (!CWhitespaceUtils::IsWhiteSpace(text[i])) return false;
        return true;
    }
};

} // namespace internal
} // namespace QxXmlLib16
