#pragma once

#include "internal/NameTable.h"
#include "internal/NodePool.h"

#include <string>

namespace QxXmlLib16 {

namespace internal {

// What a document keeps for its nodes beyond the tree itself. It lives as long as the document,
// across reloads, so that names and blocks of nodes a caller detached stay valid.
struct CDocumentStore {
    CNameTable names;
    CNodePool pool;
};

} // namespace internal
} // namespace QxXmlLib16
