#pragma once

// One GPX binding under test: it loads a document into its own objects and writes them back.

#include <cstddef>
#include <memory>
#include <vector>

namespace bench {

class CGpxTool {
public:
    virtual ~CGpxTool() = default;
    // Reads the document into the tool's objects, validating as far as the tool can; throws on
    // failure. Objects of an earlier load are released first.
    virtual void Load(const std::vector<unsigned char>& document) = 0;
    // Writes the loaded objects as UTF-8 XML without indentation (each peer's default) into
    // memory; returns the number of bytes.
    virtual size_t Write() = 0;
};

std::unique_ptr<CGpxTool> MakeQxTool();
// Peers, each defined only when its packages were found at configure time.
std::unique_ptr<CGpxTool> MakeGsoapTool();
std::unique_ptr<CGpxTool> MakeXsdTool();

} // namespace bench
